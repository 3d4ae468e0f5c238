#include "exchange/sourceOctets.h"

#include <algorithm>
#include <utility>

#include "services/codages.h"

namespace {

constexpr std::size_t tailleDebut = 1 << 16;

std::size_t donner(std::string_view octets, char* cible, std::size_t taille)
{
    const std::size_t donnes = std::min(taille, octets.size());
    std::copy_n(octets.data(), donnes, cible);
    return donnes;
}

} // namespace

std::string_view sourceOctets::debut()
{
    if (m_donnes > 0 || !m_debut.empty())
        return m_debut;
    m_debut.resize(tailleDebut);
    std::size_t lus = 0;
    for (std::size_t n; lus < tailleDebut && (n = lireSuite(m_debut.data() + lus, tailleDebut - lus)) > 0;)
        lus += n;
    m_debut.resize(lus);
    return m_debut;
}

std::size_t sourceOctets::lire(char* cible, std::size_t taille)
{
    if (m_donnes == m_debut.size())
        return lireSuite(cible, taille);
    const std::size_t donnes = donner(std::string_view(m_debut).substr(m_donnes), cible, taille);
    m_donnes += donnes;
    return donnes;
}

std::size_t sourceMemoire::lireSuite(char* cible, std::size_t taille)
{
    const std::size_t donnes = donner(m_octets, cible, taille);
    m_octets.remove_prefix(donnes);
    return donnes;
}

sourceFichier::sourceFichier(const std::filesystem::path& fichier) :
    sourceFichier(std::fopen(fichier.string().c_str(), "rb"))
{
}

sourceFichier::sourceFichier(std::FILE* fichier) : m_fichier(fichier)
{
    if (!m_fichier)
        return;
    std::setvbuf(m_fichier.get(), nullptr, _IONBF, 0); // readers take large blocks
    m_taille = taillePresente();
}

std::size_t sourceFichier::lireSuite(char* cible, std::size_t taille)
{
    const std::size_t lus = m_fichier ? std::fread(cible, 1, taille, m_fichier.get()) : 0;
    m_finAtteinte = m_finAtteinte || lus < taille;
    return lus;
}

/// The size of a file that grew or shrank under the reader tells: its last line was cut, or is not the last one.
etatSource sourceFichier::etat() const
{
    if (!m_fichier || std::ferror(m_fichier.get()) != 0)
        return etatSource::illisible;
    return m_finAtteinte && taillePresente() != m_taille ? etatSource::changee : etatSource::saine;
}

long sourceFichier::taillePresente() const
{
    const long ici = std::ftell(m_fichier.get());
    if (ici < 0 || std::fseek(m_fichier.get(), 0, SEEK_END) != 0)
        return -1;
    const long fin = std::ftell(m_fichier.get());
    std::fseek(m_fichier.get(), ici, SEEK_SET);
    return fin;
}

std::size_t sourceFichier::resteEstime() const
{
    const long ici = m_fichier ? std::ftell(m_fichier.get()) : -1;
    return ici >= 0 && m_taille > ici ? static_cast<std::size_t>(m_taille - ici) : 0;
}

std::size_t sourceUtf16::lireSuite(char* cible, std::size_t taille)
{
    constexpr std::size_t bloc = 1 << 15;
    while (m_donnes == m_convertis.size()) {
        m_convertis.clear();
        m_donnes = 0;
        const std::size_t reste = m_lus.size();
        m_lus.resize(reste + bloc);
        const std::size_t lus = m_source.lire(m_lus.data() + reste, bloc);
        m_lus.resize(reste + lus);
        if (lus > 0)
            convertir(m_lus.size() & ~std::size_t{1});
        else if (std::exchange(m_moitie, 0U) != 0)
            m_convertis = '?';
        else
            return 0;
    }
    const std::size_t donnes = donner(std::string_view(m_convertis).substr(m_donnes), cible, taille);
    m_donnes += donnes;
    return donnes;
}

void sourceUtf16::convertir(std::size_t octets)
{
    const auto octet = [this](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(m_lus[i])); };
    for (std::size_t i = 0; i < octets; i += 2)
        ajouter(m_grosBoutiste ? octet(i) << 8 | octet(i + 1) : octet(i + 1) << 8 | octet(i));
    m_lus.erase(0, octets);
}

void sourceUtf16::ajouter(unsigned unite)
{
    const bool premiere = unite >= 0xD800u && unite < 0xDC00u;
    const bool seconde = unite >= 0xDC00u && unite < 0xE000u;
    if (seconde && m_moitie != 0) {
        ajouterUtf8(m_convertis, 0x10000u + ((m_moitie & 0x3FFu) << 10) + (unite & 0x3FFu));
        m_moitie = 0;
        return;
    }
    if (m_moitie != 0)
        m_convertis += '?';
    m_moitie = premiere ? unite : 0;
    if (seconde)
        m_convertis += '?';
    else if (!premiere)
        ajouterUtf8(m_convertis, unite);
}

#include "exchange/lecteurLignes.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t bloc = 1 << 17;

} // namespace

lecteurLignes::lecteurLignes(sourceOctets& source, std::size_t longueur, char fin) :
    m_source(source),
    m_longueur(longueur),
    m_finDeLigne(fin),
    m_tampon(longueur + bloc)
{
}

/// Moves what is left to the front, then reads until a whole piece and its end are there, or nothing comes any more.
void lecteurLignes::remplir()
{
    std::copy(m_tampon.begin() + static_cast<std::ptrdiff_t>(m_debut),
              m_tampon.begin() + static_cast<std::ptrdiff_t>(m_fin), m_tampon.begin());
    m_fin -= m_debut;
    m_debut = 0;
    while (!m_epuisee && m_fin < m_longueur + 2) {
        const std::size_t lus = m_source.lire(m_tampon.data() + m_fin, m_tampon.size() - m_fin);
        m_epuisee = lus == 0;
        m_fin += lus;
    }
}

bool lecteurLignes::suivante()
{
    const std::size_t voulus = m_longueur + 2; // a carriage return and a line feed
    const auto prochaineFin = [&] {
        return static_cast<const char*>(
            std::memchr(m_tampon.data() + m_debut, m_finDeLigne, std::min(m_fin - m_debut, voulus)));
    };
    const char* fin = prochaineFin();
    if (!fin && m_fin - m_debut < voulus && !m_epuisee) {
        remplir();
        fin = prochaineFin();
    }
    if (m_debut == m_fin) {
        m_coupee = false;
        return false;
    }
    if (!m_coupee)
        ++m_numero;
    const char* const debut = m_tampon.data() + m_debut;
    std::size_t taille = fin ? static_cast<std::size_t>(fin - debut) : m_fin - m_debut;
    const bool retour = (fin || taille <= m_longueur + 1) && taille > 0 && debut[taille - 1] == '\r';
    m_coupee = taille - (retour ? 1 : 0) > m_longueur;
    if (m_coupee) {
        m_ligne = {debut, m_longueur};
        m_debut += m_longueur;
        return true;
    }
    m_ligne = {debut, taille - (retour ? 1 : 0)};
    m_debut += taille + (fin ? 1 : 0);
    return true;
}

void lecteurLignes::passerReste()
{
    while (m_coupee && suivante())
        continue;
}

char finDeLigne(std::string_view debut)
{
    return debut.find('\r') != std::string_view::npos && debut.find('\n') == std::string_view::npos ? '\r' : '\n';
}

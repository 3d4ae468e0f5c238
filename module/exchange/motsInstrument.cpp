#include "exchange/motsInstrument.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "exchange/celluleLue.h"
#include "exchange/lecteurLignes.h"
#include "services/codages.h"

namespace {

constexpr std::size_t tailleEnTete = 7; // index, information, sign
constexpr std::size_t longueurLigne = 4096;

struct mot {
    int index = 0;
    char unite = '0';
    bool negatif = false;
    std::string_view donnee; ///< without the zeros that fill it on the left
};

bool estChiffre(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view sansZeros(std::string_view donnee)
{
    return donnee.substr(std::min(donnee.find_first_not_of('0'), donnee.size()));
}

std::optional<mot> motLu(std::string_view texte, std::size_t tailleDonnee)
{
    if (texte.size() != tailleEnTete + tailleDonnee || !estChiffre(texte[0]) || !estChiffre(texte[1]) ||
        (texte[6] != '+' && texte[6] != '-'))
        return std::nullopt;
    const int index = (texte[0] - '0') * 10 + (texte[1] - '0');
    return mot{index, texte[5], texte[6] == '-', sansZeros(texte.substr(tailleEnTete))};
}

/// Cuts off what stands before the next blank; empty at the end.
std::string_view motSuivant(std::string_view& ligne)
{
    ligne.remove_prefix(std::min(ligne.find_first_not_of(" \t"), ligne.size()));
    const std::string_view texte = ligne.substr(0, ligne.find_first_of(" \t"));
    ligne.remove_prefix(texte.size());
    return texte;
}

/// A length of a word in metres; nothing when its digits or its unit say nothing.
std::optional<double> metres(const mot& m)
{
    struct unite {
        char signe;
        std::string_view puissance; ///< of ten
        double metre;
    };
    constexpr double pied = 0.3048;
    static constexpr std::array<unite, 5> unites{
        {{'0', "e-3", 1.0}, {'1', "e-3", pied}, {'6', "e-4", 1.0}, {'7', "e-4", pied}, {'8', "e-5", 1.0}}};
    const auto* const u = std::ranges::find(unites, m.unite, &unite::signe);
    if (u == unites.end() || !std::ranges::all_of(m.donnee, estChiffre))
        return std::nullopt;
    // Read as one decimal number: the nearest double of what the instrument showed.
    const std::string chiffres = (m.donnee.empty() ? "0" : std::string(m.donnee)).append(u->puissance);
    double valeur = 0.0;
    std::from_chars(chiffres.data(), chiffres.data() + chiffres.size(), valeur);
    return (m.negatif ? -valeur : valeur) * u->metre;
}

/// One block being read.
class blocLu {
public:
    blocLu(std::string_view ligne, std::size_t numero, pointsLus& lus) : m_ligne(ligne), m_numero(numero), m_lus(lus)
    {
        m_point.code = lus.codeAbsent;
    }

    void lire()
    {
        std::string_view reste = m_ligne.substr(m_ligne.find_first_not_of(" \t"));
        const bool seize = reste[0] == '*';
        reste.remove_prefix(seize ? 1 : 0);
        for (std::string_view texte; !(texte = motSuivant(reste)).empty();) {
            const std::optional<mot> m = motLu(texte, seize ? 16 : 8);
            if (!m)
                return ecarter(entreGuillemets(depuisAnsi(texte)) + L" n'est pas un mot de " + (seize ? L"16" : L"8") +
                               L" caractères.");
            if (!prendre(*m))
                return ecarter(entreGuillemets(depuisAnsi(texte)) + L" : longueur ou unité illisible.");
        }
        garder();
    }

private:
    void ecarter(std::wstring raison) { m_lus.ecarter(m_numero, depuisAnsi(m_ligne), std::move(raison)); }

    /// @return false for a coordinate that says nothing
    bool prendre(const mot& m)
    {
        if (m.index == 11) {
            m_point.nom = m.donnee.empty() ? "0" : m.donnee;
        } else if (m.index >= 81 && m.index <= 86) {
            const std::optional<double> valeur = metres(m);
            m_coordonnees[static_cast<std::size_t>(m.index - 81)] = valeur;
            m_pieds = m_pieds || m.unite == '1' || m.unite == '7';
            return valeur.has_value();
        } else if (m.index >= 71 && m.index <= 79 && !m.donnee.empty()) {
            const std::optional<int> code = m.index == 71 ? entierDeCellule(m.donnee) : std::nullopt;
            if (code)
                m_point.code = m.negatif ? -*code : *code;
            else {
                if (m.index == 71)
                    m_point.code = 1;
                ajouterMots(m_point.observation, depuisAnsi(m.donnee));
            }
        }
        return true;
    }

    void garder()
    {
        const auto& c = m_coordonnees;
        const bool vise = c[0] && c[1], station = c[3] && c[4];
        if (!vise && !station)
            return ecarter(L"bloc sans coordonnées (mots 81 et 82).");
        const std::size_t premier = vise ? 0 : 3;
        m_point.x = *c[premier];
        m_point.y = *c[premier + 1];
        m_point.z = c[premier + 2].value_or(m_point.z);
        std::wstring remarque;
        if (m_pieds)
            ajouterMots(remarque, L"longueurs en pieds, converties en mètres (0,3048).");
        if (vise && station)
            ajouterMots(remarque, L"coordonnées de la station (84 à 86) laissées de côté.");
        if (m_point.nom.empty())
            ajouterMots(remarque, pointSansNom);
        ajouterMots(remarque, remarquesSur(m_point));
        if (!remarque.empty())
            m_lus.remarquer(m_numero, depuisAnsi(m_ligne), std::move(remarque));
        m_lus.points.push_back(std::move(m_point));
    }

    std::string_view m_ligne;
    std::size_t m_numero;
    pointsLus& m_lus;
    pointXYZ m_point;
    std::array<std::optional<double>, 6> m_coordonnees; // of words 81 to 86
    bool m_pieds = false;
};

} // namespace

/// By the first line that has anything on it: its first word is one, of a point or of a code block.
bool lecteurInstrument::reconnait(std::wstring_view extension, std::string_view debut) const
{
    if (extension == L".gsi")
        return true;
    debut.remove_prefix(std::min(debut.find_first_not_of(" \t\r\n"), debut.size()));
    const bool seize = debut.starts_with('*');
    debut.remove_prefix(seize ? 1 : 0);
    const std::optional<mot> m = motLu(debut.substr(0, debut.find_first_of(" \t\r\n")), seize ? 16 : 8);
    return m && (m->index == 11 || m->index == 41);
}

void lecteurInstrument::lire(sourceOctets& source, pointsLus& lus) const
{
    for (lecteurLignes lignes(source, longueurLigne, finDeLigne(source.debut())); lignes.suivante();) {
        const std::string_view ligne = lignes.ligne();
        if (lignes.coupee())
            lus.ecarter(lignes.numero(), depuisAnsi(ligne), L"ligne trop longue pour un bloc.");
        else if (ligne.find_first_not_of(" \t\x1A") != std::string_view::npos) // some end with a control character
            blocLu(ligne, lignes.numero(), lus).lire();
        lignes.passerReste();
    }
}

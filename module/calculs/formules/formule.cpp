#include "calculs/formules/formule.h"

#include <cmath>
#include <utility>

#include "services/nombreFixe.h"

namespace {

double puissance(double base, double exposant)
{
    if (base > 0.0)
        return std::pow(base, exposant);
    // Intended: the sign of the exponent does not count, (-2)^2 and (-2)^-2 are both 0.25.
    if (base < 0.0 && exposant == std::trunc(exposant))
        return 1.0 / std::pow(base, std::abs(exposant));
    return 0.0;
}

double operation(genreNoeud genre, double a, double b)
{
    switch (genre) {
    case genreNoeud::addition:
        return a + b;
    case genreNoeud::soustraction:
        return a - b;
    case genreNoeud::multiplication:
        return a * b;
    case genreNoeud::division:
        return b == 0.0 ? 0.0 : a / b;
    case genreNoeud::puissance:
        return puissance(a, b);
    default:
        return 0.0;
    }
}

double valeurVariable(const noeudFormule& noeud, const tableVariables& table, bool retenir)
{
    if (retenir && noeud.indiceVariable >= 0)
        return table.valeur(noeud.indiceVariable);
    const int indice = table.indice(noeud.nom);
    if (retenir)
        noeud.indiceVariable = indice;
    return table.valeur(indice);
}

const char* signe(genreNoeud genre)
{
    constexpr const char* signes[] = {"", " + ", " - ", " * ", " / ", " ^ "};
    return signes[static_cast<int>(genre)];
}

std::string texteFeuille(const noeudFormule& noeud)
{
    switch (noeud.genre) {
    case genreNoeud::variable:
        return noeud.nom;
    case genreNoeud::variableOpposee:
        return "(-" + noeud.nom + ")";
    case genreNoeud::constante:
        return nombreFixe(noeud.valeur, 4);
    default:
        return "#ERR";
    }
}

} // namespace

double formule::evaluer(const tableVariables& table, bool retenir) const
{
    if (vide())
        return 0.0;
    std::vector<double> valeurs(m_noeuds.size());
    const auto operande = [&](std::int32_t place) {
        return place == noeudFormule::absent ? 0.0 : valeurs[static_cast<std::size_t>(place)];
    };
    for (std::size_t i = 0; i < m_noeuds.size(); ++i) {
        const noeudFormule& n = m_noeuds[i];
        if (n.binaire())
            valeurs[i] = operation(n.genre, operande(n.gauche), operande(n.droite));
        else if (n.genre == genreNoeud::constante)
            valeurs[i] = n.valeur;
        else if (n.genre == genreNoeud::variable)
            valeurs[i] = valeurVariable(n, table, retenir);
        else if (n.genre == genreNoeud::variableOpposee)
            valeurs[i] = -valeurVariable(n, table, retenir);
    }
    return operande(m_racine);
}

std::string formule::texte() const
{
    std::string sortie;
    enum class etape { ouvrir, signer, fermer };
    std::vector<std::pair<std::int32_t, etape>> restent;
    if (!vide())
        restent.emplace_back(m_racine, etape::ouvrir);
    while (!restent.empty()) {
        const auto [place, quoi] = restent.back();
        restent.pop_back();
        const noeudFormule& n = m_noeuds[static_cast<std::size_t>(place)];
        if (quoi == etape::fermer) {
            sortie += " )";
        } else if (quoi == etape::signer) {
            sortie += signe(n.genre);
            restent.emplace_back(place, etape::fermer);
            restent.emplace_back(n.droite, etape::ouvrir);
        } else if (!n.binaire()) {
            sortie += texteFeuille(n);
        } else if (n.gauche != noeudFormule::absent && n.droite != noeudFormule::absent) {
            sortie += "( ";
            restent.emplace_back(place, etape::signer);
            restent.emplace_back(n.gauche, etape::ouvrir);
        }
    }
    return sortie;
}

std::string messageVerification(std::string_view texte)
{
    formule f;
    const bool juste = f.analyser(texte);
    return (juste ? "OK : " : "Erreur dans la formule") + f.texte();
}

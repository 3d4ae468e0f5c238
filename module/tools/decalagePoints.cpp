#include "tools/decalagePoints.h"

#include <algorithm>

#include "services/reelDeTexte.h"

namespace {

constexpr double memeLieu = 1e-6;

std::vector<double> longueursVoulues(const axe& ligne, const abscisses& numerotation, const demandeDecalage& demande)
{
    const double fin = ligne.longueur();
    std::vector<double> longueurs;
    switch (demande.choix) {
    case demandeDecalage::mode::intervalle:
        longueurs = numerotation.jalons(demande.pas, fin);
        longueurs.push_back(0.0);
        longueurs.push_back(fin);
        break;
    case demandeDecalage::mode::abscisses:
        for (const double abscisse : demande.listees)
            for (const double longueur : numerotation.longueursDe(abscisse, fin))
                longueurs.push_back(longueur);
        return longueurs; // in the order given
    case demandeDecalage::mode::sommets:
        longueurs = ligne.sommets();
        break;
    }
    std::sort(longueurs.begin(), longueurs.end());
    const auto proche = [](double a, double b) { return b - a < memeLieu; };
    longueurs.erase(std::unique(longueurs.begin(), longueurs.end(), proche), longueurs.end());
    if (ligne.ferme() && longueurs.size() > 1 && fin - longueurs.back() < memeLieu)
        longueurs.pop_back();
    return longueurs;
}

} // namespace

std::vector<double> abscissesAbsentes(const axe& ligne, const abscisses& numerotation, const demandeDecalage& demande)
{
    std::vector<double> absentes;
    if (demande.choix == demandeDecalage::mode::abscisses)
        for (const double abscisse : demande.listees)
            if (numerotation.longueursDe(abscisse, ligne.longueur()).empty())
                absentes.push_back(abscisse);
    return absentes;
}

double nombrePointsDecales(const axe& ligne, const demandeDecalage& demande)
{
    const double places = demande.choix == demandeDecalage::mode::intervalle ? ligne.longueur() / demande.pas + 2.0
                          : demande.choix == demandeDecalage::mode::sommets
                              ? static_cast<double>(ligne.elements().size()) + 1.0
                              : static_cast<double>(demande.listees.size());
    return places * static_cast<double>(demande.decalages.size());
}

std::vector<pointDecale> pointsDecales(const axe& ligne, const abscisses& numerotation, const demandeDecalage& demande)
{
    std::vector<pointDecale> points;
    for (const double longueur : longueursVoulues(ligne, numerotation, demande))
        for (const double decalage : demande.decalages) {
            pointDecale p{numerotation.abscisseA(longueur), decalage, ligne.decale(longueur, decalage)};
            if (!demande.altitudes)
                p.place.z = inconnu;
            points.push_back(p);
        }
    return points;
}

std::optional<std::vector<double>> nombresListes(std::wstring_view texte, std::wstring& faute)
{
    constexpr std::wstring_view separateurs = L" \t;";
    std::vector<double> nombres;
    while (true) {
        const auto debut = texte.find_first_not_of(separateurs);
        if (debut == std::wstring_view::npos)
            return nombres;
        texte.remove_prefix(debut);
        const std::wstring_view morceau = texte.substr(0, texte.find_first_of(separateurs));
        bool entier = false;
        const double valeur = reelDeTexte(morceau, &entier);
        if (!entier || !std::isfinite(valeur)) {
            faute = morceau;
            return std::nullopt;
        }
        nombres.push_back(valeur);
        texte.remove_prefix(morceau.size());
    }
}

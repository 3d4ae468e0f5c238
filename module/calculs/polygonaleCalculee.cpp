#include "calculs/polygonaleCalculee.h"

#include <cmath>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/rapportPolygonale.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/rapportPolygonaleOuverte.h"
#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"
#include "services/nombreFixe.h"

namespace {

template <class Donnees>
polygonaleCalculee calculer(const Donnees& donnees, htmlDocument* rapport)
{
    const auto resultat = compenserPolygonale(donnees);
    polygonaleCalculee p{resultat, tracePolygonaleOriginelle(resultat), tracePolygonaleCompensee(resultat),
                         avertissementsObservations(donnees.lignes)};
    for (std::wstring& phrase : avertissementsPolygonale(resultat))
        p.avertissements.push_back(std::move(phrase));
    if (rapport) {
        rapportPolygonale::ajouterEnTetes(*rapport);
        rapporterPolygonale(resultat, *rapport);
    }
    return p;
}

std::wstring texteNombre(double valeur, int decimales)
{
    if (valeur == inconnu)
        return L"inconnue";
    if (!std::isfinite(valeur))
        return L"non définie";
    const std::string texte = nombreFixe(valeur, decimales);
    return {texte.begin(), texte.end()};
}

} // namespace

polygonaleCalculee calculerPolygonale(const donneesPolygonaleFermee& donnees, htmlDocument* rapport)
{
    return calculer(donnees, rapport);
}

polygonaleCalculee calculerPolygonale(const donneesPolygonaleOuverte& donnees, htmlDocument* rapport)
{
    return calculer(donnees, rapport);
}

std::wstring texteFermetureRelative(double fermetureRelative)
{
    if (std::isnan(fermetureRelative) || fermetureRelative == inconnu)
        return L"non définie";
    // What misses by less is the rounding of the machine: a micron over a thousand kilometres.
    constexpr double fermetureNulle = 1e12;
    if (fermetureRelative > fermetureNulle)
        return L"nulle";
    if (fermetureRelative < 1.0)
        return L"supérieure à 1";
    const std::string chiffres = nombreFixe(fermetureRelative, 0);
    std::wstring texte(chiffres.begin(), chiffres.end());
    for (std::size_t place = texte.size(); place > 3; place -= 3)
        texte.insert(place - 3, L" ");
    return L"1/" + texte;
}

std::wstring resumePolygonale(const cheminement& c)
{
    return L"Erreur angulaire : " + texteNombre(c.erreurAngulaire, 5) + L" " + symboleUniteAngulaire(c.unite) +
           L" ; fermeture : " + texteNombre(c.fermeturePlanimetrique, 4) + L" pour " + texteNombre(c.longueur, 3) +
           L" (" + texteFermetureRelative(c.fermetureRelative) + L") ; en altitude : " +
           texteNombre(c.nivellement.fermeture, 4);
}

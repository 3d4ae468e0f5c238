#include "calculs/polygonaleCalculee.h"

#include "calculs/avertissementsPolygonale.h"
#include "calculs/rapportPolygonale.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/rapportPolygonaleOuverte.h"

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

} // namespace

polygonaleCalculee calculerPolygonale(const donneesPolygonaleFermee& donnees, htmlDocument* rapport)
{
    return calculer(donnees, rapport);
}

polygonaleCalculee calculerPolygonale(const donneesPolygonaleOuverte& donnees, htmlDocument* rapport)
{
    return calculer(donnees, rapport);
}

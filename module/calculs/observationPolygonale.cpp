#include "calculs/observationPolygonale.h"

#include "services/reelDeTexte.h"

std::vector<observationPolygonale> observationsDe(const std::vector<ligneObservation>& lignes)
{
    std::vector<observationPolygonale> observations;
    observations.reserve(lignes.size());
    for (const ligneObservation& ligne : lignes)
        observations.push_back({ligne.station.substr(0, longueurNomStation), reelDeTexte(ligne.angle),
                                reelDeTexte(ligne.distance), reelDeTexte(ligne.altitude)});
    return observations;
}

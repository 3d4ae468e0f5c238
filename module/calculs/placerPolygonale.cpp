#include "calculs/placerPolygonale.h"

#include <algorithm>
#include <cmath>

#include "points/projetDansDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/espaceObjet.h"
#include "services/grandeur.h"

#include "dbpl.h"

namespace {

pointDuDessin pointDe(const stationCorrigee& station, const placementPolygonale& placement)
{
    pointDuDessin point;
    point.setParams(station.nom.c_str(), {station.x, station.y, placement.altitudes ? station.z : inconnu},
                    codeDesStations(placement.code));
    point.creer(true);
    return point;
}

void dessiner(const tracePolygonale& trace)
{
    const bool entier = std::all_of(trace.sommets.begin(), trace.sommets.end(),
                                    [](const auto& s) { return estConnue(s.x) && estConnue(s.y); });
    if (!entier || trace.sommets.empty())
        return;
    auto ligne = std::make_unique<AcDbPolyline>(static_cast<unsigned int>(trace.sommets.size()));
    for (const auto& sommet : trace.sommets)
        ligne->addVertexAt(ligne->numVerts(), {sommet.x, sommet.y});
    ligne->setColorIndex(static_cast<Adesk::UInt16>(trace.couleur));
    ajouterEspaceObjet(std::move(ligne));
}

} // namespace

int placerPolygonale(const std::vector<stationCorrigee>& stations, const placementPolygonale& placement,
                     const std::vector<tracePolygonale>& traces)
{
    listePointsDuDessin* const table = tableCourante();
    if (!table)
        return 0;
    const CAcadUndoGroup groupe;
    int places = 0;
    for (const tracePolygonale& trace : traces)
        dessiner(trace);
    for (const stationCorrigee& station : stations) {
        const bool finie =
            std::isfinite(station.x) && std::isfinite(station.y) && (!placement.altitudes || std::isfinite(station.z));
        if (!finie)
            continue;
        table->Ajouter(pointDe(station, placement));
        ++places;
    }
    return places;
}

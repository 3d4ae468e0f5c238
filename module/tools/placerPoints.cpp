#include "tools/placerPoints.h"

#include "points/listePointsDuDessin.h"
#include "points/nomsDoubles.h"
#include "points/nomValable.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/codages.h"
#include "services/dialogueProgression.h"

#include "acutads.h"

std::vector<pointNomme> pointsNommes(const listePointsDuDessin& table, std::span<const int> positions)
{
    std::vector<pointNomme> points;
    points.reserve(positions.size());
    for (const int i : positions) {
        const pointDuDessin& p = *table.getData(i);
        points.push_back({depuisAnsi(p.getNomPoint()), {p.getX(), p.getY(), p.getZ()}});
    }
    return points;
}

std::wstring refusDesNoms(std::span<const pointACreer> points)
{
    for (const pointACreer& voulu : points)
        if (std::wstring refus = refusDuNom(voulu.point.nom); !refus.empty())
            return refus;
    return {};
}

void creerPoints(listePointsDuDessin& table, std::span<const pointACreer> points, int code)
{
    const CAcadUndoGroup groupe;
    dialogueProgression progression(L"Création des points", static_cast<int>(points.size()));
    const int avant = table.nbPoint();
    for (const pointACreer& voulu : points) {
        const point3& place = voulu.point.place;
        pointDuDessin point;
        point.setParams(voulu.point.nom.c_str(), {place.x, place.y, place.z}, code);
        point.creer(true, voulu.observation.c_str());
        table.Ajouter(point);
        progression.avancer();
    }
    direNomsDoubles(table, avant);
    acutPrintf(L"\n%d point(s) créé(s)", static_cast<int>(points.size()));
}

int deplacerPoints(listePointsDuDessin& table, std::span<const int> positions, std::span<const point3> places)
{
    const CAcadUndoGroup groupe;
    dialogueProgression progression(L"Déplacement des points", static_cast<int>(positions.size()));
    int verrouilles = 0, deplaces = 0;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        progression.avancer();
        const listePointsDuDessin& lue = table;
        if (estVerrouille(lue.getData(positions[i])->getId())) {
            ++verrouilles;
            continue;
        }
        pointDuDessin& point = *table.getData(positions[i]);
        point.setXY(places[i].x, places[i].y, places[i].z);
        if (!point.getId().isNull())
            point.updateDrawing();
        ++deplaces;
    }
    signalerVerrouilles(verrouilles);
    return deplaces;
}

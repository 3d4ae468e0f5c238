#include "tools/placerTransformation.h"

#include <map>
#include <set>

#include "points/projetsTopo.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/dialogueProgression.h"
#include "tools/placerPoints.h"
#include "tools/placerSuivi.h"

namespace {

/// Positions of points to be moved, by table.
using pointsParTable = std::map<int, std::set<int>>;

/// Which point of which table a symbol shows.
std::map<AcDbObjectId, std::pair<int, int>> pointsParSymbole(const projetsTopo& projet)
{
    std::map<AcDbObjectId, std::pair<int, int>> points;
    for (int t = 0; t < projet.nbTables(); ++t) {
        const listePointsDuDessin& table = *projet.getTable(t);
        for (int i = 0; i < table.nbPoint(); ++i)
            if (!table.getData(i)->getId().isNull())
                points.emplace(table.getData(i)->getId(), std::pair(t, i));
    }
    return points;
}

void compter(bilanTransformation& bilan, suivi commeQuoi)
{
    ++(commeQuoi == suivi::aucun ? bilan.refuses : bilan.objets);
    bilan.ellipses += commeQuoi == suivi::ellipse;
    bilan.approches += commeQuoi == suivi::approche;
}

/// Opens an entity and counts what `suivre` made of it.
template <typename Suivre>
void suivreEntite(const AcDbObjectId& id, AcDb::OpenMode mode, bilanTransformation& bilan, Suivre&& suivre)
{
    if (estVerrouille(id)) {
        ++bilan.verrouilles;
        return;
    }
    const AcDbObjectPointer<AcDbEntity> entite(id, mode);
    if (entite.openStatus() == Acad::eOk)
        compter(bilan, suivre(*entite.object()));
}

int transformerPoints(listePointsDuDessin& table, const std::set<int>& choisis, const transformationPlane& t)
{
    std::vector<int> positions;
    std::vector<point3> places;
    const listePointsDuDessin& lue = table;
    for (const int i : choisis) {
        const pointDuDessin& p = *lue.getData(i);
        if (!estConnue(p.getX()) || !estConnue(p.getY()))
            continue;
        const point2 place = t.appliquer({p.getX(), p.getY()});
        if (!std::isfinite(place.x) || !std::isfinite(place.y))
            continue;
        positions.push_back(i);
        places.push_back({place.x, place.y, p.getZ()});
    }
    return deplacerPoints(table, positions, places);
}

} // namespace

AcGeMatrix3d matriceDe(const transformationPlane& t)
{
    const point2 origine = t.translation();
    AcGeMatrix3d m;
    m.setCoordSystem({origine.x, origine.y, 0.0}, {t.xx, t.yx, 0.0}, {t.xy, t.yy, 0.0}, {0.0, 0.0, 1.0});
    return m;
}

std::vector<std::unique_ptr<AcDbEntity>> copiesTransformees(std::span<const AcDbObjectId> ids,
                                                            const AcGeMatrix3d& matrice, std::size_t auPlus)
{
    std::vector<std::unique_ptr<AcDbEntity>> copies;
    for (const AcDbObjectId& id : ids.first(std::min(ids.size(), auPlus))) {
        const AcDbObjectPointer<AcDbEntity> entite(id);
        AcDbEntity* copie = nullptr;
        if (entite.openStatus() == Acad::eOk && entite->getTransformedCopy(matrice, copie) == Acad::eOk && copie)
            copies.emplace_back(copie);
    }
    return copies;
}

bilanTransformation prevoirTransformation(const projetsTopo& projet, std::span<const AcDbObjectId> ids,
                                          const transformationPlane& transformation)
{
    const auto symboles = pointsParSymbole(projet);
    const AcGeMatrix3d matrice = matriceDe(transformation);
    bilanTransformation bilan;
    for (const AcDbObjectId& id : ids)
        if (!symboles.contains(id))
            suivreEntite(id, AcDb::kForRead, bilan, [&](const AcDbEntity& e) { return suiviDe(e, matrice); });
    return bilan;
}

bilanTransformation placerTransformation(projetsTopo& projet, std::span<const AcDbObjectId> ids, bool tousPoints,
                                         const transformationPlane& transformation)
{
    const CAcadUndoGroup groupe;
    const auto symboles = pointsParSymbole(projet);
    const AcGeMatrix3d matrice = matriceDe(transformation);
    bilanTransformation bilan;
    pointsParTable points;
    if (tousPoints)
        for (int i = 0; i < projet.currTable()->nbPoint(); ++i)
            points[projet.getCourante()].insert(i);
    {
        dialogueProgression progression(L"Transformation", static_cast<int>(ids.size()));
        for (const AcDbObjectId& id : ids) {
            const auto symbole = symboles.find(id);
            if (symbole != symboles.end())
                points[symbole->second.first].insert(symbole->second.second);
            else
                suivreEntite(id, AcDb::kForWrite, bilan, [&](AcDbEntity& e) { return suivre(e, matrice); });
            progression.avancer();
        }
    }
    for (const auto& choix : points)
        bilan.points += transformerPoints(*projet.getTable(choix.first), choix.second, transformation);
    signalerVerrouilles(bilan.verrouilles);
    return bilan;
}

#include "tools/placerTransformation.h"

#include <map>
#include <set>

#include "points/projetsTopo.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/dialogueProgression.h"
#include "tools/placerPoints.h"

#include "dbsymtb.h"

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

/// An entity that cannot follow as it is may have a twin of another kind that can, as the ellipse of a circle.
bool remplacer(AcDbEntity& entite, const AcGeMatrix3d& matrice)
{
    AcDbEntity* copie = nullptr;
    if (entite.getTransformedCopy(matrice, copie) != Acad::eOk || !copie)
        return false;
    std::unique_ptr<AcDbEntity> twin(copie);
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(entite.blockId(), AcDb::kForWrite);
    if (espace.openStatus() != Acad::eOk || espace->appendAcDbEntity(twin.get()) != Acad::eOk)
        return false;
    twin.release()->close();
    return entite.erase() == Acad::eOk;
}

void transformerEntite(const AcDbObjectId& id, const AcGeMatrix3d& matrice, bilanTransformation& bilan,
                       int& verrouilles)
{
    if (estVerrouille(id)) {
        ++verrouilles;
        return;
    }
    const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
    if (entite.openStatus() != Acad::eOk)
        return;
    const bool fait = entite->transformBy(matrice) == Acad::eOk || remplacer(*entite.object(), matrice);
    ++(fait ? bilan.objets : bilan.refuses);
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
    int verrouilles = 0;
    {
        dialogueProgression progression(L"Transformation", static_cast<int>(ids.size()));
        for (const AcDbObjectId& id : ids) {
            const auto symbole = symboles.find(id);
            if (symbole != symboles.end())
                points[symbole->second.first].insert(symbole->second.second);
            else
                transformerEntite(id, matrice, bilan, verrouilles);
            progression.avancer();
        }
    }
    for (const auto& choix : points)
        bilan.points += transformerPoints(*projet.getTable(choix.first), choix.second, transformation);
    signalerVerrouilles(verrouilles);
    return bilan;
}

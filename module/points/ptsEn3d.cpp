#include "points/ptsEn3d.h"

#include "points/projetDansDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/espaceObjet.h"
#include "services/grandeur.h"

#include "acutads.h"
#include "dbents.h"

namespace {

/// Leaves out unknown places and altitudes; so far from the ground an altitude is none either.
bool placable(const AcGePoint3d& p)
{
    return estConnue(p.x) && estConnue(p.y) && p.z >= -100000000.0 && p.z < 100000000.0;
}

} // namespace

void ptsEn3d()
{
    const listePointsDuDessin* const table = tableCourante();
    if (!table)
        return;
    const CAcadUndoGroup groupe;
    for (int i = 0; i < table->nbPoint(); ++i) {
        const AcGePoint3d position = table->getData(i)->getAs3dPnt();
        if (placable(position))
            ajouterEspaceObjet(std::make_unique<AcDbPoint>(position));
    }
    // Intended: the size of the table, not the number of entities made.
    acutPrintf(L"\n %d points placés", table->nbPoint());
}

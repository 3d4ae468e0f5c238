#include "points/editionPoint.h"

#include "codification/apparenceSymbole.h"
#include "codification/codificationDuModule.h"
#include "frame/CAcadUndoGroup.h"
#include "points/listePointsDuDessin.h"

int enregistrerPoint(listePointsDuDessin& table, int position, const pointDuDessin& point)
{
    const CAcadUndoGroup groupe;
    pointDuDessin dessine = point;
    const listePointsDuDessin& lue = table;
    const bool codeChange = position >= 0 && lue.getData(position)->getCode() != point.getCode();
    dessine.setId(position >= 0 ? lue.getData(position)->getId() : AcDbObjectId());
    dessine.updateDrawing();
    if (codeChange)
        conformerSymbole(dessine.getId(), dessine.getCode(), codificationDuModule());
    if (position < 0) {
        table.Ajouter(dessine);
        return table.nbPoint() - 1;
    }
    table.remplacerPoint(position, dessine);
    return position;
}

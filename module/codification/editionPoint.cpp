#include "codification/editionPoint.h"

#include "codification/apparenceSymbole.h"
#include "codification/codificationDuModule.h"
#include "points/listePointsDuDessin.h"
#include "services/CAcadUndoGroup.h"

int enregistrerPoint(listePointsDuDessin& table, int position, const pointDuDessin& point, bool& dessine)
{
    const CAcadUndoGroup groupe;
    pointDuDessin nouveau = point;
    const listePointsDuDessin& lue = table;
    const bool codeChange = position >= 0 && lue.getData(position)->getCode() != point.getCode();
    nouveau.setId(position >= 0 ? lue.getData(position)->getId() : AcDbObjectId());
    nouveau.updateDrawing();
    dessine = !nouveau.getId().isNull() && !nouveau.getId().isErased();
    if (codeChange)
        dessine = conformerSymbole(nouveau.getId(), nouveau.getCode(), codificationDuModule());
    if (position < 0) {
        table.Ajouter(nouveau);
        return table.nbPoint() - 1;
    }
    table.remplacerPoint(position, nouveau);
    return position;
}

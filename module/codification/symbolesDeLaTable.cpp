#include <vector>

#include "points/listePointsDuDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/dialogueProgression.h"
#include "services/selection.h"

/// The members of a table that reach the symbols of its points: points are a layer of their own below symbols, and
/// declare them only.

void listePointsDuDessin::renumeroter(bool tout)
{
    if (!tout)
        return nommerSansNom();
    const CAcadUndoGroup groupe;
    nommerParPlace();
    for (int i = 0; i < nbPoint(); ++i)
        mettreAJourSymbole(i);
}

/// Apart from its symbol the point stays as it is: no name has to be indexed again.
void listePointsDuDessin::mettreAJourSymbole(int i, const wchar_t* observation)
{
    pointDuDessin point = points[i];
    if (observation && (point.getId().isNull() || point.getId().isErased()))
        point.creer(true, observation);
    else
        point.updateDrawing();
    if (point.getId() == points[i].getId())
        return;
    changer(i) = point;
    objets.suspecter(i);
}

void listePointsDuDessin::updateDrawing()
{
    const CAcadUndoGroup groupe;
    dialogueProgression avancement(L"Mise à jour du dessin", nbPoint() - 1);
    for (int i = 0; i < nbPoint(); ++i) {
        mettreAJourSymbole(i);
        avancement.avancer();
    }
}

void listePointsDuDessin::updateFromDrawing()
{
    std::vector<pointDuDessin> lus;
    for (const AcDbObjectId& id : selectionDuDessin(L"INSERT")) {
        pointDuDessin point;
        if (point.updateFromDrawing(id))
            lus.push_back(point);
    }
    remplacerTout(lus);
}

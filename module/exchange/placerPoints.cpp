#include "exchange/placerPoints.h"

#include <vector>

#include "codification/observationSymbole.h"
#include "points/listePointsDuDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/dialogueProgression.h"
#include "services/selection.h"

namespace {

bool estDessine(const pointDuDessin& point)
{
    return !point.getId().isNull() && !point.getId().isErased();
}

void placerUn(listePointsDuDessin& table, int place, observationsEnAttente& observations, bilanPlacement& bilan)
{
    const listePointsDuDessin& lue = table;
    if (estVerrouille(lue.getData(place)->getId())) {
        ++bilan.verrouilles;
        return;
    }
    const auto observation = observations.find(place);
    const bool observe = observation != observations.end();
    const bool ancien = estDessine(*lue.getData(place));
    table.mettreAJourSymbole(place, observe ? observation->second.c_str() : nullptr);
    const bool dessine = estDessine(*lue.getData(place));
    ++(dessine ? bilan.dessines : bilan.sansSymbole);
    if (observe && dessine && (!ancien || ecrireObservation(lue.getData(place)->getId(), observation->second)))
        observations.erase(observation);
}

} // namespace

std::vector<std::wstring> phrasesNonPlaces(const bilanPlacement& bilan)
{
    std::vector<std::wstring> phrases;
    if (bilan.sansSymbole > 0)
        phrases.push_back(std::to_wstring(bilan.sansSymbole) +
                          L" point(s) sans symbole : coordonnées inconnues, ou block du code introuvable.");
    if (bilan.verrouilles > 0)
        phrases.push_back(std::to_wstring(bilan.verrouilles) +
                          L" point(s) dont le symbole, sur un calque verrouillé, reste tel quel.");
    if (bilan.arrete)
        phrases.emplace_back(L"Placement arrêté : les points suivants ne sont pas dessinés.");
    return phrases;
}

bilanPlacement placerPoints(listePointsDuDessin& table, std::span<const int> places,
                            observationsEnAttente& observations)
{
    const CAcadUndoGroup groupe;
    dialogueProgression avancement(L"Placement des points", static_cast<int>(places.size()) - 1,
                                   dialogueProgression::arret::permis);
    bilanPlacement bilan;
    for (const int place : places) {
        placerUn(table, place, observations, bilan);
        if (!avancement.avancer()) {
            bilan.arrete = true;
            break;
        }
    }
    return bilan;
}

bilanReleve releverSymboles(listePointsDuDessin& table)
{
    const std::vector<AcDbObjectId> symboles = selectionDuDessin(L"INSERT");
    dialogueProgression avancement(L"Lecture du dessin", static_cast<int>(symboles.size()) - 1,
                                   dialogueProgression::arret::permis);
    bilanReleve bilan;
    std::vector<pointDuDessin> lus;
    for (const AcDbObjectId& id : symboles) {
        pointDuDessin point;
        if (point.updateFromDrawing(id))
            lus.push_back(point);
        if (!avancement.avancer()) {
            bilan.arrete = true;
            return bilan;
        }
    }
    bilan.lus = static_cast<int>(lus.size());
    const listePointsDuDessin& lue = table;
    for (int i = 0; i < lue.nbPoint(); ++i)
        if (lue.getData(i)->getId().isNull())
            lus.push_back(*lue.getData(i));
    bilan.sansSymbole = static_cast<int>(lus.size()) - bilan.lus;
    const CAcadUndoGroup groupe;
    table.remplacerTout(lus);
    return bilan;
}

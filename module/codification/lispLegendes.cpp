#include "codification/lispLegendes.h"

#include "codification/dessinerLegende.h"
#include "codification/DlgInfosBlock.h"
#include "codification/DlgTableLegendes.h"
#include "services/argumentsLisp.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"

#include "aced.h"
#include "acutads.h"

int lispDecrireblock()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    if (dialoguesPossibles())
        DlgInfosBlock().exec();
    return RTNORM;
}

int lispTablegendes()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    if (!dialoguesPossibles())
        return RTNORM;
    DlgTableLegendes dialogue(blocsDuDessin(), parametresLegende());
    ads_point place{};
    if (dialogue.exec() != QDialog::Accepted ||
        acedGetPoint(nullptr, L"\nPosition des la table des légendes", place) != RTNORM)
        return RTNORM;
    const CAcadUndoGroup groupe;
    if (dessinerLegende(dialogue.choisis(), dialogue.parametres(), {place[0], place[1], place[2]}) == 0)
        acutPrintf(L"\nAucun bloc choisi : il n'y a pas de légende à dessiner");
    else
        signalerCalqueCourantVerrouille();
    return RTNORM;
}

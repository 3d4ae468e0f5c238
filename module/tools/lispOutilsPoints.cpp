#include "tools/lispOutilsPoints.h"

#include "points/projetDansDessin.h"
#include "services/argumentsLisp.h"
#include "services/selection.h"
#include "tools/DlgAjusterZ.h"
#include "tools/DlgAllegerDessin.h"
#include "tools/DlgDeportPoints.h"
#include "tools/DlgPointsDecalage.h"
#include "tools/DlgProjpoly.h"

#include "acutads.h"
#include "adscodes.h"

namespace {

/// Runs `pour` on the current table, when there is one and dialogs can be shown.
template <typename Pour>
int surTableCourante(Pour&& pour)
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    if (listePointsDuDessin* const table = tableCourante(); table && dialoguesPossibles())
        pour(*table);
    return RTNORM;
}

} // namespace

int lispProjpoly()
{
    return surTableCourante([](listePointsDuDessin& table) { DlgProjpoly(table).exec(); });
}

int lispPointsParDecalage()
{
    return surTableCourante([](listePointsDuDessin& table) {
        DlgPointsDecalage dialogue(table);
        if (dialogue.exec() != QDialog::Accepted)
            return;
        for (const double abscisse : dialogue.absentes())
            acutPrintf(L"\nLa polyligne n'a pas d'abscisse %.3f", abscisse);
        creerPoints(table, dialogue.points(), dialogue.code());
    });
}

int lispDeportPoints()
{
    return surTableCourante([](listePointsDuDessin& table) {
        DlgDeportPoints dialogue(table);
        if (dialogue.exec() != QDialog::Accepted)
            return;
        const int deplaces = deplacerPoints(table, dialogue.positions(), dialogue.places());
        acutPrintf(L"\n%d point(s) d\u00e9plac\u00e9(s)", deplaces);
    });
}

int lispAjusterZ()
{
    return surTableCourante([](listePointsDuDessin& table) { DlgAjusterZ(table).exec(); });
}

int lispAllegerDessin()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    if (dialoguesPossibles())
        DlgAllegerDessin(selectionPrealable(L"*")).exec();
    return RTNORM;
}

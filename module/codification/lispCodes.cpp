#include "codification/lispCodes.h"

#include <optional>
#include <utility>

#include "codification/apparenceSymbole.h"
#include "codification/codificationDuModule.h"
#include "codification/regleCode.h"
#include "points/etendueDesPoints.h"
#include "points/projetDansDessin.h"
#include "services/argumentsLisp.h"
#include "services/blocFichier.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/etendueVue.h"
#include "services/listeLisp.h"

#include "aced.h"
#include "dbapserv.h"

namespace {

/// Arguments of which the last ones may be missing.
bool lireChamps(argumentsLisp& arguments, codifPoint& codif)
{
    (void)(arguments.lireTexte(codif.libelle) && arguments.lireTexte(codif.chemin) &&
           arguments.lireReel(codif.tailleBlock) && arguments.lireEntier(codif.precisionAltitudes));
    return arguments.fini(); // else the reading stopped at one of another kind, or at one too many
}

/// Codes are shared by all drawings: the path must be one that each can follow.
std::optional<std::wstring> cheminDuCode(const std::wstring& saisi)
{
    const auto chemin = cheminDeBloc(saisi);
    if (!chemin)
        acutPrintf(L"\n« %s » n'est pas un bloc de la bibliothèque : donnez le chemin complet de son dessin.",
                   saisi.c_str());
    return chemin;
}

} // namespace

int lispLoadcodept()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    const tableCodification& table = codificationDuModule();
    listeLisp liste;
    for (int i = 0; i < table.nombre(); ++i) {
        liste.ouvrir();
        liste.ajouter(table[i].code);
        liste.pointer();
        liste.ajouter(table[i].libelle.c_str());
        liste.fermer();
    }
    return liste.rendre();
}

int lispAddcodept()
{
    argumentsLisp arguments;
    codifPoint codif;
    if (!arguments.lireEntier(codif.code))
        return refuserParametres();
    codif.libelle = L"Code " + std::to_wstring(codif.code);
    const bool lus = lireChamps(arguments, codif);
    if (!lus || !tailleValable(codif.tailleBlock) || codif.precisionAltitudes < 0 || codif.precisionAltitudes > 8)
        return refuserParametres();
    const auto chemin = cheminDuCode(codif.chemin);
    if (!chemin)
        return rendreNil();
    codif.chemin = *chemin;
    tableCodification& table = codificationDuModule();
    if (!codeValable(codif.code) || table.indexCode(codif.code) >= 0)
        return rendreNil();
    table.ajouter(codif);
    table.sauver();
    return acedRetInt(codif.code);
}

int lispResetcodespts()
{
    argumentsLisp arguments;
    int code = 1;
    if ((!arguments.fini() && !arguments.lireEntier(code)) || !arguments.fini() || !codeValable(code))
        return refuserParametres();
    listePointsDuDessin* const table = tableCourante();
    if (!table)
        return rendreNil();
    const CAcadUndoGroup groupe;
    int changes = 0, verrouilles = 0, sansAspect = 0;
    for (int i = 0; i < table->nbPoint(); ++i) {
        const pointDuDessin& point = *std::as_const(*table).getData(i);
        if (point.getCode() == code)
            continue;
        if (estVerrouille(point.getId())) {
            ++verrouilles;
            continue;
        }
        table->changerCode(i, code);
        const bool dessine = !point.getId().isNull() && !point.getId().isErased();
        if (dessine && !conformerSymbole(point.getId(), code, codificationDuModule()))
            ++sansAspect;
        ++changes;
    }
    signalerVerrouilles(verrouilles);
    if (sansAspect > 0)
        acutPrintf(L"\n%d symbole(s) gardent leur aspect : le block « %s » du code %d n'a pas pu être lu.", sansAspect,
                   codificationDuModule().getCodif(code).chemin.c_str(), code);
    return acedRetInt(changes);
}

int lispChgreppts()
{
    argumentsLisp arguments;
    int code = 0;
    std::wstring chemin;
    if (!arguments.lireEntier(code) || !arguments.lireTexte(chemin) || !arguments.fini() || !codeValable(code))
        return refuserParametres();
    listePointsDuDessin* const table = tableCourante();
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    const auto complet = cheminDuCode(chemin);
    if (!table || !db || !complet || complet->empty())
        return rendreNil();
    const CAcadUndoGroup groupe;
    const AcDbObjectId bloc = blocDeFichier(*db, *complet);
    if (bloc.isNull())
        return rendreNil();
    codificationDuModule().getCodif(code).chemin = *complet;
    codificationDuModule().sauver();
    int changes = 0, verrouilles = 0;
    const listePointsDuDessin& points = *table;
    for (int i = 0; i < points.nbPoint(); ++i) {
        const pointDuDessin& point = *points.getData(i);
        if (point.getCode() != code)
            continue;
        if (estVerrouille(point.getId()))
            ++verrouilles;
        else if (changerBlocSymbole(point.getId(), bloc))
            ++changes;
    }
    signalerVerrouilles(verrouilles);
    return acedRetInt(changes);
}

int lispVcode()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    int code = 0;
    if (!table || acedGetInt(L"\nCode des points a visualiser:", &code) != RTNORM)
        return RTNORM;
    const auto etendue = etendueDesPoints(*table, code);
    if (!etendue) {
        acutPrintf(L"\nPas de points de code %d dans cette table", code);
        return RTNORM;
    }
    montrerEtendue(*etendue);
    acutPrintf(L"\n%d points de code %d", table->nombreAyantCode(code), code);
    return RTNORM;
}

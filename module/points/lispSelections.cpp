#include "points/lispSelections.h"

#include <vector>

#include "points/nomsVoulus.h"
#include "points/projetDansDessin.h"
#include "services/argumentsLisp.h"
#include "services/codages.h"
#include "services/listeLisp.h"
#include "services/selection.h"

namespace {

/// The symbols of the current table's points that are wanted.
template <class Condition>
int selectionner(Condition voulu)
{
    const listePointsDuDessin* const table = tableCourante();
    if (!table)
        return rendreNil();
    std::vector<AcDbObjectId> ids;
    for (int i = 0; i < table->nbPoint(); ++i) {
        const pointDuDessin& point = *table->getData(i);
        if (!point.getId().isNull() && voulu(point))
            ids.push_back(point.getId());
    }
    return rendreSelection(ids);
}

} // namespace

int lispSelectAll()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    return selectionner([](const pointDuDessin&) { return true; });
}

int lispSeloncode()
{
    argumentsLisp arguments;
    int code = 0;
    if (!arguments.lireEntier(code) || !arguments.fini())
        return refuserParametres();
    return selectionner([code](const pointDuDessin& point) { return point.getCode() == code; });
}

int lispSelonnum()
{
    argumentsLisp arguments;
    std::wstring noms;
    int premier = 0;
    if (arguments.lireTexte(noms)) {
        if (!arguments.fini())
            return refuserParametres();
        const nomsVoulus voulus(noms);
        return selectionner(
            [&](const pointDuDessin& point) { return voulus.contient(depuisAnsi(point.getNomPoint())); });
    }
    if (!arguments.lireEntier(premier))
        return refuserParametres();
    int dernier = premier;
    if ((!arguments.fini() && !arguments.lireEntier(dernier)) || !arguments.fini())
        return refuserParametres();
    return selectionner([=](const pointDuDessin& point) {
        const auto numero = numeroDuNom(depuisAnsi(point.getNomPoint()));
        return numero && *numero >= premier && *numero <= dernier;
    });
}

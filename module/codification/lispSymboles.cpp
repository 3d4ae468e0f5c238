#include "codification/lispSymboles.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "codification/apparenceSymbole.h"
#include "codification/attributsBloc.h"
#include "codification/blocsDuDessin.h"
#include "codification/codificationDuModule.h"
#include "codification/dissocierBloc.h"
#include "codification/regleCode.h"
#include "points/projetDansDessin.h"
#include "points/superpositions.h"
#include "services/argumentsLisp.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/codages.h"
#include "services/definitionsDessin.h"
#include "services/listeLisp.h"
#include "services/selection.h"

#include "aced.h"
#include "dbapserv.h"
#include "dbsymtb.h"

namespace {

std::vector<AcDbObjectId> symbolesDe(const listePointsDuDessin& table)
{
    std::vector<AcDbObjectId> ids;
    for (int i = 0; i < table.nbPoint(); ++i)
        ids.push_back(table.getData(i)->getId());
    return ids;
}

struct bilan {
    int changes = 0, verrouilles = 0, echecs = 0;
};

void montrerAttributs(const AcDbObjectId& id, std::wstring_view etiquette, bool visible, bilan& attributs)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    if (reference.openStatus() != Acad::eOk)
        return;
    if (estVerrouille(id)) {
        ++attributs.verrouilles;
        return;
    }
    pourChaqueAttribut(*reference.object(), AcDb::kForRead, [&](AcDbAttribute& attribut) {
        const bool vise = etiquette == L"*" || memeEtiquette(attribut, etiquette);
        if (vise && (attribut.isInvisible() != 0) == visible && attribut.upgradeOpen() == Acad::eOk &&
            attribut.setInvisible(!visible) == Acad::eOk)
            ++attributs.changes;
    });
}

} // namespace

int lispCalctailleblock()
{
    argumentsLisp arguments;
    std::wstring nom;
    if (!arguments.lireTexte(nom) || !arguments.fini())
        return refuserParametres();
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    const AcDbObjectPointer<AcDbBlockTableRecord> bloc(db ? blocNomme(*db, nom) : AcDbObjectId());
    AcDbExtents etendue;
    if (bloc.openStatus() != Acad::eOk || !etendueBloc(*bloc.object(), etendue))
        return rendreNil();
    const AcGeVector3d taille = etendue.maxPoint() - etendue.minPoint();
    resbuf point{nullptr, RTPOINT, {}};
    point.resval.rpoint[0] = taille.x;
    point.resval.rpoint[1] = taille.y;
    return acedRetVal(&point);
}

int lispEnamePt()
{
    argumentsLisp arguments;
    std::wstring nom;
    if (!arguments.lireTexte(nom) || !arguments.fini())
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    AcDbObjectId id;
    return table && table->getObjId(nom.c_str(), id) ? rendreEntite(id) : rendreNil();
}

int lispTpcdaddpt()
{
    argumentsLisp arguments;
    std::wstring nom, observation;
    AcGePoint3d position;
    int code = 1;
    if (!arguments.lireTexte(nom) || !arguments.lirePoint(position) ||
        (!arguments.fini() && !arguments.lireEntier(code)) ||
        (!arguments.fini() && !arguments.lireTexte(observation)) || !arguments.fini() || !codeValable(code))
        return refuserParametres();
    listePointsDuDessin* const table = tableCourante();
    if (!table)
        return rendreNil();
    const CAcadUndoGroup groupe;
    pointDuDessin point;
    point.setParams(nom.c_str(), position, code);
    point.creer(true, observation.c_str());
    table->Ajouter(point);
    return rendreEntite(point.getId());
}

int lispAttrvisibility()
{
    argumentsLisp arguments;
    std::wstring etiquette;
    bool visible = false;
    std::vector<AcDbObjectId> symboles;
    if (!arguments.lireTexte(etiquette) || !arguments.lireLogique(visible))
        return refuserParametres();
    const bool choisis = arguments.lireSelection(symboles);
    if (!arguments.fini())
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    if (!choisis && !table)
        return rendreNil();
    const CAcadUndoGroup groupe;
    bilan attributs;
    for (const AcDbObjectId& id : choisis ? symboles : symbolesDe(*table))
        montrerAttributs(id, etiquette, visible, attributs);
    signalerVerrouilles(attributs.verrouilles);
    return acedRetInt(attributs.changes);
}

int lispModifAttrib()
{
    argumentsLisp arguments;
    AcDbObjectId id;
    std::vector<std::pair<std::wstring, std::wstring>> textes;
    if (!arguments.lireEntite(id))
        return refuserParametres();
    for (std::wstring etiquette, texte; arguments.lireTexte(etiquette);) {
        if (!arguments.lireTexte(texte))
            return refuserParametres();
        textes.emplace_back(etiquette, texte);
    }
    if (textes.empty() || !arguments.fini())
        return refuserParametres();
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    if (reference.openStatus() != Acad::eOk)
        return rendreNil();
    if (estVerrouille(id)) {
        signalerVerrouilles(1);
        return acedRetInt(0);
    }
    const CAcadUndoGroup groupe;
    int ecrits = 0;
    pourChaqueAttribut(*reference.object(), AcDb::kForRead, [&](AcDbAttribute& attribut) {
        const auto texte =
            std::ranges::find_if(textes, [&](const auto& t) { return memeEtiquette(attribut, t.first); });
        ecrits += texte != textes.end() && changerTexte(attribut, texte->second) == Acad::eOk;
    });
    return acedRetInt(ecrits);
}

int lispRegPts()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    listePointsDuDessin* const table = tableCourante();
    if (!table)
        return rendreNil();
    const CAcadUndoGroup groupe;
    table->updateDrawing();
    const std::vector<AcDbObjectId> symboles = symbolesDe(*table);
    signalerVerrouilles(static_cast<int>(std::ranges::count_if(symboles, estVerrouille)));
    return acedRetInt(table->nbPoint());
}

int lispUpdarxttxt()
{
    argumentsLisp arguments;
    double facteur = 0.0;
    if (!arguments.lireReel(facteur) || !arguments.fini())
        return refuserParametres();
    reglerFacteurSymboles(facteur);
    const listePointsDuDessin* const table = tableCourante();
    if (!table)
        return rendreNil();
    const CAcadUndoGroup groupe;
    bilan symboles;
    for (int i = 0; i < table->nbPoint(); ++i) {
        const pointDuDessin& point = *table->getData(i);
        if (estVerrouille(point.getId())) {
            ++symboles.verrouilles;
            continue;
        }
        const AcDbObjectPointer<AcDbBlockReference> symbole(point.getId(), AcDb::kForWrite);
        const codifPoint& codif = codificationDuModule().getCodif(point.getCode());
        if (symbole.openStatus() == Acad::eOk && retaillerSymbole(*symbole.object(), tailleSymbole(codif)))
            ++symboles.changes;
    }
    signalerVerrouilles(symboles.verrouilles);
    return acedRetInt(symboles.changes);
}

int lispSuperpos()
{
    argumentsLisp arguments;
    double distance = 0.001;
    if ((!arguments.fini() && !arguments.lireReel(distance)) || !arguments.fini() || !(distance > 0.0))
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    if (!table)
        return rendreNil();
    const auto groupes = superpositions(*table, distance);
    listeLisp liste;
    for (const std::vector<int>& groupe : groupes) {
        liste.ouvrir();
        for (const int i : groupe)
            liste.ajouter(depuisAnsi(table->getData(i)->getNomPoint()).c_str());
        liste.fermer();
    }
    acutPrintf(L"\n%d superposition(s)", static_cast<int>(groupes.size()));
    return liste.rendre();
}

int lispDissocblock()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    const CAcadUndoGroup groupe;
    bilan blocs;
    // Points keep the references, which are erased: undo gives them their symbols back.
    for (const AcDbObjectId& id : demanderSelection(L"\nSelectionnez les elements a dissocier", L"INSERT"))
        if (estVerrouille(id))
            ++blocs.verrouilles;
        else
            ++(dissocierBloc(id) ? blocs.changes : blocs.echecs);
    signalerVerrouilles(blocs.verrouilles);
    acutPrintf(L"\n%d bloc(s) dissocié(s)", blocs.changes);
    if (blocs.echecs > 0)
        acutPrintf(L"\n%d bloc(s) n'ont pas pu être dissociés et restent tels quels", blocs.echecs);
    return RTNORM;
}

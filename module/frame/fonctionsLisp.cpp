#include "frame/fonctionsLisp.h"

#include "codification/DlgChoixCode.h"
#include "codification/DlgChoixPoint.h"
#include "codification/lispCodes.h"
#include "codification/lispLegendes.h"
#include "codification/lispSymboles.h"
#include "exchange/DlgTablesPoints.h"
#include "implantation/CDlgImplantationDirecte.h"
#include "points/lispPoints.h"
#include "points/lispSelections.h"
#include "services/argumentsLisp.h"
#include "services/lispSaisie.h"
#include "services/lispTextes.h"
#include "tools/lispOutilsPoints.h"
#include "tools/lispPolylignes.h"

#include "aced.h"
#include "afx.h"

namespace {

/// The code of each function is its place in this table.
constexpr fonctionLisp fonctions[] = {
    {L"calctailleblock", lispCalctailleblock},
    {L"add_pt", lispAddPt},
    {L"analyse", lispAnalyse},
    {L"attrvisibility", lispAttrvisibility},
    {L"c:projpoly", lispProjpoly},
    {L"c:vcode", lispVcode},
    {L"ename_pt", lispEnamePt},
    {L"getsegtype", lispGetsegtype},
    {L"k_getpt", lispKGetpt},
    {L"maxnum", lispMaxnum},
    {L"modif-attrib", lispModifAttrib},
    {L"reg_pts", lispRegPts},
    {L"select_all", lispSelectAll},
    {L"seloncode", lispSeloncode},
    {L"selonnum", lispSelonnum},
    {L"vldelfile", lispVldelfile},
    {L"superpos", lispSuperpos},
    {L"sxd", lispSxd},
    {L"wait_user", lispWaitUser},
    {L"tpcdaddpt", lispTpcdaddpt},
    {L"loadcodept", lispLoadcodept},
    {L"addcodept", lispAddcodept},
    {L"resetcodespts", lispResetcodespts},
    {L"choixpoint", lispChoixpoint},
    {L"chgreppts", lispChgreppts},
    {L"updarxttxt", lispUpdarxttxt},
    {L"c:decrireblock", lispDecrireblock},
    {L"c:tablegendes", lispTablegendes},
    {L"c:gererLeves", lispGererLeves},
    {L"C:pointsParDecalage", lispPointsParDecalage},
    {L"C:ZoomLeve", lispZoomLeve},
    {L"selectionnerCode", lispSelectionnerCode},
    {L"c:TopJndre", lispTopJndre},
    {L"VELATEXT", lispVelatext},
    {L"c:DISSOCBLOCK", lispDissocblock},
    {L"c:IMPLANT2", lispImplant2},
    {L"c:VLDEPORTPNTS", lispDeportPoints},
    {L"c:VLAJUSTERZ", lispAjusterZ},
    {L"c:AllegerDessin", lispAllegerDessin},
};

constexpr int nombreFonctions = static_cast<int>(std::size(fonctions));

} // namespace

std::span<const fonctionLisp> tableFonctionsLisp()
{
    return fonctions;
}

int definirFonctionsLisp()
{
    for (int code = 0; code < nombreFonctions; ++code)
        if (acedDefun(fonctions[code].nom, static_cast<short>(code)) != RTNORM)
            return RTERROR;
    return RTNORM;
}

int oublierFonctionsLisp()
{
    for (int code = 0; code < nombreFonctions; ++code)
        acedUndef(fonctions[code].nom, static_cast<short>(code));
    return RTNORM;
}

void appelerFonctionLisp()
{
    acedRetVoid(); // no value of an earlier call may show through
    const int code = acedGetFunCode();
    if (code < 0 || code >= nombreFonctions)
        return;
    try {
        fonctions[code].executer();
    } catch (CException* e) { // a position outside a table: the host must not see it
        refuserParametres();
        e->Delete();
    }
}

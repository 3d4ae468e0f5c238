#include "frame/fonctionsLisp.h"

#include "frame/argumentsLisp.h"
#include "frame/lispPoints.h"
#include "frame/lispTextes.h"

#include "aced.h"
#include "afx.h"

namespace {

/// The subject of the function is not part of the module yet: it is known and gives no value.
int aVenir()
{
    return RTNORM;
}

constexpr fonctionLisp fonctions[] = {
    {L"calctailleblock", aVenir},  {L"add_pt", lispAddPt},        {L"analyse", lispAnalyse},
    {L"attrvisibility", aVenir},   {L"c:projpoly", aVenir},       {L"c:vcode", aVenir},
    {L"ename_pt", aVenir},         {L"getsegtype", aVenir},       {L"k_getpt", aVenir},
    {L"maxnum", lispMaxnum},       {L"modif-attrib", aVenir},     {L"reg_pts", aVenir},
    {L"select_all", aVenir},       {L"seloncode", aVenir},        {L"selonnum", aVenir},
    {L"vldelfile", lispVldelfile}, {L"superpos", aVenir},         {L"sxd", aVenir},
    {L"wait_user", aVenir},        {L"tpcdaddpt", aVenir},        {L"loadcodept", aVenir},
    {L"addcodept", aVenir},        {L"resetcodespts", aVenir},    {L"choixpoint", aVenir},
    {L"chgreppts", aVenir},        {L"updarxttxt", aVenir},       {L"c:decrireblock", aVenir},
    {L"c:tablegendes", aVenir},    {L"c:gererLeves", aVenir},     {L"C:pointsParDecalage", aVenir},
    {L"C:ZoomLeve", lispZoomLeve}, {L"selectionnerCode", aVenir}, {L"c:TopJndre", aVenir},
    {L"VELATEXT", lispVelatext},   {L"c:DISSOCBLOCK", aVenir},    {L"c:IMPLANT2", aVenir},
    {L"c:VLDEPORTPNTS", aVenir},   {L"c:VLAJUSTERZ", aVenir},     {L"c:AllegerDessin", aVenir},
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

#include "frame/commandes.h"

#include "calculs/dialoguesPolygonales.h"
#include "calculs/reseau/commandeReseau.h"
#include "codification/CformulaireXYZ.h"
#include "codification/DlgTableCodification.h"
#include "exchange/DlgPntsDuDessin.h"
#include "points/ptsEn3d.h"
#include "tools/commandeCarroyage.h"
#include "tools/commandeRectangle.h"
#include "tools/DlgAxe.h"
#include "tools/DlgSuperpositions.h"
#include "tools/DlgTransformer.h"

#include "accmd.h"

namespace {

/// Kept empty: menus in use still call the command.
void importGsi() {}

constexpr commande commandes[] = {
    {L"CARROYAGE", ACRX_CMD_USEPICKSET, commandeCarroyage},
    {L"VCODIFICATION", ACRX_CMD_TRANSPARENT, commandeCodification},
    {L"COORDSXYZ", ACRX_CMD_MODAL, commandeCoordonnees},
    {L"CORRPOLFERMEE", ACRX_CMD_MODAL, corrPolFermee},
    {L"CORRPOLOUVERTE", ACRX_CMD_MODAL, corrPolOuverte},
    {L"CORRMCARRES", ACRX_CMD_MODAL, corrMCarres},
    {L"IMPORTGSI", ACRX_CMD_MODAL, importGsi},
    {L"RECT3PT", ACRX_CMD_TRANSPARENT | ACRX_CMD_USEPICKSET, commandeRectangle},
    {L"IMPORTPOINTS", ACRX_CMD_USEPICKSET, commandeImportPoints},
    {L"EXPORTPOINTS", ACRX_CMD_USEPICKSET, commandeExportPoints},
    {L"TABLEXYZ", ACRX_CMD_USEPICKSET, commandeTableXYZ},
    {L"MAJPOINTS", ACRX_CMD_USEPICKSET, commandeMajPoints},
    {L"PTSEN3D", ACRX_CMD_MODAL, ptsEn3d},
};

/// The first group keeps its thirteen: what came later stands here.
constexpr commande commandesVela[] = {
    {L"VLTRANSFORMER", ACRX_CMD_USEPICKSET, commandeTransformer},
    {L"VLSUPERPOS", ACRX_CMD_MODAL, commandeSuperpositions},
    {L"VLAXE", ACRX_CMD_MODAL, commandeAxe},
};

void enregistrer(AcEdCommandStack& pile, const wchar_t* groupe, std::span<const commande> table)
{
    for (const commande& c : table)
        pile.addCommand(groupe, c.nom, c.nom, c.drapeaux, c.executer);
}

} // namespace

std::span<const commande> tableCommandes()
{
    return commandes;
}

std::span<const commande> tableCommandesVela()
{
    return commandesVela;
}

void enregistrerCommandes()
{
    if (AcEdCommandStack* const pile = acedRegCmds) {
        enregistrer(*pile, groupeCommandes, commandes);
        enregistrer(*pile, groupeVela, commandesVela);
    }
}

void retirerCommandes()
{
    if (AcEdCommandStack* const pile = acedRegCmds) {
        pile->removeGroup(groupeCommandes);
        pile->removeGroup(groupeVela);
    }
}

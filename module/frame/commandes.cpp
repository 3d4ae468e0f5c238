#include "frame/commandes.h"

#include "calculs/dialoguesPolygonales.h"
#include "calculs/reseau/commandeReseau.h"
#include "codification/CformulaireXYZ.h"
#include "codification/DlgTableCodification.h"
#include "points/ptsEn3d.h"
#include "tools/commandeCarroyage.h"
#include "tools/commandeRectangle.h"

#include "accmd.h"

namespace {

/// Kept empty: menus in use still call the command.
void importGsi() {}

/// The subject of the command is not part of the module yet: it is known and prints nothing.
void aVenir() {}

constexpr commande commandes[] = {
    {L"CARROYAGE", ACRX_CMD_USEPICKSET, commandeCarroyage},
    {L"VCODIFICATION", ACRX_CMD_TRANSPARENT, commandeCodification},
    {L"COORDSXYZ", ACRX_CMD_MODAL, commandeCoordonnees},
    {L"CORRPOLFERMEE", ACRX_CMD_MODAL, corrPolFermee},
    {L"CORRPOLOUVERTE", ACRX_CMD_MODAL, corrPolOuverte},
    {L"CORRMCARRES", ACRX_CMD_MODAL, corrMCarres},
    {L"IMPORTGSI", ACRX_CMD_MODAL, importGsi},
    {L"RECT3PT", ACRX_CMD_TRANSPARENT | ACRX_CMD_USEPICKSET, commandeRectangle},
    {L"IMPORTPOINTS", ACRX_CMD_USEPICKSET, aVenir},
    {L"EXPORTPOINTS", ACRX_CMD_USEPICKSET, aVenir},
    {L"TABLEXYZ", ACRX_CMD_USEPICKSET, aVenir},
    {L"MAJPOINTS", ACRX_CMD_USEPICKSET, aVenir},
    {L"PTSEN3D", ACRX_CMD_MODAL, ptsEn3d},
};

} // namespace

std::span<const commande> tableCommandes()
{
    return commandes;
}

void enregistrerCommandes()
{
    AcEdCommandStack* const pile = acedRegCmds;
    if (!pile)
        return;
    for (const commande& c : commandes)
        pile->addCommand(groupeCommandes, c.nom, c.nom, c.drapeaux, c.executer);
}

void retirerCommandes()
{
    if (AcEdCommandStack* const pile = acedRegCmds)
        pile->removeGroup(groupeCommandes);
}

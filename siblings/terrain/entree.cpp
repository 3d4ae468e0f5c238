#include "accmd.h"
#include "creationTerrain.h"
#include "dialoguesTerrain.h"
#include "rxregsvc.h"
#include "terrainsOuverts.h"

namespace {

constexpr wchar_t groupe[] = L"KALT";

void demarrer(void* paquet)
{
    if (const AcRxDynamicLinker* const chargeur = acrxDynamicLinker) {
        chargeur->unlockApplication(paquet);
        chargeur->registerAppMDIAware(paquet);
    }
    ouvrirTerrains();
    if (AcEdCommandStack* const commandes = acedRegCmds) {
        commandes->addCommand(groupe, L"MNT", L"MNT", ACRX_CMD_MODAL, commandeMnt);
        commandes->addCommand(groupe, L"-MNT", L"-MNT", ACRX_CMD_MODAL + ACRX_CMD_USEPICKSET, commandeMntScript);
    }
}

void arreter()
{
    if (AcEdCommandStack* const commandes = acedRegCmds)
        commandes->removeGroup(groupe);
    fermerTerrains();
}

} // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* paquet)
{
    if (message == AcRx::kInitAppMsg)
        demarrer(paquet);
    else if (message == AcRx::kUnloadAppMsg)
        arreter();
    return AcRx::kRetOK;
}

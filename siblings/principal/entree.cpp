#include <memory>

#include "points/projetDansDessin.h"

#include "rxregsvc.h"
#include "suiviDessins.h"

namespace {

std::unique_ptr<suiviDessins> suivi; // from the first message to the last

void demarrer(void* paquet)
{
    if (const AcRxDynamicLinker* const chargeur = acrxDynamicLinker) {
        chargeur->unlockApplication(paquet);
        chargeur->registerAppMDIAware(paquet);
    }
    suivi = std::make_unique<suiviDessins>();
}

} // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* paquet)
{
    if (message == AcRx::kInitAppMsg)
        demarrer(paquet);
    else if (message == AcRx::kUnloadAppMsg)
        suivi.reset();
    else if (message == AcRx::kSaveMsg && !infosTopoEnregistrees()) // the survey module heard it first
        return AcRx::kRetError;
    return AcRx::kRetOK;
}

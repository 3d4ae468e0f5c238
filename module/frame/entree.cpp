#include "calculs/placerBrouillons.h"
#include "frame/commandes.h"
#include "frame/fonctionsLisp.h"
#include "points/projetDansDessin.h"

#include "afxwin.h"
#include "rxregsvc.h"

/// The host's door: each message is one step of the module's life.

namespace {

void demarrer(void* paquet)
{
    if (const AcRxDynamicLinker* const chargeur = acrxDynamicLinker) {
        chargeur->unlockApplication(paquet);
        chargeur->registerAppMDIAware(paquet);
    }
    enregistrerCommandes();
    suivreCopiesDeSecours();
    AfxInitRichEdit();
}

} // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* paquet)
{
    switch (message) {
    case AcRx::kInitAppMsg:
        demarrer(paquet);
        break;
    case AcRx::kUnloadAppMsg:
        retirerCommandes();
        oublierCopiesDeSecours();
        break;
    case AcRx::kLoadDwgMsg:
        definirFonctionsLisp(); // a refusal is not passed on: the rest of the module works without it
        adopterBrouillons();
        break;
    case AcRx::kUnloadDwgMsg:
        oublierFonctionsLisp();
        break;
    case AcRx::kInvkSubrMsg:
        appelerFonctionLisp();
        break;
    case AcRx::kSaveMsg:
        enregistrerInfosTopo();
        break;
    default:
        break;
    }
    return AcRx::kRetOK;
}

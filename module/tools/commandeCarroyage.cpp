#include "tools/commandeCarroyage.h"

#include <memory>

#include "codification/donneesEtendues.h"
#include "geometrie/axeDeCourbe.h"
#include "services/ajoutEntites.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/chaineResbuf.h"
#include "services/codages.h"
#include "services/ecrituresDuModule.h"
#include "services/selection.h"
#include "tools/DlgCarroyage.h"

#include "acutads.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbpl.h"

namespace {

constexpr double noeudsAuPlus = 4e6; // a step typed wrong would fill the memory

/// An open outline is taken to end where it began: its last vertex goes, and the bulge before it bends the way back.
axe contourDe(const AcDbObjectId& region)
{
    const AcDbObjectPointer<AcDbPolyline> ligne(region);
    if (ligne.openStatus() != Acad::eOk)
        return {};
    const std::unique_ptr<AcDbPolyline> contour(static_cast<AcDbPolyline*>(ligne->clone()));
    if (!contour->isClosed() && contour->numVerts() > 0) {
        contour->removeVertexAt(contour->numVerts() - 1);
        contour->setClosed(Adesk::kTrue);
    }
    return axeDeCourbe(*contour);
}

void placer(const dessinCarroyage& dessin, double hauteur)
{
    if (AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase())
        declarerApplication(*db, applicationCarroyage);
    chaineResbuf marque; // coordinates, which nobody must read as altitudes
    marque.ajouter(AcDb::kDxfRegAppName, applicationCarroyage);
    marque.ajouter(AcDb::kDxfXdInteger16, short{1}); // a mark has to hold something
    ajoutEntites ajout;
    for (const dessinCarroyage::trait& t : dessin.traits)
        ajout.ajouter(std::make_unique<AcDbLine>(AcGePoint3d(t.de.x, t.de.y, 0.0), AcGePoint3d(t.a.x, t.a.y, 0.0)));
    for (const dessinCarroyage::texte& t : dessin.textes) {
        auto texte = texteCale({t.place.x, t.place.y, 0.0}, depuisAnsi(t.contenu), hauteur, t.rotation,
                               t.aDroite ? calageTexte::droite : calageTexte::gauche);
        texte->setXData(marque.tete());
        ajout.ajouter(std::move(texte));
    }
}

} // namespace

void commandeCarroyage()
{
    if (!dialoguesPossibles())
        return;
    DlgCarroyage dialogue(selectionPrealable(L"LWPOLYLINE"));
    if (dialogue.exec() != QDialog::Accepted)
        return;
    const parametresCarroyage parametres = dialogue.parametres();
    const CAcadUndoGroup groupe;
    for (const AcDbObjectId& region : dialogue.regions()) {
        const axe contour = contourDe(region);
        if (noeudsDuCarroyage(contour, parametres) > noeudsAuPlus)
            acutPrintf(L"\nCarroyage trop serré pour cette région : plus de %.0f croix.", noeudsAuPlus);
        else
            placer(carroyage(contour, parametres), parametres.tailleTextes);
    }
    if (!dialogue.regions().empty())
        signalerCalqueCourantVerrouille();
}

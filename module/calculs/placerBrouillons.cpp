#include "calculs/placerBrouillons.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "calculs/dialogueBrouillon.h"
#include "points/annulationDuDessin.h"
#include "services/chaineResbuf.h"
#include "services/variablesHote.h"

#include "acdocman.h"
#include "aced.h"
#include "dbdict.h"
#include "dbxrecrd.h"

namespace {

constexpr const wchar_t* cleBrouillons = L"VELA_BROUILLONS";
constexpr const wchar_t* dialogues[] = {L"corrPolygoDLG", L"corrPolygoOuverteDLG"};
constexpr std::size_t longueurMorceau = 250; // what every reader of drawings takes for one text
// Beyond, nobody typed it: the settings of whoever opens a drawing are not its store.
constexpr std::size_t longueurAdoptee = 1U << 20;

/// One dialog's, as the settings keep it.
struct brouillonEmporte {
    std::wstring dialogue, texte;
};
using brouillonsEmportes = std::vector<brouillonEmporte>;

/// A dialog's name under group 1, then its text in pieces under group 300.
brouillonsEmportes lireBrouillons(const AcDbDatabase& dessin)
{
    const AcDbObjectPointer<AcDbDictionary> racine(dessin.namedObjectsDictionaryId());
    AcDbObjectId id;
    if (racine.openStatus() != Acad::eOk || racine->getAt(cleBrouillons, id) != Acad::eOk)
        return {};
    const AcDbObjectPointer<AcDbXrecord> enregistrement(id);
    resbuf* lue = nullptr;
    if (enregistrement.openStatus() == Acad::eOk)
        enregistrement->rbChain(&lue);
    const chaineResbuf chaine(lue);
    brouillonsEmportes lus;
    for (const resbuf* item = chaine.tete(); item; item = item->rbnext) {
        if (item->restype == AcDb::kDxfText)
            lus.push_back({item->resval.rstring, L""});
        else if (item->restype == AcDb::kDxfXTextString && !lus.empty())
            lus.back().texte += item->resval.rstring;
    }
    return lus;
}

void ecrireBrouillons(const AcDbDatabase& dessin, const brouillonsEmportes& brouillons)
{
    const AcDbObjectPointer<AcDbDictionary> racine(dessin.namedObjectsDictionaryId(), AcDb::kForWrite);
    if (racine.openStatus() != Acad::eOk)
        return;
    chaineResbuf chaine;
    for (const brouillonEmporte& b : brouillons) {
        chaine.ajouter(AcDb::kDxfText, b.dialogue.c_str());
        for (std::size_t debut = 0; debut < b.texte.size(); debut += longueurMorceau)
            chaine.ajouter(AcDb::kDxfXTextString, b.texte.substr(debut, longueurMorceau).c_str());
    }
    auto enregistrement = std::make_unique<AcDbXrecord>();
    AcDbObjectId id;
    if (enregistrement->setFromRbChain(*chaine.tete()) == Acad::eOk &&
        racine->setAt(cleBrouillons, enregistrement.get(), id) == Acad::eOk)
        enregistrement.release()->close();
}

void effacerBrouillons(const AcDbDatabase& dessin)
{
    const AcDbObjectPointer<AcDbDictionary> racine(dessin.namedObjectsDictionaryId(), AcDb::kForWrite);
    AcDbObjectId id;
    if (racine.openStatus() != Acad::eOk || racine->remove(cleBrouillons, id) != Acad::eOk)
        return;
    const AcDbObjectPointer<AcDbObject> enregistrement(id, AcDb::kForWrite);
    if (enregistrement.openStatus() == Acad::eOk)
        enregistrement->erase();
}

brouillonsEmportes brouillonsDuPoste()
{
    brouillonsEmportes gardes;
    for (const wchar_t* const dialogue : dialogues)
        for (std::wstring& texte : textesGardes(dialogue))
            gardes.push_back({dialogue, std::move(texte)});
    return gardes;
}

class gardeCopies : public AcEditorReactor {
public:
    void beginSave(AcDbDatabase* dessin, const ACHAR* fichier) override
    {
        std::wstring copie;
        if (!lireVariable(L"SAVEFILE", copie) || copie != fichier)
            return;
        brouillonsEmportes emportes = brouillonsDuPoste();
        for (brouillonEmporte& autre : lireBrouillons(*dessin))
            if (std::ranges::none_of(emportes,
                                     [&](const brouillonEmporte& b) { return memeSaisie(b.texte, autre.texte); }))
                emportes.push_back(std::move(autre));
        const sauvegardeEnCours sauvegarde;
        if (!emportes.empty())
            ecrireBrouillons(*dessin, emportes);
    }
};

std::unique_ptr<gardeCopies> gardeDesCopies;

/// Whether the user's settings have it now, by this call or since before. They take only what a dialog will offer.
bool adopter(const brouillonEmporte& b)
{
    if (std::ranges::find(dialogues, b.dialogue) == std::end(dialogues) || b.texte.size() > longueurAdoptee ||
        b.texte.find(L' ') != std::wstring::npos)
        return false;
    const auto yEst = [&](const std::vector<std::wstring>& textes) {
        return std::ranges::any_of(textes, [&](const std::wstring& t) { return memeSaisie(t, b.texte); });
    };
    std::vector<std::wstring> siens = textesGardes(b.dialogue);
    if (yEst(siens)) // the user's own went on since the copy
        return true;
    if (siens.size() >= brouillonsAuPlus)
        return false;
    siens.push_back(b.texte);
    garderTextes(b.dialogue, siens);
    return yEst(textesGardes(b.dialogue)); // settings may refuse a text, or not be writable
}

} // namespace

void suivreCopiesDeSecours()
{
    gardeDesCopies = std::make_unique<gardeCopies>();
    if (AcEditor* const editeur = acedEditor)
        editeur->addReactor(gardeDesCopies.get());
}

void oublierCopiesDeSecours()
{
    if (AcEditor* const editeur = acedEditor)
        editeur->removeReactor(gardeDesCopies.get());
    gardeDesCopies = nullptr;
}

void adopterBrouillons()
{
    AcDbDatabase* const dessin = curDoc() ? curDoc()->database() : nullptr;
    brouillonsEmportes restants = dessin ? lireBrouillons(*dessin) : brouillonsEmportes();
    if (restants.empty())
        return;
    if (std::erase_if(restants, adopter) == 0)
        return;
    const sauvegardeEnCours sansJournal;
    const bool historique = dessin->undoRecording();
    dessin->disableUndoRecording(true); // nothing that the user did
    if (restants.empty())
        effacerBrouillons(*dessin);
    else
        ecrireBrouillons(*dessin, restants);
    dessin->disableUndoRecording(!historique);
}

std::uint64_t etatBrouillons()
{
    std::uint64_t etat = 0;
    for (const brouillonEmporte& b : brouillonsDuPoste())
        etat = etat * 31 + std::hash<std::wstring>()(b.dialogue + b.texte);
    return etat;
}

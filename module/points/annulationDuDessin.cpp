#include "points/annulationDuDessin.h"

#include <memory>
#include <unordered_map>
#include <vector>

#include "points/journalProjet.h"
#include "services/CAcadUndoGroup.h"
#include "services/Uncopyable.h"

#include "acdocman.h"
#include "aced.h"
#include "dbapserv.h"
#include "dbxrecrd.h"

namespace {

constexpr int groupeNumero = 90;

/// Does something at its end, also when that is an exception.
template <class Fin>
class enAttendant : Uncopyable {
public:
    explicit enAttendant(Fin laFin) : fin(laFin) {}
    ~enAttendant() { fin(); }

private:
    Fin fin;
};

/// Tells when one command ends and another begins.
class suiviCommandes : public AcEditorReactor, public AcApDocManagerReactor {
public:
    suiviCommandes();
    ~suiviCommandes();
    suiviCommandes(const suiviCommandes&) = delete;
    suiviCommandes& operator=(const suiviCommandes&) = delete;

    void commandWillStart(const ACHAR* nom) override;
    void commandEnded(const ACHAR*) override { finir(); }
    void commandCancelled(const ACHAR*) override { finir(); }
    void commandFailed(const ACHAR*) override { finir(); }
    void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode, AcAp::DocLockMode, AcAp::DocLockMode,
                                 const ACHAR*) override;

private:
    void finir();
};

class annulationDuDessin : public AcDbDatabaseReactor, public dessinDuJournal {
public:
    annulationDuDessin(AcDbDatabase& leDessin, projetsTopo& projet);
    ~annulationDuDessin() override;
    annulationDuDessin(const annulationDuDessin&) = delete;
    annulationDuDessin& operator=(const annulationDuDessin&) = delete;

    const AcDbDatabase* base() const { return &dessin; }
    journalProjet& leJournal() { return journal; }

    bool ecrire(int numero) override;
    int groupe() const override;

    void objectAppended(const AcDbDatabase*, const AcDbObject* objet) override { changer(*objet); }
    void objectOpenedForModify(const AcDbDatabase*, const AcDbObject* objet) override { changer(*objet); }
    void objectErased(const AcDbDatabase*, const AcDbObject* objet, Adesk::Boolean) override { changer(*objet); }
    void objectModified(const AcDbDatabase*, const AcDbObject* objet) override;
    void goodbye(const AcDbDatabase*) override;

private:
    void changer(const AcDbObject& objet);
    AcDbObjectId creerObjet();

    AcDbDatabase& dessin;
    journalProjet journal;
    AcDbObjectId objetNumero; // made with the first change
    bool ecriture = false;    // the number changes by our own hand
};

/// Those of the session, and what they hear of commands while there is one.
struct registre {
    struct commande {
        const AcDbDatabase* dessin;
        int groupe; // 0: it makes no group of its changes
    };

    std::unordered_map<const projetsTopo*, std::unique_ptr<annulationDuDessin>> parProjet;
    std::vector<commande> enCours;
    int dernierGroupe = 0;
    std::unique_ptr<suiviCommandes> commandes; // goes before those under way, which it forgets

    /// Without a project to follow, commands are not listened to.
    void cesserSiVide()
    {
        if (parProjet.empty())
            commandes = nullptr;
    }

    static registre& unique()
    {
        static registre r;
        return r;
    }
};

void clore(const AcDbDatabase* dessin)
{
    for (const auto& [projet, annulation] : registre::unique().parProjet)
        if (annulation->base() == dessin)
            annulation->leJournal().clore();
}

AcDbDatabase* dessinDeTravail()
{
    return acdbHostApplicationServices()->workingDatabase();
}

// ---- commands

suiviCommandes::suiviCommandes()
{
    if (AcEditor* const editeur = acedEditor)
        editeur->addReactor(this);
    acDocManager->addReactor(this);
}

suiviCommandes::~suiviCommandes()
{
    if (AcEditor* const editeur = acedEditor)
        editeur->removeReactor(this);
    acDocManager->removeReactor(this);
    registre::unique().enCours.clear();
}

void suiviCommandes::commandWillStart(const ACHAR* nom)
{
    registre& r = registre::unique();
    const AcDbDatabase* const dessin = dessinDeTravail();
    clore(dessin);
    AcEdCommandStack* const pile = acedRegCmds;
    const AcEdCommand* const commande = pile ? pile->lookupGlobalCmd(nom) : nullptr; // null: defined in AutoLISP
    const bool marquee = !commande || (commande->commandFlags() & ACRX_CMD_NO_UNDO_MARKER) == 0;
    const bool dedans = !r.enCours.empty() && r.enCours.back().dessin == dessin && r.enCours.back().groupe != 0;
    const int groupe = dedans ? r.enCours.back().groupe : marquee ? ++r.dernierGroupe : 0;
    r.enCours.push_back({dessin, groupe});
}

void suiviCommandes::finir()
{
    clore(dessinDeTravail());
    if (auto& enCours = registre::unique().enCours; !enCours.empty()) { // it may have begun before this was there
        clore(enCours.back().dessin);                                   // it may have passed on to another
        enCours.pop_back();
    }
}

/// A lock comes before the changes that someone makes outside commands.
void suiviCommandes::documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode, AcAp::DocLockMode,
                                             AcAp::DocLockMode, const ACHAR*)
{
    clore(document->database());
}

// ---- the drawing

annulationDuDessin::annulationDuDessin(AcDbDatabase& leDessin, projetsTopo& projet) :
    dessin(leDessin),
    journal(projet, *this)
{
    dessin.addReactor(this);
}

annulationDuDessin::~annulationDuDessin()
{
    dessin.removeReactor(this);
}

int annulationDuDessin::groupe() const
{
    const auto& enCours = registre::unique().enCours;
    if (!enCours.empty() && enCours.back().dessin == &dessin && enCours.back().groupe != 0)
        return enCours.back().groupe;
    return -CAcadUndoGroup::courant(); // apart from those of commands
}

void annulationDuDessin::changer(const AcDbObject& objet)
{
    if (!ecriture && !sauvegardeEnCours::active() && !objet.isUndoing() && objet.objectId() != objetNumero)
        journal.dessinChange();
}

void annulationDuDessin::objectModified(const AcDbDatabase*, const AcDbObject* objet)
{
    if (ecriture || objetNumero.isNull() || objet->objectId() != objetNumero)
        return;
    resbuf* chaine = nullptr;
    if (const auto* const numero = AcDbXrecord::cast(objet);
        !numero || numero->rbChain(&chaine) != Acad::eOk || !chaine)
        return;
    const int lu = chaine->resval.rlong;
    acutRelRb(chaine);
    if (!journal.aller(lu))
        acutPrintf(L"\nLes tables de points ne peuvent pas revenir aussi loin : l'historique de leurs modifications "
                   L"est trop long.");
}

bool annulationDuDessin::ecrire(int numero)
{
    const enAttendant sien([this] { ecriture = false; });
    ecriture = true;
    if (objetNumero.isNull())
        objetNumero = creerObjet();
    const AcDbObjectPointer<AcDbXrecord> objet(objetNumero, AcDb::kForWrite, true);
    resbuf item{nullptr, groupeNumero, {}};
    item.resval.rlong = numero;
    return objet.openStatus() == Acad::eOk && objet->setFromRbChain(item) == Acad::eOk;
}

/// Outside the history: taking back the first change does not take back the object that tells of it.
AcDbObjectId annulationDuDessin::creerObjet()
{
    const bool enregistre = dessin.undoRecording();
    const enAttendant sansHistorique([&] { dessin.disableUndoRecording(!enregistre); });
    dessin.disableUndoRecording(true);
    auto objet = std::make_unique<AcDbXrecord>();
    resbuf item{nullptr, groupeNumero, {}};
    objet->setFromRbChain(item);
    AcDbObjectId id;
    if (dessin.addAcDbObject(id, objet.get()) == Acad::eOk) {
        objet->erase();
        objet.release()->close();
    }
    return id;
}

void annulationDuDessin::goodbye(const AcDbDatabase*)
{
    registre& r = registre::unique();
    std::erase_if(r.parProjet, [this](const auto& suivi) { return suivi.second.get() == this; }); // this one goes
    r.cesserSiVide();
}

} // namespace

void suivreAnnulation(AcDbDatabase& dessin, projetsTopo& projet)
{
    registre& r = registre::unique();
    auto& suivie = r.parProjet[&projet];
    if (suivie && suivie->base() == &dessin)
        return;
    suivie = nullptr;
    if (!dessin.undoRecording())
        return oublierAnnulation(projet);
    suivie = std::make_unique<annulationDuDessin>(dessin, projet);
    if (!r.commandes)
        r.commandes = std::make_unique<suiviCommandes>();
}

void oublierAnnulation(const projetsTopo& projet)
{
    registre& r = registre::unique();
    r.parProjet.erase(&projet);
    r.cesserSiVide();
}

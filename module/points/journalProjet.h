#pragma once

#include <deque>
#include <memory>
#include <vector>

#include "points/memoireTable.h"
#include "points/projetsTopo.h"
#include "services/CAcadUndoGroup.h"
#include "services/Uncopyable.h"

/// The drawing of a project, as its journal sees it.
class dessinDuJournal {
public:
    virtual ~dessinDuJournal() = default;
    /// Writes the number where undo finds it. @return false when it could not be.
    virtual bool ecrire(int numero) = 0;
    /// A number of the group of changes that is known to go on, another for each; 0 when none is known.
    virtual int groupe() const = 0;
};

/// The changes of a project's tables as steps that can be taken back and made again.
/// Each state of the project has a number. It is written where the drawing's own undo finds it, in the same group as
/// the changes of the drawing; when undo or redo bring another number back, the tables go to that state. A step begins
/// with the first change that a table announces, and ends where the drawing may begin another group: what was changed
/// is found by comparison. A number that undo brings back is always one of the steps, for a new step forgets those
/// that were taken back just as the drawing does.
/// Steps take memory for what they changed; the oldest go when they hold too much.
class journalProjet : Uncopyable {
public:
    static constexpr std::size_t plafondOctets = std::size_t{256} << 20U;

    journalProjet(projetsTopo& leProjet, dessinDuJournal& leDessin, std::size_t lePlafond = plafondOctets);
    ~journalProjet();

    /// The journal of a project, null when it has none.
    static journalProjet* de(const projetsTopo& projet);

    /// The project is about to change.
    void toucher()
    {
        if (!ecrit || limites != CAcadUndoGroup::limites())
            noter();
    }
    /// Points of this table are handed out.
    void confier(const memoireTable& memoire)
    {
        if (ouverte != 0 && limites != CAcadUndoGroup::limites())
            clore(); // what was open is of a group that is over
        confiee = &memoire;
    }
    /// Something else of the drawing changed: maybe in another group than the number that was written last.
    void dessinChange();
    /// A table leaves the project: steps may bring it back.
    void garder(std::unique_ptr<listePointsDuDessin> table);
    /// Ends the step; what changed without a word makes one.
    void clore();
    /// Undo or redo brought this number back. @return false when that state is not known any more; the tables are then
    /// in the nearest one.
    bool aller(int numero);

private:
    using tables = std::vector<std::unique_ptr<listePointsDuDessin>>;
    using ordre = std::vector<listePointsDuDessin*>;

    struct etape {
        int numero = 0; // of the state after it
        std::vector<std::pair<listePointsDuDessin*, changementTable>> changements;
        bool listeChange = false;
        ordre liste; // on the other side, when it differs
        int courante = 0;
        tables gardees; // of either side, but not in the project

        bool vide() const { return changements.empty() && !listeChange; }
        std::size_t octets() const;
    };

    void noter();
    etape difference() const;
    void poser(etape nouvelle, int numero);
    void valider();
    void oublierAnciennes();
    void echanger(etape& e);
    void echangerListe(etape& e);
    ordre ordreActuel() const;

    projetsTopo& projet;
    dessinDuJournal& dessin;
    std::size_t plafond;
    std::deque<etape> etapes;
    std::size_t faites = 0; // steps that the project is beyond; the others were taken back
    std::size_t octets = 0;
    int base = 0;    // number of the state before the first step
    int dernier = 0; // number given last
    int ouverte = 0; // number written for the step under way, 0 when none is
    int groupe = 0;  // in which it was written
    int limites = 0; // of the module's groups, passed when it was written
    bool ecrit = false;
    const memoireTable* confiee = nullptr; // whose points were handed out last
    ordre liste;                           // at the last step
    int courante = 0;                      // the same
    tables sorties;                        // left the project since
};

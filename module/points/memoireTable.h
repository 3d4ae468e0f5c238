#pragma once

#include <map>
#include <optional>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "points/pointDuDessin.h"
#include "services/Uncopyable.h"

class journalProjet;
class listePointsDuDessin;

/// What tells two states of a table apart, as the one that the table is not in has it. Exchanged with the table, it
/// puts the table into that state and holds the other.
struct changementTable {
    CString nom;
    int nombre = 0;                                    // of points
    std::vector<std::pair<int, pointDuDessin>> points; // those that differ, by their position in both states
    std::vector<pointDuDessin> queue;                  // those beyond the end of the table as it is

    std::size_t octets() const;
};

/// What a table was at the last step of its journal, as far as it may have changed since: points are copied, a page at
/// a time, before they change. Those handed out for changes stay copied, for who holds them tells nobody.
class memoireTable : Uncopyable {
public:
    memoireTable(journalProjet& leJournal, const listePointsDuDessin& laTable);

    // To be called before the table changes.
    void avantDAjouter();
    void avantDeChanger(int position);
    void avantDeToutChanger();

    /// A point is handed out; it may change until the table grows or shrinks.
    void confier(int position);
    /// The array is handed out: anything may happen to it from now on.
    void confierTout();
    /// Whether the point handed out last is not what it was then.
    bool confieADiffere() const;
    /// Whether points may have changed without a word.
    bool aDesConfies() const { return toutConfie || !confiees.empty(); }
    bool estToutConfie() const { return toutConfie; }

    /// What tells the table from what it was; none when it is the same.
    std::optional<changementTable> changement() const;
    /// The table is remembered as it is now.
    void valider();

private:
    using page = std::vector<pointDuDessin>;

    std::span<const pointDuDessin> points() const;
    std::span<const pointDuDessin> pointsDePage(int numero) const;
    void oublierConfiesPerimes();
    void copier(int numero);
    void copierTout();

    journalProjet& journal;
    const listePointsDuDessin& table;
    CString nom;
    int nombre = 0;
    std::map<int, page> copies; // by page number
    std::set<int> confiees;     // pages with points handed out
    int tailleConfiee = 0;      // of the table when the last of them was
    int dernierConfie = -1;
    bool toutConfie = false;
};

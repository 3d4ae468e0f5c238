#pragma once

#include <memory>
#include <vector>

#include "points/exportation.h"
#include "points/listePointsDuDessin.h"

class QuarvelSerializer;

/// What the user reads when the project could not be written whole.
extern const wchar_t* const messageErreurEcriture;

/// The survey data of one drawing: its point tables, in order, and which of them is the current one.
/// Owns its tables. A project always ends up with a table: a new one, and one whose reading failed, holds a single
/// empty table named "LEVE".
class VELA_EXPORT projetsTopo {
public:
    projetsTopo();
    projetsTopo(const projetsTopo&) = delete;
    projetsTopo& operator=(const projetsTopo&) = delete;
    ~projetsTopo();

    /// One empty table named "LEVE", current.
    void reset();
    /// No table at all; the current position is -1.
    void removeAll();

    int nbTables() const { return static_cast<int>(tables.size()); }
    /// The table at a position; one outside the project raises the invalid-argument exception.
    listePointsDuDessin* getTable(int i) const;
    int getCourante() const { return courante; }
    /// Any number is taken; currTable() settles it.
    void setCourante(int position) { courante = position; }

    /// Appends an empty table; the current one does not change.
    void creerTablePoints(const wchar_t* nom);
    /// Removes a table, its entities stay in the drawing. The last one stays, and a position outside the project
    /// changes nothing. When the current table goes, the one before it becomes current.
    void removeTablePoints(int i);
    /// The current table. An empty project gets an unnamed one first, a position past the end becomes 0, and a negative
    /// one raises the invalid-argument exception.
    listePointsDuDessin* currTable();

    /// Adds dz to the known altitudes of every table.
    void decalZ(const double& dz);
    /// Tells every table, as listePointsDuDessin::notifyPositionPoint.
    void notifyPositionPoint(const AcDbObjectId& id, const AcGePoint3d& position, int masque);

    /// The stored form: current position, number of tables, tables. No version, no marker.
    /// @return 1, or 0 at the first item that fails, which also prints "\t*** ERREUR ***".
    int SaveToXRecord(QuarvelSerializer* s) const;
    /// Replaces the project by what is stored. A damaged form is dropped whole: the project is reset. Of several empty
    /// tables named "LEVE" none is kept, save one when there is no other table.
    /// @return 1, or 0 when the form was damaged.
    int GetFromXRecord(QuarvelSerializer* s);

private:
    friend class journalProjet;

    void ecarter(std::unique_ptr<listePointsDuDessin> table);
    void annoncer() const;
    int lireTables(QuarvelSerializer* s);
    void retirerLevesVides();

    int courante = -1;
    std::vector<std::unique_ptr<listePointsDuDessin>> tables;
};

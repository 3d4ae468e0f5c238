#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "points/exportation.h"
#include "points/indexNoms.h"
#include "points/indexObjets.h"
#include "points/pointDuDessin.h"

#include "afx.h"
#include "afxtempl.h"
#include "gevec2d.h"

class QuarvelSerializer;
class memoireTable;
struct changementTable;

/// One named table of survey points.
/// Owns its points by value, in table order; positions are 0-based and change when a point is removed.
/// The index finds the point indexed last under a name; names may repeat, and letter case and surrounding spaces do not
/// count. Some operations leave the index behind the points: they say so.
/// A position outside the table raises the invalid-argument exception.
/// What reaches the symbols (renumeroter, updateDrawing, updateFromDrawing) is defined in codification.
class VELA_EXPORT listePointsDuDessin {
public:
    using tableau = CArray<pointDuDessin, const pointDuDessin&>;

    listePointsDuDessin();
    listePointsDuDessin(const listePointsDuDessin&) = delete;
    listePointsDuDessin& operator=(const listePointsDuDessin&) = delete;
    ~listePointsDuDessin();

    const CString& getNomTable() const { return nomTable; }
    void setNomTable(const wchar_t* nom) { nomTable = nom; }

    int nbPoint() const { return static_cast<int>(points.GetSize()); }
    /// The point at a position; valid until the table grows or shrinks. Who only reads takes it from a constant table:
    /// a point handed out for changes is compared at the end of each command.
    pointDuDessin* getData(int i);
    const pointDuDessin* getData(int i) const { return &points.GetAt(i); }
    /// The array itself, for changes of any kind at any time.
    tableau& getData();
    const tableau& getData() const { return points; }

    /// Appends a copy; from now on its name finds this one.
    void Ajouter(const pointDuDessin& point);
    /// Appends a new point that is not drawn; a null name gives "*". A position of altitude 0.0 is refused without
    /// notice.
    void CreerPoint(const AcGePoint3d& position, int code, const wchar_t* nom);
    /// Appends every point of the other table, duplicates included.
    void fusionnerAvec(const listePointsDuDessin& autre);
    /// Puts a point in place of another, whose name no longer finds it.
    void remplacerPoint(int i, const pointDuDessin& point);
    void changerCode(int i, int code);
    /// Removes the point found by that name and erases the entity that shows it; a name not found changes nothing. One
    /// whose entity is on a locked layer stays, and is told at the command line.
    /// The last point of the table takes its place, so the order changes. An earlier point of the same name stays, but
    /// is not found any more.
    void supprimerPoint(const wchar_t* nom);
    /// Removes the points at these positions and erases the entities that show them; the others keep their order.
    /// Points whose entity is on a locked layer stay, and are told at the command line. @return how many went.
    int supprimerPositions(const std::vector<int>& positions);
    /// Keeps one point of each horizontal place (1e-8), the one of lowest code; the entities of the others stay in the
    /// drawing. When some were removed the table ends up sorted by X, Y and code. When none was, the points stay as
    /// they were but the index is emptied: names are not found until it is rebuilt.
    void delDups();
    /// `tout` false: numbers the nameless points (nothing left once spaces, "*" and "." are stripped at both ends)
    /// after the highest number; the index keeps the old names. `tout` true: names every point by its place in the
    /// table, from 1, updates its entity, and rebuilds the index.
    void renumeroter(bool tout);

    /// Looks up the point called `nom`. @return 1 and its position, or 0 and position = -1.
    int existPoint(const wchar_t* nom, int& position) const;
    /// The first point whose X and Y are each less than 1e-6 from (x, y). @return 1, or 0 with `trouve` as it was.
    int getAt(double x, double y, pointDuDessin& trouve) const;
    /// The point nearest in the horizontal plane, the earliest of equals. @return 0 for an empty table.
    int findNearestTo(double x, double y, pointDuDessin& trouve) const;
    int nombreAyantCode(int code) const;
    /// The largest whole number that begins a name ("7B" counts 7), 0 when there is none.
    int getMaxNum() const;
    /// Adds dz to the known altitudes; one that is not finite changes nothing.
    void decalZ(const double& dz);

    /// The entity that shows the point called `nom`. @return 1, or 0 when no point has that name.
    int getObjId(const wchar_t* nom, AcDbObjectId& id) const;
    /// Where the point called `nom` is drawn: the insertion point of its block, or its own coordinates when it has
    /// none. @return 1, or 0 when no point has that name.
    int getBlockPosition(const wchar_t* nom, AcGePoint3d& position, int& code) const;
    /// Brings the symbol of every point in line with it, in table order, as pointDuDessin::updateDrawing.
    void updateDrawing();
    /// Does so for one point. @param observation of a symbol that is made anew; null: none
    void mettreAJourSymbole(int i, const wchar_t* observation = nullptr);
    /// Replaces the table by the symbols of the drawing, all spaces: every block reference with a name attribute.
    void updateFromDrawing();
    /// Puts these points in place of all, in their order.
    void remplacerTout(std::span<const pointDuDessin> nouveaux);
    /// Lets the user select entities of the kinds in the mask and adds the points that they show; then removes
    /// duplicates and numbers nameless points. Without a selection nothing changes. The tags are those of blocks with
    /// attributes, the offset that of single-line texts. Defined in exchange: see importDessin.h.
    void importFromDrawing(int genres, const wchar_t* tagNumero, const wchar_t* tagAltitude, const wchar_t* tagCode,
                           const AcGeVector2d& decalage);
    /// Copies coordinates of a moved entity into the first point that it shows. `masque`: 1 X, 2 Y, 4 Z.
    void notifyPositionPoint(const AcDbObjectId& id, const AcGePoint3d& position, int masque);
    /// Table of the stored form: name, number of points, points. Reading appends to the table and indexes the points.
    /// @return 1, or 0 at the first item that fails.
    int saveToXRecord(QuarvelSerializer* s) const;
    int GetFromXRecord(QuarvelSerializer* s);

private:
    friend class journalProjet;
    enum class blancs { espaces, espacesEtTabulations };

    const pointDuDessin* chercher(const wchar_t* nom) const;
    int positionDe(const AcDbObjectId& id);
    void retirer(int position);
    void changerTout();
    pointDuDessin& changer(int i);
    /// Puts the table into the other state of a change, which then holds this one. Names are indexed anew.
    void echanger(changementTable& autre);
    void nommerSansNom();
    void nommerParPlace();
    void reindexer();
    void oublierIndex();
    void oublierNomsPartis() const;
    void indexerEnAttente() const;

    tableau points;
    // Names are indexed when one is first asked for, or before points are handed out for changes: reading a project or
    // removing duplicates does not pay for look-ups that may never come.
    mutable indexNoms noms;
    mutable int premierEnAttente = 0;         // points from here on are not indexed yet
    blancs blancsEnAttente = blancs::espaces; // what is stripped from their names
    indexObjets objets;
    std::unique_ptr<memoireTable> memoire; // of a project whose changes undo takes back, else null
    // Siblings know the table's layout: its name stands where it stood when two more containers came before it.
    std::byte reserve[104] = {};
    CString nomTable;
};

#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

#include "geometrie/abscisses.h"
#include "geometrie/axe.h"

#include "dbid.h"

class listePointsDuDessin;
class QComboBox;

/// What dialogs on points share: which points, along which line, of which code. These work the controls of a dialog,
/// which must live longer.

/// Points by their names or by their symbols picked in the drawing; all of the table when the field is empty.
class panneauPoints {
public:
    panneauPoints(const listePointsDuDessin& laTable, QLineEdit& champ, QPushButton& designer, QLabel& designes);

    /// Places in the table, ascending, of points at a known place. Without any the user is told.
    std::vector<int> positions() const;

private:
    void designerSymboles();

    const listePointsDuDessin& m_table;
    QLineEdit& m_champ;
    QLabel& m_label;
    std::vector<int> m_designes;
};

struct ligneDesignee {
    AcDbObjectId entite;
    axe suivie; ///< empty when none was picked, or one that cannot be followed
};
/// Asks for a line or polyline of the drawing, dialogs aside. One that cannot be followed is told.
ligneDesignee designerLigne();

/// A line or polyline of the drawing, picked.
class panneauLigne {
public:
    /// @param origine receives the chainage at which a line that keeps its axis begins
    panneauLigne(QPushButton& designer, QLabel& designee, QLineEdit* origine = nullptr);

    /// Null, when the user was told that none was picked.
    const axe* choisie() const;
    /// Its jumps of chainage, from another origin if wanted.
    abscisses numerotation(double origine) const { return abscisses(origine, m_equations); }

private:
    QLabel& m_label;
    axe m_axe;
    std::vector<equationAbscisse> m_equations;
};

/// Reads the chainage at which a line begins; see lireChamp.
bool lireOrigine(QLineEdit& champ, double& origine);

/// Fills a list with the codes of the codification; a number may be typed too.
void remplirCodes(QComboBox& liste);
/// @return false when the user was told that it is no code.
bool lireCode(const QComboBox& liste, int& code);

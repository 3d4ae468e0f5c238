#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <QTableWidget>
#include <string_view>

/// Texts and cells of the lists in dialogs.

QString texteQt(std::wstring_view texte);

/// Negative, 0 or positive, as a French dictionary sorts, whatever the user's settings: letter case aside, "école"
/// before "zèbre".
int comparerTextes(const QString& a, const QString& b);

/// A cell that sorts by its text as comparerTextes says.
class elementTexte : public QTableWidgetItem {
public:
    explicit elementTexte(std::wstring_view texte);
    bool operator<(const QTableWidgetItem& autre) const override;
};

/// A cell that sorts by its number, and stands to the right. An empty one comes last.
class elementNombre : public QTableWidgetItem {
public:
    explicit elementNombre(std::wstring_view texte);
    bool operator<(const QTableWidgetItem& autre) const override;
};

/// Makes a list of whole rows with these titles; a click on a title sorts by it, another one the other way round.
void preparerListe(QTableWidget& liste, const QStringList& titres);
/// Sorts again by the title that was clicked last, if any; columns fit what they show.
void trierDeNouveau(QTableWidget& liste);

/// The row selected, or -1.
int ligneChoisie(const QTableWidget& liste);
/// Makes a dialog that chooses one row: a text typed in `chercher` leaves the rows of which a cell holds it, letter
/// case aside; OK waits for a row, and a double click on one ends the dialog.
void choisirDansListe(QDialog& dialogue, QTableWidget& liste, QLineEdit& chercher, QPushButton& ok);

#pragma once

#include <QString>
#include <QWidget>
#include <string>

/// What was typed in a dialog and not saved: kept in the user's settings, so that it outlives the dialog and a crash.
/// Fields are kept as they stand, half typed or not.

/// The fields of a dialog that have a name, a line each.
QString brouillonDesChamps(const QWidget& dialogue);
/// Fills them again; lines that are of no field are left aside.
void reprendreChamps(QWidget& dialogue, const QString& brouillon);

/// @param dialogue its name; empty when nothing is kept
QString brouillonGarde(const QString& dialogue);
/// An empty one forgets it.
void garderBrouillon(const QString& dialogue, const QString& brouillon);

// The same as the settings hold it: one line of ASCII, which begins with what tells one entry of data from another.

std::wstring texteGarde(const std::wstring& dialogue);
void garderTexte(const std::wstring& dialogue, const std::wstring& texte);
/// Whether two are states of what was typed in one go.
bool memeSaisie(const std::wstring& a, const std::wstring& b);

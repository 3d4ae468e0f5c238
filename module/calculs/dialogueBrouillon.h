#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <vector>

/// What was typed in a dialog and not saved: kept in the user's settings, so that it outlives the dialog and a crash.
/// Fields are kept as they stand, half typed or not.

/// The fields of a dialog that have a name, a line each.
QString brouillonDesChamps(const QWidget& dialogue);
/// Fills them again; lines that are of no field are left aside.
void reprendreChamps(QWidget& dialogue, const QString& brouillon);

struct brouillon {
    QString saisie; ///< what was typed in one go has one, however often it is kept: see nouvelleSaisie
    QString texte;
};
QString nouvelleSaisie();

/// Beyond, the oldest is forgotten.
constexpr std::size_t brouillonsAuPlus = 5;

/// Those of a dialog, by its name, the last first.
std::vector<brouillon> brouillonsGardes(const QString& dialogue);
void garderBrouillons(const QString& dialogue, const std::vector<brouillon>& brouillons);

// The same as the settings hold them: one line of ASCII each, without a blank, which begins with its saisie.

std::vector<std::wstring> textesGardes(const std::wstring& dialogue);
void garderTextes(const std::wstring& dialogue, const std::vector<std::wstring>& textes);
/// Whether two are states of what was typed in one go.
bool memeSaisie(const std::wstring& a, const std::wstring& b);

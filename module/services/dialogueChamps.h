#pragma once

#include <QLineEdit>

/// Numbers typed in the fields of dialogs.

/// Reads a field. One that is not wholly a number, or out of bounds, is told in a message box ("la distance" is what
/// the sentence calls it), and gets the focus. @return false then, with `valeur` as it was.
bool lireChamp(QLineEdit& champ, const wchar_t* nomme, double& valeur, double min = -1e36, double max = 1e36);

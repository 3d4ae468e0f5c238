#pragma once

#include <climits>
#include <QLineEdit>

/// Numbers typed in the fields of dialogs.

/// The greatest that is taken where nothing else bounds it: 1e38 stands for what is not known.
inline constexpr double plusGrandNombre = 1e36;

/// Reads a field. One that is not wholly a number, or out of bounds, is told in a message box ("la distance" is what
/// the sentence calls it), and gets the focus. @return false then, with `valeur` as it was.
/// From then on the field tells by itself what is wrong with it: see surveillerNombre.
bool lireChamp(QLineEdit& champ, const wchar_t* nomme, double& valeur, double min = -plusGrandNombre,
               double max = plusGrandNombre);

/// The same for a number without decimals.
bool lireEntier(QLineEdit& champ, const wchar_t* nomme, int& valeur, int min = INT_MIN, int max = INT_MAX);

/// As long as the text of a field is not wholly a number ("217,63"), a sign stands in the field, which turns red, and
/// its tooltip says why. A blank field is no fault. Asking twice is as asking once.
void surveillerNombre(QLineEdit& champ, const wchar_t* nomme);

/// A coordinate picked in the drawing, with as many decimals as the drawing shows (LUPREC).
QString texteDesigne(double coordonnee);

#pragma once

#include <string_view>

/// The strict number reader of point files and of texts in drawings: it refuses whatever is not wholly a number.
/// A number has digits before its full stop, and an exponent only after one, marked by a capital E: 12, -3, +1.50,
/// 2.5E-3. Spaces around it do not count, other blanks do. Refused on purpose: .5, -.5, 12., 1E3, 1.5e3, 12,5.
/// Refused as well: a number too large for a double. One too small for it is 0.
/// @return 1 and the value, or 0 with `valeur` as it was
int lireNombre(std::string_view texte, double& valeur);
/// The same for a wide text, taken to the 8-bit code page first; a null one is no number.
int lireNombre(const wchar_t* texte, double& valeur);

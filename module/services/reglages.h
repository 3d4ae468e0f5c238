#pragma once

#include <string>

/// What the user chose and finds again the next time: texts of the user's registry key
/// "Software\Ostrakon\Quarvel5\Reglages".

/// @return the text kept under a name; `defaut` without one
std::wstring lireReglage(const wchar_t* nom, const wchar_t* defaut);
/// One that cannot be kept lives no longer than this call.
void garderReglage(const wchar_t* nom, const std::wstring& valeur);

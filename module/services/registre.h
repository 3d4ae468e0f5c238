#pragma once

#include <optional>
#include <string>
#include <vector>

#include "windows.h"

/// Values of the platform's registry. `racine` is HKEY_CURRENT_USER or HKEY_LOCAL_MACHINE, `cle` a key below it.

struct valeurRegistre {
    DWORD type = 0;
    std::vector<BYTE> octets;
};

/// @param acces that the key is opened with. @return nothing when the key or the value cannot be read
std::optional<valeurRegistre> lireRegistre(HKEY racine, const wchar_t* cle, const wchar_t* nom,
                                           REGSAM acces = KEY_READ);
/// The same, of a text up to its first zero; nothing for a value of another type.
std::optional<std::wstring> lireTexteRegistre(HKEY racine, const wchar_t* cle, const wchar_t* nom,
                                              REGSAM acces = KEY_READ);
/// Keeps a text among the user's values; the key is made when it is missing. @return false when it cannot be kept
bool ecrireTexteRegistre(const wchar_t* cle, const wchar_t* nom, const std::wstring& texte);

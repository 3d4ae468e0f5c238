#pragma once

#include "afx.h"

/// The module's support folder and its registry key, "Software\Ostrakon\Quarvel5" of the machine.

/// Full path of a support file, in `sousDossier` when it is neither null nor empty.
/// The folder is the registry's text "chemin" (at most 2047 characters), read once for the whole process; without it
/// the path begins with "\". The result stands in one shared buffer of 4096 characters: copy it before asking again.
const wchar_t* cheminSupport(const wchar_t* fichier, const wchar_t* sousDossier = nullptr);

/// One value of the key. @return 1, or 0 (with `valeur` as it was) when the key or the value cannot be read.
int lireValeurRegistre(const wchar_t* nom, CString& valeur);
int lireValeurRegistre(const wchar_t* nom, DWORD& valeur);

#pragma once

#include <string>

#include "afx.h"

/// The module's support folder and its registry key, "Software\Ostrakon\Quarvel5" of the machine.

/// Full path of a support file, in `sousDossier` when it is neither null nor empty.
/// The folder is the registry's text "chemin" (at most 2047 characters), the user's when there is one, read once for
/// the whole process; without it the path begins with "\". The result stands in one shared buffer of 4096 characters:
/// copy it before asking again.
const wchar_t* cheminSupport(const wchar_t* fichier, const wchar_t* sousDossier = nullptr);

/// Copies the support folder among the user's own files. From then on the copy is the support folder of this process
/// and, through the user's registry, of those to come: an installation for all users cannot be written by them.
/// @return false when it could not be made: the folder is the same as before, and what was copied stays unused; when
///         the registry could not be written, the copy serves this process and the next asks again.
bool copierDossierSupport();

/// One value of the key. @return 1, or 0 (with `valeur` as it was) when the key or the value cannot be read.
int lireValeurRegistre(const wchar_t* nom, std::wstring& valeur);
int lireValeurRegistre(const wchar_t* nom, DWORD& valeur);

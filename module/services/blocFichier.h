#pragma once

#include <string>

#include "dbid.h"

class AcDbDatabase;

/// The block that a drawing file gives: the file's name without its folder and without ".dwg", in any letter case.
std::wstring nomBlocDeFichier(std::wstring_view chemin);

/// Makes the contents of a drawing file available as a block. A block of that name already there is used as it is: a
/// file that has changed since is not read again. ".dwg" is added to a path without it.
/// @return the block, or null when the name cannot be a block's or the file cannot be read.
AcDbObjectId blocDeFichier(AcDbDatabase& db, const std::wstring& chemin);

#pragma once

#include <string>
#include <vector>

#include "dbid.h"

/// Records of a symbol table: layers, blocks, text styles, linetypes.

/// In the order of the table.
std::vector<AcDbObjectId> recordsOf(AcDbObjectId table);
/// Null when there is none of that name.
AcDbObjectId recordNamed(AcDbObjectId table, const std::wstring& name);
/// Asks for the new name of a record; `former` is how the user called it.
void renameRecord(AcDbObjectId record, const std::wstring& former);

#pragma once

#include <string>
#include <vector>

#include "dbid.h"
#include "lisp/drawing/EntityLists.h"

/// Whether entmake makes a record of a table of this kind: LAYER, STYLE, LTYPE, APPID, DIMSTYLE.
bool isTableRecord(const std::wstring& kind);

/// The record of a list, in its table. Null when the name is missing or taken, or a value does not fit.
AcDbObjectId madeRecord(const std::wstring& kind, const std::vector<GroupPair>& pairs);

/// Registers an application, for extended data. False when it is there already or the name will not do.
bool registerApplication(const std::wstring& name);

#pragma once

#include <string>
#include <vector>

#include "lisp/drawing/EntityLists.h"

#include "dbid.h"
#include "dbxrecrd.h"

/// Whether entmake makes a record of a table of this kind: LAYER, STYLE, LTYPE, APPID, DIMSTYLE.
bool isTableRecord(const std::wstring& kind);

/// The record of a list, in its table. Null when the name is missing or taken, or a value does not fit.
AcDbObjectId madeRecord(const std::wstring& kind, const std::vector<GroupPair>& pairs);

/// Whether entmakex makes an object of this kind, which dictadd then puts into a dictionary: XRECORD, DICTIONARY.
bool isOwnedByDictionary(const std::wstring& kind);
AcDbObjectId madeForDictionary(const std::wstring& kind, const std::vector<GroupPair>& pairs);

/// Replaces the data of an xrecord by the pairs that are data. False for one that no drawing can hold.
bool setXrecord(AcDbXrecord& record, const std::vector<GroupPair>& pairs);

/// Whether the records that the pairs name, linetypes, styles, blocks, are in the drawing. A layer that is not is made
/// where an entity goes to it.
bool areNamesKnown(const DxfClass& dxfClass, const std::vector<GroupPair>& pairs);

/// Registers an application, for extended data. False when it is there already or the name will not do.
bool registerApplication(const std::wstring& name);

#pragma once

#include "lisp/eval/LispValue.h"

#include "dbid.h"

class LispContext;

/// An object of the drawing as a list of pairs (group code . value): its name under -1, then what a drawing file holds
/// of it. Angles (50 to 58) are radians. Extended data come under -3, for the applications that `applications` match
/// (patterns as for wcmatch). nil when the object cannot be opened.
LispValue recordList(LispContext& context, AcDbObjectId id, const std::vector<std::wstring>& applications = {});

/// The open drawing's database. @throws LispError when there is none.
class AcDbDatabase& currentDatabase();

/// The object that an argument names; null when it is erased. @throws LispError for what is no entity name.
AcDbObjectId objectArgument(const LispValue& value);
/// The name of an object; nil for null.
LispValue objectName(AcDbObjectId id);

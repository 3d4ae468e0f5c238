#pragma once

#include <string>
#include <vector>

#include "lisp/eval/LispValue.h"
#include "rx/ResbufChain.h"

class AcDbDatabaseImpl;
class AcDbObject;
struct DxfClass;

/// Lists of pairs (group code . value), as entmake and entmod take them, turned into tags.

struct GroupPair {
    int code;
    LispValue value;
};

/// @throws LispError for what is no list of pairs with a group code in front.
std::vector<GroupPair> groupPairs(const LispValue& list);
/// The first value of a code; null when there is none.
const LispValue* valueUnder(int code, const std::vector<GroupPair>& pairs);
/// The text under 0, in capitals; empty when there is none.
std::wstring kindOf(const std::vector<GroupPair>& pairs);

/// The tags of an object, in the order that its class asks for; a list with markers of its own keeps its order.
std::string tagsOfPairs(const AcDbDatabaseImpl& database, const DxfClass& dxfClass,
                        const std::vector<GroupPair>& pairs);

/// The extended data under -3: (-3 ("APPLICATION" (1000 . "...") ...) ...); null when there are none.
ResbufChain extendedDataOf(const std::vector<GroupPair>& pairs);

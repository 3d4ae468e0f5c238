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

/// The tags of an object, in the order that its class asks for; where a list has markers they tell the places of its
/// pairs.
std::string tagsOfPairs(const AcDbDatabaseImpl& database, const DxfClass& dxfClass,
                        const std::vector<GroupPair>& pairs);

/// Empties the fields that are lists, as the vertices of a polyline or the paths of a hatch, and that the pairs bring
/// anew. False, with nothing done, when they bring a part of one only.
bool emptyLists(const DxfClass& dxfClass, const std::vector<GroupPair>& pairs, AcDbObject& object);

/// The pairs as result buffers; null for none.
ResbufChain chainOfPairs(const std::vector<GroupPair>& pairs);

/// The extended data under -3: (-3 ("APPLICATION" (1000 . "...") ...) ...); null when there are none.
ResbufChain extendedDataOf(const std::vector<GroupPair>& pairs);

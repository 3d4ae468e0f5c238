// entmake and entmod: entities and records of tables from lists of pairs (group code . value), by the tables that read
// drawing files.

#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectReader.h"
#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/EntityLists.h"
#include "lisp/drawing/EntitySequence.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/drawing/RecordMaking.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"

#include "dbents.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"

namespace {

/// What entmake makes of a list, at once or as a part of something bigger.
EntitySequence::Made made(const std::vector<GroupPair>& pairs)
{
    const std::wstring kind = kindOf(pairs);
    if (kind.empty())
        throw LispError(std::wstring(lisp_texts::cannotMake) + L"nil");
    if (isTableRecord(kind)) {
        const AcDbObjectId id = madeRecord(kind, pairs);
        return {id, !id.isNull()};
    }
    return EntitySequence::ofCurrentDocument().take(kind, pairs);
}

LispValue make(LispContext&, LispArguments arguments)
{
    return made(groupPairs(arguments[0])).taken ? arguments[0] : LispValue();
}

/// The name of what was made; while its parts are still to come, the list.
LispValue makeNamed(LispContext&, LispArguments arguments)
{
    const std::vector<GroupPair> pairs = groupPairs(arguments[0]);
    if (isOwnedByDictionary(kindOf(pairs))) {
        const AcDbObjectId id = madeForDictionary(kindOf(pairs), pairs);
        return id.isNull() ? LispValue() : objectName(id);
    }
    const EntitySequence::Made result = made(pairs);
    if (!result.taken)
        return {};
    return result.id.isNull() ? arguments[0] : objectName(result.id);
}

/// A record of a table may get another name, if that is free.
bool rename(AcDbObject& object, const AcDbObject& named)
{
    auto* const record = AcDbSymbolTableRecord::cast(&object);
    const ACHAR *before = nullptr, *wanted = nullptr;
    if (!record || record->getName(before) != Acad::eOk ||
        static_cast<const AcDbSymbolTableRecord&>(named).getName(wanted) != Acad::eOk)
        return true;
    return !*wanted || std::wstring_view(before) == wanted || record->setName(wanted) == Acad::eOk;
}

/// Values that the list does not name stay as they are.
LispValue modify(LispContext&, LispArguments arguments)
{
    const std::vector<GroupPair> pairs = groupPairs(arguments[0]);
    const LispValue* const name = valueUnder(-1, pairs);
    const AcDbObjectId id = objectArgument(name ? *name : LispValue());
    const ResbufChain data = extendedDataOf(pairs);
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    if (object.openStatus() != Acad::eOk)
        return {};
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(id.stub());
    const DxfClass& dxfClass = database.classOf(*recordOf(id));
    const std::string tags = tagsOfPairs(database, dxfClass, pairs);
    DxfObjectReader reader(database);
    const std::unique_ptr<AcDbObject> trial(dxfClass.create());
    if (!areNamesKnown(dxfClass, pairs) || !reader.read(tags, dxfClass, *trial) || !emptyLists(dxfClass, pairs, *trial))
        return {};
    if (auto* const record = AcDbXrecord::cast(object.object()))
        return setXrecord(*record, pairs) ? arguments[0] : LispValue();
    if (!rename(*object.object(), *trial) || (data && object.object()->setXData(data.get()) != Acad::eOk))
        return {};
    object.object()->assertWriteEnabled();
    emptyLists(dxfClass, pairs, *object.object());
    return reader.read(tags, dxfClass, *object.object()) ? arguments[0] : LispValue();
}

/// Blocks show what was changed in them at once.
LispValue update(LispContext&, LispArguments arguments)
{
    return objectArgument(arguments[0]).isNull() ? LispValue() : arguments[0];
}

constexpr LispBuiltin kRows[] = {
    {L"ENTMAKE", 1, 1, make},
    {L"ENTMAKEX", 1, 1, makeNamed},
    {L"ENTMOD", 1, 1, modify},
    {L"ENTUPD", 1, 1, update},
};

} // namespace

std::span<const LispBuiltin> entityMakingBuiltins()
{
    return kRows;
}

#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/DrawingWalks.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"

#include "dbdict.h"

namespace {

using lisp_argument::text;

LispValue rootDictionary(LispContext&, LispArguments)
{
    return objectName(currentDatabase().namedObjectsDictionaryId());
}

LispValue dictionarySearch(LispContext& context, LispArguments arguments)
{
    AcDbObjectId id;
    {
        const AcDbObjectPointer<AcDbDictionary> dictionary(objectArgument(arguments[0]), AcDb::kForRead);
        if (dictionary.openStatus() != Acad::eOk ||
            dictionary.object()->getAt(text(arguments[1]).c_str(), id) != Acad::eOk)
            return {};
    }
    return recordList(context, id);
}

std::vector<AcDbObjectId> entriesOf(AcDbObjectId id)
{
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbDictionary> dictionary(id, AcDb::kForRead);
    if (dictionary.openStatus() == Acad::eOk)
        for (const auto& [name, entry] : dictionary.object()->entriesAsIds())
            ids.push_back(entry);
    return ids;
}

LispValue dictionaryNext(LispContext& context, LispArguments arguments)
{
    const AcDbObjectId dictionary = objectArgument(arguments[0]);
    const AcDbObjectId id = DrawingWalks::ofCurrentDocument().containers.next(
        dictionary, arguments.size() > 1 && !arguments[1].isNil(), [dictionary] { return entriesOf(dictionary); });
    return id.isNull() ? LispValue() : recordList(context, id);
}

/// (dictadd dictionary name object), of an object that entmakex made. nil when the name is taken.
LispValue addEntry(LispContext&, LispArguments arguments)
{
    const AcDbObjectPointer<AcDbDictionary> dictionary(objectArgument(arguments[0]), AcDb::kForWrite);
    const AcDbObjectPointer<AcDbObject> object(objectArgument(arguments[2]), AcDb::kForWrite);
    AcDbObjectId id;
    if (dictionary.openStatus() != Acad::eOk || object.openStatus() != Acad::eOk ||
        dictionary.object()->has(text(arguments[1]).c_str()) ||
        dictionary.object()->setAt(text(arguments[1]).c_str(), object.object(), id) != Acad::eOk)
        return {};
    return objectName(id);
}

/// (dictremove dictionary name): the object that the entry had.
LispValue removeEntry(LispContext&, LispArguments arguments)
{
    const AcDbObjectPointer<AcDbDictionary> dictionary(objectArgument(arguments[0]), AcDb::kForWrite);
    AcDbObjectId id;
    if (dictionary.openStatus() != Acad::eOk ||
        dictionary.object()->remove(text(arguments[1]).c_str(), id) != Acad::eOk)
        return {};
    return objectName(id);
}

/// (dictrename dictionary old new): the new name.
LispValue renameEntry(LispContext&, LispArguments arguments)
{
    const AcDbObjectPointer<AcDbDictionary> dictionary(objectArgument(arguments[0]), AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk ||
        !dictionary.object()->setName(text(arguments[1]).c_str(), text(arguments[2]).c_str()))
        return {};
    return arguments[2];
}

constexpr LispBuiltin kRows[] = {
    {L"DICTADD", 3, 3, addEntry},
    {L"DICTNEXT", 1, 2, dictionaryNext},
    {L"DICTREMOVE", 2, 2, removeEntry},
    {L"DICTRENAME", 3, 3, renameEntry},
    {L"DICTSEARCH", 2, 3, dictionarySearch},
    {L"NAMEDOBJDICT", 0, 0, rootDictionary},
};

} // namespace

std::span<const LispBuiltin> dictionaryBuiltins()
{
    return kRows;
}

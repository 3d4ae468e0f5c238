#include <algorithm>
#include <memory>

#include "db/DatabaseImpl.h"
#include "db/Record.h"
#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/DrawingWalks.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/drawing/RecordMaking.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"

#include "dbsymtb.h"

namespace {

using lisp_argument::text;

/// Programs say BLOCK where files have BLOCK_RECORD.
std::wstring programsName(NameKind table)
{
    return table == NameKind::block ? L"BLOCK" : platform::wideFromUtf8(tableName(table));
}

/// Tables of drawings that no command here fills: programs find nothing in them.
constexpr const wchar_t* kEmptyTables[] = {L"UCS", L"VIEW", L"VPORT"};

AcDbObjectId tableArgument(const LispValue& value)
{
    for (const NameKind table : nameKinds)
        if (platform::equalNoCase(programsName(table), text(value)))
            return AcDbObjectId(currentDatabase().impl().names(table).table);
    for (const wchar_t* const name : kEmptyTables)
        if (platform::equalNoCase(name, text(value)))
            return {};
    lisp_argument::refuse(L"nom de table:", value);
}

bool isArgument(LispArguments arguments, std::size_t which)
{
    return arguments.size() > which && !arguments[which].isNil();
}

AcDbObjectId found(AcDbObjectId table, const std::wstring& name)
{
    const AcDbObjectPointer<AcDbSymbolTable> opened(table, AcDb::kForRead);
    AcDbObjectId id;
    if (opened.openStatus() != Acad::eOk || opened.object()->getAt(name.c_str(), id) != Acad::eOk)
        return {};
    return id;
}

std::vector<AcDbObjectId> recordsOf(AcDbObjectId table)
{
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbSymbolTable> opened(table, AcDb::kForRead);
    AcDbSymbolTableIterator* made = nullptr;
    if (opened.openStatus() != Acad::eOk || opened.object()->newIterator(made) != Acad::eOk)
        return ids;
    const std::unique_ptr<AcDbSymbolTableIterator> iterator(made);
    AcDbObjectId id;
    for (; !iterator->done(); iterator->step())
        if (iterator->getRecordId(id) == Acad::eOk)
            ids.push_back(id);
    return ids;
}

LispValue pairOf(std::int32_t code, LispValue value)
{
    return LispValue::pair(LispValue(code), std::move(value));
}

/// A block: what its record and its BLOCK say, with its first entity under -2.
LispValue blockList(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
    if (block.openStatus() != Acad::eOk)
        return {};
    const ACHAR* name = nullptr;
    block.object()->getName(name);
    const AcGePoint3d origin = block.object()->origin();
    const LispValue point[] = {LispValue(origin.x), LispValue(origin.y), LispValue(origin.z)};
    const int flags = (block.object()->isAnonymous() ? 1 : 0) | (block.object()->hasAttributeDefinitions() ? 2 : 0);
    std::vector<LispValue> pairs{pairOf(0, LispValue(L"BLOCK")), pairOf(2, LispValue(name)),
                                 pairOf(70, LispValue(std::int32_t{flags})), pairOf(10, listOf(point))};
    if (const AcDbObjectId first = EntityWalk::first(id); !first.isNull())
        pairs.push_back(pairOf(-2, objectName(first)));
    return listOf(pairs);
}

/// What a table says of a record: without its names, owners and markers.
LispValue tableList(LispContext& context, AcDbObjectId id)
{
    if (id.isNull())
        return {};
    if (isOfClass(id, AcDbBlockTableRecord::desc()))
        return blockList(id);
    std::vector<LispValue> pairs;
    for (const LispValue& pair : lisp_argument::items(recordList(context, id))) {
        const std::int32_t code = pair.car().integer();
        const bool aside = code < 0 || code == 5 || code == 100 || code == 102 || code == 105 || code >= 330;
        if (!aside)
            pairs.push_back(pair);
    }
    return listOf(pairs);
}

LispValue tableSearch(LispContext& context, LispArguments arguments)
{
    return tableList(context, found(tableArgument(arguments[0]), text(arguments[1])));
}

LispValue tableNext(LispContext& context, LispArguments arguments)
{
    const AcDbObjectId table = tableArgument(arguments[0]);
    return tableList(context, DrawingWalks::ofCurrentDocument().containers.next(table, isArgument(arguments, 1),
                                                                                [table] { return recordsOf(table); }));
}

LispValue tableObjectName(LispContext&, LispArguments arguments)
{
    return objectName(found(tableArgument(arguments[0]), text(arguments[1])));
}

/// (regapp name): the name, nil when it is registered already.
LispValue registerName(LispContext&, LispArguments arguments)
{
    return registerApplication(text(arguments[0])) ? arguments[0] : LispValue();
}

constexpr LispBuiltin kRows[] = {
    {L"REGAPP", 1, 1, registerName},
    {L"TBLNEXT", 1, 2, tableNext},
    {L"TBLOBJNAME", 2, 2, tableObjectName},
    {L"TBLSEARCH", 2, 3, tableSearch},
};

} // namespace

std::span<const LispBuiltin> tableBuiltins()
{
    return kRows;
}

#include "lisp/drawing/RecordMaking.h"

#include <algorithm>
#include <memory>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectReader.h"
#include "dbsymtb.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/eval/LispArgument.h"
#include "platform/CodePage.h"

namespace {

struct MadeTable {
    const wchar_t* kind;
    AcDbObjectId (AcDbDatabase::*table)() const;
};
constexpr MadeTable kTables[] = {
    {L"APPID", &AcDbDatabase::regAppTableId},    {L"DIMSTYLE", &AcDbDatabase::dimStyleTableId},
    {L"LAYER", &AcDbDatabase::layerTableId},     {L"LTYPE", &AcDbDatabase::linetypeTableId},
    {L"STYLE", &AcDbDatabase::textStyleTableId},
};

const MadeTable* tableOf(const std::wstring& kind)
{
    const auto found = std::ranges::find_if(kTables, [&kind](const MadeTable& table) { return kind == table.kind; });
    return found == std::end(kTables) ? nullptr : &*found;
}

AcDbObjectId added(AcDbObjectId tableId, std::unique_ptr<AcDbSymbolTableRecord> record)
{
    const AcDbObjectPointer<AcDbSymbolTable> table(tableId, AcDb::kForWrite);
    const ACHAR* name = nullptr;
    record->getName(name);
    AcDbObjectId id;
    if (table.openStatus() != Acad::eOk || !name || !*name || table.object()->has(name) ||
        table.object()->add(id, record.get()) != Acad::eOk)
        return {};
    record.release()->close();
    return id;
}

} // namespace

bool isTableRecord(const std::wstring& kind)
{
    return tableOf(kind) != nullptr;
}

AcDbObjectId madeRecord(const std::wstring& kind, const std::vector<GroupPair>& pairs)
{
    constexpr int linetypeCode = 6;
    AcDbDatabaseImpl& database = currentDatabase().impl();
    const DxfClass& dxfClass = *DxfClasses::all().named(platform::utf8FromWide(kind)).front();
    std::unique_ptr<AcDbSymbolTableRecord> record(static_cast<AcDbSymbolTableRecord*>(dxfClass.create()));
    if (!DxfObjectReader(database).read(tagsOfPairs(database, dxfClass, pairs), dxfClass, *record))
        return {};
    if (auto* const layer = AcDbLayerTableRecord::cast(record.get()); layer && !valueUnder(linetypeCode, pairs))
        layer->setLinetypeObjectId(currentDatabase().continuousLinetype());
    return added((currentDatabase().*tableOf(kind)->table)(), std::move(record));
}

bool registerApplication(const std::wstring& name)
{
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    return record->setName(name.c_str()) == Acad::eOk &&
           !added(currentDatabase().regAppTableId(), std::move(record)).isNull();
}

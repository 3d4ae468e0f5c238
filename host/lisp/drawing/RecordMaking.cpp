#include "lisp/drawing/RecordMaking.h"

#include <algorithm>
#include <memory>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectReader.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/eval/LispArgument.h"
#include "platform/CodePage.h"

#include "dbdict.h"
#include "dbsymtb.h"

namespace {

/// Blocks are made of entities, between BLOCK and ENDBLK.
std::optional<NameKind> tableOf(const std::wstring& kind)
{
    const auto named = tableNamed(platform::utf8FromWide(kind));
    return named == NameKind::block ? std::nullopt : named;
}

AcDbObjectId added(AcDbObjectId tableId, std::unique_ptr<AcDbSymbolTableRecord> record)
{
    const AcDbObjectPointer<AcDbSymbolTable> table(tableId, AcDb::kForWrite);
    const ACHAR* name = nullptr;
    record->getName(name);
    AcDbObjectId id;
    if (table.openStatus() != Acad::eOk || record->setName(name) != Acad::eOk || table.object()->has(name) ||
        table.object()->add(id, record.get()) != Acad::eOk)
        return {};
    record.release()->close();
    return id;
}

/// Whose value under a code is the name of a record; every entity's, where no class is named.
struct NamedRecord {
    int code;
    NameKind kind;
    std::string_view dxfName;
};
constexpr NamedRecord kNamedRecords[] = {
    {8, NameKind::layer, ""},
    {6, NameKind::linetype, ""},
    {6, NameKind::linetype, "LAYER"},
    {7, NameKind::textStyle, ""},
    {2, NameKind::block, "INSERT"},
    {2, NameKind::block, "DIMENSION"},
    {3, NameKind::dimStyle, "DIMENSION"},
};

bool makeLayer(const std::wstring& name)
{
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setLinetypeObjectId(currentDatabase().continuousLinetype());
    return layer->setName(name.c_str()) == Acad::eOk &&
           !added(currentDatabase().layerTableId(), std::move(layer)).isNull();
}

} // namespace

bool areNamesKnown(const DxfClass& dxfClass, const std::vector<GroupPair>& pairs)
{
    AcDbDatabaseImpl& database = currentDatabase().impl();
    for (const NamedRecord& named : kNamedRecords) {
        const LispValue* const name = valueUnder(named.code, pairs);
        const bool isNamed = named.dxfName.empty() ? dxfClass.isEntity : named.dxfName == dxfClass.dxfName;
        const std::wstring wanted = isNamed && name ? lisp_argument::text(*name) : L"";
        if (wanted.empty() || database.named(named.kind, wanted))
            continue;
        if (named.kind != NameKind::layer || !makeLayer(wanted))
            return false;
    }
    return true;
}

bool isOwnedByDictionary(const std::wstring& kind)
{
    return kind == L"XRECORD" || kind == L"DICTIONARY";
}

AcDbObjectId madeForDictionary(const std::wstring& kind, const std::vector<GroupPair>& pairs)
{
    std::unique_ptr<AcDbObject> object;
    if (kind == L"XRECORD") {
        auto record = std::make_unique<AcDbXrecord>();
        if (!setXrecord(*record, pairs))
            return {};
        object = std::move(record);
    } else {
        object = std::make_unique<AcDbDictionary>();
    }
    AcDbObjectId id;
    if (currentDatabase().addAcDbObject(id, object.get()) != Acad::eOk)
        return {};
    object.release()->close();
    return id;
}

bool setXrecord(AcDbXrecord& record, const std::vector<GroupPair>& pairs)
{
    constexpr int cloning = 280;
    std::vector<GroupPair> data;
    bool leading = true; // names, owner and markers come before the data
    for (const GroupPair& pair : pairs) {
        leading = leading && (pair.code <= 0 || pair.code == 5 || pair.code == 100 || pair.code == 102 ||
                              pair.code == 330 || pair.code == 360 || pair.code == cloning);
        if (!leading)
            data.push_back(pair);
    }
    const ResbufChain chain = chainOfPairs(data);
    return (chain ? record.setFromRbChain(*chain) : record.setEmpty()) == Acad::eOk;
}

bool isTableRecord(const std::wstring& kind)
{
    return tableOf(kind).has_value();
}

AcDbObjectId madeRecord(const std::wstring& kind, const std::vector<GroupPair>& pairs)
{
    constexpr int linetypeCode = 6;
    AcDbDatabaseImpl& database = currentDatabase().impl();
    const DxfClass& dxfClass = *DxfClasses::all().named(platform::utf8FromWide(kind)).front();
    std::unique_ptr<AcDbSymbolTableRecord> record(static_cast<AcDbSymbolTableRecord*>(dxfClass.create()));
    if (!areNamesKnown(dxfClass, pairs) ||
        !DxfObjectReader(database).read(tagsOfPairs(database, dxfClass, pairs), dxfClass, *record))
        return {};
    if (auto* const layer = AcDbLayerTableRecord::cast(record.get()); layer && !valueUnder(linetypeCode, pairs))
        layer->setLinetypeObjectId(currentDatabase().continuousLinetype());
    return added(AcDbObjectId(database.names(*tableOf(kind)).table), std::move(record));
}

bool registerApplication(const std::wstring& name)
{
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    return record->setName(name.c_str()) == Acad::eOk &&
           !added(currentDatabase().regAppTableId(), std::move(record)).isNull();
}

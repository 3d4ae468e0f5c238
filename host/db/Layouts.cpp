#include "db/Layouts.h"

#include "db/DatabaseImpl.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"
#include "platform/LetterCase.h"

#include "dbdict.h"
#include "dbsymtb.h"

namespace {

bool startsNoCase(std::wstring_view text, std::wstring_view start)
{
    return text.size() >= start.size() && platform::equalNoCase(text.substr(0, start.size()), start);
}

/// The block that a LAYOUT names: the last 330 of its own part. Null for a layout that the file lost.
AcDbStub* blockOf(AcDbDatabaseImpl& database, AcDbObjectId layout)
{
    if (layout.isNull())
        return nullptr;
    DxfCursor cursor(database.form(), database.bytes(*recordOf(layout)));
    constexpr int reference = 330;
    AcDbStub* block = nullptr;
    DxfTag tag;
    while (cursor.next(tag)) {
        std::uint64_t handle = 0;
        if (tag.code == reference && dxfHandle(tag, handle))
            if (AcDbStub* const named = database.byHandle(handle);
                named && isOfClass(AcDbObjectId(named), AcDbBlockTableRecord::desc()))
                block = named;
    }
    return block;
}

std::wstring nameOfTab(AcDbDatabase& database, AcDbObjectId block)
{
    AcDbObjectId layouts;
    {
        const AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(), AcDb::kForRead);
        if (root.openStatus() != Acad::eOk || root->getAt(L"ACAD_LAYOUT", layouts) != Acad::eOk)
            return {};
    }
    const AcDbObjectPointer<AcDbDictionary> dictionary(layouts, AcDb::kForRead);
    if (dictionary.openStatus() != Acad::eOk)
        return {};
    for (const auto& [name, layout] : dictionary->entriesAsIds())
        if (blockOf(database.impl(), layout) == block.stub())
            return name;
    return {};
}

} // namespace

std::wstring layoutName(AcDbObjectId block)
{
    if (block.isNull())
        return {};
    AcDbDatabase& database = *block.database();
    if (block.stub() == database.impl().blocks().modelSpace())
        return L"Model";
    const std::wstring name = nameOfTab(database, block);
    const bool isPaper = startsNoCase(database.impl().recordName(block.stub()), ACDB_PAPER_SPACE);
    return name.empty() && isPaper ? L"Présentation1" : name;
}

std::vector<AcDbObjectId> layoutBlocks(AcDbDatabase& database)
{
    std::vector<AcDbObjectId> model, paper;
    AcDbBlockTable* table = nullptr;
    if (database.getBlockTable(table, AcDb::kForRead) != Acad::eOk)
        return model;
    AcDbSymbolTableIterator* made = nullptr;
    if (table->newIterator(made) == Acad::eOk) {
        const std::unique_ptr<AcDbSymbolTableIterator> iterator(made);
        for (AcDbObjectId id; !iterator->done(); iterator->step()) {
            if (iterator->getRecordId(id) != Acad::eOk)
                continue;
            const std::wstring name = database.impl().recordName(id.stub());
            if (startsNoCase(name, ACDB_MODEL_SPACE))
                model.push_back(id);
            else if (startsNoCase(name, ACDB_PAPER_SPACE))
                paper.push_back(id);
        }
    }
    table->close();
    model.insert(model.end(), paper.begin(), paper.end());
    return model;
}

#include "db/BlockContents.h"

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"
#include "dxf/R12Subclasses.h"

#include "dbsymtb.h"

namespace {

bool isSubentity(const std::string& typeName)
{
    return typeName == "ATTRIB" || typeName == "VERTEX" || typeName == "SEQEND";
}

/// What an entity's first tags tell of where it stands.
struct Place {
    std::uint64_t owner = 0;
    bool paper = false;
};

Place placeOf(const AcDbDatabaseImpl& database, const DxfRecord& record)
{
    Place place;
    DxfCursor cursor(database.form(), database.bytes(record));
    DxfTag tag;
    int markers = 0;
    bool inGroup = false;
    // Some programs write what every entity has below the marker of its class.
    while (cursor.next(tag) && (markers < 2 || tag.code == 100 || isCommonEntityCode(tag.code))) {
        markers += tag.code == 100;
        if (tag.code == 102)
            inGroup = dxfText(tag).find('{') != std::string_view::npos;
        else if (tag.code == 330 && !inGroup && markers == 0)
            dxfHandle(tag, place.owner);
        else if (tag.code == 67) {
            std::int64_t value = 0;
            place.paper = dxfInteger(database.form(), tag, value) && value == 1;
        }
    }
    return place;
}

std::wstring blockName(const AcDbDatabaseImpl& database, const DxfRecord& record)
{
    DxfCursor cursor(database.form(), database.bytes(record));
    DxfTag tag;
    while (cursor.next(tag))
        if (tag.code == 2)
            return database.form().encoding->decode(dxfText(tag));
    return {};
}

} // namespace

BlockContent& BlockContents::of(AcDbStub* blockRecord)
{
    list();
    return m_contents[blockRecord];
}

void BlockContents::append(AcDbStub* blockRecord, AcDbStub* entity)
{
    BlockContent& content = of(blockRecord);
    if (!content.begin && !content.inEntitiesSection)
        m_database.makeBlockBounds(blockRecord); // the file has a record of the block, and no more
    if (content.entities.size() == content.fromFile)
        m_grown.push_back(blockRecord);
    content.entities.push_back(entity);
}

void BlockContents::addNew(AcDbStub* blockRecord, AcDbStub* begin, AcDbStub* end)
{
    BlockContent& content = of(blockRecord);
    content.begin = begin;
    content.end = end;
    content.isNew = true;
    m_newBlocks.push_back(blockRecord);
}

AcDbStub* BlockContents::modelSpace()
{
    return m_database.named(NameKind::block, ACDB_MODEL_SPACE);
}
AcDbStub* BlockContents::paperSpace()
{
    return m_database.named(NameKind::block, ACDB_PAPER_SPACE);
}

void BlockContents::list()
{
    if (m_listed || !m_database.isLoaded())
        return;
    m_listed = true;
    listBlocksSection();
    listEntitiesSection();
    for (auto& [record, content] : m_contents)
        content.fromFile = content.entities.size();
}

/// The block record that a BLOCK names as its owner or bears the name of; null where there is none.
AcDbStub* BlockContents::recordOfBlock(const DxfRecord& block) const
{
    AcDbStub* const owner = m_database.byHandle(placeOf(m_database, block).owner);
    if (owner && m_database.typeName(*recordOf(owner)) == "BLOCK_RECORD")
        return owner;
    return m_database.named(NameKind::block, blockName(m_database, block));
}

std::vector<std::wstring> BlockContents::withoutRecord() const
{
    std::vector<std::wstring> names;
    if (const DxfRange* const section = m_database.file().section("BLOCKS"))
        for (std::uint32_t i = section->first + 1; i <= section->last; ++i) {
            const DxfRecord& record = m_database.file().records()[i];
            if (m_database.typeName(record) == "BLOCK" && !recordOfBlock(record))
                names.push_back(blockName(m_database, record));
        }
    std::erase(names, std::wstring());
    return names;
}

void BlockContents::listBlocksSection()
{
    const DxfRange* section = m_database.file().section("BLOCKS");
    if (!section)
        return;
    auto& records = m_database.file().records();
    BlockContent* content = nullptr;
    for (std::uint32_t i = section->first + 1; i <= section->last; ++i) {
        const std::string& type = m_database.typeName(records[i]);
        if (type == "BLOCK") {
            AcDbStub* const owner = recordOfBlock(records[i]);
            content = owner ? &m_contents[owner] : nullptr;
            m_ranges.push_back({i, i, owner});
            if (content && !content->begin)
                content->begin = stubOf(&records[i]);
        } else if (type == "ENDBLK") {
            if (content)
                m_ranges.back().last = i;
            if (content && !content->end)
                content->end = stubOf(&records[i]);
            content = nullptr;
        } else if (content) {
            m_ranges.back().last = i;
            if (records[i].handle != 0 && !isSubentity(type))
                content->entities.push_back(stubOf(&records[i]));
        }
    }
}

void BlockContents::listEntitiesSection()
{
    AcDbStub* const model = modelSpace();
    AcDbStub* const paper = paperSpace();
    for (AcDbStub* space : {model, paper})
        if (space)
            m_contents[space].inEntitiesSection = true;
    const DxfRange* section = m_database.file().section("ENTITIES");
    if (!section)
        return;
    auto& records = m_database.file().records();
    for (std::uint32_t i = section->first + 1; i <= section->last; ++i)
        if (!isSubentity(m_database.typeName(records[i])) && records[i].handle != 0)
            if (AcDbStub* space = spaceOf(records[i], model, paper))
                m_contents[space].entities.push_back(stubOf(&records[i]));
}

/// Of model space and the active paper space, where an entity of the ENTITIES section stands.
AcDbStub* BlockContents::spaceOf(const DxfRecord& record, AcDbStub* model, AcDbStub* paper) const
{
    const Place place = placeOf(m_database, record);
    const bool inPaper = paper && (place.owner == recordOf(paper)->handle ||
                                   (place.paper && (!model || place.owner != recordOf(model)->handle)));
    return inPaper ? paper : model;
}

AcDbStub* BlockContents::around(const DxfRecord& record)
{
    const std::uint32_t at = m_database.positionOf(record);
    const auto isIn = [&](const char* name) {
        const DxfRange* const section = m_database.file().section(name);
        return section && at > section->first && at < section->last;
    };
    if (isNew(record) || !m_database.isLoaded())
        return nullptr;
    if (isIn("ENTITIES"))
        return spaceOf(record, modelSpace(), paperSpace());
    if (!isIn("BLOCKS"))
        return nullptr;
    list();
    const auto after = std::ranges::upper_bound(m_ranges, at, {}, &Range::first);
    return after != m_ranges.begin() && at <= std::prev(after)->last ? std::prev(after)->block : nullptr;
}

#include "db/SavePlan.h"

#include <algorithm>
#include <array>
#include <set>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfFields.h"
#include "db/ObjectTags.h"
#include "db/Ownership.h"
#include "db/SavedExtents.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfTexts.h"

#include "dbdict.h"
#include "dbsymtb.h"

namespace {

/// Whether a dictionary, as it stands in the file, names an erased object.
bool namesErased(const AcDbDatabaseImpl& database, const DxfRecord& dictionary)
{
    DxfCursor cursor(database.form(), database.bytes(dictionary));
    DxfTag tag;
    while (cursor.next(tag)) {
        std::uint64_t handle = 0;
        if ((tag.code != 350 && tag.code != 360) || !dxfHandle(tag, handle))
            continue;
        AcDbStub* entry = database.byHandle(handle);
        if (entry && isErased(*recordOf(entry)))
            return true;
    }
    return false;
}

constexpr std::array<const char*, 6> sectionOrder = {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

/// Whether a new record is written in the OBJECTS section: not an entity, a table or a record of one.
bool standsInObjectsSection(const AcDbDatabaseImpl& database, const DxfRecord& record)
{
    const DxfClass& dxfClass = database.classOf(record);
    const std::string_view name = dxfClass.dxfName;
    return !dxfClass.isEntity && name != "TABLE" && !tableNamed(name);
}

} // namespace

SavePlan::SavePlan(AcDbDatabaseImpl& database) : m_database(database), m_writer(database, m_text)
{
    if (!hasWork())
        return;
    m_text.reserve(roomForChanged());
    editRepaired();
    editChanged();
    editOwnersOfErased();
    editNamesOfRenamed();
    addToParents();
    m_writesMadeUp = changesFile();
    addToTables();
    addNewTables();
    addToBlocks();
    addNewBlocks();
    addObjects();
    editHeader();
    editLost();
    std::ranges::stable_sort(m_edits, [](const Edit& a, const Edit& b) {
        return a.position != b.position ? a.position < b.position : a.place < b.place;
    });
}

bool SavePlan::hasWork() const
{
    const auto& file = m_database.file();
    if (!file.problems().empty() || file.anyLost() || m_database.header().changed())
        return true;
    const NewRecords& made = m_database.newRecords();
    for (std::size_t i = 0; i < made.size(); ++i) {
        const bool madeUp = (made[i].flags & RecordFlags::madeUp) != 0;
        if (madeUp ? (made[i].flags & RecordFlags::modified) != 0 : !isErased(made[i]))
            return true;
    }
    const auto& records = m_database.file().records();
    constexpr int changed = RecordFlags::modified | RecordFlags::erased | RecordFlags::mended;
    return std::ranges::any_of(m_database.edits(),
                               [&](std::uint32_t at) { return (records[at].flags & changed) != 0; });
}

bool SavePlan::changesFile() const
{
    const NewRecords& made = m_database.newRecords();
    for (std::size_t i = 0; i < made.size(); ++i)
        if (!isErased(made[i]) && (made[i].flags & RecordFlags::madeUp) == 0)
            return true;
    return m_database.header().changed() || std::ranges::any_of(m_edits, [this](const Edit& edit) {
               const std::string_view text = std::string_view(m_text).substr(edit.from, edit.to - edit.from);
               return edit.place == Place::before || edit.position >= m_database.file().records().size() ||
                      text != m_database.bytes(m_database.file().records()[edit.position]);
           });
}

std::vector<std::string_view> SavePlan::pieces() const
{
    std::vector<std::string_view> pieces;
    const std::string_view file = m_database.file().bytes();
    const auto& records = m_database.file().records();
    std::size_t copied = 0;
    for (const Edit& edit : m_edits) {
        const bool atEnd = edit.position >= records.size();
        const std::size_t at = atEnd ? file.size() : records[edit.position].offset;
        if (at > copied)
            pieces.push_back(file.substr(copied, at - copied));
        const std::string_view text = std::string_view(m_text).substr(edit.from, edit.to - edit.from);
        const bool follows = !pieces.empty() && pieces.back().data() + pieces.back().size() == text.data();
        if (follows) // neighbours that changed are one piece
            pieces.back() = {pieces.back().data(), pieces.back().size() + text.size()};
        else if (!text.empty())
            pieces.push_back(text);
        copied = std::max(copied, edit.place == Place::instead && !atEnd ? at + records[edit.position].length : at);
    }
    if (copied < file.size())
        pieces.push_back(file.substr(copied));
    return pieces;
}

/// As much as the changed records of the file take, and a bit more.
std::size_t SavePlan::roomForChanged() const
{
    constexpr std::size_t added = 16; // a colour, a few digits
    std::size_t room = 0;
    for (const std::uint32_t position : m_database.edits()) {
        const DxfRecord& record = m_database.file().records()[position];
        if (!isErased(record) && (record.flags & (RecordFlags::modified | RecordFlags::mended)) != 0)
            room += record.length + added;
    }
    return room;
}

template <class Write>
void SavePlan::edit(std::uint32_t position, Place place, Write write)
{
    const std::size_t from = m_text.size();
    write();
    if (place == Place::instead || m_text.size() > from)
        m_edits.push_back({position, place, from, m_text.size()});
}

void SavePlan::writeObject(DxfRecord& record)
{
    m_usesNewHandles = m_usesNewHandles || isNew(record) || (record.flags & DxfRecord::handleRepaired) != 0;
    const bool untouched = isNew(record) && (record.flags & RecordFlags::modified) == 0;
    if (untouched && !m_database.bytes(record).empty())
        m_text += m_database.hasRenamed() ? m_database.withNewNames(record, m_database.bytes(record))
                                          : std::string(m_database.bytes(record));
    else
        m_writer.write(m_database.object(record));
}

void SavePlan::writeMended(const DxfRecord& record)
{
    m_usesNewHandles = m_usesNewHandles || (record.flags & DxfRecord::handleRepaired) != 0;
    if (const std::string& type = m_database.typeName(record); type == "SEQEND" || type == "ENDBLK")
        return writeEndMark(record); // nothing of it counts but its place
    m_text += m_database.withNewNames(record, m_database.file().readableBytes(record));
}

void SavePlan::writeAddedSubentities(AcDbStub* parent)
{
    const AcDbObject* object = residentObject(*recordOf(parent));
    if (!object)
        return;
    for (AcDbStub* subentity : m_database.ownership().addedSubentities(*object))
        if (!isErased(*recordOf(subentity)))
            writeObject(*recordOf(subentity));
}

void SavePlan::writeWithSubentities(AcDbStub* entity)
{
    if (isErased(*recordOf(entity)))
        return;
    writeObject(*recordOf(entity));
    writeAddedSubentities(entity);
    AcDbStub* end = m_database.ownership().sequenceEnd(*recordOf(entity));
    if (end && !isErased(*recordOf(end)))
        writeObject(*recordOf(end));
}

void SavePlan::editRepaired()
{
    if (m_database.file().problems().empty())
        return;
    const auto& records = m_database.file().records();
    for (std::uint32_t i = 0; i < records.size(); ++i)
        if ((records[i].flags & DxfRecord::handleRepaired) != 0 && (records[i].flags & RecordFlags::edited) == 0) {
            m_usesNewHandles = true;
            edit(i, Place::instead,
                 [&] { m_text += m_database.withNewNames(records[i], m_database.file().repairedBytes(records[i])); });
        }
    editStructure();
}

/// What closes no section goes, and the end mark that lacks is set.
void SavePlan::editStructure()
{
    const DxfFile& file = m_database.file();
    const auto count = static_cast<std::uint32_t>(file.records().size());
    bool ended = false;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::string& type = m_database.typeName(file.records()[i]);
        ended |= type == "EOF";
        if (type == "ENDSEC" && !file.isInSection(i))
            edit(i, Place::instead, [] {});
    }
    if (!ended)
        edit(count, Place::instead, [&] { DxfTagWriter(m_database.form(), m_text).rawText(0, "EOF"); });
}

void SavePlan::editChanged()
{
    auto& records = m_database.file().records();
    for (std::uint32_t position : m_database.edits()) {
        DxfRecord& record = records[position];
        if (isErased(record))
            edit(position, Place::instead, [] {});
        else if ((record.flags & RecordFlags::mended) != 0)
            edit(position, Place::instead, [&] { writeMended(record); });
        else if ((record.flags & RecordFlags::modified) != 0)
            edit(position, Place::instead, [&] { writeObject(record); });
        else if ((record.flags & DxfRecord::handleRepaired) != 0) {
            m_usesNewHandles = true;
            edit(position, Place::instead, [&] { m_text += m_database.file().repairedBytes(record); });
        }
    }
}

void SavePlan::editOwnersOfErased()
{
    auto& records = m_database.file().records();
    bool objectsErased = false;
    std::set<std::uint32_t> found;
    const auto take = [&](const AcDbStub* stub) {
        if (!stub)
            return;
        const DxfRecord& record = *recordOf(const_cast<AcDbStub*>(stub));
        constexpr int written = RecordFlags::erased | RecordFlags::modified | RecordFlags::mended;
        if (!isNew(record) && (record.flags & written) == 0)
            found.insert(m_database.positionOf(record));
    };
    for (std::uint32_t position : m_database.edits()) {
        const DxfRecord& record = records[position];
        if (!isErased(record) || !standsInObjectsSection(m_database, record))
            continue;
        objectsErased = true;
        AcDbStub* const owner = m_database.ownership().ownerInFile(record);
        if (owner && ObjectTags(m_database, m_database.object(*recordOf(owner))).extensionDictionary() == record.handle)
            take(owner);
    }
    if (objectsErased)
        for (const DxfRecord& record : records)
            if (m_database.classOf(record).rxClass == AcDbDictionary::desc() && namesErased(m_database, record))
                take(stubOf(&record));
    for (std::uint32_t position : found)
        edit(position, Place::instead, [&] { writeObject(records[position]); });
}

void SavePlan::editNamesOfRenamed()
{
    if (!m_database.hasRenamed())
        return;
    std::set<std::uint32_t> done;
    for (const Edit& made : m_edits)
        done.insert(made.position);
    const auto& records = m_database.file().records();
    for (std::uint32_t i = 0; i < records.size(); ++i) {
        if (records[i].handle == 0 || done.contains(i))
            continue;
        const std::string_view bytes = m_database.bytes(records[i]);
        const std::string renamed = m_database.withNewNames(records[i], bytes);
        if (renamed != bytes)
            edit(i, Place::instead, [&] { m_text += renamed; });
    }
}

/// Whether the drawing can be read without it.
bool SavePlan::canDoWithout(const DxfRecord& record) const
{
    const std::string& type = m_database.typeName(record);
    return record.handle != 0 && type != "TABLE" && type != "BLOCK" && type != "ENDBLK";
}

/// What the medium no longer gives: objects that were read are written from memory, others left out, with the
/// sub-entities that would then be another entity's.
void SavePlan::editLost()
{
    if (!m_database.file().anyLost())
        return;
    std::set<std::uint32_t> done;
    for (const Edit& made : m_edits)
        if (made.place == Place::instead)
            done.insert(made.position);
    auto& records = m_database.file().records();
    std::uint32_t leftOut = 0; // up to here, sub-entities
    for (std::uint32_t i = 0; i < records.size(); ++i) {
        DxfRecord& record = records[i];
        const bool lost = (record.flags & DxfRecord::lost) != 0;
        if (done.contains(i) || (!lost && i >= leftOut))
            continue;
        if (!canDoWithout(record))
            throw DxfError(m_database.file().path(), 0, dxf_texts::structureLost);
        const std::string& type = m_database.typeName(record);
        const bool leave = i < leftOut;
        const bool read = residentObject(record) && (record.flags & DxfRecord::spoiled) == 0;
        edit(i, Place::instead, [&] {
            if (!leave && read)
                writeObject(record);
            else if (!leave && type == "SEQEND")
                writeEndMark(record);
        });
        if (!leave && !read && type != "ATTRIB" && type != "VERTEX" && type != "SEQEND")
            leftOut = afterEntity(i);
    }
}

void SavePlan::writeEndMark(const DxfRecord& record)
{
    DxfTagWriter out(m_database.form(), m_text);
    const std::string& type = m_database.typeName(record);
    out.rawText(0, type);
    out.handle(5, record.handle);
    out.rawText(100, "AcDbEntity");
    out.rawText(8, "0");
    if (type == "ENDBLK")
        out.rawText(100, "AcDbBlockEnd");
}

/// Attributes and vertices added to entities of the file go before the SEQEND, or open a sequence.
void SavePlan::addToParents()
{
    auto& records = m_database.file().records();
    for (std::uint32_t position : m_database.edits()) {
        DxfRecord& record = records[position];
        const AcDbObject* object = residentObject(record);
        if (isErased(record) || !object || m_database.ownership().addedSubentities(*object).empty())
            continue;
        AcDbStub* end = m_database.ownership().sequenceEnd(record);
        const bool endInFile = end && !isNew(*recordOf(end));
        edit(endInFile ? m_database.positionOf(*recordOf(end)) : afterEntity(position), Place::before, [&] {
            writeAddedSubentities(stubOf(&record));
            if (end && !endInFile)
                writeObject(*recordOf(end));
        });
    }
}

std::uint32_t SavePlan::endOf(const DxfRange& range, const char* closing) const
{
    const bool closed = m_database.typeName(m_database.file().records()[range.last]) == closing;
    return closed ? range.last : range.last + 1;
}

std::uint32_t SavePlan::afterEntity(std::uint32_t position) const
{
    const auto& records = m_database.file().records();
    const auto follows = [&](const std::string& type) {
        return type == "ATTRIB" || type == "VERTEX" || type == "SEQEND";
    };
    do
        ++position;
    while (position < records.size() && follows(m_database.typeName(records[position])));
    return position;
}

std::uint32_t SavePlan::endOfBlock(const BlockContent& content) const
{
    if (content.end)
        return m_database.positionOf(*recordOf(content.end));
    AcDbStub* const last = content.fromFile > 0 ? content.entities[content.fromFile - 1] : content.begin;
    return afterEntity(m_database.positionOf(*recordOf(last)));
}

template <class Write>
void SavePlan::atEndOfSection(const char* name, Write write)
{
    const DxfFile& file = m_database.file();
    if (const DxfRange* section = file.section(name))
        return edit(endOf(*section, "ENDSEC"), Place::before, write);
    auto position = static_cast<std::uint32_t>(file.records().size());
    while (position > 0 && file.typeName(file.records()[position - 1].type) != "EOF")
        --position;
    position = position > 0 ? position - 1 : static_cast<std::uint32_t>(file.records().size()); // before EOF
    for (auto next = std::ranges::find(sectionOrder, std::string_view(name)); next != sectionOrder.end(); ++next)
        if (const DxfRange* later = file.section(*next)) {
            position = later->first;
            break;
        }
    edit(position, Place::before, [&] {
        const std::size_t before = m_text.size();
        DxfTagWriter out(m_database.form(), m_text);
        out.rawText(0, "SECTION");
        out.rawText(2, name);
        const std::size_t opened = m_text.size();
        write();
        if (m_text.size() == opened)
            m_text.resize(before);
        else
            out.rawText(0, "ENDSEC");
    });
}

bool SavePlan::isWritten(const DxfRecord& record) const
{
    constexpr int kinds = RecordFlags::madeUp | RecordFlags::modified;
    return isNew(record) && !isErased(record) && (m_writesMadeUp || (record.flags & kinds) != RecordFlags::madeUp);
}

void SavePlan::addToTables()
{
    for (const NameKind kind : nameKinds) {
        const DxfRange* range = m_database.file().table(tableName(kind));
        if (!range)
            continue;
        edit(endOf(*range, "ENDTAB"), Place::before, [&] {
            for (AcDbStub* record : m_database.names(kind).records())
                if (isWritten(*recordOf(record)))
                    writeObject(*recordOf(record));
        });
    }
}

void SavePlan::addNewTables()
{
    atEndOfSection("TABLES", [&] {
        for (const NameKind kind : nameKinds) {
            const SymbolNames& names = m_database.names(kind);
            const auto isOne = [this](AcDbStub* record) { return isWritten(*recordOf(record)); };
            if (!isNew(*recordOf(names.table)) || std::ranges::none_of(names.records(), isOne))
                continue;
            writeObject(*recordOf(names.table));
            for (AcDbStub* record : names.records())
                if (isOne(record))
                    writeObject(*recordOf(record));
            DxfTagWriter(m_database.form(), m_text).rawText(0, "ENDTAB");
        }
    });
}

void SavePlan::addToBlocks()
{
    const auto write = [&](const BlockContent& content) {
        for (std::size_t i = content.fromFile; i < content.entities.size(); ++i)
            writeWithSubentities(content.entities[i]);
    };
    for (AcDbStub* block : m_database.blocks().grown()) {
        const BlockContent& content = m_database.blocks().of(block);
        if (isErased(*recordOf(block)))
            continue;
        if (content.inEntitiesSection)
            atEndOfSection("ENTITIES", [&] { write(content); });
        else if (!content.isNew)
            edit(endOfBlock(content), Place::before, [&] { write(content); });
    }
}

void SavePlan::addNewBlocks()
{
    if (m_database.blocks().newBlocks().empty())
        return;
    atEndOfSection("BLOCKS", [&] {
        for (AcDbStub* block : m_database.blocks().newBlocks()) {
            const BlockContent& content = m_database.blocks().of(block);
            if (isErased(*recordOf(block)) || !isWritten(*recordOf(content.begin)))
                continue;
            writeObject(*recordOf(content.begin));
            if (!content.inEntitiesSection)
                for (AcDbStub* entity : content.entities)
                    writeWithSubentities(entity);
            writeObject(*recordOf(content.end));
        }
    });
}

/// Dictionaries, xrecords and what else is neither an entity nor in a table.
void SavePlan::addObjects()
{
    const auto& records = m_database.newRecords();
    if (records.size() == 0)
        return;
    atEndOfSection("OBJECTS", [&] {
        for (std::size_t i = 0; i < records.size(); ++i)
            if (isWritten(records[i]) && standsInObjectsSection(m_database, records[i]))
                writeObject(records[i]);
    });
}

void SavePlan::editHeader()
{
    const auto extents = changesFile() ? extentsToSave(m_database) : std::nullopt;
    if (!m_usesNewHandles && !m_database.header().changed() && !extents)
        return;
    const DxfRange* header = m_database.file().section("HEADER");
    if (!header)
        return;
    const std::uint64_t seed = m_usesNewHandles ? m_database.handleSeed() : 0;
    edit(header->first, Place::instead,
         [&] { m_text += m_database.header().patched(seed, extents ? &*extents : nullptr); });
}

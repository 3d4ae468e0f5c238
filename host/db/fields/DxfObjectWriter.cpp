#include "db/fields/DxfObjectWriter.h"

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/fields/MarkedTags.h"
#include "db/Ownership.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"
#include "dxf/R12Subclasses.h"

#include "dbxrecrd.h"

namespace {

int handleCodeOf(std::string_view dxfName)
{
    return dxfName == "DIMSTYLE" ? 105 : 5;
}

/// New data of an xrecord, in place of all the tags after the leading ones; null when it has its old data.
const std::string* replacedData(const AcDbObject& object)
{
    const auto* record = AcDbXrecord::cast(&object);
    return record ? record->replacedBytes() : nullptr;
}

/// What programs take for not set while its code is absent: a colour of its own, a thickness, attributes that follow.
bool isToldByAbsence(int code)
{
    constexpr int thickness = 39, attributesFollow = 66, lineWeight = 370;
    return code == thickness || code == attributesFollow || code == lineWeight || isCommonEntityCode(code);
}

} // namespace

bool sameField(const DxfField& field, const AcDbObject& a, const AcDbObject& b)
{
    for (int part = 0; part < field.parts; ++part)
        if (!field.same(a, b, part))
            return false;
    return true;
}

DxfObjectWriter::DxfObjectWriter(AcDbDatabaseImpl& database, std::string& out) :
    m_database(database),
    m_out(database.form(), out),
    m_context{m_out, database}
{
}

void DxfObjectWriter::write(const AcDbObject& object)
{
    const DxfRecord& record = *recordOf(object.objectId());
    const DxfClass& dxfClass = m_database.classOf(record);
    const std::string_view bytes = m_database.bytes(record);
    if (bytes.empty())
        writeNew(object, dxfClass);
    else if ((record.flags & DxfRecord::spoiled) != 0)
        m_out.raw(isNew(record) ? bytes : std::string_view(m_database.file().repairedBytes(record)));
    else
        merge(object, dxfClass, bytes);
    constexpr std::size_t mostKept = 4096; // tags: few objects have more, and one may have a million
    m_placed.clear();
    if (m_placed.capacity() > mostKept)
        m_placed.shrink_to_fit();
}

void DxfObjectWriter::writeComplete(const AcDbEntity& entity)
{
    m_context.complete = true;
    write(entity);
    m_context.complete = false;
}

/// Whether a field without a tag gets one.
bool DxfObjectWriter::isWanted(const DxfField& field, bool changed) const
{
    return changed || (m_context.complete && !field.isList() && !isToldByAbsence(field.code));
}

void DxfObjectWriter::writeRow(const AcDbObject& object, const DxfField& field)
{
    const int parts = field.isList() ? 1 : field.parts;
    for (int part = 0; part < parts; ++part)
        field.write(m_context, object, field.code + 10 * part, part);
}

void DxfObjectWriter::writeRows(const AcDbObject& object, const DxfSubclass& subclass, const AcDbObject& fresh)
{
    for (const DxfField& field : subclass.fields())
        if (field.always || isWanted(field, !sameField(field, object, fresh)))
            writeRow(object, field);
}

void DxfObjectWriter::writeAround(const ObjectTags& around)
{
    if (around.extensionDictionaryChanged())
        around.writeExtensionDictionary(m_out);
    if (around.reactorsChanged())
        around.writeReactors(m_out);
}

void DxfObjectWriter::writeOwner(const AcDbObject& object)
{
    m_out.handle(330, object.ownerId().handle());
}

void DxfObjectWriter::writeNew(const AcDbObject& object, const DxfClass& dxfClass)
{
    const AcDbObject& fresh = DxfClasses::all().fresh(dxfClass);
    const ObjectTags around(m_database, object);
    m_out.rawText(0, dxfClass.dxfName);
    for (const DxfSubclass* subclass : dxfClass.subclasses)
        if (subclass->marker().empty())
            writeRows(object, *subclass, fresh);
    m_out.handle(handleCodeOf(dxfClass.dxfName), object.objectId().handle());
    writeAround(around);
    writeOwner(object);
    for (const DxfSubclass* subclass : dxfClass.subclasses) {
        if (subclass->marker().empty())
            continue;
        m_out.rawText(100, subclass->marker());
        writeRows(object, *subclass, fresh);
    }
    if (const std::string* data = replacedData(object))
        m_out.raw(*data);
    if (around.xdataChanged())
        around.writeXData(m_out);
}

// ---- merging --------------------------------------------------------------------------------------------------------

/// One pass over the old tags of an object. What stays is copied in runs: each thing written ends the run before it.
struct DxfObjectWriter::Merge {
    /// The tags of `old`, the object as it was, are those that the writer has placed last.
    Merge(DxfObjectWriter& owner, const AcDbObject& changed, const DxfClass& itsClass, const AcDbObject& old) :
        writer(owner),
        placed(owner.m_placed),
        states(owner.m_states),
        object(changed),
        dxfClass(itsClass),
        around(owner.m_database, changed),
        dictionaryChanged(around.extensionDictionaryChanged()),
        renamed(owner.m_database.hasRenamed()),
        inside(DxfSubclassWalk(itsClass).position())
    {
        states.assign(dxfClass.firstRows.back(), {});
        for (const DxfPlacedTag& each : placed)
            if (each.place.row >= 0)
                stateOf(each.place).met |= 1U << partOf(fieldAt(each.place), each.tag.code);
        compare(old);
    }

    /// Whether a tag was added to an entity that bears no markers.
    bool lacksMarkers() const { return addedWithoutMarkers; }

    void run(std::string_view bytes)
    {
        runStart = bytes.data();
        for (std::size_t i = 0; i < placed.size(); ++i)
            take(i);
        const char* const end = placed.empty() ? bytes.data() : placed.back().tag.next;
        finish(bytes.substr(static_cast<std::size_t>(end - bytes.data())));
    }

private:
    const DxfField& fieldAt(DxfRowPlace place) const
    {
        return dxfClass.subclasses[static_cast<std::size_t>(place.subclass)]
            ->fields()[static_cast<std::size_t>(place.row)];
    }

    RowState& stateOf(DxfRowPlace place)
    {
        return states[dxfClass.firstRows[static_cast<std::size_t>(place.subclass)] +
                      static_cast<std::size_t>(place.row)];
    }

    void compare(const AcDbObject& old)
    {
        RowState* state = states.data();
        for (const DxfSubclass* subclass : dxfClass.subclasses)
            for (const DxfField& field : subclass->fields()) {
                for (int part = 0; part < field.parts; ++part)
                    state->changed |= static_cast<unsigned>(!field.same(object, old, part)) << part;
                ++state;
            }
    }

    /// Copies what waits up to a place; what is written next stands there.
    DxfTagWriter& outAt(const char* place)
    {
        if (place > runStart)
            copyBytes({runStart, static_cast<std::size_t>(place - runStart)});
        runStart = place;
        return writer.m_out;
    }

    /// The same, in the place of a tag.
    void outInstead(const DxfTag& tag)
    {
        outAt(tag.start);
        runStart = tag.next;
    }

    void copyBytes(std::string_view tags)
    {
        if (renamed)
            writer.m_out.raw(writer.m_database.withNewNames(*recordOf(object.objectId()), tags));
        else
            writer.m_out.raw(tags);
    }

    void take(std::size_t at)
    {
        const DxfPlacedTag& each = placed[at];
        const DxfTag& tag = each.tag;
        if (inGroup || tag.code == 102)
            group(tag);
        else if (tag.code == 100)
            marker(each);
        else if (each.place.row >= 0) {
            if (stateOf(each.place).changed != 0 || writer.m_context.complete)
                field(at);
        } else if (!marked)
            beforeMarkers(tag);
    }

    void group(const DxfTag& tag)
    {
        const bool bound = tag.code == 102;
        if (bound && opensGroup(tag)) {
            const std::string_view name = dxfText(tag);
            dropGroup = (name == "{ACAD_XDICTIONARY" && dictionaryChanged) ||
                        (name == "{ACAD_REACTORS" && around.reactorsChanged());
        }
        if (dropGroup)
            outInstead(tag);
        if (bound) {
            inGroup = opensGroup(tag);
            dropGroup = dropGroup && inGroup;
        }
    }

    /// Type, handle and owner.
    void beforeMarkers(const DxfTag& tag)
    {
        const DxfRecord& record = *recordOf(object.objectId());
        const bool repaired = (record.flags & DxfRecord::handleRepaired) != 0;
        if (repaired && tag.code == 0)
            outAt(tag.next).handle(handleCodeOf(dxfClass.dxfName), record.handle);
        else if (repaired && tag.code == handleCodeOf(dxfClass.dxfName))
            outInstead(tag); // written after the group 0
        else if (tag.code == 330 && !aroundWritten) {
            writeAroundOnce(tag.start);
            if (ownerChanged(tag, record)) {
                outInstead(tag);
                writer.writeOwner(object);
            }
        }
    }

    bool ownerChanged(const DxfTag& tag, const DxfRecord& record) const
    {
        AcDbStub* const owner = object.ownerId().stub();
        std::uint64_t named = 0;
        const bool same = owner && dxfHandle(tag, named) && named == recordOf(owner)->handle;
        return owner && !same && owner != writer.m_database.ownership().ownerInFile(record);
    }

    void marker(const DxfPlacedTag& each)
    {
        writeAroundOnce(each.tag.start);
        leaveSubclass(each.tag.start);
        marked = true;
        inside = each.place.subclass;
        if (inside >= 0)
            entered |= 1U << inside;
    }

    void writeAroundOnce(const char* place)
    {
        if (aroundWritten)
            return;
        aroundWritten = true;
        if (!dictionaryChanged && !around.reactorsChanged())
            return;
        outAt(place);
        writer.writeAround(around);
    }

    void field(std::size_t at)
    {
        const DxfPlacedTag& each = placed[at];
        const DxfField& row = fieldAt(each.place);
        RowState& state = stateOf(each.place);
        if (row.isList())
            return repeatedGroup(each.tag, row, state);
        const int part = partOf(row, each.tag.code);
        if ((state.changed >> part & 1U) != 0) {
            outInstead(each.tag);
            row.write(writer.m_context, object, each.tag.code, part);
        }
        const bool isLast = at + 1 == placed.size() || placed[at + 1].place != each.place;
        if (isLast && (state.changed & ~state.met) != 0)
            finishPoint(each.tag.next, row, state);
    }

    /// A list may have any number of tags: one that changed is written where its first one stood.
    void repeatedGroup(const DxfTag& tag, const DxfField& row, RowState& state)
    {
        outInstead(tag);
        if (!state.listWritten)
            row.write(writer.m_context, object, row.code, 0);
        state.listWritten = true;
    }

    /// A point may lack a coordinate: once changed, it follows those that are there.
    void finishPoint(const char* place, const DxfField& row, RowState& state)
    {
        outAt(place);
        for (int part = 0; part < row.parts; ++part)
            if (((state.changed & ~state.met) >> part & 1U) != 0)
                row.write(writer.m_context, object, row.code + 10 * part, part);
        state.met |= state.changed;
    }

    /// What follows the tags that were placed: data of the object, then its extended data.
    void finish(std::string_view rest)
    {
        DxfCursor cursor(writer.m_database.form(), rest);
        const char* dataEnd = rest.data();
        for (DxfTag tag; cursor.next(tag) && tag.code != extendedDataCode;)
            dataEnd = tag.next;
        const std::string_view extendedData = cursor.position() > dataEnd
                                                  ? rest.substr(static_cast<std::size_t>(dataEnd - rest.data()))
                                                  : std::string_view();
        if (dataEnd > rest.data())
            data(rest.data(), dataEnd);
        leaveSubclass(dataEnd);
        addSubclasses(dataEnd);
        outAt(dataEnd);
        if (around.xdataChanged())
            around.writeXData(writer.m_out);
        else
            copyBytes(extendedData);
    }

    void data(const char* begin, const char* end)
    {
        beginData(begin);
        if (replacedData(object))
            runStart = end;
    }

    /// Leading rows come first: below them everything is data.
    void beginData(const char* place)
    {
        inData = true;
        outAt(place);
        const std::string* data = replacedData(object);
        writeMissing(static_cast<std::size_t>(inside), data != nullptr);
        if (data)
            writer.m_out.raw(*data);
    }

    /// Fields that changed and have no tag anywhere go to the end of their subclass.
    void leaveSubclass(const char* place)
    {
        if (inside < 0)
            return;
        const auto subclass = static_cast<std::size_t>(inside);
        entered |= 1U << inside;
        if (dxfClass.subclasses[subclass]->leadingOnly() && !inData)
            beginData(place);
        if (lacksChanged(subclass)) {
            outAt(place);
            writeMissing(subclass, false);
        }
        inside = DxfRowPlace::none;
    }

    /// Whether a field of a subclass is to be told and has no tag.
    bool lacksChanged(std::size_t subclass) const
    {
        const RowState* state = states.data() + dxfClass.firstRows[subclass];
        return std::ranges::any_of(dxfClass.subclasses[subclass]->fields(), [&](const DxfField& field) {
            const RowState& its = *state++;
            return its.met == 0 && writer.isWanted(field, its.changed != 0);
        });
    }

    void writeMissing(std::size_t subclass, bool all)
    {
        RowState* state = states.data() + dxfClass.firstRows[subclass];
        for (const DxfField& row : dxfClass.subclasses[subclass]->fields()) {
            if (state->met == 0 && (all || writer.isWanted(row, state->changed != 0))) {
                state->met = 1;
                writer.writeRow(object, row);
            }
            ++state;
        }
    }

    /// Subclasses that the object lacks, for the fields of theirs that changed.
    void addSubclasses(const char* place)
    {
        writeAroundOnce(place);
        for (std::size_t i = 0; i < dxfClass.subclasses.size(); ++i) {
            const DxfSubclass& subclass = *dxfClass.subclasses[i];
            if ((entered >> i & 1U) != 0 || subclass.marker().empty() || !lacksChanged(i))
                continue;
            addedWithoutMarkers = addedWithoutMarkers || (dxfClass.isEntity && !marked);
            outAt(place).rawText(100, subclass.marker());
            writeMissing(i, false);
        }
    }

    DxfObjectWriter& writer;
    const std::vector<DxfPlacedTag>& placed;
    std::vector<RowState>& states; // of the rows of all subclasses, in their order
    const AcDbObject& object;
    const DxfClass& dxfClass;
    const ObjectTags around;
    const bool dictionaryChanged;
    const bool renamed;             // definitions that tags may name
    const char* runStart = nullptr; // of the tags that wait to be copied
    int inside;                     // the subclass that the tags stand in
    unsigned entered = 0;           // subclasses, a bit each
    bool marked = false;            // a marker was met
    bool inGroup = false;
    bool dropGroup = false;
    bool aroundWritten = false;
    bool inData = false; // of an xrecord
    bool addedWithoutMarkers = false;
};

/// An entity without markers stays so while its values change where they stand. A tag that it gains needs a marker, and
/// a reader that sees one looks for all of them.
void DxfObjectWriter::merge(const AcDbObject& object, const DxfClass& dxfClass, std::string_view bytes)
{
    const std::unique_ptr<AcDbObject> was(dxfClass.create());
    DxfObjectReader reader(m_database);
    reader.read(bytes, dxfClass, *was, m_placed);
    const std::size_t start = m_out.out().size();
    Merge merge(*this, object, dxfClass, *was);
    merge.run(bytes);
    if (!merge.lacksMarkers())
        return;
    const std::string marked = withMarkers(m_database.form(), m_database.typeName(*recordOf(object.objectId())), bytes);
    if (marked.empty())
        return;
    m_out.out().resize(start);
    reader.read(marked, dxfClass, *std::unique_ptr<AcDbObject>(dxfClass.create()), m_placed);
    Merge(*this, object, dxfClass, *was).run(marked);
}

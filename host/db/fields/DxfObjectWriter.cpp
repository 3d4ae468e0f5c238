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

/// One walk through the old tags of an object.
struct DxfObjectWriter::Merge {
    /// `firstRows`: of the first subclass, those that have a tag anywhere.
    Merge(DxfObjectWriter& owner, const AcDbObject& changed, const DxfClass& itsClass, const AcDbObject& old,
          unsigned firstRows) :
        writer(owner),
        object(changed),
        was(old),
        dxfClass(itsClass),
        around(owner.m_database, changed),
        renamed(owner.m_database.hasRenamed()),
        walk(itsClass),
        rowsOfFirst(firstRows)
    {
        compare();
    }

    /// Whether a tag was added to an entity that bears no markers.
    bool lacksMarkers() const { return addedWithoutMarkers; }

    void run(std::string_view bytes)
    {
        DxfCursor cursor(writer.m_database.form(), bytes);
        DxfTag tag;
        while (cursor.next(tag)) {
            if (tag.code == extendedDataCode) {
                leaveSubclass();
                extendedData(bytes.substr(static_cast<std::size_t>(tag.start - bytes.data())));
                return;
            }
            take(tag);
        }
        leaveSubclass();
        extendedData({});
    }

private:
    struct RowState {
        unsigned met = 0;     ///< a bit for each part that has a tag
        unsigned changed = 0; ///< a bit for each part that is not what it was
    };

    void compare()
    {
        std::size_t count = 0;
        for (const DxfSubclass* subclass : dxfClass.subclasses)
            count += subclass->fields().size();
        states.resize(count);
        RowState* state = states.data();
        for (const DxfSubclass* subclass : dxfClass.subclasses)
            for (const DxfField& field : subclass->fields()) {
                for (int part = 0; part < field.parts; ++part)
                    state->changed |= static_cast<unsigned>(!field.same(object, was, part)) << part;
                ++state;
            }
    }

    RowState* statesOf(std::size_t subclass)
    {
        RowState* first = states.data();
        for (std::size_t i = 0; i < subclass; ++i)
            first += dxfClass.subclasses[i]->fields().size();
        return first;
    }

    // What stays is copied in runs: each thing written comes after the run before it.

    void copy(const DxfTag& tag)
    {
        const bool follows = !copied.empty() && copied.data() + copied.size() == tag.start && !renamed;
        if (!follows)
            endRun();
        const char* const from = follows ? copied.data() : tag.start;
        copied = {from, static_cast<std::size_t>(tag.next - from)};
    }

    void endRun()
    {
        if (!copied.empty())
            copyBytes(copied);
        copied = {};
    }

    void copyBytes(std::string_view tags)
    {
        if (renamed)
            writer.m_out.raw(writer.m_database.withNewNames(*recordOf(object.objectId()), tags));
        else
            writer.m_out.raw(tags);
    }

    DxfTagWriter& out()
    {
        endRun();
        return writer.m_out;
    }

    void writeRow(const DxfField& field)
    {
        endRun();
        writer.writeRow(object, field);
    }

    void writePart(const DxfField& field, int code, int part)
    {
        endRun();
        field.write(writer.m_context, object, code, part);
    }

    void take(const DxfTag& tag)
    {
        if (!inData && walk.opensData(tag.code)) {
            finishPoint();
            beginData();
        }
        if (inData) {
            if (!dataReplaced)
                copy(tag);
            return;
        }
        const bool bare = inGroup || tag.code == 102 || tag.code == 100 || tag.code < 0;
        const DxfSubclassWalk::Row row = bare ? DxfSubclassWalk::Row() : walk.rowFor(tag.code);
        if (row != point)
            finishPoint();
        if (inGroup || tag.code == 102)
            group(tag);
        else if (tag.code == 100)
            marker(tag);
        else if (markers == 0 && beforeMarkers(tag))
            return;
        else if (row.row >= 0)
            field(tag, row);
        else
            copy(tag);
    }

    void group(const DxfTag& tag)
    {
        const bool bound = tag.code == 102;
        if (bound && opensGroup(tag)) {
            const std::string_view name = dxfText(tag);
            dropGroup = (name == "{ACAD_XDICTIONARY" && around.extensionDictionaryChanged()) ||
                        (name == "{ACAD_REACTORS" && around.reactorsChanged());
        }
        if (!dropGroup)
            copy(tag);
        if (bound) {
            inGroup = opensGroup(tag);
            dropGroup = dropGroup && inGroup;
        }
    }

    /// Handle and owner; true when the tag was dealt with.
    bool beforeMarkers(const DxfTag& tag)
    {
        const DxfRecord& record = *recordOf(object.objectId());
        if (tag.code == 0) {
            copy(tag);
            if ((record.flags & DxfRecord::handleRepaired) != 0)
                out().handle(handleCodeOf(dxfClass.dxfName), record.handle);
            return true;
        }
        if (tag.code == handleCodeOf(dxfClass.dxfName) && (record.flags & DxfRecord::handleRepaired) != 0)
            return true; // written after the group 0
        if (tag.code == 330 && !aroundWritten) {
            writeAroundOnce();
            AcDbStub* const owner = object.ownerId().stub();
            std::uint64_t named = 0;
            const bool same = owner && dxfHandle(tag, named) && named == recordOf(owner)->handle;
            if (!owner || same || owner == writer.m_database.ownership().ownerInFile(record))
                copy(tag);
            else {
                endRun();
                writer.writeOwner(object);
            }
            return true;
        }
        return false;
    }

    void marker(const DxfTag& tag)
    {
        writeAroundOnce();
        leaveSubclass();
        copy(tag);
        ++markers;
        walk.enter(dxfText(tag));
        if (walk.position() >= 0)
            entered |= 1U << walk.position();
    }

    void writeAroundOnce()
    {
        if (aroundWritten)
            return;
        endRun();
        writer.writeAround(around);
        aroundWritten = true;
    }

    void field(const DxfTag& tag, DxfSubclassWalk::Row place)
    {
        const auto subclass = static_cast<std::size_t>(place.subclass);
        const auto position = static_cast<std::size_t>(place.row);
        const DxfField& row = dxfClass.subclasses[subclass]->fields()[position];
        RowState& state = statesOf(subclass)[position];
        if (row.isList())
            return repeatedGroup(tag, row, state);
        const int part = (tag.code - row.code) / 10;
        state.met |= 1U << part;
        if (row.parts > 1)
            point = place;
        if ((state.changed >> part & 1U) == 0)
            copy(tag);
        else
            writePart(row, tag.code, part);
    }

    /// A list may have any number of tags: one that changed is written where its first one stood.
    void repeatedGroup(const DxfTag& tag, const DxfField& row, RowState& state)
    {
        const bool rewritten = writer.m_context.complete || state.changed != 0;
        if (rewritten && state.met == 0)
            writePart(row, row.code, 0);
        if (!rewritten)
            copy(tag);
        state.met = 1;
    }

    /// A point may lack a coordinate: once changed, it follows those that are there.
    void finishPoint()
    {
        if (point.row < 0)
            return;
        const auto subclass = static_cast<std::size_t>(point.subclass), position = static_cast<std::size_t>(point.row);
        const DxfField& row = dxfClass.subclasses[subclass]->fields()[position];
        RowState& state = statesOf(subclass)[position];
        for (int part = 0; part < row.parts; ++part)
            if (((state.changed & ~state.met) >> part & 1U) != 0)
                writePart(row, row.code + 10 * part, part);
        state.met |= state.changed;
        point = {};
    }

    /// Leading rows come first: below them everything is data.
    void beginData()
    {
        inData = true;
        const std::string* data = replacedData(object);
        dataReplaced = data != nullptr;
        const DxfSubclass& subclass = *walk.subclass();
        RowState* state = statesOf(static_cast<std::size_t>(walk.position()));
        for (const DxfField& row : subclass.fields()) {
            if (state->met == 0 && (dataReplaced || state->changed != 0)) {
                state->met = 1;
                writeRow(row);
            }
            ++state;
        }
        if (dataReplaced)
            out().raw(*data);
    }

    /// Fields that changed but had no tag yet go to the end of their subclass. Those of the first one may have it below
    /// a marker to come, where many programs write what every entity has: they are rewritten there, not added here.
    void leaveSubclass()
    {
        finishPoint();
        const DxfSubclass* subclass = walk.subclass();
        if (!subclass)
            return;
        const int position = walk.position();
        entered |= 1U << position;
        if (subclass->leadingOnly() && !inData)
            beginData();
        writeMissing(static_cast<std::size_t>(position), position == 0 ? rowsOfFirst : 0);
        walk.leave();
    }

    /// Whether a field of a subclass changed and has met no tag so far.
    bool lacksChanged(std::size_t subclass)
    {
        const RowState* state = statesOf(subclass);
        return std::ranges::any_of(dxfClass.subclasses[subclass]->fields(), [&](const DxfField& field) {
            const RowState& its = *state++;
            return its.met == 0 && writer.isWanted(field, its.changed != 0);
        });
    }

    void writeMissing(std::size_t subclass, unsigned later)
    {
        RowState* state = statesOf(subclass);
        for (const DxfField& row : dxfClass.subclasses[subclass]->fields()) {
            if (state->met == 0 && (later & 1U) == 0 && writer.isWanted(row, state->changed != 0)) {
                state->met = 1;
                writeRow(row);
            }
            later >>= 1;
            ++state;
        }
    }

    void extendedData(std::string_view old)
    {
        writeAroundOnce();
        for (std::size_t i = 0; i < dxfClass.subclasses.size(); ++i) {
            const DxfSubclass& subclass = *dxfClass.subclasses[i];
            if ((entered >> i & 1U) != 0 || subclass.marker().empty() || !lacksChanged(i))
                continue;
            addedWithoutMarkers = addedWithoutMarkers || (dxfClass.isEntity && markers == 0);
            out().rawText(100, subclass.marker());
            writeMissing(i, 0);
        }
        endRun();
        if (around.xdataChanged())
            around.writeXData(writer.m_out);
        else
            copyBytes(old);
    }

    DxfObjectWriter& writer;
    const AcDbObject& object;
    const AcDbObject& was;
    const DxfClass& dxfClass;
    ObjectTags around;
    const bool renamed; // definitions that tags may name
    DxfSubclassWalk walk;
    const unsigned rowsOfFirst;
    std::vector<RowState> states; // of the rows of all subclasses, in their order
    unsigned entered = 0;         // subclasses, a bit each
    std::string_view copied;      // the run of tags that waits to be copied
    DxfSubclassWalk::Row point;   // a point that the last tag belongs to
    int markers = 0;
    bool inGroup = false;
    bool dropGroup = false;
    bool aroundWritten = false;
    bool inData = false; // of an xrecord
    bool dataReplaced = false;
    bool addedWithoutMarkers = false;
};

/// An entity without markers stays so while its values change where they stand. A tag that it gains needs a marker, and
/// a reader that sees one looks for all of them.
void DxfObjectWriter::merge(const AcDbObject& object, const DxfClass& dxfClass, std::string_view bytes)
{
    const std::unique_ptr<AcDbObject> was(dxfClass.create());
    DxfObjectReader reader(m_database);
    reader.read(bytes, dxfClass, *was);
    const std::size_t start = m_out.out().size();
    Merge merge(*this, object, dxfClass, *was, reader.rowsOfFirstSubclass());
    merge.run(bytes);
    if (!merge.lacksMarkers())
        return;
    const std::string marked = withMarkers(m_database.form(), m_database.typeName(*recordOf(object.objectId())), bytes);
    if (marked.empty())
        return;
    m_out.out().resize(start);
    reader.read(marked, dxfClass, *std::unique_ptr<AcDbObject>(dxfClass.create()));
    Merge(*this, object, dxfClass, *was, reader.rowsOfFirstSubclass()).run(marked);
}

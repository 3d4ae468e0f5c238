#include "db/Ownership.h"

#include "db/fields/DxfObjectReader.h"
#include "db/ObjectExtras.h"
#include "db/ObjectOpening.h"
#include "dxf/DxfCursor.h"

#include "dbentvrt.h"
#include "dbsymtb.h"

namespace {

bool isOwnedByPrevious(const std::string& typeName)
{
    return typeName == "ATTRIB" || typeName == "VERTEX" || typeName == "SEQEND";
}

} // namespace

AcDbDatabaseImpl::Ownership AcDbDatabaseImpl::ownership()
{
    return Ownership(*this);
}

AcDbStub* AcDbDatabaseImpl::Ownership::ownerInFile(const DxfRecord& record) const
{
    AcDbStub* owner = nullptr;
    DxfCursor cursor(m_database.form(), m_database.bytes(record));
    DxfTag tag;
    bool inGroup = false; // inside 102 { ... } stand reactors and the extension dictionary, not the owner
    while (cursor.next(tag) && tag.code != 100) {
        if (tag.code == 102)
            inGroup = opensGroup(tag);
        std::uint64_t handle = 0;
        if (tag.code == 330 && !inGroup && dxfHandle(tag, handle)) {
            owner = m_database.byHandle(handle);
            break;
        }
    }
    if (isNew(record))
        return owner;
    if (isOwnedByPrevious(m_database.typeName(record))) {
        if (owner && hasSubentities(*recordOf(owner)))
            return owner;
        if (AcDbStub* const parent = parentOf(record))
            return parent;
    }
    // Many programs leave the owner out, or name one that is not there: the entity is its block's all the same.
    if (owner && m_database.typeName(*recordOf(owner)) == "BLOCK_RECORD")
        return owner;
    AcDbStub* const block = m_database.m_blocks.around(record);
    return block ? block : owner;
}

/// Files often name the block as the owner of attributes: they belong to the entity that they stand behind.
AcDbStub* AcDbDatabaseImpl::Ownership::parentOf(const DxfRecord& subentity) const
{
    const auto& records = m_database.file().records();
    for (std::uint32_t at = m_database.positionOf(subentity); at-- > 0;) {
        const DxfRecord& before = records[at];
        if (!isOwnedByPrevious(m_database.typeName(before)))
            return hasSubentities(before) ? stubOf(&before) : nullptr;
        if (m_database.typeName(before) == "SEQEND")
            return nullptr;
        if (const AcDbObject* neighbour = residentObject(before); neighbour && neighbour->m_owner)
            return hasSubentities(*recordOf(neighbour->m_owner)) ? neighbour->m_owner : nullptr;
    }
    return nullptr;
}

AcDbStub* AcDbDatabaseImpl::Ownership::ownerOf(const AcDbObject& object) const
{
    if (!object.m_owner && object.m_stub)
        object.m_owner = ownerInFile(*recordOf(object.m_stub));
    return object.m_owner;
}

AcDbStub* AcDbDatabaseImpl::Ownership::ownerOf(const DxfRecord& record) const
{
    return record.object ? ownerOf(*residentObject(record)) : ownerInFile(record);
}

AcDbObjectIdArray AcDbDatabaseImpl::Ownership::ownedBy(const AcDbObject& object) const
{
    AcDbObjectIdArray owned;
    object.ownedObjects(owned);
    const DxfRecord& record = *recordOf(object.m_stub);
    const auto take = [&owned](AcDbStub* stub) {
        if (stub)
            owned.append(AcDbObjectId(stub));
    };
    take(object.extensionDictionary().stub());
    take(sequenceEnd(record));
    if (m_database.typeName(record) == "BLOCK_RECORD") {
        const BlockContent& content = m_database.m_blocks.of(object.m_stub);
        take(content.begin);
        take(content.end);
        for (AcDbStub* entity : content.entities)
            take(entity);
    }
    return owned;
}

// Owners may form circles, and chains of any length: each object is marked as it is met, in a list and not by calls
// within calls.
void AcDbDatabaseImpl::Ownership::setErased(AcDbObject& object, bool erased)
{
    std::vector<AcDbObject*> touched;
    const auto mark = [&](AcDbObject& met, int marks) {
        DxfRecord& record = *recordOf(met.m_stub);
        m_database.m_undo.beforeChange(met);
        const int others = record.flags & ~(RecordFlags::erased | RecordFlags::withOwner);
        record.flags = static_cast<std::uint16_t>(others | marks);
        m_database.noteEdit(record);
        touched.push_back(&met);
    };
    if (isErased(*recordOf(object.m_stub)) == erased)
        return;
    mark(object, erased ? RecordFlags::erased : 0);
    for (std::size_t i = 0; i < touched.size(); ++i) {
        const AcDbObjectIdArray owned = ownedBy(*touched[i]);
        for (int k = 0; k < owned.length(); ++k) {
            const DxfRecord& record = *recordOf(owned[k]);
            if (!m_database.holdsObject(record) || isErased(record) == erased)
                continue;
            if (erased)
                mark(m_database.object(*recordOf(owned[k])), RecordFlags::erased | RecordFlags::withOwner);
            else if ((record.flags & RecordFlags::withOwner) != 0) // what was erased before stays so
                mark(m_database.object(*recordOf(owned[k])), 0);
        }
    }
    for (AcDbObject* met : touched)
        if (met->isKindOf(AcDbSymbolTableRecord::desc()) || (recordOf(met->m_stub)->flags & DxfRecord::spoiled) != 0)
            for (SymbolNames& table : m_database.m_names)
                table.forgetIndex();
    for (auto met = touched.rbegin(); met != touched.rend(); ++met)
        ObjectOpening::tellErased(**met, erased);
}

/// Attributes and vertices stand after what they belong to; only these kinds have any.
bool AcDbDatabaseImpl::Ownership::hasSubentities(const DxfRecord& record) const
{
    const std::string& type = m_database.typeName(record);
    return type == "INSERT" || type == "POLYLINE";
}

std::vector<AcDbStub*> AcDbDatabaseImpl::Ownership::subentities(const AcDbObject& parent, bool withErased) const
{
    std::vector<AcDbStub*> found;
    const auto take = [&](const DxfRecord& record) {
        if (m_database.typeName(record) != "SEQEND" && (withErased || !isErased(record)))
            found.push_back(stubOf(&record));
    };
    const DxfRecord* record = recordOf(parent.m_stub);
    if (!isNew(*record) && hasSubentities(*record)) {
        const auto& records = m_database.file().records();
        for (std::size_t i = m_database.positionOf(*record) + 1;
             i < records.size() && isOwnedByPrevious(m_database.typeName(records[i])); ++i) {
            take(records[i]);
            if (m_database.typeName(records[i]) == "SEQEND")
                break;
        }
    }
    if (parent.m_extras)
        for (AcDbStub* added : parent.m_extras->addedSubentities)
            take(*recordOf(added));
    return found;
}

const std::vector<AcDbStub*>& AcDbDatabaseImpl::Ownership::addedSubentities(const AcDbObject& parent) const
{
    static const std::vector<AcDbStub*> none;
    return parent.m_extras ? parent.m_extras->addedSubentities : none;
}

AcDbStub* AcDbDatabaseImpl::Ownership::sequenceEnd(const DxfRecord& parent) const
{
    if (!isNew(parent) && hasSubentities(parent)) {
        const auto& records = m_database.file().records();
        for (std::size_t i = m_database.positionOf(parent) + 1;
             i < records.size() && isOwnedByPrevious(m_database.typeName(records[i])); ++i)
            if (m_database.typeName(records[i]) == "SEQEND")
                return stubOf(&records[i]);
    }
    const AcDbObject* object = residentObject(parent);
    return object && object->m_extras ? object->m_extras->addedSequenceEnd : nullptr;
}

void AcDbDatabaseImpl::Ownership::linkSubentities(AcDbObject& parent, std::vector<AcDbStub*> subentities, AcDbStub* end)
{
    parent.extras().addedSubentities = std::move(subentities);
    parent.extras().addedSequenceEnd = end;
}

void AcDbDatabaseImpl::Ownership::ensureSequenceEnd(AcDbEntity& parent)
{
    if (sequenceEnd(*recordOf(parent.m_stub)))
        return;
    auto end = std::make_unique<AcDbSequenceEnd>();
    AcDbSequenceEnd* made = end.get();
    made->m_layer = parent.m_layer;
    parent.extras().addedSequenceEnd = m_database.adopt(std::move(end), parent.m_stub).stub();
    made->close();
}

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectReader.h"
#include "db/ObjectExtras.h"
#include "db/ObjectOpening.h"
#include "dxf/DxfCursor.h"

#include "dbsymtb.h"

/// Who owns what in a drawing: the owner of a record, the subentities of an entity, and what erasing one means for the
/// others.

namespace {

bool isOwnedByPrevious(const std::string& typeName)
{
    return typeName == "ATTRIB" || typeName == "VERTEX" || typeName == "SEQEND";
}

} // namespace

AcDbStub* AcDbDatabaseImpl::ownerInFile(const DxfRecord& record) const
{
    AcDbStub* owner = nullptr;
    DxfCursor cursor(form(), bytes(record));
    DxfTag tag;
    bool inGroup = false; // inside 102 { ... } stand reactors and the extension dictionary, not the owner
    while (cursor.next(tag) && tag.code != 100) {
        if (tag.code == 102)
            inGroup = opensGroup(tag);
        std::uint64_t handle = 0;
        if (tag.code == 330 && !inGroup && dxfHandle(tag, handle)) {
            owner = byHandle(handle);
            break;
        }
    }
    if (isNew(record))
        return owner;
    if (isOwnedByPrevious(typeName(record))) {
        if (owner && hasSubentities(*recordOf(owner)))
            return owner;
        if (AcDbStub* const parent = parentOf(record))
            return parent;
    }
    // Many programs leave the owner out, or name one that is not there: the entity is its block's all the same.
    if (owner && typeName(*recordOf(owner)) == "BLOCK_RECORD")
        return owner;
    AcDbStub* const block = m_blocks.around(record);
    return block ? block : owner;
}

/// Files often name the block as the owner of attributes: they belong to the entity that they stand behind.
AcDbStub* AcDbDatabaseImpl::parentOf(const DxfRecord& subentity) const
{
    const auto& records = m_file->records();
    for (std::uint32_t at = positionOf(subentity); at-- > 0;) {
        const DxfRecord& before = records[at];
        if (!isOwnedByPrevious(typeName(before)))
            return hasSubentities(before) ? stubOf(&before) : nullptr;
        if (typeName(before) == "SEQEND")
            return nullptr;
        if (const AcDbObject* neighbour = residentObject(before); neighbour && neighbour->m_owner)
            return hasSubentities(*recordOf(neighbour->m_owner)) ? neighbour->m_owner : nullptr;
    }
    return nullptr;
}

AcDbStub* AcDbDatabaseImpl::ownerOf(const AcDbObject& object) const
{
    if (!object.m_owner && object.m_stub)
        object.m_owner = ownerInFile(*recordOf(object.m_stub));
    return object.m_owner;
}

AcDbStub* AcDbDatabaseImpl::ownerOf(const DxfRecord& record) const
{
    return record.object ? ownerOf(*residentObject(record)) : ownerInFile(record);
}

AcDbObjectIdArray AcDbDatabaseImpl::ownedBy(const AcDbObject& object)
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
    if (typeName(record) == "BLOCK_RECORD") {
        const BlockContent& content = m_blocks.of(object.m_stub);
        take(content.begin);
        take(content.end);
        for (AcDbStub* entity : content.entities)
            take(entity);
    }
    return owned;
}

// Owners may form circles, and chains of any length: each object is marked as it is met, in a list and not by calls
// within calls.
void AcDbDatabaseImpl::setErased(AcDbObject& object, bool erased)
{
    std::vector<AcDbObject*> touched;
    const auto mark = [&](AcDbObject& met, int marks) {
        DxfRecord& record = *recordOf(met.m_stub);
        m_undo.beforeChange(met);
        const int others = record.flags & ~(RecordFlags::erased | RecordFlags::withOwner);
        record.flags = static_cast<std::uint16_t>(others | marks);
        noteEdit(record);
        touched.push_back(&met);
    };
    if (isErased(*recordOf(object.m_stub)) == erased)
        return;
    mark(object, erased ? RecordFlags::erased : 0);
    for (std::size_t i = 0; i < touched.size(); ++i) {
        const AcDbObjectIdArray owned = ownedBy(*touched[i]);
        for (int k = 0; k < owned.length(); ++k) {
            const DxfRecord& record = *recordOf(owned[k]);
            if (!holdsObject(record) || isErased(record) == erased)
                continue;
            if (erased)
                mark(this->object(*recordOf(owned[k])), RecordFlags::erased | RecordFlags::withOwner);
            else if ((record.flags & RecordFlags::withOwner) != 0) // what was erased before stays so
                mark(this->object(*recordOf(owned[k])), 0);
        }
    }
    for (AcDbObject* met : touched)
        if (met->isKindOf(AcDbSymbolTableRecord::desc()) || (recordOf(met->m_stub)->flags & DxfRecord::spoiled) != 0)
            for (SymbolNames& table : m_names)
                table.forgetIndex();
    for (auto met = touched.rbegin(); met != touched.rend(); ++met)
        ObjectOpening::tellErased(**met, erased);
}

bool AcDbDatabaseImpl::isIndispensable(const AcDbObject& object)
{
    AcDbStub* const stub = object.m_stub;
    if (stub == m_rootDictionary)
        return true;
    for (const SymbolNames& table : m_names)
        if (stub == table.table)
            return true;
    static constexpr std::pair<NameKind, const wchar_t*> records[] = {
        {NameKind::block, ACDB_MODEL_SPACE}, {NameKind::block, ACDB_PAPER_SPACE}, {NameKind::layer, L"0"},
        {NameKind::linetype, L"ByLayer"},    {NameKind::linetype, L"ByBlock"},    {NameKind::linetype, L"Continuous"},
        {NameKind::textStyle, L"Standard"},  {NameKind::regApp, L"ACAD"}};
    return object.isKindOf(AcDbSymbolTableRecord::desc()) &&
           std::ranges::any_of(records, [&](const auto& record) { return named(record.first, record.second) == stub; });
}

bool AcDbDatabaseImpl::isOnLockedLayer(const AcDbObject& object)
{
    const AcDbEntity* const entity = AcDbEntity::cast(&object);
    if (!entity)
        return false;
    AcDbStub* const stub = entity->m_layer ? entity->m_layer : named(NameKind::layer, L"0");
    const auto* const layer = stub ? AcDbLayerTableRecord::cast(&this->object(*recordOf(stub))) : nullptr;
    return layer && layer->isLocked();
}

bool AcDbDatabaseImpl::isNameTaken(const AcDbObject& object)
{
    if (!object.isKindOf(AcDbSymbolTableRecord::desc()))
        return false;
    const std::wstring name = recordName(object.m_stub);
    for (SymbolNames& table : m_names)
        if (ownerOf(object) == table.table) {
            const AcDbStub* holder = table.find(name);
            return holder && holder != object.m_stub;
        }
    return false;
}

/// Attributes and vertices stand after what they belong to; only these kinds have any.
bool AcDbDatabaseImpl::hasSubentities(const DxfRecord& record) const
{
    const std::string& type = typeName(record);
    return type == "INSERT" || type == "POLYLINE";
}

std::vector<AcDbStub*> AcDbDatabaseImpl::subentities(const AcDbObject& parent, bool withErased) const
{
    std::vector<AcDbStub*> found;
    const auto take = [&](const DxfRecord& record) {
        if (typeName(record) != "SEQEND" && (withErased || !isErased(record)))
            found.push_back(stubOf(&record));
    };
    const DxfRecord* record = recordOf(parent.m_stub);
    if (!isNew(*record) && hasSubentities(*record)) {
        const auto& records = m_file->records();
        for (std::size_t i = positionOf(*record) + 1; i < records.size() && isOwnedByPrevious(typeName(records[i]));
             ++i) {
            take(records[i]);
            if (typeName(records[i]) == "SEQEND")
                break;
        }
    }
    if (parent.m_extras)
        for (AcDbStub* added : parent.m_extras->addedSubentities)
            take(*recordOf(added));
    return found;
}

const std::vector<AcDbStub*>& AcDbDatabaseImpl::addedSubentities(const AcDbObject& parent) const
{
    static const std::vector<AcDbStub*> none;
    return parent.m_extras ? parent.m_extras->addedSubentities : none;
}

AcDbStub* AcDbDatabaseImpl::sequenceEnd(const DxfRecord& parent) const
{
    if (!isNew(parent) && hasSubentities(parent)) {
        const auto& records = m_file->records();
        for (std::size_t i = positionOf(parent) + 1; i < records.size() && isOwnedByPrevious(typeName(records[i])); ++i)
            if (typeName(records[i]) == "SEQEND")
                return stubOf(&records[i]);
    }
    const AcDbObject* object = residentObject(parent);
    return object && object->m_extras ? object->m_extras->addedSequenceEnd : nullptr;
}

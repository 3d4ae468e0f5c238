#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/Ownership.h"

#include "acutmem.h"
#include "dbdict.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, DICTIONARY)

namespace {
/// Above this many entries a look-up goes through the index.
constexpr std::size_t indexedFrom = 16;
} // namespace

AcDbDictionary::Entries::iterator AcDbDictionary::find(const ACHAR* name) const
{
    const std::wstring folded = foldedName(name ? name : L"");
    if (m_entries.size() < indexedFrom)
        return std::ranges::find_if(m_entries,
                                    [&](const auto& entry) { return foldedName(entry.second.name) == folded; });
    if (m_index.empty())
        for (const auto& [order, entry] : m_entries)
            m_index.emplace(foldedName(entry.name), order);
    const auto found = m_index.find(folded);
    return found == m_index.end() ? m_entries.end() : m_entries.find(found->second);
}

AcDbDictionary::Entries::iterator AcDbDictionary::findId(AcDbObjectId id) const
{
    const std::uint64_t handle = id.handle();
    return std::ranges::find_if(m_entries, [&](const auto& entry) { return entry.second.handle == handle; });
}

void AcDbDictionary::add(Entry entry)
{
    const Adesk::UInt32 order = m_entries.empty() ? 0 : m_entries.rbegin()->first + 1;
    if (!m_index.empty())
        m_index.emplace(foldedName(entry.name), order);
    m_entries.emplace_hint(m_entries.end(), order, std::move(entry));
}

AcDbObjectId AcDbDictionary::idOf(const Entry& entry) const
{
    return objectId().isNull() ? AcDbObjectId()
                               : AcDbObjectId(AcDbDatabaseImpl::of(objectId().stub()).byHandle(entry.handle));
}

bool AcDbDictionary::isErased(const Entry& entry) const
{
    const AcDbObjectId id = idOf(entry);
    return !id.isNull() && ::isErased(*recordOf(id));
}

Adesk::UInt32 AcDbDictionary::numEntries() const
{
    assertReadEnabled();
    return static_cast<Adesk::UInt32>(std::ranges::count_if(
        m_entries, [&](const auto& entry) { return !idOf(entry.second).isNull() && !isErased(entry.second); }));
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const
{
    assertReadEnabled();
    id.setNull();
    const auto entry = find(name);
    if (entry == m_entries.end())
        return Acad::eKeyNotFound;
    id = idOf(entry->second);
    return id.isNull() || id.isErased() ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const
{
    AcDbObjectId id;
    object = nullptr;
    const Acad::ErrorStatus es = getAt(name, id);
    return es == Acad::eOk ? acdbOpenAcDbObject(object, id, mode) : es;
}

bool AcDbDictionary::has(const ACHAR* name) const
{
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbDictionary::has(AcDbObjectId id) const
{
    assertReadEnabled();
    return !id.isNull() && !id.isErased() && findId(id) != m_entries.end();
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id)
{
    id.setNull();
    if (!name || !*name)
        return Acad::eInvalidKey;
    if (!object)
        return Acad::eNullObjectPointer;
    if (objectId().isNull())
        return Acad::eNotInDatabase;
    if (!object->objectId().isNull() && object->database() != database())
        return Acad::eWrongDatabase;
    assertWriteEnabled();
    const auto present = find(name);
    const AcDbObjectId earlier = present == m_entries.end() ? AcDbObjectId() : idOf(present->second);
    AcDbObject* replaced = nullptr;
    if (earlier != object->objectId() && acdbOpenAcDbObject(replaced, earlier, AcDb::kForWrite) == Acad::eOk) {
        replaced->erase();
        replaced->close();
    }
    if (object->objectId().isNull())
        id = AcDbDatabaseImpl::of(objectId().stub()).adopt(std::unique_ptr<AcDbObject>(object), objectId().stub());
    else {
        id = object->objectId();
        if (object->ownerId().isNull() && object->isWriteEnabled())
            object->setOwnerId(objectId());
    }
    if (present != m_entries.end())
        present->second.handle = id.handle();
    else
        add({name, id.handle(), 0, {}});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::removeAt(Entries::iterator entry, AcDbObjectId& id)
{
    if (entry == m_entries.end())
        return Acad::eKeyNotFound;
    assertWriteEnabled();
    id = idOf(entry->second);
    const auto indexed = m_index.find(foldedName(entry->second.name));
    if (indexed != m_index.end() && indexed->second == entry->first)
        m_index.erase(indexed);
    m_entries.erase(entry);
    AcDbObject* object = nullptr;
    if (m_hardOwner && acdbOpenAcDbObject(object, id, AcDb::kForWrite) == Acad::eOk) {
        object->erase();
        object->close();
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name, AcDbObjectId& id)
{
    return removeAt(find(name), id);
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name)
{
    AcDbObjectId id;
    return remove(name, id);
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id)
{
    return id.isNull() ? Acad::eKeyNotFound : removeAt(findId(id), id);
}

bool AcDbDictionary::setName(const ACHAR* oldName, const ACHAR* newName)
{
    const auto entry = find(oldName);
    if (entry == m_entries.end() || !newName || !*newName)
        return false;
    const auto holder = find(newName);
    if (holder != m_entries.end() && holder != entry)
        return false;
    assertWriteEnabled();
    entry->second.name = newName;
    entry->second.spelling.clear();
    m_index.clear();
    return true;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, ACHAR*& name) const
{
    assertReadEnabled();
    const auto entry = id.isNull() ? m_entries.end() : findId(id);
    return entry == m_entries.end() ? Acad::eKeyNotFound : acutNewString(entry->second.name.c_str(), name);
}

void AcDbDictionary::setTreatElementsAsHard(bool hard)
{
    assertWriteEnabled();
    m_hardOwner = hard;
}

void AcDbDictionary::ownedObjects(AcDbObjectIdArray& ids) const
{
    for (const auto& [order, entry] : m_entries) {
        const AcDbObjectId id = idOf(entry);
        if (id.isNull())
            continue;
        const AcDbStub* owner = AcDbDatabaseImpl::of(id.stub()).ownership().ownerOf(*recordOf(id));
        if (!owner || owner == objectId().stub())
            ids.append(id);
    }
}

std::vector<std::pair<std::wstring, AcDbObjectId>> AcDbDictionary::entriesAsIds() const
{
    std::vector<std::pair<std::wstring, AcDbObjectId>> entries;
    for (const auto& [order, entry] : m_entries)
        entries.emplace_back(entry.name, idOf(entry));
    return entries;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const
{
    assertReadEnabled();
    return new AcDbDictionaryIterator(this);
}

AcDbDictionaryIterator::AcDbDictionaryIterator(const AcDbDictionary* dictionary) : m_dictionary(dictionary)
{
    skipErased();
}

const AcDbDictionary::Entry* AcDbDictionaryIterator::entry() const
{
    const auto at = m_dictionary->m_entries.lower_bound(m_order);
    return at == m_dictionary->m_entries.end() ? nullptr : &at->second;
}

void AcDbDictionaryIterator::skipErased()
{
    auto at = m_dictionary->m_entries.lower_bound(m_order);
    const auto end = m_dictionary->m_entries.end();
    while (at != end && (m_dictionary->idOf(at->second).isNull() || m_dictionary->isErased(at->second)))
        ++at;
    m_order = at == end ? m_order : at->first;
    if (at == end && !m_dictionary->m_entries.empty())
        m_order = m_dictionary->m_entries.rbegin()->first + 1;
}

const ACHAR* AcDbDictionaryIterator::name() const
{
    const auto* at = entry();
    return at ? at->name.c_str() : L"";
}

AcDbObjectId AcDbDictionaryIterator::objectId() const
{
    const auto* at = entry();
    return at ? m_dictionary->idOf(*at) : AcDbObjectId();
}

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode)
{
    return acdbOpenAcDbObject(object, objectId(), mode);
}

bool AcDbDictionaryIterator::done() const
{
    return !entry();
}

bool AcDbDictionaryIterator::next()
{
    ++m_order;
    skipErased();
    return !done();
}

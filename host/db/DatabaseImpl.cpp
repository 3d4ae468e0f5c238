#include "db/DatabaseImpl.h"

#include <algorithm>

#include "db/fields/DxfFields.h"
#include "db/fields/DxfObjectReader.h"
#include "db/fields/NameReferences.h"
#include "db/ObjectOpening.h"
#include "db/Ownership.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfTexts.h"
#include "platform/CodePage.h"
#include "rx/HostSession.h"

#include "dbdict.h"
#include "dbsymtb.h"

namespace {

/// Every open database, the one asked for last first.
struct OpenDatabases {
    std::vector<AcDbDatabaseImpl*> databases;
};

std::vector<AcDbDatabaseImpl*>& openDatabases()
{
    return HostSession::part<OpenDatabases>().databases;
}

} // namespace

AcDbDatabaseImpl::AcDbDatabaseImpl(AcDbDatabase& self) :
    m_self(self),
    m_blocks(*this),
    m_header(*this),
    m_undo(*this),
    m_problems(*this)
{
    for (const NameKind kind : nameKinds)
        m_names.emplace_back(*this, kind);
    m_noForm.encoding = &DxfEncoding::utf8();
    openDatabases().push_back(this);
}

AcDbDatabaseImpl::~AcDbDatabaseImpl()
{
    tellEach(m_reactors, [this](AcDbDatabaseReactor& reactor) { reactor.goodbye(&m_self); });
    m_undo.clear();
    if (m_file)
        for (DxfRecord& record : m_file->records())
            delete residentObject(record);
    for (std::size_t i = 0; i < m_newRecords.size(); ++i)
        delete residentObject(m_newRecords[i]);
    std::erase(openDatabases(), this);
}

bool AcDbDatabaseImpl::holds(const void* address) const
{
    if (!m_file)
        return false;
    const auto& records = m_file->records();
    const auto* begin = reinterpret_cast<const char*>(records.data());
    const auto* at = static_cast<const char*>(address);
    if (std::less_equal<>()(begin, at) && std::less<>()(at, begin + records.size() * sizeof(DxfRecord)))
        return static_cast<std::size_t>(at - begin) % sizeof(DxfRecord) == 0;
    return m_newRecords.holds(address);
}

AcDbDatabaseImpl* AcDbDatabaseImpl::find(const AcDbStub* stub)
{
    auto& databases = openDatabases();
    const auto found = std::ranges::find_if(databases, [stub](const auto* database) { return database->holds(stub); });
    if (found == databases.end())
        return nullptr;
    std::swap(*found, databases.front());
    return databases.front();
}

AcDbDatabaseImpl& AcDbDatabaseImpl::of(const AcDbStub* stub)
{
    const auto* record = reinterpret_cast<const DxfRecord*>(stub);
    if (isNew(*record))
        return *static_cast<const NewRecord*>(record)->database;
    return *find(stub);
}

void AcDbDatabaseImpl::load(std::unique_ptr<DxfFile> file)
{
    m_file = std::move(file);
    for (const DxfProblem& problem : m_file->problems())
        m_problems.add(problem.line, problem.what);
    m_nextHandle = m_file->freeHandle();
    adoptStructure();
    makeMissingTables();
    makeMissingRecords();
    m_rootDictionary = findRootDictionary();
    for (std::size_t i = 0; i < m_newRecords.size(); ++i)
        m_newRecords[i].flags = RecordFlags::isNew | RecordFlags::madeUp;
    if (m_header.integer("$TILEMODE", 1) == 0)
        m_problems.addRemark("dessin enregistré sur une présentation ; c'est l'espace objet qui est montré");
}

void AcDbDatabaseImpl::adoptStructure()
{
    for (const NameKind kind : nameKinds) {
        const char* const name = tableName(kind);
        const DxfRange* range = m_file->table(name);
        if (!range)
            continue;
        auto& records = m_file->records();
        names(kind).table = stubOf(&records[range->first]);
        for (std::uint32_t i = range->first + 1; i <= range->last; ++i)
            if (typeName(records[i]) == name)
                names(kind).append(stubOf(&records[i]));
    }
}

AcDbStub* AcDbDatabaseImpl::byHandle(std::uint64_t handle) const
{
    if (handle == 0)
        return nullptr;
    const std::uint32_t position = m_file ? m_file->handles().find(handle) : HandleTable::none;
    if (position != HandleTable::none)
        return stubOf(&m_file->records()[position]);
    const auto found = m_newByHandle.find(handle);
    return found == m_newByHandle.end() ? nullptr : found->second;
}

// A file may name the highest handle there is as its next one: after it, the lowest free ones are given.
std::uint64_t AcDbDatabaseImpl::takeHandle()
{
    while (m_nextHandle == 0 || byHandle(m_nextHandle))
        ++m_nextHandle;
    return m_nextHandle++;
}

std::uint64_t AcDbDatabaseImpl::handleSeed() const
{
    std::uint64_t seed = m_file->freeHandle();
    for (std::size_t i = 0; i < m_newRecords.size(); ++i)
        if ((m_newRecords[i].flags & RecordFlags::unmade) == 0)
            seed = std::max(seed, m_newRecords[i].handle + 1);
    return seed;
}

AcDbStub* AcDbDatabaseImpl::adoptBytes(std::string_view type, std::uint64_t handle, std::string bytes)
{
    NewRecord& record = m_newRecords.add();
    record.handle = handle;
    record.type = m_file->typeId(type);
    record.flags = RecordFlags::isNew;
    record.database = this;
    record.bytes = std::move(bytes);
    m_newByHandle.emplace(handle, stubOf(&record));
    return stubOf(&record);
}

AcDbObjectId AcDbDatabaseImpl::adopt(std::unique_ptr<AcDbObject> object, AcDbStub* owner)
{
    const DxfClass* dxfClass = DxfClasses::all().of(object->isA());
    AcDbStub* stub = adoptBytes(dxfClass ? dxfClass->dxfName : "ACAD_PROXY_OBJECT", takeHandle(), {});
    AcDbObject* made = object.release();
    recordOf(stub)->object = made;
    made->m_stub = stub;
    made->m_owner = owner;
    ObjectOpening::joined(*made);
    m_undo.created(stub);
    ObjectOpening::tellAppended(*made);
    return AcDbObjectId(stub);
}

bool AcDbDatabaseImpl::holdsObject(const DxfRecord& record) const
{
    return record.handle != 0;
}

const DxfClass& AcDbDatabaseImpl::classOf(const DxfRecord& record) const
{
    if (record.object)
        if (const DxfClass* known = DxfClasses::all().of(residentObject(record)->isA()))
            return *known;
    if (record.type >= m_classByType.size())
        m_classByType.resize(m_file->typeCount(), nullptr);
    if (const DxfClass* known = m_classByType[record.type])
        return *known;
    bool sharedName = false;
    const DxfClass& found = DxfObjectReader(*const_cast<AcDbDatabaseImpl*>(this)).classOf(record, sharedName);
    if (!sharedName)
        m_classByType[record.type] = &found;
    return found;
}

AcDbObject& AcDbDatabaseImpl::object(DxfRecord& record)
{
    if (!record.object) {
        auto made = decode(record);
        made->m_stub = stubOf(&record);
        record.object = made.release();
    }
    return *residentObject(record);
}

std::unique_ptr<AcDbObject> AcDbDatabaseImpl::decode(DxfRecord& record)
{
    const DxfClass& dxfClass = classOf(record);
    DxfObjectReader reader(*this);
    if ((record.flags & DxfRecord::spoiled) == 0) {
        std::unique_ptr<AcDbObject> object(dxfClass.create());
        const bool readable = reader.read(bytes(record), dxfClass, *object);
        const bool lost = !isNew(record) && m_file->isLost(record);
        if (readable && !lost)
            return object;
        m_problems.add(record, lost ? dxf_texts::lostOnMedium : reader.complaint());
        record.flags |= DxfRecord::spoiled;
    }
    if (typeName(record) == "TABLE") // its records are worth more than its own tags
        return std::unique_ptr<AcDbObject>(dxfClass.create());
    const auto& classes = DxfClasses::all();
    return std::unique_ptr<AcDbObject>((dxfClass.isEntity ? classes.proxyEntity() : classes.proxyObject()).create());
}

void AcDbDatabaseImpl::noteEdit(DxfRecord& record)
{
    if (isNew(record) || (record.flags & RecordFlags::edited) != 0)
        return;
    record.flags |= RecordFlags::edited;
    m_edits.push_back(positionOf(record));
}

void AcDbDatabaseImpl::noteChange(AcDbObject& object)
{
    DxfRecord& record = *recordOf(object.m_stub);
    m_undo.beforeChange(object);
    record.flags |= RecordFlags::modified;
    noteEdit(record);
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
        if (ownership().ownerOf(object) == table.table) {
            const AcDbStub* holder = table.find(name);
            return holder && holder != object.m_stub;
        }
    return false;
}

AcDbStub* AcDbDatabaseImpl::named(NameKind kind, std::wstring_view name)
{
    return names(kind).find(name);
}

std::wstring AcDbDatabaseImpl::recordName(AcDbStub* stub)
{
    if (!stub)
        return {};
    const DxfRecord& record = *recordOf(stub);
    if (record.object)
        if (const auto* named = AcDbSymbolTableRecord::cast(residentObject(record)))
            return named->m_name;
    return nameInBytes(record);
}

bool AcDbDatabaseImpl::hasRenamed()
{
    return std::ranges::any_of(m_names, [](SymbolNames& table) { return table.hasRenamed(); });
}

std::string AcDbDatabaseImpl::withNewNames(const DxfRecord& record, std::string_view tags)
{
    std::string renamed;
    const auto newName = [this](NameKind kind, std::string_view bytes) { return names(kind).newName(bytes); };
    appendRenamed(form(), typeName(record), classOf(record).isEntity, tags, newName, renamed);
    return renamed;
}

std::wstring AcDbDatabaseImpl::nameInBytes(const DxfRecord& record) const
{
    DxfCursor cursor(form(), bytes(record));
    DxfTag tag;
    while (cursor.next(tag))
        if (tag.code == 2)
            return form().encoding->decode(dxfText(tag));
    return {};
}

#include <algorithm>
#include <utility>

#include "db/DatabaseImpl.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbsymtb.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, TABLE)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, TABLE)
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, TABLE)
ACRX_DXF_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, TABLE)
ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, TABLE)
ACRX_DXF_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, TABLE)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, BLOCK_RECORD)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, LAYER)
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, STYLE)
ACRX_DXF_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, LTYPE)
ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, APPID)
ACRX_DXF_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, DIMSTYLE)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbAbstractViewTableRecord, AcDbSymbolTableRecord)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbAbstractViewTableRecord)

namespace {

/// Which kind of records a table takes.
NameKind kindOf(const AcDbObject& tableOrRecord)
{
    const auto is = [&](AcRxClass* table, AcRxClass* record) {
        return tableOrRecord.isKindOf(table) || tableOrRecord.isKindOf(record);
    };
    if (is(AcDbBlockTable::desc(), AcDbBlockTableRecord::desc()))
        return NameKind::block;
    if (is(AcDbLayerTable::desc(), AcDbLayerTableRecord::desc()))
        return NameKind::layer;
    if (is(AcDbTextStyleTable::desc(), AcDbTextStyleTableRecord::desc()))
        return NameKind::textStyle;
    if (is(AcDbLinetypeTable::desc(), AcDbLinetypeTableRecord::desc()))
        return NameKind::linetype;
    return is(AcDbDimStyleTable::desc(), AcDbDimStyleTableRecord::desc()) ? NameKind::dimStyle : NameKind::regApp;
}

SymbolNames& namesOf(const AcDbObject& tableOrRecord)
{
    return AcDbDatabaseImpl::of(tableOrRecord.objectId().stub()).names(kindOf(tableOrRecord));
}

bool isValidName(const std::wstring& name, bool block)
{
    constexpr std::wstring_view refused = L"<>/\\\":;?*|,=`";
    if (name.empty() || name.size() > 255)
        return false;
    const std::size_t from = block && name[0] == L'*' ? 1 : 0; // names of unnamed blocks begin so
    return name.find_first_of(refused, from) == std::wstring::npos &&
           std::ranges::none_of(name, [](wchar_t c) { return c < L' '; });
}

} // namespace

// ---- tables

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErasedRecord) const
{
    assertReadEnabled();
    id.setNull();
    if (!name || objectId().isNull())
        return Acad::eInvalidInput;
    id = AcDbObjectId(namesOf(*this).find(name, getErasedRecord));
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

bool AcDbSymbolTable::has(const ACHAR* name) const
{
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const
{
    assertReadEnabled();
    const auto& records = namesOf(*this).records();
    return !id.isErased() && std::ranges::find(records, id.stub()) != records.end();
}

namespace {

/// A block added as "*U" gets a number that no other has.
void numberAnonymous(AcDbSymbolTableRecord& record, SymbolNames& names)
{
    std::size_t number = names.records().size();
    while (names.find((L"*U" + std::to_wstring(number)).c_str()))
        ++number;
    record.setName((L"*U" + std::to_wstring(number)).c_str());
}

} // namespace

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record)
{
    id.setNull();
    if (!record)
        return Acad::eNullObjectPointer;
    if (objectId().isNull())
        return Acad::eNoDatabase;
    if (!record->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (kindOf(*record) != kindOf(*this))
        return Acad::eWrongObjectType;
    SymbolNames& names = namesOf(*this);
    const ACHAR* name = nullptr;
    record->getName(name);
    if (record->isKindOf(AcDbBlockTableRecord::desc()) && std::wstring_view(name) == L"*U") {
        numberAnonymous(*record, names);
        record->getName(name);
    }
    if (!isValidName(name, record->isKindOf(AcDbBlockTableRecord::desc())))
        return Acad::eInvalidSymbolTableName;
    if (names.find(name))
        return Acad::eDuplicateKey;
    assertWriteEnabled();
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    id = database.adopt(std::unique_ptr<AcDbObject>(record), objectId().stub());
    names.append(id.stub());
    m_count = static_cast<Adesk::Int16>(std::min<std::size_t>(names.records().size(), 0x7FFF));
    if (record->isKindOf(AcDbBlockTableRecord::desc()))
        database.makeBlockBounds(id.stub());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record)
{
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipErased) const
{
    assertReadEnabled();
    std::vector<AcDbObjectId> ids;
    for (AcDbStub* record : namesOf(*this).records())
        ids.emplace_back(record);
    iterator = new AcDbSymbolTableIterator(std::move(ids));
    iterator->start(atBeginning, skipErased);
    return Acad::eOk;
}

void AcDbSymbolTableIterator::settle(bool skipErased, int direction)
{
    while (!done() && skipErased && m_ids[static_cast<std::size_t>(m_at)].isErased())
        m_at += direction;
}

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipErased)
{
    m_at = atBeginning ? 0 : static_cast<std::ptrdiff_t>(m_ids.size()) - 1;
    settle(skipErased, atBeginning ? 1 : -1);
}

bool AcDbSymbolTableIterator::done() const
{
    return m_at < 0 || m_at >= static_cast<std::ptrdiff_t>(m_ids.size());
}

void AcDbSymbolTableIterator::step(bool backwards, bool skipErased)
{
    m_at += backwards ? -1 : 1;
    settle(skipErased, backwards ? -1 : 1);
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const
{
    if (done())
        return Acad::eInvalidIndex;
    id = m_ids[static_cast<std::size_t>(m_at)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode) const
{
    return getRecord<AcDbSymbolTableRecord>(record, mode);
}

// ---- records

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const
{
    assertReadEnabled();
    name = m_name.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const
{
    assertReadEnabled();
    acutNewString(m_name.c_str(), name);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name)
{
    if (!name || !isValidName(name, isKindOf(AcDbBlockTableRecord::desc())))
        return Acad::eInvalidSymbolTableName;
    if (objectId().isNull()) {
        m_name = name;
        return Acad::eOk;
    }
    SymbolNames& names = namesOf(*this);
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    AcDbStub* holder = names.find(name);
    if (holder && holder != objectId().stub())
        return Acad::eDuplicateRecordName;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (m_name == name)
        return Acad::eOk;
    if (database.isIndispensable(*this))
        return Acad::eInvalidSymbolTableName;
    assertWriteEnabled();
    const std::wstring former = std::exchange(m_name, name);
    names.forgetIndex();
    database.header().rename(names.kind(), former, m_name);
    if (names.kind() == NameKind::block) {
        AcDbObjectPointer<AcDbBlockBegin> begin(AcDbObjectId(database.blocks().of(objectId().stub()).begin),
                                                AcDb::kForWrite, false, true);
        if (begin.object())
            begin->setName(name);
    }
    return Acad::eOk;
}

// ---- layers

AcCmColor AcDbLayerTableRecord::color() const
{
    AcCmColor color;
    color.setColorIndex(static_cast<Adesk::UInt16>(m_color < 0 ? -m_color : m_color));
    return color;
}

void AcDbLayerTableRecord::setColor(const AcCmColor& color)
{
    assertWriteEnabled();
    if (color.isByColor()) {
        m_trueColor = color.red() << 16 | color.green() << 8 | color.blue();
        return;
    }
    const auto index = static_cast<Adesk::Int16>(color.colorIndex());
    m_color = m_color < 0 ? static_cast<Adesk::Int16>(-index) : index;
    m_trueColor = -1;
}

void AcDbLayerTableRecord::setIsOff(bool off)
{
    assertWriteEnabled();
    if (off != isOff())
        m_color = static_cast<Adesk::Int16>(-m_color);
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen)
{
    assertWriteEnabled();
    m_flags = static_cast<Adesk::Int16>(frozen ? m_flags | 1 : m_flags & ~1);
    return Acad::eOk;
}

void AcDbLayerTableRecord::setIsLocked(bool locked)
{
    assertWriteEnabled();
    m_flags = static_cast<Adesk::Int16>(locked ? m_flags | 4 : m_flags & ~4);
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plottable)
{
    assertWriteEnabled();
    m_plottable = plottable;
    return Acad::eOk;
}

AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const
{
    assertReadEnabled();
    if (!m_linetype && database())
        return database()->continuousLinetype();
    return AcDbObjectId(m_linetype);
}

void AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id)
{
    assertWriteEnabled();
    m_linetype = id.stub();
}

void AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight)
{
    assertWriteEnabled();
    m_lineWeight = static_cast<Adesk::Int16>(weight);
}

// ---- text styles, linetypes

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size)
{
    if (size < 0.0)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_textSize = size;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale)
{
    assertWriteEnabled();
    m_xScale = scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle)
{
    assertWriteEnabled();
    m_oblique = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(const ACHAR*& name) const
{
    assertReadEnabled();
    name = m_fileName.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name)
{
    assertWriteEnabled();
    m_fileName = name ? name : L"";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(const ACHAR*& text) const
{
    assertReadEnabled();
    text = m_comments.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text)
{
    assertWriteEnabled();
    m_comments = text ? text : L"";
    return Acad::eOk;
}

double AcDbLinetypeTableRecord::dashLengthAt(int i) const
{
    assertReadEnabled();
    return i >= 0 && i < numDashes() ? m_dashes[static_cast<std::size_t>(i)] : 0.0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashes(const std::vector<double>& lengths)
{
    assertWriteEnabled();
    m_dashes = lengths;
    m_patternLength = 0.0;
    for (double length : lengths)
        m_patternLength += length < 0.0 ? -length : length;
    return Acad::eOk;
}

// ---- blocks

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity)
{
    id.setNull();
    if (!entity)
        return Acad::eNullEntityPointer;
    if (!entity->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (objectId().isNull())
        return Acad::eNoDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    id = database.joinBlock(objectId().stub(), std::unique_ptr<AcDbEntity>(entity));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity)
{
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const
{
    assertReadEnabled();
    if (objectId().isNull())
        return Acad::eNoDatabase;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    iterator = new AcDbBlockTableRecordIterator(database.blocks().of(objectId().stub()).entities);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

bool AcDbBlockTableRecord::isLayout() const
{
    const std::wstring folded = foldedName(m_name);
    return folded.starts_with(L"*model_space") || folded.starts_with(L"*paper_space");
}

bool AcDbBlockTableRecord::isAnonymous() const
{
    return !m_name.empty() && m_name[0] == L'*';
}

void AcDbBlockTableRecordIterator::settle(bool skipDeleted, int direction)
{
    while (!done() && skipDeleted && isErased(*recordOf((*m_entities)[static_cast<std::size_t>(m_at)])))
        m_at += direction;
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted)
{
    m_at = atBeginning ? 0 : static_cast<std::ptrdiff_t>(m_entities->size()) - 1;
    settle(skipDeleted, atBeginning ? 1 : -1);
}

bool AcDbBlockTableRecordIterator::done() const
{
    return m_at < 0 || m_at >= static_cast<std::ptrdiff_t>(m_entities->size());
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted)
{
    m_at += forward ? 1 : -1;
    settle(skipDeleted, forward ? 1 : -1);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const
{
    if (done())
        return Acad::eInvalidIndex;
    id = AcDbObjectId((*m_entities)[static_cast<std::size_t>(m_at)]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const
{
    AcDbObjectId id;
    const Acad::ErrorStatus es = getEntityId(id);
    return es == Acad::eOk ? acdbOpenAcDbEntity(entity, id, mode, openErased) : es;
}

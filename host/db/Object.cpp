#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/ObjectExtras.h"
#include "db/ObjectOpening.h"
#include "db/ObjectTags.h"
#include "db/Ownership.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"

#include "acutmem.h"
#include "dbdict.h"
#include "dbproxy.h"
#include "dbsymtb.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcGiDrawable, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcGiDrawable)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObjectReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabaseReactor, AcRxObject)

// ---- making, copying

AcDbObject::AcDbObject() = default;

// Sub-entities, the extension dictionary and reactors stay the other object's.
AcDbObject::AcDbObject(const AcDbObject& other) : AcGiDrawable(other)
{
    if (auto data = ObjectTags::dataOf(other); !data.empty())
        extras().xdata = std::move(data);
}

AcDbObject::~AcDbObject()
{
    ObjectOpening::forget(*this);
    if (m_extras)
        tellEach(m_extras->reactors, [this](AcDbObjectReactor& reactor) { reactor.goodbye(this); });
}

AcDbObjectExtras& AcDbObject::extras()
{
    if (!m_extras)
        m_extras = std::make_unique<AcDbObjectExtras>();
    return *m_extras;
}

// ---- identity

AcDbObjectId AcDbObject::ownerId() const
{
    return AcDbObjectId(m_stub ? AcDbDatabaseImpl::of(m_stub).ownership().ownerOf(*this) : m_owner);
}

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId owner)
{
    assertWriteEnabled();
    m_owner = owner.stub();
    return Acad::eOk;
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const
{
    handle = objectId().handle();
}
AcDbDatabase* AcDbObject::database() const
{
    return objectId().database();
}

// ---- opening

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                     bool forceOpenOnLockedLayer)
{
    object = nullptr;
    if (id.isNull())
        return Acad::eNullObjectId;
    AcDbDatabaseImpl* database = AcDbDatabaseImpl::find(id.stub());
    if (!database || !database->holdsObject(*recordOf(id)))
        return Acad::eInvalidKey;
    if (id.isErased() && !openErased)
        return Acad::eWasErased;
    AcDbObject& found = database->object(*recordOf(id));
    if (mode == AcDb::kForWrite && !forceOpenOnLockedLayer && database->isOnLockedLayer(found))
        return Acad::eOnLockedLayer;
    const Acad::ErrorStatus es = ObjectOpening::open(found, mode);
    if (es == Acad::eOk)
        object = &found;
    return es;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                     bool forceOpenOnLockedLayer)
{
    const Acad::ErrorStatus es = acdbOpenObject(entity, id, mode, openErased, forceOpenOnLockedLayer);
    return es == Acad::eNotThatKindOfClass ? Acad::eNotAnEntity : es;
}

Acad::ErrorStatus AcDbObject::close()
{
    return ObjectOpening::close(*this);
}
Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    if (m_stub && AcDbDatabaseImpl::of(m_stub).isOnLockedLayer(*this))
        return Acad::eOnLockedLayer;
    return ObjectOpening::upgrade(*this);
}
Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    return ObjectOpening::downgrade(*this);
}

bool AcDbObject::isErased() const
{
    return objectId().isErased();
}
bool AcDbObject::isModified() const
{
    return m_changed;
}
bool AcDbObject::isNewObject() const
{
    return m_joined;
}
bool AcDbObject::isReadEnabled() const
{
    return !m_stub || ObjectOpening::isOpen(*this);
}
bool AcDbObject::isWriteEnabled() const
{
    return !m_stub || m_writing;
}
bool AcDbObject::isNotifyEnabled() const
{
    return m_notifying;
}
bool AcDbObject::isUndoing() const
{
    return m_stub && AcDbDatabaseImpl::of(m_stub).undo().isReplaying();
}

void AcDbObject::assertReadEnabled() const
{
    if (!isReadEnabled())
        throw AcDbOpenError(Acad::eNotOpenForRead);
}

void AcDbObject::assertWriteEnabled(bool, bool)
{
    if (!m_stub)
        return;
    if (!m_writing)
        throw AcDbOpenError(Acad::eNotOpenForWrite);
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(m_stub);
    database.noteChange(*this);
    if (!m_changed && !m_joined)
        ObjectOpening::tellOpenedForModify(*this);
    m_changed = true;
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing)
{
    if (!m_stub)
        return Acad::eNotInDatabase;
    if (!m_writing)
        return Acad::eNotOpenForWrite;
    if (static_cast<bool>(erasing) == isErased())
        return erasing ? Acad::eWasErased : Acad::eOk;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(m_stub);
    if (database.isIndispensable(*this))
        return Acad::eCannotBeErasedByCaller;
    if (!erasing && database.isNameTaken(*this))
        return Acad::eDuplicateRecordName;
    database.ownership().setErased(*this, erasing);
    return Acad::eOk;
}

// ---- extension dictionary, reactors, extended data

namespace {

/// Of a class that nobody knows, but marked as one made from dictionaries.
bool isUnknownDictionary(const AcDbDatabaseImpl& database, AcDbObjectId id)
{
    if (!isOfClass(id, AcDbProxyObject::desc()))
        return false;
    DxfCursor cursor(database.form(), database.bytes(*recordOf(id.stub())));
    DxfTag tag;
    while (cursor.next(tag))
        if (tag.code == 100 && dxfText(tag) == "AcDbDictionary")
            return true;
    return false;
}

} // namespace

AcDbObjectId AcDbObject::extensionDictionary() const
{
    if (!m_stub)
        return {};
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(m_stub);
    const AcDbObjectId id(database.byHandle(ObjectTags(database, *this).extensionDictionary()));
    // A file may name an object of another class: no dictionary is then there, and one may be made.
    return isOfClass(id, AcDbDictionary::desc()) || isUnknownDictionary(database, id) ? id : AcDbObjectId();
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary()
{
    if (!m_stub)
        return Acad::eNotInDatabase;
    const AcDbObjectId present = extensionDictionary();
    if (!present.isNull() && !present.isErased())
        return Acad::eAlreadyInDb;
    assertWriteEnabled();
    auto dictionary = std::make_unique<AcDbDictionary>();
    AcDbDictionary* made = dictionary.get();
    made->setTreatElementsAsHard(true);
    const AcDbObjectId id = AcDbDatabaseImpl::of(m_stub).adopt(std::move(dictionary), m_stub);
    extras().extensionDictionary = id.handle();
    return made->close();
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary()
{
    const AcDbObjectId id = extensionDictionary();
    if (id.isNull())
        return Acad::eKeyNotFound;
    AcDbObjectPointer<AcDbDictionary> dictionary(id, AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk)
        return dictionary.openStatus();
    if (dictionary->numEntries() > 0)
        return Acad::eContainerNotEmpty;
    assertWriteEnabled();
    extras().extensionDictionary = 0;
    return dictionary->erase();
}

AcDbObjectIdArray AcDbObject::persistentReactors() const
{
    AcDbObjectIdArray ids;
    if (!m_stub)
        return ids;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(m_stub);
    for (std::uint64_t handle : ObjectTags(database, *this).persistentReactors())
        if (AcDbStub* stub = database.byHandle(handle))
            ids.append(AcDbObjectId(stub));
    return ids;
}

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId reactor)
{
    if (!m_stub)
        return Acad::eNotInDatabase;
    assertWriteEnabled();
    auto handles = ObjectTags(AcDbDatabaseImpl::of(m_stub), *this).persistentReactors();
    if (std::ranges::find(handles, std::uint64_t{reactor.handle()}) != handles.end())
        return Acad::eDuplicateKey;
    handles.push_back(reactor.handle());
    extras().persistentReactors = std::move(handles);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId reactor)
{
    if (!m_stub)
        return Acad::eNotInDatabase;
    auto handles = ObjectTags(AcDbDatabaseImpl::of(m_stub), *this).persistentReactors();
    if (std::erase(handles, static_cast<std::uint64_t>(reactor.handle())) == 0)
        return Acad::eKeyNotFound;
    assertWriteEnabled();
    extras().persistentReactors = std::move(handles);
    return Acad::eOk;
}

void AcDbObject::addReactor(AcDbObjectReactor* reactor) const
{
    auto& reactors = const_cast<AcDbObject*>(this)->extras().reactors; // transient: no part of the object's state
    if (std::ranges::find(reactors, reactor) == reactors.end())
        reactors.push_back(reactor);
}

void AcDbObject::removeReactor(AcDbObjectReactor* reactor) const
{
    if (m_extras)
        std::erase(m_extras->reactors, reactor);
}

resbuf* AcDbObject::xData(const ACHAR* regappName) const
{
    return ObjectTags::xData(*this, regappName);
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* data)
{
    std::vector<ApplicationData> changes;
    const Acad::ErrorStatus es = ObjectTags::splitXData(*this, data, changes);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    for (ApplicationData& change : changes) {
        const auto earlier = std::ranges::find(extras().xdata, change.application, &ApplicationData::application);
        if (earlier != extras().xdata.end())
            *earlier = std::move(change);
        else
            extras().xdata.push_back(std::move(change));
    }
    return Acad::eOk;
}

// ---- sub-entities

AcDbObjectIdArray AcDbEntity::subentities() const
{
    AcDbObjectIdArray ids;
    if (!m_stub)
        return ids;
    for (AcDbStub* stub : AcDbDatabaseImpl::of(m_stub).ownership().subentities(*this, false))
        ids.append(AcDbObjectId(stub));
    return ids;
}

void AcDbEntity::ownedObjects(AcDbObjectIdArray& ids) const
{
    if (m_stub)
        for (AcDbStub* stub : AcDbDatabaseImpl::of(m_stub).ownership().subentities(*this, true))
            ids.append(AcDbObjectId(stub));
}

std::vector<AcDbEntity*> AcDbEntity::pendingSubentities() const
{
    std::vector<AcDbEntity*> pending;
    if (m_extras)
        for (const auto& entity : m_extras->pendingSubentities)
            pending.push_back(entity.get());
    return pending;
}

Acad::ErrorStatus AcDbEntity::appendSubentity(AcDbObjectId& id, AcDbEntity* subentity)
{
    id.setNull();
    if (!subentity)
        return Acad::eNullEntityPointer;
    if (!subentity->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (!m_stub) {
        extras().pendingSubentities.emplace_back(subentity);
        return Acad::eOk;
    }
    assertWriteEnabled();
    if (!subentity->m_layer)
        subentity->m_layer = m_layer;
    id = AcDbDatabaseImpl::of(m_stub).adopt(std::unique_ptr<AcDbObject>(subentity), m_stub);
    extras().addedSubentities.push_back(id.stub());
    AcDbDatabaseImpl::of(m_stub).ownership().ensureSequenceEnd(*this);
    return Acad::eOk;
}

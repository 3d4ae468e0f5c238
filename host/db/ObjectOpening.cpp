#include "db/ObjectOpening.h"

#include <algorithm>
#include <vector>

#include "db/DatabaseImpl.h"
#include "db/ObjectExtras.h"
#include "rx/HostSession.h"

namespace {

constexpr Adesk::UInt16 mostReaders = 256;

/// Objects of databases that are open now, in no order.
struct OpenObjects {
    std::vector<AcDbObject*> objects;
};

std::vector<AcDbObject*>& openObjects()
{
    return HostSession::part<OpenObjects>().objects;
}

} // namespace

bool ObjectOpening::isOpen(const AcDbObject& object)
{
    return object.m_readers > 0 || object.m_writing || object.m_notifying;
}

void ObjectOpening::enlist(AcDbObject& object)
{
    object.m_openAt = static_cast<Adesk::UInt32>(openObjects().size());
    openObjects().push_back(&object);
}

void ObjectOpening::strike(AcDbObject& object)
{
    auto& objects = openObjects();
    objects[object.m_openAt] = objects.back();
    objects[object.m_openAt]->m_openAt = object.m_openAt;
    objects.pop_back();
}

void ObjectOpening::forget(AcDbObject& object)
{
    if (object.m_stub && isOpen(object))
        strike(object);
}

Acad::ErrorStatus ObjectOpening::open(AcDbObject& object, AcDb::OpenMode mode)
{
    if (object.m_writing && mode != AcDb::kForNotify)
        return Acad::eWasOpenForWrite;
    const bool wasOpen = isOpen(object);
    if (mode == AcDb::kForNotify) {
        if (object.m_notifying)
            return Acad::eWasOpenForNotify;
        object.m_notifying = true;
    } else if (mode == AcDb::kForRead) {
        if (object.m_readers >= mostReaders)
            return Acad::eAtMaxReaders;
        ++object.m_readers;
    } else {
        if (object.m_readers > 0)
            return Acad::eWasOpenForRead;
        if (object.m_notifying)
            return Acad::eWasOpenForNotify;
        object.m_writing = true;
        object.m_changed = false;
    }
    if (!wasOpen)
        enlist(object);
    return Acad::eOk;
}

void ObjectOpening::joined(AcDbObject& object)
{
    object.m_writing = true;
    object.m_changed = false;
    object.m_joined = true;
    enlist(object);
}

/// While reactors are told of an object, it can be read, and not be opened for write.
class ObjectOpening::Telling {
public:
    explicit Telling(AcDbObject& object) : m_object(object), m_was(object.m_notifying)
    {
        if (!isOpen(object))
            enlist(object);
        object.m_notifying = true;
    }
    ~Telling()
    {
        m_object.m_notifying = m_was;
        if (!isOpen(m_object))
            strike(m_object);
    }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

private:
    AcDbObject& m_object;
    bool m_was;
};

/// The last opening goes first: readers come above a notification, which comes above a writer.
Acad::ErrorStatus ObjectOpening::close(AcDbObject& object)
{
    if (!object.m_stub)
        return Acad::eOk; // belongs to no database: nothing was opened
    if (!isOpen(object))
        return Acad::eNotOpenForRead;
    if (object.m_readers > 0)
        --object.m_readers;
    else if (object.m_notifying)
        object.m_notifying = false;
    else {
        const Telling telling(object);
        endWriting(object);
        const AcDbObjectId id = object.objectId();
        if (object.m_extras)
            tellEach(object.m_extras->reactors, [&](AcDbObjectReactor& reactor) { reactor.objectClosed(id); });
        return Acad::eOk;
    }
    if (!isOpen(object))
        strike(object);
    return Acad::eOk;
}

void ObjectOpening::endWriting(AcDbObject& object)
{
    object.m_writing = false;
    const bool tell = object.m_changed && !object.m_joined;
    object.m_changed = object.m_joined = false;
    if (tell)
        tellModified(object);
}

Acad::ErrorStatus ObjectOpening::upgrade(AcDbObject& object)
{
    if (!object.m_stub || object.m_writing)
        return object.m_stub ? Acad::eWasOpenForWrite : Acad::eOk;
    if (object.m_readers == 0)
        return Acad::eNotOpenForRead;
    if (object.m_readers > 1)
        return Acad::eHadMultipleReaders;
    if (object.m_notifying)
        return Acad::eWasOpenForNotify;
    object.m_readers = 0;
    object.m_writing = true;
    object.m_changed = false;
    return Acad::eOk;
}

Acad::ErrorStatus ObjectOpening::downgrade(AcDbObject& object)
{
    if (!object.m_writing)
        return Acad::eNotOpenForWrite;
    object.m_readers = 1;
    endWriting(object);
    return Acad::eOk;
}

// ---- notifications

void ObjectOpening::tellOpenedForModify(AcDbObject& object)
{
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(object.m_stub);
    if (object.m_extras)
        tellEach(object.m_extras->reactors, [&](AcDbObjectReactor& reactor) { reactor.openedForModify(&object); });
    tellEach(database.reactors(),
             [&](AcDbDatabaseReactor& reactor) { reactor.objectOpenedForModify(&database.self(), &object); });
}

void ObjectOpening::tellAppended(AcDbObject& object)
{
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(object.m_stub);
    const Telling telling(object);
    tellEach(database.reactors(),
             [&](AcDbDatabaseReactor& reactor) { reactor.objectAppended(&database.self(), &object); });
}

/// Calls `tell` for the objects of the drawing that react to one.
template <class Tell>
static void tellPersistentReactors(AcDbObject& object, Tell tell)
{
    const AcDbObjectIdArray ids = object.persistentReactors();
    for (int i = 0; i < ids.length(); ++i) {
        AcDbObject* reactor = nullptr;
        if (acdbOpenAcDbObject(reactor, ids[i], AcDb::kForNotify) != Acad::eOk)
            continue;
        tell(*reactor);
        reactor->close();
    }
}

void ObjectOpening::tellModified(AcDbObject& object)
{
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(object.m_stub);
    const Telling telling(object);
    if (object.m_extras)
        tellEach(object.m_extras->reactors, [&](AcDbObjectReactor& reactor) { reactor.modified(&object); });
    tellPersistentReactors(object, [&](AcDbObject& reactor) { reactor.modified(&object); });
    tellEach(database.reactors(),
             [&](AcDbDatabaseReactor& reactor) { reactor.objectModified(&database.self(), &object); });
}

void ObjectOpening::tellErased(AcDbObject& object, bool erased)
{
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(object.m_stub);
    const Telling telling(object);
    if (object.m_extras)
        tellEach(object.m_extras->reactors, [&](AcDbObjectReactor& reactor) { reactor.erased(&object, erased); });
    tellPersistentReactors(object, [&](AcDbObject& reactor) { reactor.erased(&object, erased); });
    tellEach(database.reactors(),
             [&](AcDbDatabaseReactor& reactor) { reactor.objectErased(&database.self(), &object, erased); });
}

void ObjectOpening::tellUndone(AcDbObject& object)
{
    const Telling telling(object);
    if (object.m_extras)
        tellEach(object.m_extras->reactors, [&](AcDbObjectReactor& reactor) { reactor.modifyUndone(&object); });
    tellModified(object);
}

void ObjectOpening::tellAppendUndone(AcDbObject& object, bool undone)
{
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(object.m_stub);
    const Telling telling(object);
    tellEach(database.reactors(), [&](AcDbDatabaseReactor& reactor) {
        if (undone)
            reactor.objectUnAppended(&database.self(), &object);
        else
            reactor.objectReAppended(&database.self(), &object);
    });
}

std::size_t ObjectOpening::openCount()
{
    std::size_t count = 0;
    for (const AcDbObject* object : openObjects())
        count += object->m_readers + std::size_t{object->m_writing} + std::size_t{object->m_notifying};
    return count;
}

std::vector<std::wstring> ObjectOpening::openNames()
{
    std::vector<std::wstring> names;
    for (const AcDbObject* object : openObjects()) {
        ACHAR handle[17] = L"";
        object->objectId().handle().getIntoAsciiBuffer(handle, 17);
        names.push_back(std::wstring(object->isA()->name()) + L" (" + handle + L")");
    }
    return names;
}

void ObjectOpening::closeAll()
{
    const auto all = openObjects();
    for (AcDbObject* object : all)
        while (isOpen(*object))
            close(*object);
}

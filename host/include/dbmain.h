#pragma once

#include <memory>
#include <vector>

#include "acadstrc.h"
#include "acdb.h"
#include "adsdef.h"
#include "dbhandle.h"
#include "dbid.h"
#include "dbidar.h"
#include "drawable.h"
#include "gept3dar.h"
#include "rxboiler.h"

class AcCmColor;
class AcDbBlockTable;
class AcDbDatabase;
class AcDbDatabaseImpl;
class AcDbDatabaseReactor;
class AcDbDictionary;
class AcDbEntity;
class AcDbIdMapping;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbObject;
class AcDbObjectReactor;
class AcDbRegAppTable;
class AcDbTextStyleTable;
class AcDbDimStyleTable;
class AcGeMatrix3d;
struct AcDbObjectExtras;

/// Box with sides along the axes. A new one is empty: its minimum lies above its maximum.
class AcDbExtents {
public:
    AcDbExtents();
    AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) : m_min(min), m_max(max) {}

    AcGePoint3d minPoint() const { return m_min; }
    AcGePoint3d maxPoint() const { return m_max; }
    bool isEmpty() const { return m_min.x > m_max.x; }
    /// Both corners at once; eInvalidInput when a minimum exceeds its maximum.
    Acad::ErrorStatus set(const AcGePoint3d& min, const AcGePoint3d& max);
    void addPoint(const AcGePoint3d& point);
    void addExt(const AcDbExtents& other);
    /// The box of the transformed box.
    void transformBy(const AcGeMatrix3d& matrix);

private:
    AcGePoint3d m_min, m_max;
};

/// An object that a database can own: symbol-table records, dictionaries, xrecords, entities.
/// An object made with `new` belongs to its maker until it is added to a container; then the database owns it, and it
/// is only used between open and close.
class AcDbObject : public AcGiDrawable {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    AcDbObject();
    ~AcDbObject() override;

    AcDbObjectId objectId() const { return AcDbObjectId(m_stub); }
    AcDbObjectId id() const { return AcDbObjectId(m_stub); }
    AcDbObjectId ownerId() const;
    virtual Acad::ErrorStatus setOwnerId(AcDbObjectId owner);
    void getAcDbHandle(AcDbHandle& handle) const;
    AcDbDatabase* database() const;

    /// Ends this opening. A write ends with the notifications of the change.
    Acad::ErrorStatus close();
    /// From read to write; eHadMultipleReaders when others read it too.
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    /// Erases, or brings back; the object must be open for write. Owned objects go with it.
    Acad::ErrorStatus erase(Adesk::Boolean erasing = Adesk::kTrue);

    bool isErased() const;
    bool isModified() const;
    bool isNewObject() const;
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isNotifyEnabled() const;
    /// Whether undo or redo is putting it into another state: what a reactor is told then is no change of anyone's.
    bool isUndoing() const;

    /// Every member that reads or writes fields of an object calls these first: a wrong opening raises AcDbOpenError.
    void assertReadEnabled() const;
    void assertWriteEnabled(bool autoUndo = true, bool recordModified = true);

    AcDbObjectId extensionDictionary() const;
    Acad::ErrorStatus createExtensionDictionary();
    /// Erases an empty extension dictionary.
    Acad::ErrorStatus releaseExtensionDictionary();

    /// Extended data of one application, or of all when null: a chain for the caller to release; null when there is
    /// none.
    resbuf* xData(const ACHAR* regappName = nullptr) const;
    /// Replaces the data of each application that the chain names (1001 items); a lone 1001 removes that application's.
    /// eRegappIdNotFound when a name is not in the table of applications.
    Acad::ErrorStatus setXData(const resbuf* data);

    /// Transient reactor: told of this object's changes while the session lasts; not owned.
    void addReactor(AcDbObjectReactor* reactor) const;
    void removeReactor(AcDbObjectReactor* reactor) const;
    /// Persistent reactor: an object of the drawing, kept in its file.
    Acad::ErrorStatus addPersistentReactor(AcDbObjectId reactor);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId reactor);
    AcDbObjectIdArray persistentReactors() const;

    /// Called on objects that persistently react to another one.
    virtual void modified(const AcDbObject*) {}
    virtual void erased(const AcDbObject*, Adesk::Boolean) {}

protected:
    /// Copies the fields; the copy belongs to no database.
    AcDbObject(const AcDbObject& other);
    AcDbObject& operator=(const AcDbObject&) = delete;

    /// Objects owned through this one's own list (attributes, vertices), for erasing with it.
    virtual void ownedObjects(AcDbObjectIdArray&) const {}

private:
    friend class AcDbDatabaseImpl;
    friend class AcDbEntity;
    friend class ObjectOpening;
    friend class ObjectTags;
    friend class UndoRecorder;

    AcDbObjectExtras& extras();

    AcDbStub* m_stub = nullptr;
    mutable AcDbStub* m_owner = nullptr;        // told by the file when first asked for
    std::unique_ptr<AcDbObjectExtras> m_extras; // extended data and the like, once changed
    Adesk::UInt32 m_undoGroup = 0;              // the undo group that holds its state before the change
    Adesk::UInt32 m_openAt = 0;                 // its place in the list of open objects
    Adesk::UInt16 m_readers = 0;
    bool m_writing = false;
    bool m_notifying = false;
    bool m_changed = false; // since it was opened for write
    bool m_joined = false;  // joined the database in this opening
};

/// Raised by a member that is called on an object whose opening does not allow it.
class AcDbOpenError {
public:
    explicit AcDbOpenError(Acad::ErrorStatus status) : m_status(status) {}
    Acad::ErrorStatus status() const { return m_status; }

private:
    Acad::ErrorStatus m_status;
};

/// Opens an object. Many readers or one writer; eWasErased unless `openErased`. An entity on a locked layer cannot be
/// opened for write (eOnLockedLayer) unless `forceOpenOnLockedLayer`.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false,
                                     bool forceOpenOnLockedLayer = false);
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false,
                                     bool forceOpenOnLockedLayer = false);

/// The same, asking for a class: eNotThatKindOfClass when the object is of another.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false, bool forceOpenOnLockedLayer = false)
{
    AcDbObject* opened = nullptr;
    object = nullptr;
    const Acad::ErrorStatus es = acdbOpenAcDbObject(opened, id, mode, openErased, forceOpenOnLockedLayer);
    if (es != Acad::eOk)
        return es;
    object = T::cast(opened);
    if (object)
        return Acad::eOk;
    opened->close();
    return Acad::eNotThatKindOfClass;
}

/// Opens for the length of a scope, closes at its end.
template <class T>
class AcDbObjectPointer {
public:
    AcDbObjectPointer() = default;
    explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false,
                               bool forceOpenOnLockedLayer = false)
    {
        open(id, mode, openErased, forceOpenOnLockedLayer);
    }
    ~AcDbObjectPointer() { close(); }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;

    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false,
                           bool forceOpenOnLockedLayer = false)
    {
        close();
        return m_status = acdbOpenObject(m_object, id, mode, openErased, forceOpenOnLockedLayer);
    }
    Acad::ErrorStatus close()
    {
        if (!m_object)
            return Acad::eNullObjectPointer;
        T* object = m_object;
        m_object = nullptr;
        return object->close();
    }
    Acad::ErrorStatus openStatus() const { return m_status; }
    T* object() const { return m_object; }
    T* operator->() const { return m_object; }
    operator T*() const { return m_object; }

private:
    T* m_object = nullptr;
    Acad::ErrorStatus m_status = Acad::eNullObjectPointer;
};

/// Told of the changes of one object.
class AcDbObjectReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectReactor);
    virtual void openedForModify(const AcDbObject*) {}
    virtual void modified(const AcDbObject*) {}
    virtual void modifyUndone(const AcDbObject*) {}
    virtual void erased(const AcDbObject*, Adesk::Boolean) {}
    virtual void objectClosed(const AcDbObjectId) {}
    virtual void goodbye(const AcDbObject*) {}
};

/// Told of the changes of every object of a database.
class AcDbDatabaseReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor);
    virtual void objectAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectUnAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectReAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectOpenedForModify(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectModified(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectErased(const AcDbDatabase*, const AcDbObject*, Adesk::Boolean) {}
    virtual void headerSysVarChanged(const AcDbDatabase*, const ACHAR*, Adesk::Boolean) {}
    virtual void goodbye(const AcDbDatabase*) {}
};

/// A drawing.
/// Opening indexes the file; an object is decoded when it is first opened; saving copies what did not change.
class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);
    /// An empty drawing; with buildDefaultDrawing false it holds nothing until a file is read.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    /// Reads a drawing file. A name ending in ".dwg" that does not exist is looked for as the ".dxf" of the same stem.
    /// Nothing is read twice: only a database built without a default drawing reads a file.
    Acad::ErrorStatus readDwgFile(const ACHAR* fileName);
    Acad::ErrorStatus dxfIn(const ACHAR* fileName, const ACHAR* logFilename = nullptr);
    /// Writes the drawing: to a temporary file of the same folder first, then renamed; an old file becomes ".bak".
    Acad::ErrorStatus saveAs(const ACHAR* fileName);
    Acad::ErrorStatus dxfOut(const ACHAR* fileName);
    /// Why the last read or save failed, in French: file, line and reason.
    const ACHAR* lastError() const;
    Acad::ErrorStatus getFilename(const ACHAR*& fileName) const;

    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) { return getSymbolTable(table, mode); }
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) { return getSymbolTable(table, mode); }
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode)
    {
        return getSymbolTable(table, mode);
    }
    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId regAppTableId() const;
    AcDbObjectId dimStyleTableId() const;
    AcDbObjectId layerZero() const;
    AcDbObjectId continuousLinetype() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;

    AcDbObjectId namedObjectsDictionaryId() const;
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode);
    AcDbObjectId currentSpaceId() const;

    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId layer);
    AcDbObjectId textstyle() const;
    AcDbObjectId celtype() const;
    double ltscale() const;
    double celtscale() const;
    double textsize() const;
    AcGePoint3d extmin() const;
    AcGePoint3d extmax() const;
    AcGePoint3d insbase() const;
    Acad::ErrorStatus updateExt(bool exact = true);

    /// Id of the object with that handle; a handle that is not known gives eUnknownHandle.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                      Adesk::UInt32 xRefId = 0);
    /// Gives an object without owner a place in the database (and an id): for objects kept in dictionaries.
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);

    /// The other drawing's model space becomes a block of this one, with every definition it needs; definitions that
    /// exist here under the same names stay as they are. With `preserveSource` false the other database may be emptied.
    Acad::ErrorStatus insert(AcDbObjectId& blockId, const ACHAR* blockName, AcDbDatabase* source,
                             bool preserveSource = true);
    /// Copies objects of this database, with what they own, under a new owner of this database.
    Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner, AcDbIdMapping& mapping,
                                       bool deferXlation = false);
    /// Copies objects of another database, with the named definitions they use, under an owner of this one.
    Acad::ErrorStatus wblockCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner, AcDbIdMapping& mapping,
                                         AcDb::DuplicateRecordCloning duplicates = AcDb::kDrcIgnore,
                                         bool deferXlation = false);

    /// Takes out of the array what cannot go: records of symbol tables that something outside the array needs, or that
    /// every drawing needs, and all that is no such record. What stays may be erased together; a block goes with what
    /// it holds, so that what only that needs goes too.
    Acad::ErrorStatus purge(AcDbObjectIdArray& ids);

    Acad::ErrorStatus addReactor(AcDbDatabaseReactor* reactor) const;
    Acad::ErrorStatus removeReactor(AcDbDatabaseReactor* reactor) const;

    /// Changes made while recording is disabled are no step of the history.
    void disableUndoRecording(bool disable);
    bool undoRecording() const;

    AcDbDatabaseImpl& impl() const { return *m_impl; }

private:
    std::unique_ptr<AcDbDatabaseImpl> m_impl;
};

/// Source and copy of each object that a cloning made.
class AcDbIdMapping {
public:
    AcDbIdMapping();
    ~AcDbIdMapping();
    AcDbIdMapping(const AcDbIdMapping&) = delete;
    AcDbIdMapping& operator=(const AcDbIdMapping&) = delete;

    bool find(AcDbObjectId key, AcDbObjectId& value) const;
    void assign(AcDbObjectId key, AcDbObjectId value);
    int count() const;

private:
    struct Pairs;
    std::unique_ptr<Pairs> m_pairs;
};

/// What an entity gives by its layer, by its block, or by itself.
class AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);

    AcDbObjectId blockId() const { return ownerId(); }

    /// Colour index: 0 by block, 256 by layer, else 1 to 255.
    Adesk::UInt16 colorIndex() const;
    virtual Acad::ErrorStatus setColorIndex(Adesk::UInt16 index, bool doSubents = true);
    /// True colour 0xRRGGBB, or -1.
    Adesk::Int32 trueColor() const { return m_trueColor; }
    /// By index, or a true colour; the index is then kept for programs that know no true colours.
    virtual Acad::ErrorStatus setColor(const AcCmColor& color, bool doSubents = true);

    /// Name of the layer, as a new text for the caller (acutDelString).
    ACHAR* layer() const;
    AcDbObjectId layerId() const;
    virtual Acad::ErrorStatus setLayer(const ACHAR* name, bool doSubents = true);
    virtual Acad::ErrorStatus setLayer(AcDbObjectId id, bool doSubents = true);
    ACHAR* linetype() const;
    AcDbObjectId linetypeId() const;
    virtual Acad::ErrorStatus setLinetype(const ACHAR* name, bool doSubents = true);
    virtual Acad::ErrorStatus setLinetype(AcDbObjectId id, bool doSubents = true);
    double linetypeScale() const { return m_linetypeScale; }
    virtual Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);
    AcDb::LineWeight lineWeight() const { return static_cast<AcDb::LineWeight>(m_lineWeight); }
    virtual Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, bool doSubents = true);
    AcDb::Visibility visibility() const { return m_invisible ? AcDb::kInvisible : AcDb::kVisible; }
    virtual Acad::ErrorStatus setVisibility(AcDb::Visibility visibility, bool doSubents = true);

    /// Smallest box that holds the entity; eInvalidExtents when it shows nothing.
    virtual Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);
    virtual Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& matrix, AcDbEntity*& copy) const;
    /// Appends to `points` where the two meet. Lines, arcs, circles, ellipses-as-circles, lightweight and 2D polylines.
    virtual Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                            Adesk::GsMarker thisMarker = 0, Adesk::GsMarker otherMarker = 0) const;
    /// Simpler entities that look the same, new and owned by the caller.
    virtual Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const;

    /// Takes the drawing's current layer, colour and linetype.
    virtual void setDatabaseDefaults(AcDbDatabase* database = nullptr);
    /// Takes layer, colour, linetype, visibility of the other entity.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* other, bool doSubents = true);

protected:
    AcDbEntity() = default;
    AcDbEntity(const AcDbEntity&) = default;

    /// Entities that follow this one in the drawing (attributes of a reference, vertices of a polyline), in order,
    /// erased ones left out. Empty while this entity is in no database.
    AcDbObjectIdArray subentities() const;
    /// Those given before this entity joined a database; they join with it. Owned by this entity until then.
    std::vector<AcDbEntity*> pendingSubentities() const;
    /// Adds one at the end. It belongs to this entity from now on. In a database it gets an id and stays open for
    /// write; else `id` is null. This entity must be open for write.
    Acad::ErrorStatus appendSubentity(AcDbObjectId& id, AcDbEntity* subentity);
    void ownedObjects(AcDbObjectIdArray& ids) const override;

private:
    friend struct DxfFieldsOfEntity;
    friend class AcDbDatabaseImpl;

    AcDbStub* m_layer = nullptr;
    AcDbStub* m_linetype = nullptr;
    double m_linetypeScale = 1.0;
    Adesk::Int32 m_trueColor = -1;
    Adesk::Int16 m_color = 256;
    Adesk::Int16 m_lineWeight = -1;
    bool m_invisible = false;
    bool m_paperSpace = false;
};

#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "db/DatabaseImpl.h"
#include "db/DrawingAudit.h"
#include "db/ObjectOpening.h"
#include "gi/GraphicsSink.h"
#include "gi/ObjectSnap.h"
#include "gi/Picking.h"

#include "acutmem.h"
#include "dbdict.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "Drawing.h"

/// Does to a drawing what programs do: whatever it holds, nothing crashes, hangs or stays open, and what is saved can
/// be read again.

inline void lookAt(AcDbObject& object)
{
    object.ownerId();
    object.extensionDictionary();
    object.persistentReactors();
    resbuf* data = object.xData();
    if (data)
        acutRelRb(data);
    AcDbExtents extents;
    if (const auto* entity = AcDbEntity::cast(&object))
        entity->getGeomExtents(extents);
    data = nullptr;
    if (const auto* record = AcDbXrecord::cast(&object); record && record->rbChain(&data) == Acad::eOk && data)
        acutRelRb(data);
    if (const auto* dictionary = AcDbDictionary::cast(&object)) {
        const std::unique_ptr<AcDbDictionaryIterator> iterator(dictionary->newIterator());
        for (; !iterator->done(); iterator->next())
            dictionary->has(iterator->name());
    }
    if (auto* block = AcDbBlockTableRecord::cast(&object)) {
        AcDbBlockTableRecordIterator* made = nullptr;
        block->newIterator(made);
        const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
        for (; !iterator->done(); iterator->step()) {
            AcDbEntity* entity = nullptr;
            if (iterator->getEntity(entity) == Acad::eOk)
                entity->close();
        }
    }
}

/// Draws all of it, picks and snaps somewhere in it.
inline void lookAt(Scene& scene)
{
    struct Nothing : GraphicsSink {
        void polyline(Points, const Appearance&) override {}
        void polygon(std::span<const std::vector<AcGePoint3d>>, const Appearance&) override {}
        void dot(const AcGePoint3d&, const Appearance&) override {}
        void text(const TextItem&, const Appearance&) override {}
    } sink;
    const SceneView view = SceneView::showing(scene.extents(), 400, 300);
    scene.draw(view, sink);
    hitsAt(scene, view.center, 5.0 * view.pixel);
    snapAt(scene, view.center, 5.0 * view.pixel, ~0U);
    pickBox(scene, view.box(), PickExtent::inside);
}

/// Changes, erases, brings back and copies some of the objects, then the whole; takes everything back.
inline void exercise(AcDbDatabase& database)
{
    AcDbDatabaseImpl& impl = database.impl();
    const std::string before = savedBytes(database);
    audit(database);
    impl.undo().setRecording(true);
    impl.undo().startMark();
    Scene scene(database);
    lookAt(scene);
    const auto& records = impl.file().records();
    const std::size_t step = records.size() > 1000 ? records.size() / 15 : 1; // each may take all the others along
    for (std::size_t i = 0; i < records.size(); i += step) {
        const AcDbObjectId id(stubOf(&records[i]));
        AcDbObject* object = nullptr;
        if (acdbOpenAcDbObject(object, id, AcDb::kForWrite) != Acad::eOk)
            continue;
        lookAt(*object);
        object->assertWriteEnabled();
        if (object->erase() == Acad::eOk && i % 3 != 0)
            object->erase(Adesk::kFalse);
        object->close();
        AcDbObjectIdArray ids;
        ids.append(id);
        AcDbIdMapping mapping;
        if (AcDbEntity::cast(object) && !database.currentSpaceId().isNull())
            database.deepCloneObjects(ids, database.currentSpaceId(), mapping);
    }
    lookAt(scene);
    database.updateExt();
    {
        AcDbDatabase other;
        AcDbObjectId block;
        other.insert(block, L"BLOC", &database);
        savedBytes(other);
    }
    const std::string after = savedBytes(database);
    const DxfFile again(after, "relu.dxf");
    impl.undo().endMark();
    impl.undo().undo();
    lookAt(scene);
    // Where handles were made anew, $HANDSEED goes on rising.
    const bool back = !impl.file().problems().empty() || savedBytes(database) == before;
    if (!back || ObjectOpening::openCount() != 0)
        std::abort();
}

/// The bytes of a file, which may be anything.
inline void exerciseDrawing(const std::string& bytes)
{
    try {
        AcDbDatabase database(false, true);
        database.impl().load(std::make_unique<DxfFile>(bytes, "essai.dxf"));
        exercise(database);
    } catch (const DxfError&) {
        // refused with a message: a legitimate end
    }
    ObjectOpening::closeAll();
}

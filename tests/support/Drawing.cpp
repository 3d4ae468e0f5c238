#include "Drawing.h"

#include <memory>

#include "db/DatabaseImpl.h"
#include "db/SavePlan.h"

AcDbObjectId addLayer(AcDbDatabase& database, const wchar_t* name, int color)
{
    return addRecord<AcDbLayerTable, AcDbLayerTableRecord>(database, name, [color](AcDbLayerTableRecord& layer) {
        AcCmColor own;
        own.setColorIndex(static_cast<Adesk::UInt16>(color));
        layer.setColor(own);
    });
}

AcDbObjectId addEntity(AcDbObjectId block, AcDbEntity* entity)
{
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(block, AcDb::kForWrite);
    EXPECT_EQ(space.openStatus(), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

AcDbObjectId addEntity(AcDbDatabase& database, AcDbEntity* entity)
{
    return addEntity(database.currentSpaceId(), entity);
}

AcDbObjectId addBlock(AcDbDatabase& database, const wchar_t* name, std::initializer_list<AcDbEntity*> entities,
                      AcGePoint3d base)
{
    const AcDbObjectId id = addRecord<AcDbBlockTable, AcDbBlockTableRecord>(database, name);
    AcDbObjectPointer<AcDbBlockTableRecord>(id, AcDb::kForWrite)->setOrigin(base);
    for (AcDbEntity* const entity : entities)
        addEntity(id, entity);
    return id;
}

std::vector<AcDbObjectId> entitiesOf(AcDbObjectId block)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> opened(block);
    AcDbBlockTableRecordIterator* made = nullptr;
    EXPECT_EQ(opened->newIterator(made), Acad::eOk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> each(made);
    std::vector<AcDbObjectId> ids;
    for (; !each->done(); each->step())
        each->getEntityId(ids.emplace_back());
    return ids;
}

std::string savedBytes(AcDbDatabase& database)
{
    std::string bytes;
    const SavePlan plan(database.impl());
    for (const std::string_view piece : plan.pieces())
        bytes += piece;
    return bytes;
}

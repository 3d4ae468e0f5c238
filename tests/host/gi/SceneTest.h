#pragma once

#include <initializer_list>

#include <gtest/gtest.h>

#include "gi/Scene.h"

#include "dbents.h"
#include "dbsymtb.h"
#include "Drawing.h"
#include "RecordingSink.h"

using Lines = std::vector<std::string>;

/// A view of the box from (-100, -100) to (100, 100), a hundredth of a unit a pixel.
SceneView wideView();

/// What a scene draws in the wide view.
Lines drawn(Scene& scene);
Lines drawn(Scene& scene, const SceneView& view);

/// A default drawing to put entities in.
class SceneTest : public testing::Test {
protected:
    /// Into model space; closed again.
    AcDbObjectId add(AcDbEntity* entity) { return addEntity(database, entity); }
    AcDbObjectId addTo(AcDbObjectId block, AcDbEntity* entity) { return addEntity(block, entity); }
    AcDbObjectId addBlock(const wchar_t* name, std::initializer_list<AcDbEntity*> entities,
                          AcGePoint3d base = AcGePoint3d::kOrigin)
    {
        return ::addBlock(database, name, entities, base);
    }
    AcDbObjectId addLayer(const wchar_t* name, int color) { return ::addLayer(database, name, color); }
    AcDbObjectId addLinetype(const wchar_t* name, const std::vector<double>& dashes)
    {
        return addRecord<AcDbLinetypeTable, AcDbLinetypeTableRecord>(
            database, name, [&dashes](AcDbLinetypeTableRecord& linetype) { linetype.setDashes(dashes); });
    }
    template <class Change>
    void changeLayer(const wchar_t* name, const Change& change)
    {
        AcDbLayerTable* layers = nullptr;
        ASSERT_EQ(database.getSymbolTable(layers, AcDb::kForRead), Acad::eOk);
        AcDbLayerTableRecord* layer = nullptr;
        ASSERT_EQ(layers->getAt(name, layer, AcDb::kForWrite), Acad::eOk);
        change(*layer);
        layer->close();
        layers->close();
    }
    Scene& scene() { return Scene::of(database); }
    void setVariable(const char* name, int code, double value);

    AcDbDatabase database;
};

/// An entity with a colour of its own.
template <class Entity>
Entity* colored(Entity* entity, Adesk::UInt16 color)
{
    entity->setColorIndex(color);
    return entity;
}

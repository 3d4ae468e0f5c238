#include "SceneTest.h"

#include "db/DatabaseImpl.h"

SceneView wideView()
{
    SceneView view;
    view.width = view.height = 200.0;
    view.pixel = 0.01;
    return view;
}

Lines drawn(Scene& scene)
{
    return drawn(scene, wideView());
}

Lines drawn(Scene& scene, const SceneView& view)
{
    RecordingSink sink;
    scene.draw(view, sink);
    return sink.lines;
}

AcDbObjectId SceneTest::addTo(AcDbObjectId block, AcDbEntity* entity)
{
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(block, AcDb::kForWrite);
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

AcDbObjectId SceneTest::addBlock(const wchar_t* name, std::initializer_list<AcDbEntity*> entities, AcGePoint3d base)
{
    AcDbBlockTable* table = nullptr;
    EXPECT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbBlockTableRecord;
    record->setName(name);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    table->close();
    record->setOrigin(base);
    record->close();
    for (AcDbEntity* entity : entities)
        addTo(id, entity);
    return id;
}

AcDbObjectId SceneTest::addLayer(const wchar_t* name, int color)
{
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbLayerTableRecord;
    record->setName(name);
    AcCmColor own;
    own.setColorIndex(static_cast<Adesk::UInt16>(color));
    record->setColor(own);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    record->close();
    table->close();
    return id;
}

AcDbObjectId SceneTest::addLinetype(const wchar_t* name, const std::vector<double>& dashes)
{
    AcDbLinetypeTable* table = nullptr;
    EXPECT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbLinetypeTableRecord;
    record->setName(name);
    record->setDashes(dashes);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    record->close();
    table->close();
    return id;
}

void SceneTest::setVariable(const char* name, int code, double value)
{
    HeaderVariables& header = database.impl().header();
    if (code == 70)
        header.setInteger(name, code, static_cast<std::int64_t>(value));
    else
        header.setReal(name, code, value);
}

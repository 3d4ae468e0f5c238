#include "db/DatabaseImpl.h"

#include "SceneTest.h"

namespace {

class Changes : public SceneTest {
protected:
    Changes()
    {
        id = add(new AcDbLine({0, 0, 0}, {1, 0, 0}));
        scene().extents(); // read once
        database.impl().undo().setRecording(true);
    }
    Lines now() { return drawn(scene()); }
    void undo() { database.impl().undo().undo(); }
    void redo() { database.impl().undo().redo(); }
    void mark()
    {
        database.impl().undo().startMark();
        database.impl().undo().endMark();
    }

    AcDbObjectId id;
    const std::string first = "line 7: 0,0 1,0";
};

} // namespace

TEST_F(Changes, appendedModifiedErasedAndBack)
{
    const std::uint64_t before = scene().revision();
    const AcDbObjectId second = add(new AcDbLine({0, 0, 0}, {2, 0, 0}));
    EXPECT_GT(scene().revision(), before);
    EXPECT_EQ(now(), (Lines{first, "line 7: 0,0 2,0"}));
    {
        const AcDbObjectPointer<AcDbLine> opened(id, AcDb::kForWrite);
        opened->setEndPoint({5, 5, 0});
        EXPECT_EQ(now(), (Lines{first, "line 7: 0,0 2,0"})); // its former look, while it is open for write
    }
    EXPECT_EQ(now(), (Lines{"line 7: 0,0 5,5", "line 7: 0,0 2,0"}));
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->erase();
    EXPECT_EQ(now(), Lines{"line 7: 0,0 2,0"});
    EXPECT_TRUE(scene().extents(id).isEmpty());
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite, true)->erase(Adesk::kFalse);
    EXPECT_EQ(now(), (Lines{"line 7: 0,0 5,5", "line 7: 0,0 2,0"})); // in its old place
    (void)second;
}

TEST_F(Changes, undoAndRedo)
{
    mark();
    add(new AcDbLine({0, 0, 0}, {2, 0, 0}));
    EXPECT_EQ(now().size(), 2U);
    undo();
    EXPECT_EQ(now(), Lines{first});
    redo();
    EXPECT_EQ(now(), (Lines{first, "line 7: 0,0 2,0"}));
    mark();
    {
        const AcDbObjectPointer<AcDbLine> opened(id, AcDb::kForWrite);
        opened->setEndPoint({5, 5, 0});
    }
    EXPECT_EQ(now()[0], "line 7: 0,0 5,5");
    undo();
    EXPECT_EQ(now()[0], first);
}

TEST_F(Changes, anEntityErasedBeforeTheSceneWasMadeComesBackInItsOrder)
{
    const AcDbObjectId second = add(new AcDbLine({0, 0, 0}, {2, 0, 0}));
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->erase();
    Scene late(database);
    EXPECT_EQ(drawn(late), Lines{"line 7: 0,0 2,0"});
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite, true)->erase(Adesk::kFalse);
    EXPECT_EQ(drawn(late), (Lines{first, "line 7: 0,0 2,0"}));
    (void)second;
}

TEST_F(Changes, attributesAndVerticesCountForTheirOwner)
{
    const AcDbObjectId block = addBlock(L"POINT", {});
    auto* reference = new AcDbBlockReference({0, 0, 0}, block);
    auto* mark = new AcDbAttribute({0, 0, 0}, L"1", L"MAT");
    mark->setHeight(1.0);
    reference->appendAttribute(mark);
    add(reference);
    EXPECT_EQ(now().at(1), "text 7: <1> at 0,0 along 1,0 up 0,1");
    {
        const AcDbObjectPointer<AcDbAttribute> opened(mark->objectId(), AcDb::kForWrite);
        opened->setTextString(L"2");
    }
    EXPECT_EQ(now().at(1), "text 7: <2> at 0,0 along 1,0 up 0,1");

    auto* polyline = new AcDb2dPolyline;
    auto* vertex = new AcDb2dVertex({0, 0, 0});
    polyline->appendVertex(vertex);
    polyline->appendVertex(new AcDb2dVertex({3, 0, 0}));
    add(polyline);
    EXPECT_EQ(now().at(2), "line 7: 0,0 3,0");
    {
        const AcDbObjectPointer<AcDb2dVertex> opened(vertex->objectId(), AcDb::kForWrite);
        opened->setPosition({-4, 0, 0});
    }
    EXPECT_EQ(now().at(2), "line 7: -4,0 3,0");
}

TEST_F(Changes, blockDefinitionsShowInTheirReferences)
{
    const AcDbObjectId block = addBlock(L"SYMBOLE", {new AcDbLine({0, 0, 0}, {3, 0, 0})});
    const AcDbObjectId reference = add(new AcDbBlockReference({10, 0, 0}, block));
    EXPECT_EQ(now().at(1), "line 7: 10,0 13,0");
    addTo(block, new AcDbLine({0, 0, 0}, {0, 7, 0}));
    EXPECT_EQ(now().at(2), "line 7: 10,0 10,7");
    EXPECT_EQ(scene().extents(reference).maxY, 7.0);
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> opened(block, AcDb::kForWrite);
        opened->setOrigin({3, 0, 0});
    }
    EXPECT_EQ(now().at(1), "line 7: 7,0 10,0");
}

TEST_F(Changes, manyChangesFindTheirWayIntoTheIndex)
{
    for (int i = 0; i < 3000; ++i)
        add(new AcDbLine({1.0 * i, 50, 0}, {1.0 * i, 51, 0}));
    SceneView narrow = wideView();
    narrow.center = {2000.0, 50.0};
    narrow.width = narrow.height = 4.5;
    EXPECT_EQ(drawn(scene(), narrow).size(), 5U);
    for (int i = 0; i < 100; ++i)
        add(new AcDbLine({2000.0, 50, 0}, {2001.0, 50.5, 0}));
    EXPECT_EQ(drawn(scene(), narrow).size(), 105U);
    {
        const AcDbObjectPointer<AcDbLine> opened(id, AcDb::kForWrite);
        opened->setStartPoint({1999.0, 50.2, 0});
        opened->setEndPoint({2001.0, 50.2, 0});
    }
    const Lines lines = drawn(scene(), narrow);
    EXPECT_EQ(lines.size(), 106U);
    EXPECT_EQ(lines.front(), "line 7: 1999,50.2 2001,50.2"); // the oldest is drawn first, still
}

TEST(SceneOf, isMadeOnceAndGoesWithItsDrawing)
{
    int told = 0;
    {
        AcDbDatabase database;
        Scene& scene = Scene::of(database);
        EXPECT_EQ(&Scene::of(database), &scene);
        scene.onChange([&told] { ++told; });
        AcDbBlockTableRecord* space = nullptr;
        ASSERT_EQ(acdbOpenObject(space, database.currentSpaceId(), AcDb::kForWrite), Acad::eOk);
        auto* line = new AcDbLine({0, 0, 0}, {1, 0, 0});
        space->appendAcDbEntity(line);
        line->close();
        space->close();
        EXPECT_GE(told, 1);
    }
    AcDbDatabase other; // may stand at the same address
    EXPECT_TRUE(Scene::of(other).extents().isEmpty());
}

#include <algorithm>
#include <set>

#include "acutmem.h"
#include "dbdict.h"
#include "dbents.h"
#include "Drawing.h"
#include "SmallDrawing.h"

/// Objects made by a program: saved, read again, found as they were.

namespace {

/// Runs on every kind of drawing: a new one, ASCII and binary files, old and young, with and without model space.
class NewObjectsTest : public DrawingTest {
protected:
    struct Row {
        const char* name;
        std::string bytes;
    };
    static std::vector<Row> drawings()
    {
        SmallDrawing old, young, headless;
        old.version = "AC1015";
        old.eol = "\n";
        young.version = "AC1032";
        headless.modelSpace = false;
        return {{"R2000 ASCII", old.text()},
                {"R2018 ASCII", young.text()},
                {"R2000 binary", old.binary()},
                {"R2018 binary", young.binary()},
                {"without model space", headless.text()}};
    }
};

/// Every handle of a file stands once, and $HANDSEED above them all.
void checkHandles(const std::string& bytes)
{
    const DxfFile file(bytes, "relu.dxf");
    EXPECT_TRUE(file.problems().empty());
    std::set<std::uint64_t> seen;
    for (const DxfRecord& record : file.records())
        EXPECT_TRUE(record.handle == 0 || seen.insert(record.handle).second) << std::hex << record.handle;
    const std::string seed(file.headerValue("$HANDSEED", 5));
    EXPECT_GT(std::stoull(seed, nullptr, 16), *seen.rbegin());
}

void makeAll(AcDbDatabase& database)
{
    const AcDbObjectId layer = addRecord<AcDbLayerTable, AcDbLayerTableRecord>(database, L"\u00C9l\u00E9vation \u2126");
    const AcDbObjectId style = addRecord<AcDbTextStyleTable, AcDbTextStyleTableRecord>(database, L"ARIAL");
    addRecord<AcDbRegAppTable, AcDbRegAppTableRecord>(database, L"VELA");
    const AcDbObjectId block = addRecord<AcDbBlockTable, AcDbBlockTableRecord>(database, L"BORNE");
    AcDbObjectPointer<AcDbBlockTableRecord>(block, AcDb::kForWrite)->setOrigin(AcGePoint3d(1, 2, 3));
    addEntity(block, new AcDbCircle(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), 0.5));
    auto* definition = new AcDbAttributeDefinition(AcGePoint3d(1, 1, 0), L"?", L"NUM", L"Num\u00E9ro", style);
    addEntity(block, definition);

    auto* reference = new AcDbBlockReference(AcGePoint3d(10, 20, 30), block);
    reference->setLayer(layer);
    reference->appendAttribute(new AcDbAttribute(AcGePoint3d(11, 21, 30), L"S1", L"NUM", style));
    reference->appendAttribute(new AcDbAttribute(AcGePoint3d(11, 20, 30), L"12,5", L"Z", style));
    const AcDbObjectId placed = addEntity(database.currentSpaceId(), reference);

    AcDbObjectPointer<AcDbBlockReference> opened(placed, AcDb::kForWrite);
    resbuf* data = acutBuildList(1001, L"VELA", 1070, 1, 1040, 0.1, 0);
    EXPECT_EQ(opened->setXData(data), Acad::eOk);
    acutRelRb(data);
    EXPECT_EQ(opened->createExtensionDictionary(), Acad::eOk);
    AcDbObjectPointer<AcDbDictionary> dictionary(opened->extensionDictionary(), AcDb::kForWrite);
    auto* record = new AcDbXrecord;
    ads_name name = {placed.asOldId(), 0};
    data = acutBuildList(1, L"fiche", 330, name, 0);
    EXPECT_EQ(record->setFromRbChain(*data), Acad::eOk);
    acutRelRb(data);
    AcDbObjectId id;
    EXPECT_EQ(dictionary->setAt(L"FICHE", record, id), Acad::eOk);
    record->close();
}

void checkAll(AcDbDatabase& database)
{
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(database.getSymbolTable(layers, AcDb::kForRead), Acad::eOk);
    AcDbObjectId layer;
    EXPECT_EQ(layers->getAt(L"\u00E9L\u00C9VATION \u03C9", layer), Acad::eOk) << "whatever the case";
    layers->close();
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(database.getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
    AcDbBlockTableRecord* block = nullptr;
    ASSERT_EQ(blocks->getAt(L"borne", block, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(block->origin(), AcGePoint3d(1, 2, 3));
    EXPECT_TRUE(block->hasAttributeDefinitions());
    AcDbObjectIdArray references;
    block->getBlockReferenceIds(references);
    blocks->close();
    block->close();
    ASSERT_EQ(references.length(), 1);

    AcDbObjectPointer<AcDbBlockReference> reference(references[0]);
    ASSERT_TRUE(reference.object());
    EXPECT_EQ(reference->position(), AcGePoint3d(10, 20, 30));
    EXPECT_EQ(reference->layerId(), layer);
    EXPECT_EQ(reference->ownerId(), database.currentSpaceId());
    std::wstring texts;
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    for (; !attributes->done(); attributes->step()) {
        AcDbObjectPointer<AcDbAttribute> attribute(attributes->objectId());
        texts += std::wstring(attribute->tagConst()) + L"=" + attribute->textStringConst() + L";";
        EXPECT_EQ(attribute->ownerId(), references[0]);
    }
    EXPECT_EQ(texts, L"NUM=S1;Z=12,5;");
    resbuf* data = reference->xData(L"vela");
    ASSERT_TRUE(data && data->rbnext && data->rbnext->rbnext);
    EXPECT_EQ(data->rbnext->rbnext->resval.rreal, 0.1);
    acutRelRb(data);

    AcDbObjectPointer<AcDbDictionary> dictionary(reference->extensionDictionary());
    ASSERT_TRUE(dictionary.object());
    EXPECT_TRUE(dictionary->isTreatElementsAsHard());
    AcDbObject* found = nullptr;
    ASSERT_EQ(dictionary->getAt(L"fiche", found, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(AcDbXrecord::cast(found)->rbChain(&data), Acad::eOk);
    EXPECT_STREQ(data->resval.rstring, L"fiche");
    EXPECT_EQ(data->rbnext->resval.rlname[0], references[0].asOldId());
    acutRelRb(data);
    found->close();
}

} // namespace

TEST_F(NewObjectsTest, areReadAsTheyWereMade)
{
    for (const Row& row : drawings()) {
        SCOPED_TRACE(row.name);
        const auto database = open(row.bytes);
        makeAll(*database);
        checkAll(*database);
        const std::string after = saved(*database);
        checkHandles(after);
        const auto again = open(after, "relu.dxf");
        EXPECT_TRUE(again->impl().problems().all().empty());
        checkAll(*again);
        EXPECT_EQ(saved(*again, "encore.dxf"), after);
        EXPECT_EQ(saved(*database), after) << "a second save of the same drawing";
    }
}

/// Its entities used to be written twice: into the block made up for model space, and where they stood.
TEST_F(NewObjectsTest, joinADrawingOfEntitiesAlone)
{
    const auto database = open(asciiDxf("0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n"
                                        "0 LINE\n5 A1\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n"
                                        "21 1\n31 0\n0 ENDSEC\n0 EOF\n"));
    addEntity(database->currentSpaceId(), new AcDbPoint(AcGePoint3d(1, 2, 3)));
    const std::vector<std::string> tags = tagsOf(saved(*database));
    const auto entities = std::ranges::find(tags, "2|ENTITIES");
    for (const char* entity : {"0|LINE", "0|POINT"}) {
        EXPECT_EQ(std::ranges::count(tags, entity), 1) << entity;
        EXPECT_LT(entities, std::ranges::find(tags, entity)) << entity;
    }
}

/// Programs that drew without choosing a layer used to leave entities on one without a name.
TEST_F(NewObjectsTest, takeTheCurrentLayerWhenTheyHaveNone)
{
    AcDbDatabase database;
    makeAll(database);
    const AcDbObjectId current = addRecord<AcDbLayerTable, AcDbLayerTableRecord>(database, L"COURANT");
    const AcDbObjectId other = addRecord<AcDbLayerTable, AcDbLayerTableRecord>(database, L"AUTRE");
    ASSERT_EQ(database.setClayer(current), Acad::eOk);
    const AcDbObjectId point = addEntity(database.currentSpaceId(), new AcDbPoint(AcGePoint3d(1, 2, 3)));
    EXPECT_EQ(AcDbObjectPointer<AcDbPoint>(point)->layerId(), current);
    auto* line = new AcDb2dPolyline;
    line->setLayer(other);
    line->appendVertex(new AcDb2dVertex(AcGePoint3d(1, 1, 0)));
    addEntity(database.currentSpaceId(), line);
    const std::vector<std::string> tags = tagsOf(saved(database));
    EXPECT_EQ(std::ranges::count(tags, "8|"), 0);
    EXPECT_EQ(std::ranges::count(tags, "8|COURANT"), 2) << "the header names it too";
    EXPECT_EQ(std::ranges::count(tags, "8|AUTRE"), 3) << "the vertex and the end of the sequence with it";
}

TEST_F(NewObjectsTest, standInANewDrawing)
{
    AcDbDatabase database;
    makeAll(database);
    const std::string after = saved(database);
    checkHandles(after);
    checkAll(*open(after, "relu.dxf"));
}

TEST_F(NewObjectsTest, goAndComeBackWithUndo)
{
    for (const Row& row : drawings()) {
        SCOPED_TRACE(row.name);
        const auto database = open(row.bytes);
        UndoRecorder& undo = database->impl().undo();
        undo.setRecording(true);
        undo.startMark();
        undo.startMark();
        makeAll(*database);
        undo.endMark();
        database->setClayer(database->layerZero());
        undo.endMark();
        EXPECT_EQ(undo.undoable(), 1U);
        const std::string after = saved(*database);
        ASSERT_TRUE(undo.undo());
        EXPECT_EQ(saved(*database), row.bytes);
        ASSERT_TRUE(undo.redo());
        checkAll(*database);
        EXPECT_EQ(saved(*database), after);
        ASSERT_TRUE(undo.undo());
        makeAll(*database); // under the same names once more
        checkAll(*database);
        checkHandles(saved(*database));
        EXPECT_FALSE(undo.redo()) << "a new change ends what could be made again";
    }
}

TEST_F(NewObjectsTest, leaveNothingBehindWhenErased)
{
    const std::string before = SmallDrawing().text();
    const auto database = open(before);
    makeAll(*database);
    AcDbObjectIdArray references;
    {
        AcDbBlockTable* blocks = nullptr;
        ASSERT_EQ(database->getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
        AcDbBlockTableRecord* block = nullptr;
        ASSERT_EQ(blocks->getAt(L"BORNE", block, AcDb::kForWrite), Acad::eOk);
        block->getBlockReferenceIds(references);
        EXPECT_EQ(block->erase(), Acad::eOk);
        blocks->close();
        block->close();
    }
    AcDbObjectId dictionary;
    {
        AcDbObjectPointer<AcDbBlockReference> reference(references[0], AcDb::kForWrite);
        dictionary = reference->extensionDictionary();
        EXPECT_EQ(reference->erase(), Acad::eOk);
    }
    EXPECT_TRUE(dictionary.isErased()) << "the extension dictionary goes with its object";
    const std::string after = saved(*database);
    for (const char* gone : {"0|INSERT", "0|ATTRIB", "0|SEQEND", "0|XRECORD", "0|ATTDEF", "2|BORNE", "0|CIRCLE"})
        EXPECT_EQ(std::ranges::count(tagsOf(after), gone), 0) << gone;
    checkHandles(after);

    AcDbObjectPointer<AcDbBlockReference> reference(references[0], AcDb::kForWrite, true);
    ASSERT_EQ(reference.openStatus(), Acad::eOk);
    EXPECT_EQ(reference->erase(Adesk::kFalse), Acad::eOk);
    EXPECT_FALSE(dictionary.isErased());
    reference.close();
    EXPECT_EQ(std::ranges::count(tagsOf(saved(*database)), "0|ATTRIB"), 2);
}

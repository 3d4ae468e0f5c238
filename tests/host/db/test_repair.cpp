#include <algorithm>

#include "acutmem.h"
#include "dbdict.h"
#include "Drawing.h"
#include "SmallDrawing.h"

/// What users met: layers that tables lack, copies that lost something, names under which a drawing is saved.

namespace {

using RepairTest = DrawingTest;

std::string point(const char* handle, const char* layer)
{
    return entityTags("POINT", handle, "AcDbPoint", "10 1\n20 2\n30 0\n", layer);
}

TEST_F(RepairTest, aLayerThatTheTableLacksIsMade)
{
    SmallDrawing drawing;
    drawing.entities = point("80", "Murs") + point("81", "MURS") + point("82", "0");
    const std::string before = drawing.text();
    const auto database = open(before);
    const auto layerOf = [&](std::uint64_t handle) {
        ACHAR* name = Opened<AcDbEntity>(*database, handle)->layer();
        std::wstring kept = name;
        acutDelString(name);
        return kept;
    };
    EXPECT_EQ(layerOf(0x80), L"Murs");
    EXPECT_EQ(layerOf(0x81), L"Murs") << "letter case does not count";
    EXPECT_EQ(layerOf(0x82), L"0");
    ASSERT_EQ(database->impl().problems().all().size(), 1U);
    EXPECT_NE(database->impl().problems().all()[0].find("calque « Murs » absent"), std::string::npos);
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(database->getLayerTable(layers, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(layers->has(L"murs"));
    layers->close();
    EXPECT_EQ(saved(*database), before) << "looking changes nothing";
    EXPECT_EQ(database->impl().undo().undoable(), 0U);

    Opened<AcDbEntity>(*database, 0x82, AcDb::kForWrite)->setColorIndex(1);
    const auto again = open(saved(*database), "relu.dxf");
    EXPECT_FALSE(AcDbObjectId(again->impl().named(NameKind::layer, L"Murs")).isNull())
        << "written with the first change";
    Opened<AcDbEntity>(*again, 0x80)->assertReadEnabled();
    EXPECT_TRUE(again->impl().problems().all().empty());
}

TEST_F(RepairTest, aCopyHasTheExtendedDataOfTheFile)
{
    SmallDrawing drawing;
    drawing.applications = recordTags("APPID", "60", "2 UN\n70 0\n");
    drawing.entities = point("80", "0") + "1001 UN\n1040 1.5\n1000 texte\n";
    const auto database = open(drawing);
    const std::unique_ptr<AcDbEntity> copy(static_cast<AcDbEntity*>(Opened<AcDbEntity>(*database, 0x80)->clone()));
    resbuf* data = copy->xData(L"un");
    ASSERT_NE(data, nullptr);
    ASSERT_NE(data->rbnext, nullptr);
    EXPECT_EQ(data->rbnext->resval.rreal, 1.5);
    acutRelRb(data);

    addEntity(*database, static_cast<AcDbEntity*>(copy->clone()));
    const std::string after = saved(*database);
    EXPECT_EQ(std::ranges::count(tagsOf(after), "1000|texte"), 2);
}

const char* const reference =
    "0 INSERT\n5 90\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockReference\n66 1\n2 BORNE\n10 1\n"
    "20 2\n30 0\n"
    "0 ATTRIB\n5 91\n330 90\n100 AcDbEntity\n8 0\n100 AcDbText\n10 1\n20 2\n30 0\n40 2.5\n1 S1\n"
    "100 AcDbAttribute\n2 NUM\n70 0\n"
    "0 ATTRIB\n5 92\n330 90\n100 AcDbEntity\n8 0\n100 AcDbText\n10 1\n20 2\n30 0\n40 2.5\n1 12\n"
    "100 AcDbAttribute\n2 ALT\n70 0\n"
    "0 SEQEND\n5 93\n330 90\n100 AcDbEntity\n8 0\n";

TEST_F(RepairTest, whatWasErasedByItselfStaysErased)
{
    SmallDrawing drawing;
    drawing.blockRecords = recordTags("BLOCK_RECORD", "70", "2 BORNE\n");
    drawing.blocks = blockTags("BORNE", "70", 0x71);
    drawing.entities = reference;
    const auto database = open(drawing);
    const auto isErased = [&](std::uint64_t handle) { return idOf(*database, handle).isErased(); };
    const auto eraseOwner = [&](Adesk::Boolean erasing) {
        AcDbObjectPointer<AcDbEntity> opened(idOf(*database, 0x90), AcDb::kForWrite, true);
        EXPECT_EQ(opened->erase(erasing), Acad::eOk);
    };
    UndoRecorder& undo = database->impl().undo();
    undo.setRecording(true);
    Opened<AcDbEntity>(*database, 0x91, AcDb::kForWrite)->erase();
    undo.startMark();
    eraseOwner(Adesk::kTrue);
    undo.endMark();
    EXPECT_TRUE(isErased(0x91) && isErased(0x92) && isErased(0x93));
    undo.startMark();
    eraseOwner(Adesk::kFalse);
    undo.endMark();
    EXPECT_TRUE(isErased(0x91)) << "erased before";
    EXPECT_FALSE(isErased(0x92) || isErased(0x93));
    undo.undo();
    EXPECT_TRUE(isErased(0x92));
    eraseOwner(Adesk::kFalse);
    EXPECT_FALSE(isErased(0x92)) << "U brings back what it was erased with";
    EXPECT_TRUE(isErased(0x91));
}

TEST_F(RepairTest, copiesTellTheSpaceThatTheyAreIn)
{
    SmallDrawing drawing;
    drawing.entities =
        "0 POINT\n5 80\n330 1B\n100 AcDbEntity\n67 1\n8 0\n100 AcDbPoint\n10 1\n20 2\n30 0\n" + point("81", "0");
    const auto database = open(drawing);
    const auto copyInto = [&](std::uint64_t entity, std::uint64_t space) {
        AcDbObjectIdArray ids;
        ids.append(idOf(*database, entity));
        AcDbIdMapping mapping;
        EXPECT_EQ(database->deepCloneObjects(ids, idOf(*database, space), mapping), Acad::eOk);
    };
    const auto papers = [&] { return std::ranges::count(tagsOf(saved(*database)), "67|1"); };
    EXPECT_EQ(papers(), 1);
    copyInto(0x80, 0x1F);
    EXPECT_EQ(papers(), 1) << "a copy in model space is not of paper space";
    copyInto(0x81, 0x1B);
    EXPECT_EQ(papers(), 2);
    copyInto(0x80, 0x1B);
    EXPECT_EQ(papers(), 3);
}

TEST_F(RepairTest, extentsGrowWithWhatChanged)
{
    struct Row {
        const char* name;
        const char* extents; ///< in the header
        void (*change)(AcDbDatabase&);
        Changes expected; ///< of the header's tags
    };
    const char* const stated = "9 $EXTMIN\n10 0\n20 0\n30 0\n9 $EXTMAX\n10 9\n20 9\n30 0\n";
    const Row rows[] = {
        {"within",
         stated,
         [](AcDbDatabase& d) {
             Opened<AcDbPoint>(d, 0x80, AcDb::kForWrite)->setPosition({5, 5, 0});
         },
         {}},
        {"beyond",
         stated,
         [](AcDbDatabase& d) {
             Opened<AcDbPoint>(d, 0x80, AcDb::kForWrite)->setPosition({-5, 12.5, 0});
         },
         {"-10|0", "-20|0", "-30|0", "+10|-5.0", "+20|0.0", "+30|0.0", "-10|9", "-20|9", "-30|0", "+10|9.0", "+20|12.5",
          "+30|0.0"}},
        {"erased: they stay",
         stated,
         [](AcDbDatabase& d) { Opened<AcDbPoint>(d, 0x80, AcDb::kForWrite)->erase(); },
         {}},
        {"unchanged", stated, [](AcDbDatabase&) {}, {}},
        {"looked at for writing",
         "9 $EXTMIN\n10 8\n20 8\n30 0\n9 $EXTMAX\n10 9\n20 9\n30 0\n",
         [](AcDbDatabase& d) { Opened<AcDbPoint>(d, 0x80, AcDb::kForWrite)->assertWriteEnabled(); },
         {}},
        {"none stated: all count",
         "9 $EXTMIN\n10 1e20\n20 1e20\n30 1e20\n9 $EXTMAX\n10 -1e20\n20 -1e20\n30 -1e20\n",
         [](AcDbDatabase& d) {
             Opened<AcDbPoint>(d, 0x80, AcDb::kForWrite)->setPosition({7, 2, 0});
         },
         {"-10|1e20", "-20|1e20", "-30|1e20", "+10|1.0", "+20|2.0", "+30|0.0", "-10|-1e20", "-20|-1e20", "-30|-1e20",
          "+10|7.0", "+20|2.0", "+30|0.0"}},
        {"no variables",
         "",
         [](AcDbDatabase& d) {
             Opened<AcDbPoint>(d, 0x80, AcDb::kForWrite)->setPosition({99, 0, 0});
         },
         {}},
    };
    const auto headerOf = [](const std::string& file) {
        return file.substr(0, file.find("ENDSEC")) + "ENDSEC\r\n  0\r\nEOF\r\n";
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        SmallDrawing drawing;
        drawing.header = row.extents;
        drawing.entities = point("80", "0") + point("81", "0");
        const auto database = open(drawing);
        row.change(*database);
        EXPECT_EQ(changes(headerOf(drawing.text()), headerOf(saved(*database))), row.expected);
    }
}

/// What is larger because something of its own changed: its attribute, its vertices.
TEST_F(RepairTest, extentsGrowWithWhatAnEntityIsMadeOf)
{
    struct Row {
        const char* name;
        void (*change)(AcDbDatabase&);
        double most; ///< the greatest x that the header states, of 20 before
    };
    const Row rows[] = {
        {"thickness",
         [](AcDbDatabase& d) {
             Opened<AcDbLine> line(d, 0x90, AcDb::kForWrite);
             line->setNormal(AcGeVector3d::kXAxis);
             line->setThickness(30.0);
         },
         31},
        {"a vertex",
         [](AcDbDatabase& d) {
             Opened<AcDb2dVertex>(d, 0x82, AcDb::kForWrite)->setPosition({25, 0, 0});
         },
         25},
        {"a vertex more",
         [](AcDbDatabase& d) {
             auto* const added = new AcDb2dVertex({26, 0, 0});
             EXPECT_EQ(Opened<AcDb2dPolyline>(d, 0x81, AcDb::kForWrite)->appendVertex(added), Acad::eOk);
             added->close();
         },
         26},
        {"a vertex bulges", [](AcDbDatabase& d) { Opened<AcDb2dVertex>(d, 0x82, AcDb::kForWrite)->setBulge(1.0); },
         22.5},
        {"an attribute",
         [](AcDbDatabase& d) {
             Opened<AcDbAttribute>(d, 0x86, AcDb::kForWrite)->setPosition({30, 0, 0});
         },
         30.5},
        {"an attribute out of sight",
         [](AcDbDatabase& d) {
             const Opened<AcDbAttribute> attribute(d, 0x86, AcDb::kForWrite);
             attribute->setPosition({30, 0, 0});
             attribute->setInvisible(true);
         },
         20},
        {"an attribute more",
         [](AcDbDatabase& d) {
             auto* const added = new AcDbAttribute({28, 0, 0}, L"-", L"Z");
             added->setHeight(0.5);
             EXPECT_EQ(Opened<AcDbBlockReference>(d, 0x85, AcDb::kForWrite)->appendAttribute(added), Acad::eOk);
             added->close();
         },
         28.5},
        {"what the block holds: its references may be any number",
         [](AcDbDatabase& d) {
             Opened<AcDbPoint>(d, 0x73, AcDb::kForWrite)->setPosition({9, 0, 0});
         },
         20},
        {"paper space",
         [](AcDbDatabase& d) {
             Opened<AcDbPoint>(d, 0x8F, AcDb::kForWrite)->setPosition({99, 0, 0});
         },
         20},
    };
    const std::string vertex = "330 81\n100 AcDbEntity\n8 0\n100 AcDbVertex\n100 AcDb2dVertex\n10 20\n30 0\n70 0\n";
    SmallDrawing drawing;
    drawing.header = "9 $EXTMIN\n10 0\n20 -5\n30 -5\n9 $EXTMAX\n10 20\n20 20\n30 20\n";
    drawing.blockRecords = recordTags("BLOCK_RECORD", "70", "2 BORNE\n");
    drawing.blocks =
        blockTags("BORNE", "70", 0x71, entityTags("POINT", "73", "AcDbPoint", "10 0\n20 0\n30 0\n", "0", "70"));
    drawing.entities = entityTags("POLYLINE", "81", "AcDb2dPolyline", "66 1\n10 0\n20 0\n30 0\n70 0\n") +
                       "0 VERTEX\n5 82\n" + vertex + "20 0\n0 VERTEX\n5 83\n" + vertex +
                       "20 5\n0 SEQEND\n5 84\n330 81\n100 AcDbEntity\n8 0\n" +
                       entityTags("INSERT", "85", "AcDbBlockReference", "66 1\n2 BORNE\n10 12\n20 0\n30 0\n") +
                       "0 ATTRIB\n5 86\n330 85\n100 AcDbEntity\n8 0\n100 AcDbText\n10 10\n20 0\n30 0\n40 0.5\n1 -\n"
                       "100 AcDbAttribute\n2 NUM\n70 0\n0 SEQEND\n5 87\n330 85\n100 AcDbEntity\n8 0\n"
                       "0 POINT\n5 8F\n330 1B\n100 AcDbEntity\n67 1\n8 0\n100 AcDbPoint\n10 1\n20 2\n30 0\n" +
                       lineTags("90");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto database = open(drawing);
        row.change(*database);
        const auto again = open(saved(*database), "relu.dxf");
        EXPECT_NEAR(again->extmax().x, row.most, row.most > 20.0 ? 0.5 : 0.0);
    }
}

TEST_F(RepairTest, aDrawingFoundAsDxfBearsThatName)
{
    write("plan.dxf", SmallDrawing().text());
    AcDbDatabase database(false, true);
    ASSERT_EQ(database.readDwgFile(path("plan.dwg").c_str()), Acad::eOk);
    const ACHAR* name = nullptr;
    ASSERT_EQ(database.getFilename(name), Acad::eOk);
    EXPECT_EQ(std::wstring(name), path("plan.dxf"));
    EXPECT_EQ(database.saveAs(name), Acad::eOk);
    EXPECT_FALSE(std::filesystem::exists(path("plan.dwg")));
}

} // namespace

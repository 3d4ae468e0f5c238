#include <algorithm>
#include <numbers>

#include "dbpl.h"
#include "dbsymtb.h"
#include "SmallDrawing.h"

/// Drawings as other programs write them: what they mean is read, and changed where it stands.

namespace {

using ForeignTest = DrawingTest;

const char* const wallLayer =
    "0 LAYER\n5 40\n330 2\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 MURS\n70 1\n"
    "62 3\n6 Continuous\n";

std::wstring layerOf(AcDbDatabase& database, std::uint64_t handle)
{
    return database.impl().recordName(Opened<AcDbEntity>(database, handle)->layerId().stub());
}

TEST_F(ForeignTest, whatEveryEntityHasIsReadWhereverItStands)
{
    struct Row {
        const char* name;
        const char* tags; ///< after handle and owner
        Changes changed;  ///< colour 5 on layer 0
    };
    const char* const ends = "10 0\n20 0\n30 0\n11 5\n21 5\n31 0\n";
    const Row rows[] = {
        {"where it belongs", "100 AcDbEntity\n8 MURS\n62 1\n100 AcDbLine\n", {"-8|MURS", "-62|1", "+8|0", "+62|5"}},
        {"below the class", "100 AcDbEntity\n100 AcDbLine\n8 MURS\n62 1\n", {"-8|MURS", "-62|1", "+8|0", "+62|5"}},
        {"before the first marker",
         "8 MURS\n62 1\n100 AcDbEntity\n100 AcDbLine\n",
         {"-8|MURS", "-62|1", "+8|0", "+62|5"}},
        {"in both places", "8 MURS\n100 AcDbEntity\n100 AcDbLine\n62 1\n", {"-8|MURS", "+8|0", "-62|1", "+62|5"}},
        {"a colour where there was none", "100 AcDbEntity\n100 AcDbLine\n8 MURS\n", {"+62|5", "-8|MURS", "+8|0"}},
        {"no marker at all", "8 MURS\n62 1\n", {"-8|MURS", "-62|1", "+8|0", "+62|5"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        SmallDrawing drawing;
        drawing.layers = wallLayer;
        drawing.entities = std::string("0 LINE\n5 80\n330 1F\n") + row.tags + ends;
        const std::string before = drawing.text();
        const auto database = open(before);
        EXPECT_EQ(layerOf(*database, 0x80), L"MURS");
        {
            const Opened<AcDbLine> line(*database, 0x80, AcDb::kForWrite);
            EXPECT_EQ(line->endPoint().x, 5.0);
            line->setColorIndex(5);
            line->setLayer(L"0");
        }
        EXPECT_EQ(changes(before, saved(*database)), row.changed);
    }
}

/// It was saved with the first marker alone, above its new colour: a reader that sees one marker looks for the others.
TEST_F(ForeignTest, whatGainsATagGainsAllItsMarkers)
{
    struct Row {
        const char* record;
        Changes changed;
    };
    const char* const reactors = "0 POINT\n5 80\n102 {ACAD_REACTORS\n330 C\n102 }\n330 1F\n8 0\n10 1\n20 2\n30 3\n";
    const Row rows[] = {
        {"0 LINE\n5 80\n8 0\n10 0\n20 0\n30 0\n11 5\n21 5\n31 0\n1001 ACAD\n1070 8\n",
         {"+100|AcDbEntity", "+62|5", "+100|AcDbLine"}},
        {reactors, {"+100|AcDbEntity", "+62|5", "+100|AcDbPoint"}},
        {"0 TEXT\n5 80\n10 0\n20 0\n40 2.5\n1 a\n73 1\n8 0\n370 25\n",
         {"+100|AcDbEntity", "+8|0", "+370|25", "+62|5", "+100|AcDbText", "+100|AcDbText", "-8|0", "-370|25"}},
        {"0 ARC\n5 80\n8 0\n50 10\n51 20\n10 0\n20 0\n40 1\n",
         {"+100|AcDbEntity", "+62|5", "+100|AcDbCircle", "-50|10", "-51|20", "+100|AcDbArc", "+50|10", "+51|20"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.record);
        SmallDrawing drawing;
        drawing.entities = row.record;
        const std::string before = drawing.text();
        const auto database = open(before);
        Opened<AcDbEntity>(*database, 0x80, AcDb::kForWrite)->setColorIndex(5);
        auto now = changes(before, saved(*database)), expected = row.changed;
        std::ranges::sort(now);
        std::ranges::sort(expected); // which of two equal ways tells a tag that moved
        EXPECT_EQ(now, expected);
        const auto again = open(read("sortie.dxf"), "relu.dxf");
        EXPECT_EQ(Opened<AcDbEntity>(*again, 0x80)->colorIndex(), 5);
    }
}

TEST_F(ForeignTest, flagsTellTheClassOfWhatBearsNoMarker)
{
    struct Row {
        const char* polyline; ///< its flags
        const char* vertex;
        const wchar_t* classes[2];
    };
    const Row rows[] = {
        {"0", "0", {L"AcDb2dPolyline", L"AcDb2dVertex"}},
        {"9", "32", {L"AcDb3dPolyline", L"AcDb3dPolylineVertex"}},
        {"16", "64", {L"AcDbPolygonMesh", L"AcDbPolygonMeshVertex"}},
        {"64", "192", {L"AcDbPolyFaceMesh", L"AcDbPolyFaceMeshVertex"}},
        {"64", "128", {L"AcDbPolyFaceMesh", L"AcDbFaceRecord"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.classes[1]);
        SmallDrawing drawing;
        drawing.entities = std::string("0 POLYLINE\n5 80\n8 0\n66 1\n70 ") + row.polyline +
                           "\n0 VERTEX\n5 81\n8 0\n10 4\n20 5\n30 6\n70 " + row.vertex + "\n0 SEQEND\n5 82\n8 0\n";
        const auto database = open(drawing.text());
        EXPECT_STREQ(Opened<AcDbEntity>(*database, 0x80)->isA()->name(), row.classes[0]);
        EXPECT_STREQ(Opened<AcDbEntity>(*database, 0x81)->isA()->name(), row.classes[1]);
        Opened<AcDbEntity>(*database, 0x81, AcDb::kForWrite)->setColorIndex(5);
        const auto again = open(saved(*database));
        EXPECT_STREQ(Opened<AcDbVertex>(*again, 0x81)->isA()->name(), row.classes[1]);
        EXPECT_EQ(Opened<AcDbVertex>(*again, 0x81)->position(), AcGePoint3d(4, 5, 6));
    }
}

TEST_F(ForeignTest, anEntityIsItsBlocksWhateverOwnerItNames)
{
    const std::string line = "100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 5\n21 5\n31 0\n";
    for (const char* const owner : {"", "330 0\n", "330 ABCD\n", "330 2\n"}) { // none, nowhere, a table
        SCOPED_TRACE(owner);
        SmallDrawing drawing;
        drawing.blockRecords =
            "0 BLOCK_RECORD\n5 70\n330 1\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n2 B\n340 0\n";
        const std::string bounds = "330 70\n100 AcDbEntity\n8 0\n100 AcDbBlock";
        drawing.blocks = "0 BLOCK\n5 72\n" + bounds + "Begin\n2 B\n70 0\n10 0\n20 0\n30 0\n3 B\n1 \n";
        drawing.blocks += std::string("0 LINE\n5 73\n") + owner;
        drawing.blocks += line + "0 ENDBLK\n5 74\n" + bounds + "End\n";
        drawing.entities = std::string("0 LINE\n5 80\n") + owner + line;
        const std::string before = drawing.text();
        const auto database = open(before);
        EXPECT_EQ(Opened<AcDbEntity>(*database, 0x80)->ownerId(), idOf(*database, 0x1F));
        EXPECT_EQ(Opened<AcDbEntity>(*database, 0x73)->ownerId(), idOf(*database, 0x70));
        Opened<AcDbEntity>(*database, 0x80, AcDb::kForWrite)->setColorIndex(5);
        EXPECT_EQ(changes(before, saved(*database)), (Changes{"+62|5"}));
    }
}

TEST_F(ForeignTest, aReferenceWithoutHeightIsMovedAndTurned)
{
    SmallDrawing drawing;
    drawing.entities = "0 INSERT\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockReference\n2 *Model_Space\n"
                       "10 5\n20 0\n30 0\n41 2\n42 3\n43 0\n50 0\n";
    const std::string before = drawing.text();
    const auto database = open(before);
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(std::numbers::pi / 2.0, AcGeVector3d::kZAxis);
    EXPECT_EQ(Opened<AcDbEntity>(*database, 0x80, AcDb::kForWrite)->transformBy(turn), Acad::eOk);
    const auto again = open(saved(*database));
    const Opened<AcDbBlockReference> turned(*again, 0x80);
    EXPECT_NEAR(turned->position().y, 5.0, 1e-12);
    EXPECT_NEAR(turned->rotation(), std::numbers::pi / 2.0, 1e-12);
    const AcGeScale3d scale = turned->scaleFactors();
    EXPECT_NEAR(scale.sx, 2.0, 1e-12);
    EXPECT_NEAR(scale.sy, 3.0, 1e-12);
    EXPECT_EQ(scale.sz, 0.0);
}

TEST_F(ForeignTest, codesThatAClassHasForItselfStayItsOwn)
{
    // 48 is the width of a column of text; 62 in an object of another kind may be anything.
    SmallDrawing drawing;
    drawing.entities =
        "0 MTEXT\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbMText\n10 0\n20 0\n30 0\n40 1\n71 1\n1 a\n48 90\n"
        "0 TRUC\n5 81\n330 1F\n100 AcDbEntity\n8 0\n100 CTruc\n62 3\n8 MURS\n";
    const auto database = open(drawing);
    EXPECT_EQ(Opened<AcDbEntity>(*database, 0x80)->linetypeScale(), 1.0);
    EXPECT_EQ(Opened<AcDbEntity>(*database, 0x81)->colorIndex(), 256);
    EXPECT_EQ(layerOf(*database, 0x81), L"0");
}

TEST_F(ForeignTest, lightweightPolylinesOfR12)
{
    SmallDrawing drawing;
    drawing.version = "AC1009";
    drawing.entities = "0 LWPOLYLINE\n5 80\n8 0\n62 1\n90 2\n70 1\n10 1\n20 2\n42 0.5\n10 3\n20 4\n";
    const auto database = open(drawing);
    {
        const Opened<AcDbPolyline> polyline(*database, 0x80, AcDb::kForWrite);
        ASSERT_TRUE(polyline.object());
        EXPECT_EQ(polyline->numVerts(), 2U);
        EXPECT_EQ(polyline->colorIndex(), 1);
        polyline->setColorIndex(2);
    }
    const std::string now = saved(*database);
    EXPECT_NE(now.find(asciiDxf("100 AcDbEntity\n8 0\n62 2\n100 AcDbPolyline\n90 2\n70 1\n10 1\n")), std::string::npos)
        << now.substr(now.find("LWPOLYLINE"), 200);
}

TEST_F(ForeignTest, aDrawingSavedOnALayoutIsDrawnInModelSpace)
{
    SmallDrawing drawing;
    drawing.header = "9 $TILEMODE\n70 0\n";
    const std::string before = drawing.text();
    const auto database = open(before);
    ASSERT_EQ(database->impl().problems().all().size(), 1U);
    EXPECT_NE(database->impl().problems().all()[0].find("présentation"), std::string::npos);
    EXPECT_EQ(saved(*database), before) << "told, and no change";
    EXPECT_EQ(database->currentSpaceId(), idOf(*database, 0x1F));
}

TEST_F(ForeignTest, whatEveryDrawingHasIsMadeAndTold)
{
    const std::string line = "0 LINE\n5 A1\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 1\n31 0\n";
    const std::string before = asciiDxf("0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n9 $TILEMODE\n70 0\n0 ENDSEC\n"
                                        "0 SECTION\n2 ENTITIES\n" +
                                        line + "0 ENDSEC\n0 EOF\n");
    const auto database = open(before);
    ASSERT_EQ(database->impl().problems().all().size(), 2U);
    const std::string& told = database->impl().problems().all()[0];
    for (const char* made : {"calque « 0 »", "type de ligne « ByLayer »", "bloc « *Model_Space »",
                             "bloc « *Paper_Space »", "style de texte « Standard »"})
        EXPECT_NE(told.find(made), std::string::npos) << told;
    EXPECT_EQ(saved(*database), before);
    Opened<AcDbLine>(*database, 0xA1, AcDb::kForWrite)->setColorIndex(3);
    const auto again = open(saved(*database), "relu.dxf");
    EXPECT_EQ(again->impl().problems().all().size(), 1U) << "of the layout alone: nothing is missing any more";
    EXPECT_FALSE(again->layerZero().isNull());
    EXPECT_EQ(saved(*again, "encore.dxf"), read("relu.dxf"));
}

/// Small programs write blocks and no table of them: each reference to them showed nothing, and nothing was said.
TEST_F(ForeignTest, blocksThatTheirTableLacksAreFound)
{
    SmallDrawing drawing;
    const std::string line = "100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 5\n21 5\n31 0\n";
    const auto block = [&](const std::string& name, const std::string& handle) {
        return "0 BLOCK\n5 7" + handle + "\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 " + name +
               "\n70 0\n10 0\n20 0\n30 0\n0 LINE\n5 8" + handle + "\n" + line + "0 ENDBLK\n5 9" + handle +
               "\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n";
    };
    drawing.blocks = block("Borne", "1") + block("A|<B>", "2") + block("BORNE", "3");
    drawing.entities = entityTags("INSERT", "A0", "AcDbBlockReference", "2 BORNE\n10 1\n20 2\n30 0\n");
    const std::string before = drawing.text();
    const auto database = open(before);
    EXPECT_EQ(database->impl().problems().all(),
              (std::vector<std::string>{
                  "blocs définis mais absents de la table des blocs ; ils y sont ajoutés : « Borne », « A|<B> »"}));
    AcDbExtents box;
    EXPECT_EQ(Opened<AcDbEntity>(*database, 0xA0)->getGeomExtents(box), Acad::eOk);
    EXPECT_EQ(box.maxPoint(), AcGePoint3d(6, 7, 0));
    EXPECT_EQ(saved(*database), before) << "nothing changed";
    Opened<AcDbEntity>(*database, 0xA0, AcDb::kForWrite)->setColorIndex(5);
    const auto again = open(saved(*database), "relu.dxf");
    EXPECT_TRUE(again->impl().problems().all().empty());
    EXPECT_EQ(Opened<AcDbEntity>(*again, 0xA0)->getGeomExtents(box), Acad::eOk);
}

TEST_F(ForeignTest, aCutDrawingIsSavedWholeAndItsOriginalKept)
{
    SmallDrawing drawing;
    const std::string point = "330 1F\n100 AcDbEntity\n8 0\n100 AcDbPoint\n10 1\n20 2\n30 0\n";
    drawing.entities = "0 POINT\n5 80\n" + point + "0 POINT\n5 81\n" + point;
    const std::string whole = drawing.text(), cut = whole.substr(0, whole.find("81\r\n") + 20);
    const auto database = open(cut);
    EXPECT_EQ(database->impl().blocks().of(database->currentSpaceId().stub()).entities.size(), 1U);
    EXPECT_EQ(database->impl().problems().all().size(), 3U);
    Opened<AcDbEntity>(*database, 0x80, AcDb::kForWrite)->setColorIndex(3);
    saved(*database, "plan.dxf");
    const std::string second = saved(*database, "plan.dxf");
    EXPECT_EQ(read("plan.original.dxf"), cut);
    const auto again = open(second, "relu.dxf");
    EXPECT_TRUE(again->impl().problems().all().empty());
    EXPECT_EQ(Opened<AcDbEntity>(*again, 0x80)->colorIndex(), 3);
}

/// What an upgrade adds is added once: in the file that was saved nothing is missing any more.
TEST_F(ForeignTest, aSecondSaveOfAnUpgradedDrawingAddsNothing)
{
    for (const char* version : {"AC1009", "AC1012", "AC1014"}) {
        SCOPED_TRACE(version);
        SmallDrawing drawing;
        drawing.version = version;
        drawing.entities = "0 LINE\n5 80\n8 MURS\n10 0\n20 0\n11 1\n21 1\n0 POINT\n5 80\n8 0\n10 0\n20 0\n";
        const auto database = open(drawing);
        const std::string first = saved(*database);
        const auto again = open(first, "relu.dxf");
        EXPECT_TRUE(again->impl().problems().all().empty());
        EXPECT_EQ(saved(*again, "encore.dxf"), first);
        Opened<AcDbEntity>(*again, 0x80, AcDb::kForWrite)->setColorIndex(3);
        const std::string third = saved(*again, "encore.dxf");
        EXPECT_EQ(changes(first, third), Changes{"+62|3"});
    }
}

} // namespace

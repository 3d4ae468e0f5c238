#include "acutmem.h"
#include "dbads.h"
#include "dbdict.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "SmallDrawing.h"

/// One change at a time: only the tags that changed differ in the saved file.

using ChangeTest = DrawingTest;

namespace {

const std::string wallLayer =
    recordTags("LAYER", "40", "2 Murs\n70 0\n999 avant la couleur\n62 3\n6 Continuous\n420 255\n370 25\n");
const std::string applications =
    recordTags("APPID", "60", "2 UN\n70 0\n") + recordTags("APPID", "61", "2 DEUX\n70 0\n");
const std::string line = entityTags("LINE", "80", "AcDbLine", "10 0.10\n20 1E+00\n30 0\n11 5.50\n21 -0\n31 +3\n");
const std::string lineWithData = line + "1001 UN\n1040 1.500\n1010 1.0\n1020 2.0\n1030 3.0\n1001 DEUX\n1000 gard\xE9\n"
                                        "1040 7.250\n";
const std::string attribute = "0 ATTRIB\n5 91\n330 90\n100 AcDbEntity\n8 0\n100 AcDbText\n10 1\n20 2\n30 0\n40 2.50\n"
                              "1 S1\n100 AcDbAttribute\n2 NUM\n70 0\n";
const std::string reference = "0 INSERT\n5 90\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockReference\n66 1\n2 BORNE\n"
                              "10 1\n20 2\n30 0\n" +
                              attribute + "0 SEQEND\n5 92\n330 90\n100 AcDbEntity\n8 0\n";
const std::string record = "0 XRECORD\n5 50\n330 C\n100 AcDbXrecord\n280 1\n1 ancien\n40 1.250\n";

SmallDrawing with(std::string SmallDrawing::*part, const std::string& tags)
{
    SmallDrawing drawing;
    drawing.*part = tags;
    return drawing;
}

SmallDrawing withReference()
{
    SmallDrawing drawing = with(&SmallDrawing::blockRecords, recordTags("BLOCK_RECORD", "70", "2 BORNE\n"));
    drawing.blocks = blockTags("BORNE", "70", 0x71);
    drawing.entities = reference;
    return drawing;
}

SmallDrawing withRecord(const std::string& tags = record)
{
    SmallDrawing drawing = with(&SmallDrawing::objects, tags);
    drawing.rootEntries = "3 Cl\\U+00E9\n360 50\n3 AUTRE\n350 FFF0\n";
    return drawing;
}

SmallDrawing withData(const std::string& entity = lineWithData)
{
    SmallDrawing drawing = with(&SmallDrawing::applications, applications);
    drawing.entities = entity;
    return drawing;
}

void setData(AcDbDatabase& database, std::uint64_t handle, resbuf* data)
{
    Opened<AcDbObject> object(database, handle, AcDb::kForWrite);
    EXPECT_EQ(object->setXData(data), Acad::eOk);
    acutRelRb(data);
}

/// One change of a small drawing, and the tags that differ after saving.
struct ChangeRow {
    const char* name;
    SmallDrawing drawing;
    void (*change)(AcDbDatabase&);
    Changes expected;
};

const ChangeRow rows[] = {
    {"colour of a layer takes its true colour away, and leaves the comment",
     with(&SmallDrawing::layers, wallLayer),
     [](AcDbDatabase& database) {
         AcCmColor red;
         red.setColorIndex(1);
         Opened<AcDbLayerTableRecord>(database, 0x40, AcDb::kForWrite)->setColor(red);
     },
     {"-62|3", "+62|1", "-420|255"}},
    {"colour of an entity takes its true colour away",
     with(&SmallDrawing::entities,
          "0 LINE\n5 80\n330 1F\n100 AcDbEntity\n8 0\n62 1\n420 255\n100 AcDbLine\n10 0\n20 0\n"
          "11 5\n21 5\n"),
     [](AcDbDatabase& database) { Opened<AcDbLine>(database, 0x80, AcDb::kForWrite)->setColorIndex(5); },
     {"-62|1", "-420|255", "+62|5"}},
    {"a field without a tag lands in its subclass",
     with(&SmallDrawing::entities, lineWithData),
     [](AcDbDatabase& database) {
         Opened<AcDbLine> opened(database, 0x80, AcDb::kForWrite);
         opened->setThickness(2.5);
         opened->setColorIndex(5);
     },
     {"+62|5", "+39|2.5"}},
    {"one coordinate",
     with(&SmallDrawing::entities, line),
     [](AcDbDatabase& database) {
         Opened<AcDbLine>(database, 0x80, AcDb::kForWrite)->setEndPoint(AcGePoint3d(5.5, 7.25, 3.0));
     },
     {"-21|-0", "+21|7.25"}},
    {"a coordinate that had no tag follows the others",
     with(&SmallDrawing::entities,
          "0 LINE\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 1.0\n20 2.0\n7 x\n11 3\n"
          "21 4\n"),
     [](AcDbDatabase& database) {
         Opened<AcDbLine> opened(database, 0x80, AcDb::kForWrite);
         opened->setStartPoint(AcGePoint3d(1.0, 2.0, 9.0));
         opened->setEndPoint(AcGePoint3d(3.0, 4.0, 8.0));
     },
     {"+30|9.0", "+31|8.0"}},
    {"coordinates apart from each other are changed where they stand",
     with(&SmallDrawing::entities,
          "0 LINE\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 1.0\n20 2.0\n39 1.0\n30 0.0\n11 3\n21 4\n"),
     [](AcDbDatabase& database) {
         Opened<AcDbLine>(database, 0x80, AcDb::kForWrite)->setStartPoint(AcGePoint3d(1.0, 2.0, 9.0));
     },
     {"-30|0.0", "+30|9.0"}},
    {"a marker that stands twice: what has a tag below the second is not added below the first",
     with(&SmallDrawing::entities,
          "0 LINE\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 1\n20 2\n100 AcDbLine\n11 3\n21 4\n"),
     [](AcDbDatabase& database) {
         Opened<AcDbLine>(database, 0x80, AcDb::kForWrite)->setEndPoint(AcGePoint3d(3.0, 7.25, 0.0));
     },
     {"-21|4", "+21|7.25"}},
    {"an entity whose last subclass has no fields",
     with(&SmallDrawing::entities,
          "0 DIMENSION\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbDimension\n10 1\n20 2\n11 3\n21 4\n70 0\n"
          "100 AcDbAlignedDimension\n13 0\n23 0\n14 5\n24 0\n100 AcDbRotatedDimension\n"),
     [](AcDbDatabase& database) { Opened<AcDbEntity>(database, 0x80, AcDb::kForWrite)->setColorIndex(5); },
     {"+62|5"}},
    {"a vertex of a list, between tags and a group that stay",
     withData("0 LWPOLYLINE\n5 80\n102 {AUTRE\n1 x\n102 }\n330 1F\n100 AcDbEntity\n8 0\n62 1\n100 AcDbPolyline\n90 2\n"
              "70 0\n43 0.50\n38 1\n10 0.0\n20 0.0\n10 5.0\n20 5.0\n210 0\n220 0\n230 1\n1001 UN\n1040 1.500\n"),
     [](AcDbDatabase& database) {
         const Opened<AcDbPolyline> opened(database, 0x80, AcDb::kForWrite);
         opened->setPointAt(1, {5.0, 7.25});
         opened->setColorIndex(5);
     },
     {"-62|1", "+62|5", "-20|5.0", "+20|7.25"}},
    {"a layer of another name, and tags of who stands on it",
     [] {
         SmallDrawing drawing = with(&SmallDrawing::layers, wallLayer);
         drawing.applications = applications;
         drawing.entities = "0 LINE\n5 80\n330 1F\n100 AcDbEntity\n8 MURS\n48 2.50\n100 AcDbLine\n10 0.10\n20 0\n30 0\n"
                            "11 5.50\n21 5\n31 0\n1001 UN\n1003 murs\n1040 1.500\n";
         return drawing;
     }(),
     [](AcDbDatabase& database) {
         EXPECT_EQ(Opened<AcDbLayerTableRecord>(database, 0x40, AcDb::kForWrite)->setName(L"Parois"), Acad::eOk);
         Opened<AcDbLine>(database, 0x80, AcDb::kForWrite)->setEndPoint({5.5, 7.25, 0.0});
     },
     {"-2|Murs", "+2|Parois", "-8|MURS", "+8|Parois", "-21|5", "+21|7.25", "-1003|murs", "+1003|Parois"}},
    {"text of an attribute",
     withReference(),
     [](AcDbDatabase& database) { Opened<AcDbAttribute>(database, 0x91, AcDb::kForWrite)->setTextString(L"S2"); },
     {"-1|S1", "+1|S2"}},
    {"an attribute more, before the SEQEND",
     withReference(),
     [](AcDbDatabase& database) {
         auto* added = new AcDbAttribute(AcGePoint3d(1, 2, 0), L"12.5", L"Z");
         added->setHeight(2.5);
         added->setLayer(database.layerZero());
         Opened<AcDbBlockReference>(database, 0x90, AcDb::kForWrite)->appendAttribute(added);
         added->close();
     },
     {"+0|ATTRIB", "+5|FFF", "+330|90", "+100|AcDbEntity", "+8|0", "+100|AcDbText", "+10|1.0", "+20|2.0", "+30|0.0",
      "+40|2.5", "+1|12.5", "+100|AcDbAttribute", "+2|Z", "+70|0"}},
    {"an erased attribute",
     withReference(),
     [](AcDbDatabase& database) { Opened<AcDbAttribute>(database, 0x91, AcDb::kForWrite)->erase(); },
     {"-0|ATTRIB", "-5|91", "-330|90", "-100|AcDbEntity", "-8|0", "-100|AcDbText", "-10|1", "-20|2", "-30|0",
      "-40|2.50", "-1|S1", "-100|AcDbAttribute", "-2|NUM", "-70|0"}},
    {"an entry more in a dictionary",
     withRecord(),
     [](AcDbDatabase& database) {
         AcDbObjectId id;
         auto* added = new AcDbXrecord;
         Opened<AcDbDictionary>(database, 0xC, AcDb::kForWrite)->setAt(L"Neuf", added, id);
         added->close();
     },
     {"+3|Neuf", "+350|FFF", "+0|XRECORD", "+5|FFF", "+330|C", "+100|AcDbXrecord", "+280|1"}},
    {"an entry renamed, the others as they were",
     withRecord(),
     [](AcDbDatabase& database) {
         EXPECT_TRUE(Opened<AcDbDictionary>(database, 0xC, AcDb::kForWrite)->setName(L"autre", L"Autre2"));
     },
     {"-3|AUTRE", "+3|Autre2"}},
    {"an erased object leaves its dictionary",
     withRecord(),
     [](AcDbDatabase& database) { Opened<AcDbObject>(database, 0x50, AcDb::kForWrite)->erase(); },
     {"-3|Cl\\U+00E9", "-360|50", "-0|XRECORD", "-5|50", "-330|C", "-100|AcDbXrecord", "-280|1", "-1|ancien",
      "-40|1.250"}},
    {"data of an xrecord",
     withRecord(record + "1001 ACAD\n1070 1\n"),
     [](AcDbDatabase& database) {
         resbuf* data = acutBuildList(1, L"neuf", 280, 5, 0);
         EXPECT_EQ(Opened<AcDbXrecord>(database, 0x50, AcDb::kForWrite)->setFromRbChain(*data), Acad::eOk);
         acutRelRb(data);
     },
     {"-1|ancien", "-40|1.250", "+1|neuf", "+280|5"}},
    {"data of an xrecord without its own 280",
     withRecord("0 XRECORD\n5 50\n330 C\n100 AcDbXrecord\n1 ancien\n"),
     [](AcDbDatabase& database) {
         resbuf* data = acutBuildList(280, 5, 0);
         EXPECT_EQ(Opened<AcDbXrecord>(database, 0x50, AcDb::kForWrite)->setFromRbChain(*data), Acad::eOk);
         acutRelRb(data);
     },
     {"-1|ancien", "+280|1", "+280|5"}},
    {"cloning flag of an xrecord whose data begin by the same code",
     withRecord("0 XRECORD\n5 50\n330 C\n100 AcDbXrecord\n280 1\n280 7\n100 x\n280 8\n"),
     [](AcDbDatabase& database) {
         Opened<AcDbXrecord>(database, 0x50, AcDb::kForWrite)
             ->setMergeStyle(static_cast<AcDb::DuplicateRecordCloning>(0));
     },
     {"-280|1", "+280|0"}},
    {"extended data of one application of two",
     withData(),
     [](AcDbDatabase& database) { setData(database, 0x80, acutBuildList(1001, L"un", 1070, 4, 0)); },
     {"-1001|UN", "-1040|1.500", "-1010|1.0", "-1020|2.0", "-1030|3.0", "+1001|un", "+1070|4"}},
    {"the same by the list of the entity",
     withData(),
     [](AcDbDatabase& database) {
         AcDbObjectId id;
         ads_name name;
         ASSERT_EQ(database.getAcDbObjectId(id, false, AcDbHandle(0x80)), Acad::eOk);
         ASSERT_EQ(acdbGetAdsName(name, id), Acad::eOk);
         const struct {
             resbuf* list;
             int status;
         } lists[] = {{acutBuildList(8, L"0", 0), RTERROR},
                      {acutBuildList(-1, name, 8, L"0", 0), RTREJ},
                      {acutBuildList(-1, name, -3, 8, L"0", 0), RTREJ},
                      {acutBuildList(-1, name, -3, 1001, L"un", 1070, 4, 0), RTNORM}};
         for (const auto& [list, status] : lists) {
             EXPECT_EQ(acdbEntMod(list), status);
             acutRelRb(list);
         }
     },
     {"-1001|UN", "-1040|1.500", "-1010|1.0", "-1020|2.0", "-1030|3.0", "+1001|un", "+1070|4"}},
    {"extended data of one application taken away",
     withData(),
     [](AcDbDatabase& database) { setData(database, 0x80, acutBuildList(1001, L"DEUX", 0)); },
     {"-1001|DEUX", "-1000|gard\xE9", "-1040|7.250"}},
    {"extended data where there were none",
     withData(line),
     [](AcDbDatabase& database) { setData(database, 0x80, acutBuildList(1001, L"UN", 1000, L"\u00E9", 0)); },
     {"+1001|UN", "+1000|\xC3\xA9"}},
    {"extension dictionary on a bare object",
     [] {
         SmallDrawing drawing = withRecord();
         drawing.entities = line;
         return drawing;
     }(),
     [](AcDbDatabase& database) {
         EXPECT_EQ(Opened<AcDbObject>(database, 0x80, AcDb::kForWrite)->createExtensionDictionary(), Acad::eOk);
     },
     {"+102|{ACAD_XDICTIONARY", "+360|FFF", "+102|}", "+0|DICTIONARY", "+5|FFF", "+330|80", "+100|AcDbDictionary",
      "+280|1", "+281|1"}},
    {"reactor beside other groups",
     with(&SmallDrawing::entities, "0 LINE\n5 80\n102 {AUTRE\n1 x\n102 }\n102 {ACAD_REACTORS\n330 D\n102 }\n330 1F\n"
                                   "100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 1\n31 1\n"),
     [](AcDbDatabase& database) {
         EXPECT_EQ(Opened<AcDbObject>(database, 0x80, AcDb::kForWrite)->addPersistentReactor(idOf(database, 0xC)),
                   Acad::eOk);
     },
     {"+330|C"}},
    {"last reactor taken away",
     with(&SmallDrawing::entities, "0 LINE\n5 80\n102 {ACAD_REACTORS\n330 D\n102 }\n330 1F\n100 AcDbEntity\n8 0\n"
                                   "100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 1\n31 1\n"),
     [](AcDbDatabase& database) {
         Opened<AcDbObject>(database, 0x80, AcDb::kForWrite)->removePersistentReactor(idOf(database, 0xD));
     },
     {"-102|{ACAD_REACTORS", "-330|D", "-102|}"}},
    {"header variable behind a comment",
     with(&SmallDrawing::header, "9 $CLAYER\n999 c\n8 Murs\n999 d\n9 $LTSCALE\n40 2\n"),
     [](AcDbDatabase& database) { EXPECT_EQ(database.setClayer(database.layerZero()), Acad::eOk); },
     {"-8|Murs", "+8|0"}},
    {"header variable that was not there",
     with(&SmallDrawing::header, "9 $LTSCALE\n40 2\n"),
     [](AcDbDatabase& database) { database.setClayer(database.layerZero()); },
     {"+9|$CLAYER", "+8|0"}},
    {"header variable set to what it was",
     with(&SmallDrawing::header, "9 $CLAYER\n8 0\n"),
     [](AcDbDatabase& database) { database.setClayer(database.layerZero()); },
     {}},
};

} // namespace

TEST_F(ChangeTest, onlyWhatChangedDiffers)
{
    for (const ChangeRow& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string before = row.drawing.text();
        const auto database = open(before);
        row.change(*database);
        const std::string after = saved(*database);
        EXPECT_EQ(changes(before, after), row.expected);
        // What was written reads as what was meant: once more opened, nothing is to be said, nothing changes.
        const auto again = open(after, "relu.dxf");
        EXPECT_TRUE(again->impl().problems().all().empty());
        EXPECT_EQ(saved(*again, "encore.dxf"), after);
    }
}

TEST_F(ChangeTest, theSameInBinary)
{
    for (const ChangeRow& row : rows) {
        SCOPED_TRACE(row.name);
        const auto ascii = open(row.drawing);
        row.change(*ascii);
        const auto binary = open(row.drawing.binary(), "plan-binaire.dxf");
        row.change(*binary);
        EXPECT_EQ(ascii->impl().save(path("ascii.dxf"), ascii->impl().form()), Acad::eOk);
        DxfForm form = ascii->impl().form();
        EXPECT_EQ(binary->impl().save(path("binaire.dxf"), form), Acad::eOk) << "saved as ASCII";
        // Numbers are printed anew, so both go through the binary form before they are compared.
        form.binary = true;
        const auto one = open(read("ascii.dxf"), "un.dxf");
        EXPECT_EQ(one->impl().save(path("un-binaire.dxf"), form), Acad::eOk);
        EXPECT_EQ(read("un-binaire.dxf"), saved(*binary));
    }
}

TEST_F(ChangeTest, everyChangeIsTakenBackAndMadeAgain)
{
    for (const ChangeRow& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string before = row.drawing.text();
        const auto database = open(before);
        UndoRecorder& undo = database->impl().undo();
        undo.setRecording(true);
        undo.startMark();
        row.change(*database);
        undo.endMark();
        const std::string after = saved(*database);
        if (undo.undoable() == 0) {
            EXPECT_EQ(after, before);
            continue;
        }
        EXPECT_TRUE(undo.undo());
        EXPECT_EQ(saved(*database), before);
        EXPECT_TRUE(undo.redo());
        EXPECT_EQ(saved(*database), after);
        EXPECT_TRUE(undo.undo());
        EXPECT_EQ(saved(*database), before);
    }
}

#include <algorithm>

#include "acutmem.h"
#include "dbdict.h"
#include "dbproxy.h"
#include "dbsymtb.h"
#include "exerciseDrawing.h"
#include "SmallDrawing.h"

/// Drawings that are wrong, by accident or on purpose: nothing hangs, nothing is lost, the user is told once.

using HostileTest = DrawingTest;

namespace {

std::string dictionary(const std::string& handle, const std::string& owner, const std::string& entry)
{
    return "0 DICTIONARY\n5 " + handle + "\n330 " + owner + "\n100 AcDbDictionary\n281 1\n3 E\n360 " + entry + "\n";
}

std::string hexadecimal(int value)
{
    wchar_t text[17] = L"";
    AcDbHandle(static_cast<std::uint64_t>(value)).getIntoAsciiBuffer(text, 17);
    return std::string(text, text + std::char_traits<wchar_t>::length(text));
}

} // namespace

TEST_F(HostileTest, aRecordThatCannotBeReadStaysAsItIs)
{
    struct Row {
        const char* name;
        const char* tags;
        const char* value; // told of
    };
    const Row rows[] = {
        {"a coordinate", "10 abc\n20 0\n30 0\n11 1\n21 1\n31 1\n", "abc"},
        {"not a number", "10 nan\n20 0\n30 0\n11 1\n21 1\n31 1\n", "nan"},
        {"infinite", "10 0\n20 -inf\n30 0\n11 1\n21 1\n31 1\n", "-inf"},
        {"a letter of the file's code page", "10 0\n20 1\xE9\n30 0\n11 1\n21 1\n31 1\n", "1? »"},
        {"too big a number", "10 0\n20 1e999\n30 0\n11 1\n21 1\n31 1\n", "1e999"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        SmallDrawing drawing;
        drawing.entities = std::string("0 LINE\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbLine\n") + row.tags;
        const std::string before = drawing.text();
        const auto database = open(before);
        EXPECT_TRUE(database->impl().problems().all().empty()) << "not looked at yet";
        Opened<AcDbProxyEntity>(*database, 0x80, AcDb::kForWrite)->setColorIndex(3);
        Opened<AcDbProxyEntity> again(*database, 0x80);
        const auto& problems = database->impl().problems().all();
        ASSERT_EQ(problems.size(), 1U);
        const auto line =
            1 +
            std::count(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(before.find("  0\r\nLINE")), '\n');
        EXPECT_TRUE(
            problems[0].starts_with("ligne " + std::to_string(line) + " : LINE : valeur illisible « " + row.value))
            << problems[0];
        EXPECT_EQ(saved(*database), before);
    }
}

TEST_F(HostileTest, extendedDataWithALineThatIsNoGroupCode)
{
    SmallDrawing drawing;
    drawing.entities = "0 POINT\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbPoint\n10 0\n20 0\n30 0\n1001 ACAD\n"
                       "xx c\n1000 a\n";
    const auto database = open(drawing);
    resbuf* data = Opened<AcDbObject>(*database, 0x80)->xData(L"ACAD");
    ASSERT_TRUE(data && data->rbnext);
    EXPECT_STREQ(data->rbnext->resval.rstring, L"a");
    EXPECT_EQ(data->rbnext->rbnext, nullptr);
    acutRelRb(data); // with every text: those of unknown types would stay behind
}

TEST_F(HostileTest, aTableIsOpenedWhateverItsOwnTags)
{
    for (const char* count : {"70 99999999999", "70 x", "70 -5"}) {
        std::string text = SmallDrawing().text();
        const std::string old = " 70\r\n9\r\n";
        text.replace(text.find(old), old.size(), asciiDxf(count));
        const auto database = open(text);
        AcDbLinetypeTable* table = nullptr;
        ASSERT_EQ(database->getSymbolTable(table, AcDb::kForWrite), Acad::eOk) << count;
        auto* made = new AcDbLinetypeTableRecord;
        made->setName(L"Tirets");
        EXPECT_EQ(table->add(made), Acad::eOk);
        made->close();
        table->close();
        EXPECT_EQ(std::ranges::count(tagsOf(saved(*database)), "2|Tirets"), 1);
    }
}

TEST_F(HostileTest, circlesAndChainsEnd)
{
    struct Row {
        const char* name;
        SmallDrawing drawing;
    };
    std::vector<Row> rows;
    const auto add = [&](const char* name) -> SmallDrawing& { return rows.emplace_back(Row{name, {}}).drawing; };
    add("a dictionary that contains itself").objects = dictionary("50", "50", "50");
    add("two that contain each other").objects = dictionary("50", "51", "51") + dictionary("51", "50", "50");
    add("an extension dictionary that is its own").objects =
        "0 DICTIONARY\n5 50\n102 {ACAD_XDICTIONARY\n360 50\n102 }\n330 50\n100 AcDbDictionary\n281 1\n";
    add("an entity that is its own owner").entities = "0 LINE\n5 80\n102 {ACAD_XDICTIONARY\n360 80\n102 }\n102 "
                                                      "{ACAD_REACTORS\n330 80\n102 }\n330 80\n100 AcDbEntity\n8 0\n"
                                                      "100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 1\n31 1\n";
    SmallDrawing& self = add("blocks that show each other");
    self.blockRecords = recordTags("BLOCK_RECORD", "70", "2 A\n") + recordTags("BLOCK_RECORD", "71", "2 B\n");
    const auto showing = [](const char* name, const char* owner, int handle, const char* shown) {
        const std::string head = std::string("\n330 ") + owner + "\n100 AcDbEntity\n8 0\n";
        return "0 BLOCK\n5 " + std::to_string(handle) + head + "100 AcDbBlockBegin\n2 " + name +
               "\n70 0\n10 0\n20 0\n30 0\n3 " + name + "\n1 \n0 INSERT\n5 " + std::to_string(handle + 1) + head +
               "100 AcDbBlockReference\n2 " + shown + "\n10 1\n20 0\n30 0\n0 INSERT\n5 " + std::to_string(handle + 3) +
               head + "100 AcDbBlockReference\n2 " + shown + "\n10 2\n20 0\n30 0\n0 ENDBLK\n5 " +
               std::to_string(handle + 2) + head + "100 AcDbBlockEnd\n";
    };
    self.blocks = showing("A", "70", 300, "B") + showing("B", "71", 310, "A");
    self.entities = "0 INSERT\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockReference\n2 A\n10 0\n20 0\n30 0\n";
    SmallDrawing& deep = add("dictionaries a hundred thousand deep");
    for (int i = 0; i < 100000; ++i)
        deep.objects += dictionary(hexadecimal(0x1000 + i), hexadecimal(0x1000 + i - 1), hexadecimal(0x1001 + i));
    deep.rootEntries = "3 FOND\n350 1000\n";
    SmallDrawing& stray = add("attributes without a reference");
    stray.entities =
        lineTags("80") +
        "0 ATTRIB\n5 81\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbText\n10 0\n20 0\n30 0\n40 1\n1 x\n100 AcDbAttribute\n"
        "2 T\n70 0\n0 SEQEND\n5 82\n330 1F\n100 AcDbEntity\n8 0\n";
    add("absurd counts").entities =
        "0 LWPOLYLINE\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbPolyline\n90 2000000000\n70 0\n10 0\n20 0\n"
        "0 POLYLINE\n5 81\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbPolygonMesh\n66 1\n70 16\n71 32767\n72 32767\n73 -5\n"
        "0 SPLINE\n5 82\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbSpline\n70 8\n71 3000\n72 2000000000\n73 -1\n74 0\n"
        "0 INSERT\n5 83\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockReference\n2 *Model_Space\n10 0\n20 0\n30 0\n70 "
        "32767\n71 32767\n";
    add("the highest handle of all").header = "9 $HANDSEED\n5 FFFFFFFFFFFFFFFF\n";
    rows.back().drawing.entities = lineTags("FFFFFFFFFFFFFFFF");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string before = row.drawing.text();
        const auto database = open(before);
        EXPECT_EQ(saved(*database), before);
        exercise(*database);
        saved(*database);
        EXPECT_EQ(ObjectOpening::openCount(), 0U);
    }
}

TEST_F(HostileTest, erasingTakesStrayAttributesNowhere)
{
    SmallDrawing drawing;
    drawing.entities =
        lineTags("80") +
        "0 ATTRIB\n5 81\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbText\n10 0\n20 0\n30 0\n40 1\n1 x\n100 AcDbAttribute\n"
        "2 T\n70 0\n";
    const auto database = open(drawing);
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->erase();
    EXPECT_EQ(std::ranges::count(tagsOf(saved(*database)), "0|ATTRIB"), 1);
}

TEST_F(HostileTest, anEntityOwnedByAnObject)
{
    for (const char* type : {"DICTIONARY", "ACDBDICTIONARYWDFLT", "SUNSTUDY"}) {
        SmallDrawing drawing;
        drawing.objects = std::string("0 ") + type + "\n5 70\n330 C\n100 AcDbDictionary\n281 1\n";
        drawing.entities = "0 LINE\n5 80\n330 70\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 1\n";
        EXPECT_NE(idOf(*open(drawing), 0x70).objectClass(), nullptr) << type << ": known without opening it";
        exerciseDrawing(drawing.text());
    }
}

TEST_F(HostileTest, aReferenceWithoutSequenceEnd)
{
    SmallDrawing drawing;
    const std::string attribute =
        "\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbText\n10 0\n20 0\n30 0\n40 1\n1 x\n100 AcDbAttribute\n2 T\n70 0\n";
    drawing.entities =
        "0 INSERT\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockReference\n2 *Paper_Space\n10 0\n20 0\n30 0\n"
        "0 ATTRIB\n5 81" +
        attribute + "0 POINT\n5 82\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbPoint\n10 0\n20 0\n30 0\n";
    const auto database = open(drawing);
    EXPECT_EQ(Opened<AcDbAttribute>(*database, 0x81)->ownerId(), idOf(*database, 0x80))
        << "it belongs to the reference before it, whatever its own tags say";
    auto* made = new AcDbAttribute(AcGePoint3d(), L"y", L"U");
    Opened<AcDbBlockReference>(*database, 0x80, AcDb::kForWrite)->appendAttribute(made);
    made->close();
    const auto tags = tagsOf(saved(*database));
    std::string order;
    for (const std::string& tag : tags)
        if (tag.starts_with("0|") && std::string("IASP").find(tag[2]) != std::string::npos && tag != "0|SECTION" &&
            tag != "0|STYLE" && tag != "0|APPID")
            order += tag[2];
    EXPECT_EQ(order, "IAASP");
    EXPECT_EQ(std::ranges::count(tags, "66|1"), 1) << "the reference says that attributes follow";
}

TEST_F(HostileTest, sectionsAndBlocksLeftOpen)
{
    const std::string point = "0 POINT\n5 81\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbPoint\n10 0\n20 0\n30 0\n";
    SmallDrawing drawing;
    drawing.entities = point;
    drawing.blockRecords = recordTags("BLOCK_RECORD", "70", "2 A\n") + recordTags("BLOCK_RECORD", "71", "2 B\n");
    drawing.blocks = "0 BLOCK\n5 72\n330 70\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 A\n70 0\n10 0\n20 0\n30 0\n3 "
                     "A\n1 \n"; // no ENDBLK
    std::string text = drawing.text();
    const std::string end = "  0\r\nENDSEC\r\n  0\r\nSECTION\r\n  2\r\nOBJECTS";
    text.replace(text.find(end), std::string("  0\r\nENDSEC\r\n").size(), "");
    const auto database = open(text);
    for (const std::uint64_t block : {0x1FU, 0x70U, 0x71U}) {
        auto* made = new AcDbPoint(AcGePoint3d(static_cast<double>(block), 0, 0));
        EXPECT_EQ(Opened<AcDbBlockTableRecord>(*database, block, AcDb::kForWrite)->appendAcDbEntity(made), Acad::eOk);
        made->close();
    }
    const auto again = open(saved(*database), "relu.dxf");
    const auto contents = [&](std::uint64_t block) {
        return again->impl().blocks().of(idOf(*again, block).stub()).entities.size();
    };
    EXPECT_EQ(contents(0x1F), 2U);
    EXPECT_EQ(contents(0x70), 1U);
    EXPECT_EQ(contents(0x71), 1U);
}

TEST_F(HostileTest, handlesMissingOrTwiceAreGivenAnewOnce)
{
    SmallDrawing drawing;
    const std::string tags = "330 1F\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 1\n31 1\n";
    drawing.entities = "0 LINE\n5 80\n" + tags + "0 LINE\n5 80\n" + tags + "0 LINE\n5 0\n" + tags + "0 LINE\n" + tags;
    const auto database = open(drawing);
    EXPECT_EQ(database->impl().problems().all().size(), 1U);
    const auto& entities = database->impl().blocks().of(database->impl().blocks().modelSpace()).entities;
    ASSERT_EQ(entities.size(), 4U);
    AcDbObjectPointer<AcDbLine>(AcDbObjectId(entities[1]), AcDb::kForWrite)->setThickness(5);
    const std::string after = saved(*database);
    const auto again = open(after, "relu.dxf");
    EXPECT_TRUE(again->impl().problems().all().empty());
    EXPECT_EQ(changes(drawing.text(), after), (Changes{"-5|80", "+5|FFF", "+39|5.0", "-5|0", "+5|1000", "+5|1001"}));
    EXPECT_EQ(DxfFile(after, "relu.dxf").headerValue("$HANDSEED", 5), "1002");
}

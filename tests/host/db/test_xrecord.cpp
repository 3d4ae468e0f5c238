#include <algorithm>
#include <limits>

#include "dxf/DxfTag.h"
#include "platform/CodePage.h"

#include "acutmem.h"
#include "dbdict.h"
#include "dbsymtb.h"
#include "SmallDrawing.h"

/// Data of xrecords, as chains.

using XrecordTest = DrawingTest;

namespace {

SmallDrawing withData(const std::string& tags)
{
    SmallDrawing drawing;
    drawing.rootEntries = "3 FICHE\n350 50\n";
    drawing.objects = "0 XRECORD\n5 50\n330 C\n100 AcDbXrecord\n280 1\n" + tags;
    return drawing;
}

/// A chain written out: "1=texte 10=(1,2,3) 70=4".
std::string described(const resbuf* chain)
{
    std::string text;
    for (; chain; chain = chain->rbnext) {
        text += (text.empty() ? "" : " ") + std::to_string(chain->restype) + "=";
        const ads_u_val& value = chain->resval;
        const bool reference = chain->restype >= 330 && chain->restype < 370;
        switch (dxfKind(chain->restype)) {
        case DxfKind::real:
            text += std::to_string(value.rreal);
            break;
        case DxfKind::int16:
        case DxfKind::boolean:
            text += std::to_string(value.rint);
            break;
        case DxfKind::int32:
            text += std::to_string(value.rlong);
            break;
        case DxfKind::int64:
            text += std::to_string(value.mnInt64);
            break;
        case DxfKind::bytes:
            text += std::to_string(value.rbinary.clen) + "b";
            break;
        default:
            if (reference)
                text += value.rlname[0] ? "id" : "null";
            else
                text += platform::utf8FromWide(value.rstring);
        }
    }
    return text;
}

std::string dataOf(AcDbDatabase& database)
{
    resbuf* chain = nullptr;
    EXPECT_EQ(Opened<AcDbXrecord>(database, 0x50)->rbChain(&chain), Acad::eOk);
    const std::string text = described(chain);
    if (chain)
        acutRelRb(chain);
    return text;
}

Acad::ErrorStatus setData(AcDbDatabase& database, resbuf* chain)
{
    const Acad::ErrorStatus es = Opened<AcDbXrecord>(database, 0x50, AcDb::kForWrite)->setFromRbChain(*chain);
    acutRelRb(chain);
    return es;
}

} // namespace

TEST_F(XrecordTest, dataOfAFile)
{
    struct Row {
        const char* name;
        std::string tags;
        std::string expected;
    };
    const Row rows[] = {
        {"none", "", ""},
        {"one of each", "1 a\n40 1.5\n70 -3\n90 70000\n160 5000000000\n290 1\n310 00FF10\n320 C\n330 C\n340 C\n",
         "1=a 40=1.500000 70=-3 90=70000 160=5000000000 290=1 310=3b 320=C 330=id 340=id"},
        {"references to nothing", "330 0\n330 \n330 FFFF\n", "330=null 330=null 330=null"},
        {"data that begin by the cloning code", "280 7\n280 8\n", "280=7 280=8"},
        {"groups and markers inside", "102 {DEBUT\n1 x\n100 AcDbXrecord\n102 }\n102 }\n",
         "102={DEBUT 1=x 100=AcDbXrecord 102=} 102=}"},
        {"extended data are not data", "1 a\n1001 ACAD\n1000 b\n", "1=a"},
        {"only extended data", "1001 ACAD\n1000 b\n", ""},
        {"codes of extended data among the data", "1070 4\n1000 b\n", "1070=4 1000=b"},
        {"chunks", "310 " + std::string(254, 'A') + "\n310 \n310 FF\n", "310=127b 310=0b 310=1b"},
        {"an unreadable tag is left out", "40 abc\n1 a\n", "1=a"},
        {"so is a comment", "1 a\n999 c\n1 b\n", "1=a 1=b"},
        {"a number beyond its width", "70 70000\n1 a\n", "70=4464 1=a"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const SmallDrawing drawing = withData(row.tags);
        const auto database = open(drawing);
        EXPECT_EQ(dataOf(*database), row.expected);
        EXPECT_EQ(saved(*database), drawing.text());
    }
}

TEST_F(XrecordTest, whatIsSetIsReadAgain)
{
    for (const bool binary : {false, true}) {
        SCOPED_TRACE(binary);
        const SmallDrawing drawing = withData("1 ancien\n1001 ACAD\n1070 1\n");
        const auto database = open(binary ? drawing.binary() : drawing.text());
        ads_point point = {0.1, -2e300, 1e-300};
        char bytes[300] = {1, 0, 2};
        ads_binary chunk = {300, bytes};
        ads_name name = {database->layerZero().asOldId(), 0};
        resbuf* chain =
            acutBuildList(1, L"\u00E9\u2126\u4E2D \U0001F600\n^J ^", 1, std::wstring(300, L'x').c_str(), 10, point, 40,
                          0.1 + 0.2, 70, -32768, 90, -2147483647L, 160, Adesk::Int64{-5000000000}, 290, 1, 310, &chunk,
                          330, name, 102, L"{", 280, 3, 1070, 7, 0);
        ASSERT_TRUE(chain);
        const std::string expected = described(chain);
        ASSERT_EQ(setData(*database, chain), Acad::eOk);
        // What a tag cannot hold in one comes back in several.
        const std::string cut = [&] {
            std::string text = expected;
            return text.replace(text.find("310=300b"), 8, "310=127b 310=127b 310=46b");
        }();
        EXPECT_EQ(dataOf(*database), cut);
        const std::string after = saved(*database);
        const auto again = open(after, "relu.dxf");
        EXPECT_EQ(dataOf(*again), cut);
        EXPECT_EQ(std::ranges::count(tagsOf(after), "1001|ACAD"), 1) << "its extended data stay";
        resbuf* read = nullptr;
        Opened<AcDbXrecord>(*again, 0x50)->rbChain(&read);
        const resbuf* at = read->rbnext->rbnext;
        EXPECT_EQ(at->resval.rpoint[0], 0.1);
        EXPECT_EQ(at->resval.rpoint[1], -2e300);
        EXPECT_EQ(at->resval.rpoint[2], 1e-300);
        EXPECT_EQ(at->rbnext->resval.rreal, 0.1 + 0.2);
        acutRelRb(read);
        Opened<AcDbXrecord>(*again, 0x50, AcDb::kForWrite)->setEmpty();
        EXPECT_EQ(dataOf(*again), "");
        EXPECT_EQ(dataOf(*open(saved(*again, "vide.dxf"), "vide-relu.dxf")), "");
    }
}

TEST_F(XrecordTest, itemsThatNoDrawingHolds)
{
    const auto database = open(withData("1 ancien\n"));
    const auto item = [](int type, double value) {
        resbuf* made = acutNewRb(type);
        made->resval.rreal = value;
        return made;
    };
    EXPECT_EQ(setData(*database, item(40, std::numeric_limits<double>::quiet_NaN())), Acad::eInvalidResBuf);
    EXPECT_EQ(setData(*database, item(40, std::numeric_limits<double>::infinity())), Acad::eInvalidResBuf);
    EXPECT_EQ(setData(*database, item(RTREAL, 1.0)), Acad::eInvalidResBuf);
    EXPECT_EQ(setData(*database, acutBuildList(999, L"c", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(setData(*database, acutBuildList(1001, L"ACAD", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(dataOf(*database), "1=ancien") << "a refusal leaves what was there";
}

TEST_F(XrecordTest, extendedDataThatAreRefused)
{
    const auto database = open(SmallDrawing());
    AcDbObjectPointer<AcDbLayerTableRecord> layer(database->layerZero(), AcDb::kForWrite);
    const std::wstring half(8500, L'x');
    struct Row {
        const char* name;
        resbuf* chain;
        Acad::ErrorStatus expected;
    };
    const Row rows[] = {
        {"a pair of braces", acutBuildList(1001, L"ACAD", 1002, L"{", 1003, L"0", 1002, L"}", 0), Acad::eOk},
        {"an open brace", acutBuildList(1001, L"ACAD", 1002, L"{", 1000, L"a", 0), Acad::eInvalidResBuf},
        {"no handle", acutBuildList(1001, L"ACAD", 1005, L"ZZZZ", 0), Acad::eInvalidResBuf},
        {"a closing brace first", acutBuildList(1001, L"ACAD", 1002, L"}", 1002, L"{", 0), Acad::eInvalidResBuf},
        {"another sign", acutBuildList(1001, L"ACAD", 1002, L"[", 0), Acad::eInvalidResBuf},
        {"an unknown layer", acutBuildList(1001, L"ACAD", 1003, L"absent", 0), Acad::eKeyNotFound},
        {"too much", acutBuildList(1001, L"ACAD", 1000, half.c_str(), 1000, half.c_str(), 0), Acad::eXdataSizeExceeded},
        {"half of it", acutBuildList(1001, L"ACAD", 1000, half.c_str(), 0), Acad::eOk},
        {"in its place", acutBuildList(1001, L"ACAD", 1000, half.c_str(), 0), Acad::eOk},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(layer->setXData(row.chain), row.expected) << row.name;
        acutRelRb(row.chain);
    }
}

TEST_F(XrecordTest, dataSetBeforeJoiningTakeTheFormOfTheDrawing)
{
    const auto binary = open(SmallDrawing().binary());
    auto* record = new AcDbXrecord;
    resbuf* chain = acutBuildList(1, L"\u00E9", 40, 2.5, 0);
    EXPECT_EQ(record->setFromRbChain(*chain), Acad::eOk);
    resbuf* back = nullptr;
    record->rbChain(&back);
    EXPECT_EQ(described(back), described(chain));
    acutRelRb(back);
    acutRelRb(chain);
    AcDbObjectId id;
    Opened<AcDbDictionary>(*binary, 0xC, AcDb::kForWrite)->setAt(L"FICHE", record, id);
    record->close();
    const auto again = open(saved(*binary), "relu.dxf");
    AcDbObjectPointer<AcDbXrecord> read(idOf(*again, id.handle()));
    ASSERT_TRUE(read.object());
    read->rbChain(&back);
    EXPECT_EQ(described(back), "1=\xC3\xA9 40=2.500000");
    acutRelRb(back);
}

TEST_F(XrecordTest, aSurveyOfAHundredThousandPoints)
{
    constexpr int points = 100000;
    const auto database = open(withData("1 ancien\n"));
    resbuf* chain = nullptr;
    resbuf** end = &chain;
    const auto add = [&](int type) -> resbuf& {
        *end = acutNewRb(type);
        resbuf& made = **end;
        end = &made.rbnext;
        return made;
    };
    ads_name layer = {database->layerZero().asOldId(), 0};
    for (int i = 0; i < points; ++i) {
        acutNewString((L"P" + std::to_wstring(i)).c_str(), add(1).resval.rstring);
        for (double coordinate : {i * 0.1, 200.0 - i, 1e38})
            add(40).resval.rreal = coordinate;
        ads_name_set(layer, add(330).resval.rlname);
    }
    ASSERT_EQ(Opened<AcDbXrecord>(*database, 0x50, AcDb::kForWrite)->setFromRbChain(*chain), Acad::eOk);
    const auto again = open(saved(*database), "relu.dxf");
    resbuf* read = nullptr;
    ASSERT_EQ(Opened<AcDbXrecord>(*again, 0x50)->rbChain(&read), Acad::eOk);
    int count = 0;
    const resbuf *a = chain, *b = read;
    for (; a && b && a->restype == b->restype; a = a->rbnext, b = b->rbnext, ++count)
        if (a->restype == 40 && a->resval.rreal != b->resval.rreal)
            break;
    EXPECT_EQ(count, 5 * points);
    EXPECT_TRUE(!a && !b);
    acutRelRb(chain);
    acutRelRb(read);
}

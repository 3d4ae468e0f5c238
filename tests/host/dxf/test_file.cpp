#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "dxf/DxfCursor.h"
#include "dxf/DxfEncoding.h"
#include "dxf/DxfFile.h"

#include "DxfSamples.h"

using namespace dxf_samples;

namespace {

std::string joined(const DxfFile& file)
{
    std::string all;
    for (const DxfRecord& record : file.records())
        all += file.bytes(record);
    return all;
}

const DxfRecord& recordOf(const DxfFile& file, std::uint64_t handle)
{
    return file.records().at(file.handles().find(handle));
}

} // namespace

TEST(DxfFileTest, RecordsAreTheFileInEveryForm)
{
    struct Row {
        const char* name;
        std::string bytes;
        const char* eol;
    };
    const Row rows[] = {{"CR LF", asciiDxf(r2000), "\r\n"},
                        {"LF", asciiDxf(r2000, "\n"), "\n"},
                        {"CR", asciiDxf(r2000, "\r"), "\r"},
                        {"byte order mark", "\xEF\xBB\xBF" + asciiDxf(r2000), "\r\n"},
                        {"bytes after EOF", asciiDxf(r2000) + std::string("\x1A\0rest", 6), "\r\n"},
                        {"no line end after EOF", asciiDxf(r2000).substr(0, asciiDxf(r2000).size() - 2), "\r\n"},
                        {"binary", binaryDxf(r2000), "\r\n"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const DxfFile file(row.bytes, "plan.dxf");
        EXPECT_EQ(joined(file), row.bytes);
        EXPECT_EQ(file.form().eol, row.eol);
        EXPECT_EQ(file.form().binary, row.bytes.starts_with("AutoCAD Binary DXF"));
        EXPECT_EQ(file.form().version, 1015);
        EXPECT_EQ(file.sections().size(), 7u);
        EXPECT_TRUE(file.problems().empty());
        EXPECT_EQ(file.typeName(recordOf(file, 0x30).type), "LINE");
        EXPECT_EQ(file.typeName(recordOf(file, 0x31).type), "TEXT"); // not 0xFF: that 5 stands below a marker
        EXPECT_EQ(file.typeName(recordOf(file, 0x27).type), "DIMSTYLE");
        EXPECT_EQ(file.handles().find(0x5000), HandleTable::none);
        EXPECT_EQ(file.freeHandle(), 0x5000u);
    }
}

TEST(DxfFileTest, SectionsAndTables)
{
    const DxfFile file(asciiDxf(r2000), "plan.dxf");
    const DxfRange* tables = file.section("TABLES");
    ASSERT_TRUE(tables);
    EXPECT_EQ(file.typeName(file.records()[tables->first].type), "SECTION");
    EXPECT_EQ(file.typeName(file.records()[tables->last].type), "ENDSEC");
    const DxfRange* layers = file.table("LAYER");
    ASSERT_TRUE(layers);
    EXPECT_EQ(layers->last - layers->first, 2u);
    EXPECT_EQ(file.section("ACDSDATA"), nullptr);
    EXPECT_EQ(file.headerValue("$HANDSEED", 5), "5000");
    EXPECT_EQ(file.headerValue("$HANDSEED", 1), "");
    const DxfRange* preview = file.section("THUMBNAILIMAGE");
    EXPECT_EQ(file.bytes(file.records()[preview->first]),
              "  0\r\nSECTION\r\n  2\r\nTHUMBNAILIMAGE\r\n 90\r\n2\r\n310\r\nBEEF\r\n");
}

TEST(DxfFileTest, VersionsAndCodePages)
{
    struct Row {
        const char* version;
        const char* page;
        int expected;
        const char* encoding;
    };
    constexpr Row rows[] = {{"AC1015", "ansi_1251", 1015, "CP1251"},
                            {"AC1018", "GB2312", 1018, "CP936"},
                            {"AC1021", "ANSI_1252", 1021, "UTF-8"},
                            {"AC1032", "ANSI_936", 1032, "UTF-8"}};
    for (const Row& row : rows) {
        std::string text(r2000);
        text.replace(text.find("AC1015"), 6, row.version);
        text.replace(text.find("ANSI_1252"), 9, row.page);
        const DxfFile file(asciiDxf(text), "plan.dxf");
        EXPECT_EQ(file.form().version, row.expected);
        EXPECT_EQ(file.form().encoding->name(), row.encoding);
    }
}

TEST(DxfFileTest, RepairsHandlesAboveTheHighest)
{
    const DxfFile file(asciiDxf(withEntities("0 LINE\n5 A0\n100 AcDbEntity\n0 POINT\n5 A0\n330 1\n100 AcDbEntity\n"
                                             "0 CIRCLE\n330 1\n100 AcDbEntity\n0 ARC\n5 0\n100 AcDbEntity\n"
                                             "0 TEXT\n5 zz\n100 AcDbEntity\n"),
                                "\n"),
                       "plan.dxf");
    const auto* entities = file.section("ENTITIES");
    const DxfRecord* records = file.records().data() + entities->first;
    EXPECT_EQ(records[1].handle, 0xA0u);
    EXPECT_EQ(records[1].flags, 0);
    for (int i = 2; i <= 5; ++i) {
        EXPECT_EQ(records[i].handle, 0xA0u + static_cast<unsigned>(i) - 1);
        EXPECT_EQ(records[i].flags, DxfRecord::handleRepaired);
    }
    EXPECT_EQ(file.repairedBytes(records[2]), "  0\nPOINT\n  5\nA1\n330\n1\n100\nAcDbEntity\n");
    EXPECT_EQ(file.repairedBytes(records[3]), "  0\nCIRCLE\n  5\nA2\n330\n1\n100\nAcDbEntity\n");
    EXPECT_EQ(file.repairedBytes(records[1]), file.bytes(records[1]));
    ASSERT_EQ(file.problems().size(), 1u);
    EXPECT_EQ(file.problems()[0].what, "identifiants d'objets refaits : 3 absents ou illisibles, 1 en double");
    EXPECT_EQ(file.problems()[0].line, 21); // the second A0: its group 0

    const DxfFile one(asciiDxf(withEntities("0 LINE\n5 A0\n0 POINT\n5 A0\n")), "plan.dxf");
    ASSERT_EQ(one.problems().size(), 1u);
    EXPECT_EQ(one.problems()[0].what, "identifiant d'objet refait : 1 en double");
}

TEST(DxfFileTest, TheHighestHandleOfAllLeavesTheLowest)
{
    DxfFile file(asciiDxf(withEntities("0 LINE\n5 FFFFFFFFFFFFFFFF\n0 POINT\n5 1\n0 POINT\n8 0\n0 POINT\n8 0\n")),
                 "plan.dxf");
    const DxfRecord* records = file.records().data() + file.section("ENTITIES")->first;
    EXPECT_EQ(records[3].handle, 2u);
    EXPECT_EQ(records[4].handle, 3u);
}

TEST(DxfFileTest, KnowsWhenTheDiskChanged)
{
    const std::string path = testing::TempDir() + "dxf_change.dxf";
    const auto write = [&](const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; };
    write(asciiDxf(r2000));
    DxfFile file(path);
    EXPECT_EQ(file.bytes(), asciiDxf(r2000));
    EXPECT_FALSE(file.changedOnDisk());
    std::filesystem::rename(path, path + ".bak"); // the map stays valid: so does saving over the file
    EXPECT_TRUE(file.changedOnDisk());
    write(asciiDxf(r2000) + "more");
    EXPECT_TRUE(file.changedOnDisk());
    file.acceptDiskState();
    EXPECT_FALSE(file.changedOnDisk());
    EXPECT_EQ(joined(file), asciiDxf(r2000));
    std::filesystem::remove(path);
    std::filesystem::remove(path + ".bak");
}

TEST(HandleTableTest, FindsWhatWasEntered)
{
    std::vector<DxfRecord> records;
    HandleTable table(records);
    constexpr std::uint64_t stride = 1u << 20; // every first slot the same
    for (std::uint64_t i = 1; i <= 20000; ++i) {
        records.push_back({i * stride, 0, 0, 0, 0, nullptr});
        ASSERT_TRUE(table.insert(static_cast<std::uint32_t>(records.size() - 1)));
    }
    for (std::uint64_t i = 1; i <= 20000; ++i)
        ASSERT_EQ(table.find(i * stride), i - 1);
    EXPECT_EQ(table.find(stride + 1), HandleTable::none);
    EXPECT_EQ(table.find(0), HandleTable::none);
    records.push_back({stride, 0, 0, 0, 0, nullptr});
    EXPECT_FALSE(table.insert(20000));
    EXPECT_EQ(table.freeHandle(), 20000 * stride + 1);
}

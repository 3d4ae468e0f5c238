#include <map>
#include <set>

#include <gtest/gtest.h>

#include "dxf/DxfCursor.h"
#include "dxf/DxfFile.h"
#include "dxf/DxfValue.h"

#include "DxfSamples.h"

using namespace dxf_samples;

namespace {

/// The tags of a record, one a line, with handles of the drawing named by their record's type.
std::string tagsOf(const DxfFile& file, const DxfRecord& record)
{
    std::string text;
    DxfCursor cursor(file.form(), file.bytes(record));
    for (DxfTag tag; cursor.next(tag);) {
        text += std::to_string(tag.code) + " ";
        std::uint64_t handle = 0;
        double real = 0;
        std::int64_t integer = 0;
        if (dxfKind(tag.code) == DxfKind::handle && dxfHandle(tag, handle) && handle != 0) {
            const auto at = file.handles().find(handle);
            text += at == HandleTable::none                      ? "?"
                    : file.records()[at].handle == record.handle ? "own"
                                                                 : file.typeName(file.records()[at].type);
        } else if (dxfKind(tag.code) == DxfKind::real && dxfReal(file.form(), tag, real)) {
            char digits[40];
            std::snprintf(digits, sizeof digits, "%g", real);
            text += digits;
        } else if (dxfIsInteger(dxfKind(tag.code)) && dxfInteger(file.form(), tag, integer)) {
            text += std::to_string(integer);
        } else {
            text += dxfText(tag);
        }
        text += "\n";
    }
    return text;
}

std::vector<std::string> recordsOf(const DxfFile& file, std::string_view section)
{
    std::vector<std::string> list;
    const DxfRange* range = file.section(section);
    for (std::uint32_t at = range->first + 1; at < range->last; ++at)
        list.push_back(tagsOf(file, file.records()[at]));
    return list;
}

std::string nameAfter(const DxfFile& file, std::uint64_t handle)
{
    const std::string tags = tagsOf(file, file.records().at(file.handles().find(handle)));
    const auto at = tags.find("\n2 ");
    return tags.substr(at + 3, tags.find('\n', at + 1) - at - 3);
}

} // namespace

TEST(DxfUpgradeTest, EntitiesOfR12InEveryForm)
{
    for (const std::string& bytes : {asciiDxf(r12), asciiDxf(r12, "\n"), binaryDxf(r12, true), binaryDxf(r12)}) {
        const DxfFile file(bytes, "plan.dxf");
        EXPECT_EQ(file.versionOnDisk(), 1009);
        EXPECT_EQ(file.form().version, 1015);
        EXPECT_FALSE(file.form().oneByteCodes);
        EXPECT_EQ(file.form().binary, bytes.starts_with("AutoCAD Binary DXF"));
        EXPECT_TRUE(file.problems().empty());
        EXPECT_EQ(file.headerValue("$ACADVER", 1), "AC1015");
        EXPECT_NE(file.headerValue("$INSBASE", 10).size(), 0u);
        const auto entities = recordsOf(file, "ENTITIES");
        ASSERT_EQ(entities.size(), 12u);
        EXPECT_EQ(entities[0], "0 ARC\n5 own\n330 BLOCK_RECORD\n100 AcDbEntity\n62 3\n8 ROUTES\n100 AcDbCircle\n10 1\n"
                               "20 2\n40 5\n100 AcDbArc\n50 0\n51 90\n1001 ACAD\n1000 suivi\n");
        EXPECT_EQ(entities[2], "0 ATTRIB\n5 own\n330 INSERT\n100 AcDbEntity\n8 0\n100 AcDbText\n10 1\n20 2\n40 2.5\n"
                               "1 12\n100 AcDbAttribute\n2 NUMPT\n70 0\n");
        EXPECT_EQ(entities[3], "0 SEQEND\n5 own\n330 INSERT\n100 AcDbEntity\n8 0\n");
        EXPECT_EQ(entities[5], "0 VERTEX\n5 own\n330 POLYLINE\n100 AcDbEntity\n8 0\n100 AcDbVertex\n"
                               "100 AcDbPolyFaceMeshVertex\n10 1\n20 2\n30 3\n70 192\n");
        EXPECT_EQ(entities[6],
                  "0 VERTEX\n5 own\n330 POLYLINE\n100 AcDbEntity\n8 0\n100 AcDbFaceRecord\n70 128\n71 1\n72 -2\n");
        EXPECT_EQ(entities[8], "0 POLYLINE\n5 own\n330 BLOCK_RECORD\n100 AcDbEntity\n67 1\n8 0\n100 AcDb3dPolyline\n"
                               "66 1\n70 8\n");
        EXPECT_EQ(entities[11], "0 DIMENSION\n5 own\n330 BLOCK_RECORD\n100 AcDbEntity\n8 0\n100 AcDbDimension\n2 *D1\n"
                                "10 5\n20 5\n70 0\n100 AcDbAlignedDimension\n13 1\n23 1\n14 2\n24 2\n50 45\n"
                                "100 AcDbRotatedDimension\n");
    }
}

/// Programs state a version of which they write but the entities: these are read like those of R12, in their encoding.
TEST(DxfUpgradeTest, NewerDrawingsWithoutMarkersAreOfTheFormOfR12)
{
    const std::string rest = "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n70 1\n0 LAYER\n2 Fossé\n70 0\n62 3\n6 CONTINUOUS\n"
                             "0 ENDTAB\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 LINE\n8 Fossé\n10 0\n20 0\n11 1\n21 0\n"
                             "0 ENDSEC\n0 EOF\n";
    for (const char* version : {"AC1015", "AC1032"}) {
        const DxfFile file(
            asciiDxf("0 SECTION\n2 HEADER\n9 $ACADVER\n1 " + std::string(version) + "\n0 ENDSEC\n" + rest), "plan.dxf");
        EXPECT_EQ(file.headerValue("$ACADVER", 1), version);
        ASSERT_FALSE(file.problems().empty());
        std::string all;
        for (const DxfRecord& record : file.records())
            all += tagsOf(file, record);
        EXPECT_NE(all.find("100 AcDbLayerTableRecord\n2 Fossé\n70 0\n62 3"), std::string::npos);
        EXPECT_NE(all.find("100 AcDbEntity\n8 Fossé\n100 AcDbLine\n10 0"), std::string::npos);
        EXPECT_EQ(all.find("2 Fossé", all.find("2 Fossé") + 1), std::string::npos) << "one layer of that name";
    }
}

TEST(DxfUpgradeTest, SpacesOwnTheirEntities)
{
    const DxfFile file(asciiDxf(r12), "plan.dxf");
    const DxfRange* entities = file.section("ENTITIES");
    const auto ownerOf = [&](std::uint32_t at) {
        DxfCursor cursor(file.form(), file.bytes(file.records()[at]));
        std::uint64_t owner = 0;
        for (DxfTag tag; cursor.next(tag);) {
            if (tag.code == 330)
                dxfHandle(tag, owner);
        }
        return nameAfter(file, owner);
    };
    EXPECT_EQ(ownerOf(entities->first + 1), "*Model_Space");
    EXPECT_EQ(ownerOf(entities->first + 9), "*Paper_Space"); // its group 67 is 1
    std::map<std::string, int> blocks;
    for (const auto& record : recordsOf(file, "BLOCKS"))
        ++blocks[record.substr(0, record.find('\n'))];
    EXPECT_EQ(blocks, (std::map<std::string, int>{{"0 BLOCK", 3}, {"0 ENDBLK", 3}, {"0 POINT", 1}}));
}

TEST(DxfUpgradeTest, TablesAreCompleted)
{
    const DxfFile file(asciiDxf(r12), "plan.dxf");
    std::set<std::string> names;
    for (const DxfRange& table : file.tables())
        names.insert(table.name);
    EXPECT_EQ(names, (std::set<std::string>{"VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE",
                                            "BLOCK_RECORD"}));
    const auto entry = [&](const char* table, std::uint32_t at) {
        return tagsOf(file, file.records()[file.table(table)->first + at]);
    };
    EXPECT_EQ(entry("LTYPE", 1), "0 LTYPE\n5 own\n330 TABLE\n100 AcDbSymbolTableRecord\n100 AcDbLinetypeTableRecord\n"
                                 "2 DASHED\n70 0\n3 - -\n72 65\n73 2\n40 0.75\n49 0.5\n74 0\n49 -0.25\n74 0\n");
    EXPECT_EQ(entry("LAYER", 2),
              "0 LAYER\n5 own\n330 TABLE\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n"
              "2 ROUTES\n70 0\n62 7\n6 Continuous\n390 ACDBPLACEHOLDER\n"); // drawn on, never defined
    EXPECT_EQ(entry("DIMSTYLE", 1), "0 DIMSTYLE\n105 own\n330 TABLE\n100 AcDbSymbolTableRecord\n"
                                    "100 AcDbDimStyleTableRecord\n2 COTES\n70 0\n5 FLECHE\n342 BLOCK_RECORD\n");
}

TEST(DxfUpgradeTest, ObjectsHangOnTheRoot)
{
    const DxfFile file(asciiDxf(r12), "plan.dxf");
    const auto objects = recordsOf(file, "OBJECTS");
    EXPECT_EQ(objects.front(), "0 DICTIONARY\n5 own\n330 0\n100 AcDbDictionary\n281 1\n3 ACAD_GROUP\n350 DICTIONARY\n"
                               "3 ACAD_LAYOUT\n350 DICTIONARY\n3 ACAD_MLINESTYLE\n350 DICTIONARY\n3 ACAD_PLOTSETTINGS\n"
                               "350 DICTIONARY\n3 ACAD_PLOTSTYLENAME\n350 ACDBDICTIONARYWDFLT\n");
    for (const auto& object : objects)
        EXPECT_EQ(object.find(" ?"), std::string::npos) << object;
}

TEST(DxfUpgradeTest, R14KeepsItsRecords)
{
    std::string text(r2000);
    text.replace(text.find("AC1015"), 6, "AC1014");
    const DxfFile now(asciiDxf(r2000), "plan.dxf");
    const DxfFile old(asciiDxf(text), "plan.dxf");
    EXPECT_EQ(old.versionOnDisk(), 1014);
    EXPECT_EQ(recordsOf(old, "ENTITIES"), recordsOf(now, "ENTITIES"));
    EXPECT_EQ(old.headerValue("$ACADVER", 1), "AC1015");
    const std::string root = recordsOf(old, "OBJECTS").front();
    EXPECT_NE(root.find("3 DATA\n350 XRECORD\n3 ACAD_GROUP\n"), std::string::npos) << root;
    EXPECT_EQ(recordsOf(old, "OBJECTS")[1], recordsOf(now, "OBJECTS")[1]);
}

/// Model space used to name a layout that was not written where the drawing had layouts of its own.
TEST(DxfUpgradeTest, EveryHandleOfR14LeadsSomewhere)
{
    std::string text(r2000);
    text.replace(text.find("AC1015"), 6, "AC1014");
    const auto add = [&text](const char* behind, const std::string& tags) {
        const std::size_t at = text.find(behind) + std::string(behind).size();
        text.insert(at, tags);
    };
    add("3 DATA\n350 40\n", "3 ACAD_LAYOUT\n350 E1\n3 ACAD_PLOTSTYLENAME\n350 E3\n");
    const std::size_t end = text.find("0 ENDSEC\n0 SECTION\n2 THUMBNAILIMAGE");
    text.insert(end, "0 DICTIONARY\n5 E1\n330 C\n100 AcDbDictionary\n3 Model\n350 E2\n"
                     "0 LAYOUT\n5 E2\n330 E1\n100 AcDbPlotSettings\n100 AcDbLayout\n1 Model\n330 1F\n"
                     "0 DICTIONARY\n5 E3\n330 C\n100 AcDbDictionary\n");
    const DxfFile file(asciiDxf(text), "plan.dxf");
    for (const char* section : {"TABLES", "OBJECTS"})
        for (const std::string& record : recordsOf(file, section))
            for (const char* code : {"\n340 ?", "\n350 ?", "\n360 ?", "\n390 ?"})
                EXPECT_EQ(record.find(code), std::string::npos) << code << " in " << record;
    const DxfFile again(std::string(file.bytes()), "relu.dxf");
    for (const DxfProblem& problem : again.problems())
        ADD_FAILURE() << problem.line << " " << problem.what;
    EXPECT_EQ(again.bytes(), file.bytes());
}

TEST(DxfUpgradeTest, SpacesOfR12ByTheirOldNames)
{
    const DxfFile file(
        asciiDxf("0 SECTION\n2 BLOCKS\n0 BLOCK\n8 0\n2 $MODEL_SPACE\n3 $MODEL_SPACE\n0 ENDBLK\n8 0\n0 ENDSEC\n"
                 "0 EOF\n"),
        "plan.dxf");
    const auto blocks = recordsOf(file, "BLOCKS");
    ASSERT_EQ(blocks.size(), 4u); // paper space was added
    EXPECT_NE(blocks[0].find("2 *MODEL_SPACE\n3 *MODEL_SPACE\n"), std::string::npos) << blocks[0];
}

/// A drawing came back with two layers of one name.
TEST(DxfUpgradeTest, LayersAreTheSameWhateverTheirCaseAndAccents)
{
    const DxfFile file(
        asciiDxf(
            "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n70 1\n0 LAYER\n2 \\U+00C9l\xE9ments\n70 0\n62 1\n6 CONTINUOUS\n"
            "0 ENDTAB\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 POINT\n8 \xC9L\xC9MENTS\n10 0\n20 0\n0 ENDSEC\n0 EOF\n"),
        "plan.dxf");
    const DxfRange* layers = file.table("LAYER");
    EXPECT_EQ(layers->last - layers->first - 1, 2u); // and layer 0
}

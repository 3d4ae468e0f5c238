#include "SmallDrawing.h"

#include <algorithm>
#include <sstream>

#include "dxf/DxfCursor.h"
#include "dxf/DxfTranscode.h"

namespace fs = std::filesystem;

namespace {

std::string table(const char* name, const char* handle, const std::string& records)
{
    return std::string("0 TABLE\n2 ") + name + "\n5 " + handle + "\n330 0\n100 AcDbSymbolTable\n70 9\n" + records +
           "0 ENDTAB\n";
}

std::string section(const char* name, const std::string& content)
{
    return std::string("0 SECTION\n2 ") + name + "\n" + content + "0 ENDSEC\n";
}

} // namespace

std::string entityTags(const std::string& type, const std::string& handle, const std::string& marker,
                       const std::string& tags, const std::string& layer, const std::string& owner)
{
    return "0 " + type + "\n5 " + handle + "\n330 " + owner + "\n100 AcDbEntity\n8 " + layer + "\n100 " + marker +
           "\n" + tags;
}

std::string lineTags(const std::string& handle, const std::string& owner)
{
    return entityTags("LINE", handle, "AcDbLine", "10 0\n20 0\n30 0\n11 1\n21 1\n31 1\n", "0", owner);
}

std::string recordTags(const std::string& type, const std::string& handle, const std::string& tags,
                       const std::string& head)
{
    struct Kind {
        const char *type, *table, *marker;
    };
    constexpr Kind kinds[] = {{"LTYPE", "5", "AcDbLinetypeTableRecord"},
                              {"LAYER", "2", "AcDbLayerTableRecord"},
                              {"STYLE", "3", "AcDbTextStyleTableRecord"},
                              {"APPID", "9", "AcDbRegAppTableRecord"},
                              {"BLOCK_RECORD", "1", "AcDbBlockTableRecord"}};
    const Kind& kind = *std::ranges::find(kinds, type, [](const Kind& each) { return std::string(each.type); });
    return "0 " + type + "\n5 " + handle + "\n" + head + "330 " + kind.table + "\n100 AcDbSymbolTableRecord\n100 " +
           kind.marker + "\n" + tags;
}

std::string blockTags(const std::string& name, const std::string& owner, int handle, const std::string& content,
                      const std::string& base)
{
    const auto hexadecimal = [](int value) {
        std::ostringstream text;
        text << std::hex << std::uppercase << value;
        return text.str();
    };
    return entityTags("BLOCK", hexadecimal(handle), "AcDbBlockBegin",
                      "2 " + name + "\n70 0\n10 " + base + "\n20 0\n30 0\n3 " + name + "\n1 \n", "0", owner) +
           content + entityTags("ENDBLK", hexadecimal(handle + 1), "AcDbBlockEnd", "", "0", owner);
}

std::string SmallDrawing::text() const
{
    const std::string linetype = "\n70 0\n3 \n72 65\n73 0\n40 0.0\n";
    std::string all = first;
    all += section("HEADER",
                   "9 $ACADVER\n1 " + version + "\n9 $DWGCODEPAGE\n3 " + codePage + "\n9 $HANDSEED\n5 FFF\n" + header);
    all += section("CLASSES", classes);
    all += section(
        "TABLES",
        table("LTYPE", "5",
              recordTags("LTYPE", "14", "2 ByBlock" + linetype) + recordTags("LTYPE", "15", "2 ByLayer" + linetype) +
                  recordTags("LTYPE", "16", "2 Continuous" + linetype) + linetypes) +
            table("LAYER", "2", recordTags("LAYER", "10", "2 0\n70 0\n62 7\n6 Continuous\n370 -3\n") + layers) +
            table("STYLE", "3",
                  recordTags("STYLE", "11", "2 Standard\n70 0\n40 0.0\n41 1.0\n50 0.0\n71 0\n42 2.5\n3 txt\n4 \n") +
                      styles) +
            table("APPID", "9", recordTags("APPID", "12", "2 ACAD\n70 0\n") + applications) +
            table("DIMSTYLE", "A", "") +
            table("BLOCK_RECORD", "1",
                  (modelSpace ? recordTags("BLOCK_RECORD", "1F", "2 *Model_Space\n340 0\n") : "") +
                      recordTags("BLOCK_RECORD", "1B", "2 *Paper_Space\n340 0\n") + blockRecords));
    all += section("BLOCKS", (modelSpace ? blockTags("*Model_Space", "1F", 0x20, "", "0.0") : "") +
                                 blockTags("*Paper_Space", "1B", 0x1C, "", "0.0") + blocks);
    all += section("ENTITIES", entities);
    all += section("OBJECTS", "0 DICTIONARY\n5 C\n330 0\n100 AcDbDictionary\n281 1\n3 ACAD_GROUP\n350 D\n" +
                                  rootEntries + "0 DICTIONARY\n5 D\n330 C\n100 AcDbDictionary\n281 1\n" + objects);
    all += sections + "0 EOF\n";
    return asciiDxf(all, eol) + afterEnd;
}

std::string SmallDrawing::binary() const
{
    const DxfFile file(text(), "plan.dxf");
    DxfForm form = file.form();
    form.binary = true;
    return transcodeFile(file, form);
}

std::vector<std::string> tagsOf(const std::string& file)
{
    const DxfFile opened(file, "plan.dxf", DxfUpgrade::none);
    std::vector<std::string> tags;
    for (const DxfRecord& each : opened.records()) {
        DxfCursor cursor(opened.form(), opened.bytes(each));
        DxfTag tag;
        if ((each.flags & DxfRecord::pseudo) != 0)
            continue;
        while (cursor.next(tag))
            tags.push_back(std::to_string(tag.code) + "|" + std::string(tag.begin, tag.end));
    }
    for (std::size_t i = 0; i + 1 < tags.size(); ++i)
        if (tags[i] == "9|$HANDSEED")
            tags.erase(tags.begin() + static_cast<std::ptrdiff_t>(i + 1));
    return tags;
}

// By the longest common subsequence, between the equal ends of the two.
Changes changes(const std::string& before, const std::string& after)
{
    std::vector<std::string> a = tagsOf(before), b = tagsOf(after);
    const auto heads = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    a.erase(a.begin(), heads.first);
    b.erase(b.begin(), heads.second);
    while (!a.empty() && !b.empty() && a.back() == b.back()) {
        a.pop_back();
        b.pop_back();
    }
    std::vector<std::vector<int>> common(a.size() + 1, std::vector<int>(b.size() + 1));
    for (std::size_t i = a.size(); i-- > 0;)
        for (std::size_t k = b.size(); k-- > 0;)
            common[i][k] = a[i] == b[k] ? common[i + 1][k + 1] + 1 : std::max(common[i + 1][k], common[i][k + 1]);
    Changes found;
    for (std::size_t i = 0, k = 0; i < a.size() || k < b.size();) {
        if (i < a.size() && k < b.size() && a[i] == b[k])
            ++i, ++k;
        else if (k == b.size() || (i < a.size() && common[i + 1][k] >= common[i][k + 1]))
            found.push_back("-" + a[i++]);
        else
            found.push_back("+" + b[k++]);
    }
    return found;
}

DrawingTest::~DrawingTest()
{
    EXPECT_EQ(ObjectOpening::openCount(), 0U) << "left open";
    ObjectOpening::closeAll();
}

std::unique_ptr<AcDbDatabase> DrawingTest::open(const std::string& bytes, const char* name)
{
    write(name, bytes);
    auto database = std::make_unique<AcDbDatabase>(false, true);
    EXPECT_EQ(database->readDwgFile(path(name).c_str()), Acad::eOk) << fs::path(database->lastError()).string();
    return database;
}

std::string DrawingTest::saved(AcDbDatabase& database, const char* name)
{
    EXPECT_EQ(database.saveAs(path(name).c_str()), Acad::eOk) << fs::path(database.lastError()).string();
    return read(name);
}

AcDbObjectId idOf(AcDbDatabase& database, std::uint64_t handle)
{
    AcDbObjectId id;
    database.getAcDbObjectId(id, false, AcDbHandle(handle));
    return id;
}

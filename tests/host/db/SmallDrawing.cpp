#include "SmallDrawing.h"

#include <algorithm>
#include <fstream>
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

std::string record(const char* type, const char* handle, const char* owner, const char* marker, const char* tags)
{
    return std::string("0 ") + type + "\n5 " + handle + "\n330 " + owner + "\n100 AcDbSymbolTableRecord\n100 " +
           marker + "\n" + tags;
}

std::string block(const char* name, const char* begin, const char* end, const char* owner)
{
    return std::string("0 BLOCK\n5 ") + begin + "\n330 " + owner + "\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 " +
           name + "\n70 0\n10 0.0\n20 0.0\n30 0.0\n3 " + name + "\n1 \n0 ENDBLK\n5 " + end + "\n330 " + owner +
           "\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n";
}

std::string section(const char* name, const std::string& content)
{
    return std::string("0 SECTION\n2 ") + name + "\n" + content + "0 ENDSEC\n";
}

} // namespace

std::string asTags(const std::string& lines, const std::string& eol)
{
    std::string text;
    std::istringstream in(lines);
    for (std::string line; std::getline(in, line);) {
        const std::size_t blank = line.find(' ');
        const std::string code = line.substr(0, blank);
        text.append(code.size() < 3 ? 3 - code.size() : 0, ' ') += code + eol + line.substr(blank + 1) + eol;
    }
    return text;
}

std::string SmallDrawing::text() const
{
    const std::string linetype = "3 \n72 65\n73 0\n40 0.0\n";
    std::string all = first;
    all += section("HEADER",
                   "9 $ACADVER\n1 " + version + "\n9 $DWGCODEPAGE\n3 " + codePage + "\n9 $HANDSEED\n5 FFF\n" + header);
    all += section("CLASSES", classes);
    all += section(
        "TABLES",
        table("LTYPE", "5",
              record("LTYPE", "14", "5", "AcDbLinetypeTableRecord", ("2 ByBlock\n70 0\n" + linetype).c_str()) +
                  record("LTYPE", "15", "5", "AcDbLinetypeTableRecord", ("2 ByLayer\n70 0\n" + linetype).c_str()) +
                  record("LTYPE", "16", "5", "AcDbLinetypeTableRecord", ("2 Continuous\n70 0\n" + linetype).c_str()) +
                  linetypes) +
            table("LAYER", "2",
                  record("LAYER", "10", "2", "AcDbLayerTableRecord", "2 0\n70 0\n62 7\n6 Continuous\n370 -3\n") +
                      layers) +
            table("STYLE", "3",
                  record("STYLE", "11", "3", "AcDbTextStyleTableRecord",
                         "2 Standard\n70 0\n40 0.0\n41 1.0\n50 0.0\n71 0\n42 2.5\n3 txt\n4 \n") +
                      styles) +
            table("APPID", "9", record("APPID", "12", "9", "AcDbRegAppTableRecord", "2 ACAD\n70 0\n") + applications) +
            table("DIMSTYLE", "A", "") +
            table("BLOCK_RECORD", "1",
                  (modelSpace ? record("BLOCK_RECORD", "1F", "1", "AcDbBlockTableRecord", "2 *Model_Space\n340 0\n")
                              : std::string()) +
                      record("BLOCK_RECORD", "1B", "1", "AcDbBlockTableRecord", "2 *Paper_Space\n340 0\n") +
                      blockRecords));
    all += section("BLOCKS", (modelSpace ? block("*Model_Space", "20", "21", "1F") : std::string()) +
                                 block("*Paper_Space", "1C", "1D", "1B") + blocks);
    all += section("ENTITIES", entities);
    all += section("OBJECTS", "0 DICTIONARY\n5 C\n330 0\n100 AcDbDictionary\n281 1\n3 ACAD_GROUP\n350 D\n" +
                                  rootEntries + "0 DICTIONARY\n5 D\n330 C\n100 AcDbDictionary\n281 1\n" + objects);
    all += sections + "0 EOF\n";
    return asTags(all, eol) + afterEnd;
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

DrawingTest::DrawingTest()
{
    std::string name = (fs::temp_directory_path() / "vela-dessin-XXXXXX").string();
    root = mkdtemp(name.data());
}

DrawingTest::~DrawingTest()
{
    EXPECT_EQ(ObjectOpening::openCount(), 0U) << "left open";
    ObjectOpening::closeAll();
    fs::remove_all(root);
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

void DrawingTest::write(const char* name, const std::string& bytes) const
{
    std::ofstream(root / name, std::ios::binary) << bytes;
}

std::string DrawingTest::read(const char* name) const
{
    std::ifstream in(root / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

AcDbObjectId idOf(AcDbDatabase& database, std::uint64_t handle)
{
    AcDbObjectId id;
    database.getAcDbObjectId(id, false, AcDbHandle(handle));
    return id;
}

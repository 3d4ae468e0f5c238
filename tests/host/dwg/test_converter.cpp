#include <algorithm>
#include <csignal>
#include <random>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "dwg/ConverterProcess.h"
#include "dwg/DwgConverter.h"
#include "platform/TempFiles.h"

#include "ConversionTest.h"

using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

std::vector<fs::path> conversionFolders()
{
    std::vector<fs::path> folders;
    for (const fs::directory_entry& entry : fs::directory_iterator(platform::temporaryFolder()))
        if (entry.path().filename().string().starts_with("dwg-"))
            folders.push_back(entry.path());
    return folders;
}

std::string refusal(const DwgConverter::Settings& settings, const fs::path& drawing)
{
    try {
        DwgConverter(settings).convert(drawing);
    } catch (const DwgError& error) {
        return error.what();
    }
    return "converted";
}

DwgConverter::Settings installed()
{
    DwgConverter::Settings settings;
    settings.folder = DwgConverter::installedFolder();
    return settings;
}

/// Tags as in the file, one after the other.
std::string tags(std::initializer_list<const char*> lines)
{
    std::string text;
    for (const char* line : lines)
        text += std::string(line) + "\r\n";
    return text;
}

} // namespace

TEST_F(DwgConversionTest, KeepsWhatTheSurveyNeeds)
{
    const DwgConversion conversion = DwgConverter().convert(m_folder.write("levé.dwg", dwgSample()));
    struct Row {
        const char* name;
        std::string text;
    };
    const Row rows[] = {
        {"version", tags({"$ACADVER", "  1", "AC1015"})},
        {"extended data", tags({"1001", "SURVEY", "1000", "Lev\xE9s", "1040", "-0.0625", "1071", "    70000"})},
        {"extension dictionary", tags({"102", "{ACAD_XDICTIONARY", "360", "1B", "102", "}"})},
        {"its entry", tags({"  3", "FICHE", "360", "1C"})},
        {"attribute", tags({"100", "AcDbAttribute", "  2", "NOM"})},
        {"xrecord", tags({"  1", "\xC9t\xE9 2015", " 40", "1E+38", " 10", "4512.5", " 20", "-7.25", " 30", "0.125"})},
        // The library's own writer turns every layer off, and drops the last two records of these tables.
        {"layer turned on", tags({"  2", "0", " 70", "     0", " 62", "     7"})},
        {"layer turned off", tags({"  2", "B\xE2ti", " 70", "     4", " 62", "    -7"})},
        {"application", tags({"100", "AcDbRegAppTableRecord", "  2", "SURVEY", " 70", "64"})},
        {"linetype", tags({"  2", "Pointill\xE9", " 70", "64",   "  3", "_ . _ .", " 72", "65", " 73", "4",
                           " 40", "25",           " 49", "12.5", " 74", "0",       " 49", "-6", " 74", "0",
                           " 49", "0.5",          " 74", "0",    " 49", "-6",      " 74", "0"})},
    };
    for (const Row& row : rows)
        EXPECT_NE(conversion.dxf.find(row.text), std::string::npos) << row.name << ":\n" << row.text;
    EXPECT_NE(conversion.note.find("dessin DWG converti en DXF"), std::string::npos);
    EXPECT_EQ(conversion.losses, std::vector<std::string>()); // each object of the drawing was written
    EXPECT_TRUE(conversionFolders().empty());
}

TEST_F(DwgConversionTest, RefusesWhatIsNoDrawing)
{
    std::mt19937 random(20150301);
    std::string noise(5000, '\0');
    std::generate(noise.begin(), noise.end(), [&random] { return static_cast<char>(random()); });
    struct Row {
        const char* name;
        std::string bytes;
    };
    const Row rows[] = {
        {"empty", ""},
        {"noise", noise},
        {"a version and nothing behind it", "AC1015"},
        {"a version and noise", "AC1015" + noise},
        {"a newer version and noise", "AC1032" + noise},
        {"text", "  0\r\nSECTION\r\n  0\r\nEOF\r\n"},
        {"cut inside its header", dwgSample().substr(0, 400)},
    };
    for (const Row& row : rows)
        EXPECT_EQ(refusal(installed(), m_folder.write("plan.dwg", row.bytes)),
                  "plan.dwg : dessin DWG illisible : ce n'est pas un dessin DWG, ou il est endommagé")
            << row.name;
    EXPECT_EQ(refusal(installed(), m_folder / "absent.dwg"),
              "absent.dwg : dessin DWG illisible : lecture impossible (ENOENT)");
    EXPECT_TRUE(conversionFolders().empty());
}

/// Whatever happens to the converter happens to it alone.
TEST_F(DwgConversionTest, SurvivesSpoiledDrawings)
{
    std::mt19937 random(7);
    for (int round = 0; round < 6; ++round) {
        std::string bytes = dwgSample();
        for (int i = 0; i < 20; ++i)
            bytes[100 + random() % (bytes.size() - 100)] = static_cast<char>(random());
        const std::string end = refusal(installed(), m_folder.write("plan.dwg", bytes));
        EXPECT_TRUE(end == "converted" || end.starts_with("plan.dwg : dessin DWG illisible : "))
            << round << ": " << end;
    }
    EXPECT_TRUE(conversionFolders().empty());
}

TEST_F(DwgConversionTest, IsHeldToItsMemory)
{
    DwgConverter::Settings settings = installed();
    settings.memoryLimit = std::uint64_t{100} << 20; // less than the converter starts with
    EXPECT_NE(refusal(settings, m_folder.write("plan.dwg", dwgSample())), "converted");
}

TEST_F(DwgConversionTest, SaysThatItsPackageIsMissing)
{
    DwgConverter::Settings settings;
    settings.folder = m_folder.path();
    for (const fs::directory_entry& script : fs::directory_iterator(DwgConverter::installedFolder()))
        if (script.path().extension() == ".mjs")
            fs::copy_file(script.path(), m_folder.path() / script.path().filename());
    EXPECT_EQ(refusal(settings, m_folder.write("plan.dwg", dwgSample())),
              "plan.dwg : le convertisseur de dessins DWG n'est pas installé dans « " + m_folder.path().string() +
                  " » ; lancez « scripts/installer.sh »");
}

TEST(DwgConverterTest, SaysWhatItLacks)
{
    const ConversionFolder folder;
    const fs::path drawing = folder.write("plan.dwg", dwgSample());
    DwgConverter::Settings settings = installed();
    settings.node = (folder / "node").string();
    EXPECT_EQ(
        refusal(settings, drawing),
        "plan.dwg : Node.js est introuvable ; il faut l'installer (paquet « nodejs ») pour ouvrir les dessins DWG");
    settings.folder = folder / "ailleurs";
    EXPECT_EQ(refusal(settings, drawing), "plan.dwg : le convertisseur de dessins DWG n'est pas installé dans « " +
                                              settings.folder.string() + " » ; lancez « scripts/installer.sh »");
}

/// The ways in which a converter can end, played by others in Node's place.
TEST(DwgConverterTest, TellsHowTheConverterEnded)
{
    const ConversionFolder folder;
    const fs::path drawing = folder.write("plan.dwg", dwgSample());
    const std::string crashed = "plan.dwg : dessin DWG illisible : le convertisseur s'est arrêté brutalement";
    struct Row {
        const char* name;
        const char* line;
        std::string message;
    };
    const Row rows[] = {
        {"never ends", "exec sleep 60", "plan.dwg : la conversion du dessin DWG a dépassé 1 s ; elle est abandonnée"},
        {"never ends, with its messages closed", "exec sleep 60 2>&-",
         "plan.dwg : la conversion du dessin DWG a dépassé 1 s ; elle est abandonnée"},
        {"never ends, and never stops talking", "exec yes >&2",
         "plan.dwg : la conversion du dessin DWG a dépassé 1 s ; elle est abandonnée"},
        {"killed", "kill -9 $$", crashed},
        {"fails in a way that is not its own", "echo 'at node:internal' >&2; exit 1", crashed},
        {"refuses without a word", "exit 10", crashed},
        {"refuses after many words", "yes mot | head -c 1000000 >&2; exit 10", "plan.dwg : dessin DWG illisible : mot"},
    };
    for (const Row& row : rows) {
        DwgConverter::Settings settings = installed();
        settings.node = folder.program("node", row.line);
        settings.timeLimit = 1s;
        EXPECT_EQ(refusal(settings, drawing), row.message) << row.name;
    }
    EXPECT_TRUE(conversionFolders().empty());
}

/// A program that was killed leaves no converter at work.
TEST(DwgConverterTest, EndsWithTheProgram)
{
    const ConversionFolder folder;
    DwgConverter::Settings settings = installed();
    settings.node = folder.program("node", "echo $$ > '" + (folder / "pid").string() + "'; exec sleep 60");
    const fs::path drawing = folder.write("plan.dwg", dwgSample());
    const pid_t program = fork();
    if (program == 0) {
        refusal(settings, drawing);
        _exit(0);
    }
    std::string id;
    for (int i = 0; i < 500 && !id.ends_with('\n'); ++i, std::this_thread::sleep_for(20ms))
        id = contents(folder / "pid");
    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);
    ASSERT_FALSE(id.empty());
    const auto isThere = [&] { return kill(std::stoi(id), 0) == 0; };
    for (int i = 0; i < 500 && isThere(); ++i)
        std::this_thread::sleep_for(20ms);
    EXPECT_FALSE(isThere());
    EXPECT_TRUE(conversionFolders().empty());
}

TEST(DwgConverterTest, ListsWhatWasPassedOver)
{
    const ConversionFolder folder;
    DwgConverter::Settings settings = installed();
    settings.node = folder.program("node", "echo 'valeurs hors limites' >&2; printf '0\\nEOF\\n' > \"$4\"");
    const DwgConversion conversion = DwgConverter(settings).convert(folder.write("plan.dwg", dwgSample()));
    EXPECT_EQ(conversion.dxf, "0\nEOF\n");
    EXPECT_EQ(conversion.losses, std::vector<std::string>{"conversion du dessin DWG : valeurs hors limites"});
}

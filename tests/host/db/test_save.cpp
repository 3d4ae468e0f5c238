#include <csignal>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

#include "dxf/DxfTag.h"

#include "SmallDrawing.h"

/// What saving leaves as it was, byte for byte.

using SaveTest = DrawingTest;

namespace {

const std::string unknownEntity =
    "0 ACAD_PROXY_ENTITY\n5 90\n102 {ACAD_REACTORS\n330 C\n102 }\n330 1F\n100 AcDbEntity\n"
    "8 MURS\n100 AcDbProxyEntity\n90 498\n91 500\n92 12\n310 0AFF\n310 01\n";

/// Something of everything, on purpose in unusual spellings.
SmallDrawing everything()
{
    SmallDrawing drawing;
    drawing.first = "999 Fichier fait \xE0 la main\n";
    drawing.header = "9 $CLAYER\n8 murs\n9 $EXTMIN\n10 1.50000\n20 2\n30 0\n999 au milieu\n9 $INCONNU\n70 12\n";
    drawing.classes = "0 CLASS\n1 TRUC\n2 CTruc\n3 Autre\n90 0\n280 0\n281 0\n";
    drawing.layers = "0 LAYER\n5 40\n330 2\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 Murs\n70 0\n62 3\n"
                     "6 CONTINUOUS\n420 255\n0 LAYER\n5 41\n330 2\n100 AcDbSymbolTableRecord\n"
                     "100 AcDbLayerTableRecord\n2 \\U+00C9l\\U+00E9vation\n70 0\n62 4\n6 Continuous\n";
    drawing.entities = "0 LINE\n5 80\n330 1F\n100 AcDbEntity\n8 MURS\n100 AcDbLine\n10 0.10\n20 1E+00\n30 0\n"
                       "11 5.5000000000000001\n21 -0\n31 +3\n1001 ACAD\n1000 texte\n1040 1.500\n1070 1\n" +
                       unknownEntity +
                       "0 POINT\n5 81\n330 1F\n100 AcDbEntity\n8 \xC9l\xE9vation\n100 AcDbPoint\n"
                       "10 1e38\n20 0\n30 0\n999 fin\n";
    drawing.rootEntries = "3 TRUCS\n350 50\n";
    drawing.objects = "0 TRUC\n5 50\n330 C\n100 CTruc\n1 100%\n102 {X\n1 y\n102 }\n0 XRECORD\n5 51\n330 C\n"
                      "100 AcDbXrecord\n280 1\n102 {DEBUT\n330 0\n330 FFF0\n102 }\n1 a\n";
    drawing.sections =
        "0 SECTION\n2 AUTRE\n1 inconnue\n0 ENDSEC\n0 SECTION\n2 THUMBNAILIMAGE\n90 2\n310 00FF\n0 ENDSEC\n";
    drawing.afterEnd = "reste\r\n\x1A";
    return drawing;
}

} // namespace

TEST_F(SaveTest, nothingChangedGivesTheSameBytes)
{
    struct Row {
        const char* name;
        const char* version;
        const char* codePage;
        const char* eol;
        bool binary;
    };
    constexpr Row rows[] = {
        {"R2000 CRLF", "AC1015", "ANSI_1252", "\r\n", false},    {"R2004 LF", "AC1018", "ANSI_1252", "\n", false},
        {"lower case page", "AC1015", "ansi_1250", "\n", false}, {"Chinese page", "AC1018", "GB2312", "\r\n", false},
        {"unknown page", "AC1018", "MARTIEN", "\r\n", false},    {"R2007", "AC1021", "ANSI_1252", "\r\n", false},
        {"R2010 LF", "AC1024", "ANSI_1252", "\n", false},        {"R2013", "AC1027", "ANSI_1252", "\r\n", false},
        {"R2018", "AC1032", "ANSI_1252", "\r\n", false},         {"R2000 binary", "AC1015", "ANSI_1252", "", true},
        {"R2018 binary", "AC1032", "ANSI_1252", "", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        SmallDrawing drawing = everything();
        drawing.version = row.version;
        drawing.codePage = row.codePage;
        if (!row.binary)
            drawing.eol = row.eol;
        const std::string before = row.binary ? drawing.binary() : drawing.text();
        const auto database = open(before);
        EXPECT_EQ(saved(*database), before);
        // Nor does looking at everything change anything.
        for (std::uint64_t handle = 1; handle < 0x100; ++handle) {
            AcDbObject* object = nullptr;
            if (acdbOpenAcDbObject(object, idOf(*database, handle), AcDb::kForWrite) != Acad::eOk)
                continue;
            object->assertWriteEnabled(); // a change of nothing
            object->close();
        }
        EXPECT_EQ(changes(before, saved(*database)), Changes());
        EXPECT_EQ(saved(*database), before);
    }
}

// ---- writing the file

namespace {

void setThickness(AcDbDatabase& database, double thickness)
{
    Opened<AcDbLine>(database, 0x80, AcDb::kForWrite)->setThickness(thickness);
}

} // namespace

TEST_F(SaveTest, theOldFileBecomesTheBackup)
{
    const std::string before = everything().text();
    const auto database = open(before);
    setThickness(*database, 2.0);
    const std::string first = saved(*database, "plan.dxf");
    EXPECT_NE(first, before);
    EXPECT_EQ(read("plan.bak"), before);
    setThickness(*database, 3.0);
    const std::string second = saved(*database, "plan.dxf");
    EXPECT_NE(second, first);
    EXPECT_EQ(read("plan.bak"), first);
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& file : std::filesystem::directory_iterator(root))
        ++files;
    EXPECT_EQ(files, 2U) << "no temporary file is left";
}

TEST_F(SaveTest, aFileChangedMeanwhileIsNotReplaced)
{
    const auto database = open(everything().text());
    setThickness(*database, 2.0);
    write("plan.dxf", "tout autre chose");
    EXPECT_EQ(database->saveAs(path("plan.dxf").c_str()), Acad::eFileSharingViolation);
    EXPECT_NE(std::wstring(database->lastError()).find(L"modifié par un autre programme"), std::wstring::npos);
    EXPECT_EQ(read("plan.dxf"), "tout autre chose");

    // The same for a name that the drawing took later.
    saved(*database, "copie.dxf");
    saved(*database, "copie.dxf");
    write("copie.dxf", "encore autre chose");
    EXPECT_EQ(database->saveAs(path("copie.dxf").c_str()), Acad::eFileSharingViolation);
    EXPECT_EQ(read("copie.dxf"), "encore autre chose");
    std::filesystem::remove(root / "copie.dxf");
    EXPECT_EQ(database->saveAs(path("copie.dxf").c_str()), Acad::eOk) << "one that is gone is no one's";
}

TEST_F(SaveTest, aFailedSaveLeavesTheOldFile)
{
    const std::string before = everything().text();
    const auto database = open(before);
    setThickness(*database, 2.0);
    // No byte may go into a file: as on a full disk.
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit none{100, old.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &none);
    const Acad::ErrorStatus es = database->saveAs(path("plan.dxf").c_str());
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(es, Acad::eFileAccessErr);
    EXPECT_NE(std::wstring(database->lastError()).find(L"plus de place sur le disque"), std::wstring::npos);
    EXPECT_EQ(read("plan.dxf"), before);
    EXPECT_FALSE(std::filesystem::exists(root / "plan.bak"));

    EXPECT_EQ(database->saveAs(path("absent/plan.dxf").c_str()), Acad::eFileAccessErr);
    EXPECT_NE(std::wstring(database->lastError()).find(L"dossier introuvable"), std::wstring::npos);
    std::filesystem::create_directory(root / "dossier.dxf");
    EXPECT_EQ(database->saveAs(path("dossier.dxf").c_str()), Acad::eFileAccessErr);
    saved(*database, "plan.dxf"); // and it can be saved after all
}

TEST_F(SaveTest, aReadOnlyFileIsReplacedOnlyWhenItsUserSaysSo)
{
    const std::string before = everything().text();
    const auto database = open(before);
    setThickness(*database, 2.0);
    std::filesystem::permissions(root / "plan.dxf", std::filesystem::perms::owner_read);
    EXPECT_EQ(database->saveAs(path("plan.dxf").c_str()), Acad::eFileAccessErr);
    EXPECT_NE(std::wstring(database->lastError()).find(L"lecture seule"), std::wstring::npos);
    EXPECT_EQ(read("plan.dxf"), before);
    database->impl().replacesReadOnly = true;
    EXPECT_EQ(database->saveAs(path("plan.dxf").c_str()), Acad::eOk);
    EXPECT_NE(read("plan.dxf"), before);
}

/// What a killed save left goes with the next one; what another program is writing stays, and so do files of the user.
TEST_F(SaveTest, temporaryFilesOfKilledSavesGo)
{
    const auto database = open(everything().text());
    write("plan.dxf.vela-Ab12Cd", "moitié");
    write("plan.dxf.vela-Ef34Gh", "en cours");
    write("plan.dxf.sauveg", "de l'utilisateur");
    write("autre.dxf.vela-Ab12Cd", "d'un autre dessin");
    const int other = ::open((root / "plan.dxf.vela-Ef34Gh").c_str(), O_RDONLY);
    ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
    setThickness(*database, 2.0);
    saved(*database, "plan.dxf");
    EXPECT_FALSE(std::filesystem::exists(root / "plan.dxf.vela-Ab12Cd"));
    for (const char* kept : {"plan.dxf.vela-Ef34Gh", "plan.dxf.sauveg", "autre.dxf.vela-Ab12Cd"})
        EXPECT_TRUE(std::filesystem::exists(root / kept)) << kept;
    ::close(other);
}

TEST_F(SaveTest, binaryAndBackKeepsEverything)
{
    SmallDrawing drawing = everything();
    drawing.afterEnd.clear(); // a binary file ends with EOF
    const std::string before = drawing.text();
    const auto database = open(before);
    DxfForm binary = database->impl().form();
    binary.binary = true;
    ASSERT_EQ(database->impl().save(path("binaire.dxf"), binary), Acad::eOk);
    const auto between = open(read("binaire.dxf"), "entre.dxf");
    ASSERT_EQ(between->impl().save(path("retour.dxf"), database->impl().form()), Acad::eOk);
    const auto tags = [](const std::string& file) { // numbers by their values
        std::vector<std::string> found = tagsOf(file);
        for (std::string& tag : found) {
            const int code = std::stoi(tag);
            if (dxfKind(code) == DxfKind::real)
                tag = std::to_string(code) + "|" + std::to_string(std::stod(tag.substr(tag.find('|') + 1)));
        }
        return found;
    };
    std::vector<std::string> expected = tags(before);
    expected.insert(expected.begin() + 2, "999|Fichier fait \xE0 la main"); // it stood in front of the header
    EXPECT_EQ(tags(read("retour.dxf")), expected);
}

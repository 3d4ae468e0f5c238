#include <sys/stat.h>

#include "platform/CodePage.h"
#include "platform/Paths.h"
#include "platform/TempFiles.h"

#include "io.h"
#include "tchar.h"
#include "TemporaryTree.h"
#include "windows.h"

namespace {

using namespace platform;

using Paths = TemporaryTree;

TEST_F(Paths, FindsNamesWhateverTheirCase)
{
    write("lecteurs/c/Quarvel4/Support/DefCodif", "x");
    write("lecteurs/c/Quarvel4/CÔTÉ.txt");
    write("lecteurs/c/Quarvel4/deux.txt");
    write("lecteurs/c/Quarvel4/DEUX.TXT");
    write("lecteurs/d/plan.dxf");
    write("lecteurs/c/caf\xE9.txt"); // a name that is not UTF-8
    write("Relevés/Plan.DXF");
    const std::wstring here = wideFromUtf8(root.native());
    struct Row {
        const char* name;
        std::wstring path;
        std::string found; // below the test's folder
    };
    const Row rows[] = {
        {"as written", L"C:\\Quarvel4\\Support\\DefCodif", "lecteurs/c/Quarvel4/Support/DefCodif"},
        {"lower case, mixed slashes", L"c:/quarvel4\\support/defcodif", "lecteurs/c/Quarvel4/Support/DefCodif"},
        {"repeated and trailing slashes", L"C:\\\\QUARVEL4\\.\\support\\", "lecteurs/c/Quarvel4/Support"},
        {"other drive", L"D:\\PLAN.DXF", "lecteurs/d/plan.dxf"},
        {"no drive is C", L"\\quarvel4\\support", "lecteurs/c/Quarvel4/Support"},
        {"accented letters have case", L"C:\\quarvel4\\côté.TXT", "lecteurs/c/Quarvel4/CÔTÉ.txt"},
        {"accents are not dropped", L"C:\\quarvel4\\cote.txt", "lecteurs/c/Quarvel4/cote.txt"},
        {"exact name first", L"C:\\quarvel4\\deux.txt", "lecteurs/c/Quarvel4/deux.txt"},
        {"else the first in byte order", L"C:\\quarvel4\\Deux.txt", "lecteurs/c/Quarvel4/DEUX.TXT"},
        {"new file as its maker wrote it", L"C:\\QUARVEL4\\Neuf\\Été.obs", "lecteurs/c/Quarvel4/Neuf/Été.obs"},
        {"drive root", L"C:\\", "lecteurs/c"},
        {"no way above the drive", L"C:\\..\\..\\a\\..\\quarvel4", "lecteurs/c/Quarvel4"},
        {"name that is not UTF-8", wideFromUtf8("C:\\CAF\xE9.TXT"), "lecteurs/c/caf\xE9.txt"},
        {"native path in lower case", here + L"/relevés/plan.dxf", "Relevés/Plan.DXF"},
        {"native folder, name after a backslash", here + L"\\relevés\\PLAN.dxf", "Relevés/Plan.DXF"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(nativePath(row.path), root / row.found) << row.name;
    EXPECT_EQ(nativePath(L""), "");
}

TEST_F(Paths, NativeNamesAreTakenAsTheyAre)
{
    write("odd\\name.txt");
    EXPECT_EQ(nativePath(wideFromUtf8((root / "odd\\name.txt").native())), root / "odd\\name.txt");
    EXPECT_EQ(nativePath(L"/tmp/../tmp"), "/tmp/../tmp"); // links may stand before "..": the disk decides
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(root);
    write("Debug/Info.msg");
    EXPECT_EQ(nativePath(L"debug\\INFO.MSG"), "Debug/Info.msg");
    std::filesystem::current_path(before);
}

TEST_F(Paths, ComeBackFromWindowsStyle)
{
    write("lecteurs/c/a/b.txt");
    EXPECT_EQ(windowsPath(root / "lecteurs/c/a/b.txt"), L"C:\\a\\b.txt");
    EXPECT_EQ(windowsPath(root / "lecteurs/c"), L"C:\\");
    EXPECT_EQ(windowsPath("/usr/share"), L"Z:\\usr\\share");
    for (const std::filesystem::path& native :
         {root / "lecteurs/c/a", root / "ailleurs", std::filesystem::path("/usr")})
        EXPECT_EQ(nativePath(windowsPath(native)), native);
    write("lecteurs/z/own"); // drive Z is the user's: the rest keeps its native spelling
    EXPECT_EQ(windowsPath("/usr/share"), L"/usr/share");
    EXPECT_EQ(nativePath(L"Z:\\OWN"), root / "lecteurs/z/own");
}

TEST_F(Paths, OpenFilesAsTheModuleDoes)
{
    write("lecteurs/c/Support/x");
    for (const char* line : {"un\n", "deux\n"}) {
        std::FILE* const log = _wfopen(L"c:\\SUPPORT\\MESSAGES.MSG", L"a+t");
        ASSERT_NE(log, nullptr);
        std::fputs(line, log);
        std::fclose(log);
    }
    EXPECT_EQ(read("lecteurs/c/Support/MESSAGES.MSG"), "un\ndeux\n");
    EXPECT_EQ(_wfopen(L"C:\\absent\\a.txt", L"rt"), nullptr);
    EXPECT_EQ(_wfopen(L"C:\\support", L"r"), nullptr); // a folder

    // Written over without truncation: the old tail stays.
    const int file = _wopen(L"C:\\support\\messages.msg", _O_WRONLY | _O_CREAT);
    ASSERT_GE(file, 0);
    EXPECT_EQ(_write(file, "UN", 2), 2);
    EXPECT_EQ(_close(file), 0);
    EXPECT_EQ(read("lecteurs/c/Support/MESSAGES.MSG"), "UN\ndeux\n");

    EXPECT_TRUE(CopyFileW(L"C:\\support\\messages.msg", L"C:\\support\\copie", TRUE));
    EXPECT_FALSE(CopyFileW(L"C:\\support\\messages.msg", L"C:\\support\\COPIE", TRUE));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_EXISTS));
    EXPECT_EQ(_waccess(L"C:\\SUPPORT\\COPIE", 0), 0);
    EXPECT_FALSE(MoveFileExW(L"C:\\support\\copie", L"C:\\SUPPORT\\MESSAGES.MSG", 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_EXISTS));
    EXPECT_TRUE(MoveFileExW(L"C:\\support\\copie", L"C:\\SUPPORT\\MESSAGES.MSG", MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(read("lecteurs/c/Support/MESSAGES.MSG"), "UN\ndeux\n");
    EXPECT_FALSE(MoveFileExW(L"C:\\support\\copie", L"C:\\support\\autre", 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_TRUE(MoveFileExW(L"C:\\support\\messages.msg", L"C:\\support\\copie", 0));
    EXPECT_TRUE(DeleteFileW(L"C:\\SUPPORT\\COPIE"));
    EXPECT_FALSE(DeleteFileW(L"C:\\SUPPORT\\COPIE"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
}

TEST_F(Paths, TemporaryFilesAreTheUsersOwn)
{
    setenv("TMPDIR", root.c_str(), 1);
    wchar_t folder[MAX_PATH];
    const DWORD length = GetTempPathW(MAX_PATH, folder);
    EXPECT_EQ(length, std::wcslen(folder));
    EXPECT_EQ(folder[length - 1], L'\\');
    EXPECT_EQ(GetTempPathW(3, folder), length + 1);
    struct stat status {};
    ASSERT_EQ(stat(nativePath(folder).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);

    wchar_t name[MAX_PATH];
    wchar_t other[MAX_PATH];
    EXPECT_NE(GetTempFileNameW(folder, L"_TPxyz", 0, name), 0U);
    EXPECT_NE(GetTempFileNameW(folder, L"_TP", 0, other), 0U);
    EXPECT_STRNE(name, other);
    EXPECT_TRUE(std::wstring(name).starts_with(std::wstring(folder) + L"_TP"));
    EXPECT_TRUE(std::filesystem::is_empty(nativePath(name)));
    EXPECT_EQ(GetTempFileNameW(folder, L"_TP", 0x1AB, name), 0x1ABU); // named, not created
    EXPECT_EQ(std::wstring(name), std::wstring(folder) + L"_TP01AB.tmp");
    EXPECT_FALSE(std::filesystem::exists(nativePath(name)));
    EXPECT_EQ(GetTempFileNameW(L"C:\\absent", L"_TP", 0, name), 0U);

    // A folder of that name which others may write in is not used.
    std::filesystem::permissions(nativePath(folder), std::filesystem::perms::all);
    wchar_t spare[MAX_PATH];
    GetTempPathW(MAX_PATH, spare);
    EXPECT_STRNE(spare, folder);
    unsetenv("TMPDIR");
}

} // namespace

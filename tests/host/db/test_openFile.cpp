#include <algorithm>
#include <csignal>
#include <fstream>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "SmallDrawing.h"

/// What other programs, and the medium, do to the file of an open drawing.

namespace {

constexpr std::uint64_t firstHandle = 0x100, lineCount = 20;

SmallDrawing ofLines(std::size_t padding)
{
    SmallDrawing drawing;
    for (std::uint64_t i = 0; i < lineCount; ++i) {
        char handle[17];
        std::snprintf(handle, sizeof handle, "%llX", static_cast<unsigned long long>(firstHandle + i));
        drawing.entities += lineTags(handle);
        for (std::size_t added = 0; added < padding / lineCount; added += 204)
            drawing.entities += "999 " + std::string(200, '.') + "\n";
    }
    return drawing;
}

constexpr std::size_t copied = 0, mapped = std::size_t{40} << 20; // bytes beside the lines

/// Opens and reads every line. @return how many are whole.
std::size_t walk(AcDbDatabase& database)
{
    std::size_t whole = 0;
    for (std::uint64_t i = 0; i < lineCount; ++i) {
        AcDbObjectPointer<AcDbLine> line(idOf(database, firstHandle + i), AcDb::kForRead);
        whole += line.openStatus() == Acad::eOk && line->endPoint() == AcGePoint3d(1, 1, 1);
    }
    return whole;
}

void overwrite(const std::filesystem::path& path, int flags, const std::string& bytes)
{
    const int descriptor = ::open(path.c_str(), O_WRONLY | flags);
    ASSERT_GE(descriptor, 0);
    EXPECT_EQ(::write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    ::close(descriptor);
}

/// Gives up the lease on a file, which leaves its map to what happens: as a medium that is unplugged does.
/// @return the descriptor that had it
int abandonLease(const std::filesystem::path& path)
{
    int found = -1;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        const int descriptor = std::stoi(entry.path().filename().string());
        if (std::filesystem::read_symlink(entry.path(), error) == path && fcntl(descriptor, F_GETLEASE) == F_RDLCK) {
            fcntl(descriptor, F_SETLEASE, F_UNLCK);
            found = descriptor;
        }
    }
    return found;
}

} // namespace

using OpenFileTest = DrawingTest;

TEST_F(OpenFileTest, nothingThatBecomesOfTheFileReachesTheDrawing)
{
    struct Row {
        const char* name;
        void (*happens)(const std::filesystem::path&);
    };
    const Row rows[] = {
        {"rewritten in place",
         [](const std::filesystem::path& path) {
             overwrite(path, 0, std::string(std::filesystem::file_size(path), 'x'));
         }},
        {"rewritten after it was emptied",
         [](const std::filesystem::path& path) { overwrite(path, O_TRUNC, "0\nEOF\n"); }},
        {"cut", [](const std::filesystem::path& path) { EXPECT_EQ(truncate(path.c_str(), 10), 0); }},
        {"replaced",
         [](const std::filesystem::path& path) {
             std::ofstream(path.string() + ".new") << "0\nEOF\n";
             std::filesystem::rename(path.string() + ".new", path);
         }},
        {"removed", [](const std::filesystem::path& path) { std::filesystem::remove(path); }},
    };
    for (const std::size_t size : {copied, mapped})
        for (const Row& row : rows) {
            SCOPED_TRACE(row.name + std::string(size == mapped ? ", mapped" : ", copied"));
            const std::string before = ofLines(size).text();
            const auto database = open(before);
            row.happens(root / "plan.dxf");
            EXPECT_EQ(walk(*database), lineCount);
            EXPECT_TRUE(saved(*database) == before);
            const bool stillThere = std::filesystem::exists(root / "plan.dxf");
            EXPECT_EQ(database->saveAs(path("plan.dxf").c_str()), stillThere ? Acad::eFileSharingViolation : Acad::eOk);
        }
}

TEST_F(OpenFileTest, whatTheMediumLosesIsToldAndWhatWasReadIsRescued)
{
    const std::string before = ofLines(mapped).text();
    const auto database = open(before);
    const std::uint64_t read = firstHandle + 15, changed = firstHandle + 16, unread = firstHandle + 17;
    {
        const Opened<AcDbLine> line(*database, read);
    }
    {
        Opened<AcDbLine> line(*database, changed, AcDb::kForWrite);
        line->setEndPoint(AcGePoint3d(7, 1, 1));
    }
    // The pages of three lines go, then the medium is back.
    DxfFile& file = database->impl().file();
    const std::uint64_t start = recordOf(idOf(*database, read))->offset;
    abandonLease(root / "plan.dxf");
    ASSERT_EQ(truncate((root / "plan.dxf").c_str(), static_cast<off_t>(start)), 0);
    AcDbObjectPointer<AcDbLine> lost(idOf(*database, unread), AcDb::kForRead);
    EXPECT_NE(lost.openStatus(), Acad::eOk);
    EXPECT_NE(database->impl().problems().all().back().find("perdu"), std::string::npos);
    for (const std::uint64_t handle : {read, changed})
        EXPECT_GT(std::ranges::count(file.bytes(*recordOf(idOf(*database, handle))), '\0'), 1000000);
    overwrite(root / "plan.dxf", O_APPEND, before.substr(start));

    EXPECT_EQ(database->saveAs(path("plan.dxf").c_str()), Acad::eFileSharingViolation);
    ASSERT_EQ(database->saveAs(path("sortie.dxf").c_str()), Acad::eOk);
    // The page in which the unread line ends holds the beginning of the next one.
    EXPECT_NE(database->impl().problems().all().back().find("4 objets"), std::string::npos)
        << database->impl().problems().all().back();
    const auto rescued = open(folder.read("sortie.dxf"), "relu.dxf");
    EXPECT_EQ(rescued->impl().problems().all(), std::vector<std::string>());
    EXPECT_EQ(walk(*rescued), lineCount - 3);
    EXPECT_EQ(Opened<AcDbLine>(*rescued, changed)->endPoint(), AcGePoint3d(7, 1, 1));
    EXPECT_TRUE(idOf(*rescued, unread).isNull());
}

/// A program that is stopped hears of the writer when the system has long let it go on.
TEST_F(OpenFileTest, toldTooLateNothingIsTakenForTheDrawing)
{
    const std::string before = ofLines(mapped).text();
    const auto database = open(before);
    siginfo_t told{};
    told.si_signo = SIGRTMIN + 6;
    told.si_code = POLL_MSG;
    told.si_fd = abandonLease(root / "plan.dxf");
    overwrite(root / "plan.dxf", 0, before); // the same text: what counts is that it may be another
    ASSERT_EQ(syscall(SYS_rt_sigqueueinfo, getpid(), told.si_signo, &told), 0);
    EXPECT_EQ(walk(*database), 0U);
    EXPECT_NE(database->saveAs(path("sortie.dxf").c_str()), Acad::eOk);
}

TEST_F(OpenFileTest, withoutItsSectionsNothingIsRescued)
{
    const std::string before = ofLines(mapped).text();
    const auto database = open(before);
    abandonLease(root / "plan.dxf");
    ASSERT_EQ(truncate((root / "plan.dxf").c_str(), 10), 0);
    EXPECT_NE(database->saveAs(path("sortie.dxf").c_str()), Acad::eOk);
    EXPECT_NE(std::wstring(database->lastError()).find(L"la structure du dessin est perdue"), std::wstring::npos);
    EXPECT_FALSE(std::filesystem::exists(root / "sortie.dxf"));
}

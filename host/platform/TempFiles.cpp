#include "platform/TempFiles.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/CodePage.h"

namespace fs = std::filesystem;

namespace platform {

namespace {

[[noreturn]] void fail(int error, const fs::path& path)
{
    throw std::system_error(error, std::generic_category(), path.string());
}

/// A folder, no link to one, that we own and nobody else may write in.
bool isOurs(const fs::path& folder)
{
    struct stat status {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

/// A new folder of our own, for when the usual name is somebody else's; one a process.
const fs::path& spareFolder(const fs::path& base)
{
    static const fs::path folder = [&base] {
        std::string name = (base / "vela-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            fail(errno, name);
        return fs::path(name);
    }();
    return folder;
}

} // namespace

fs::path temporaryFolder()
{
    const char* const chosen = std::getenv("TMPDIR");
    const fs::path base = chosen != nullptr && fs::path(chosen).is_absolute() ? chosen : "/tmp";
    const fs::path folder = base / ("vela-" + std::to_string(geteuid()));
    if (mkdir(folder.c_str(), S_IRWXU) == 0 || isOurs(folder))
        return folder;
    return spareFolder(base);
}

std::wstring temporaryName(std::wstring_view prefix, unsigned int number)
{
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "%04X", number);
    return std::wstring(prefix.substr(0, 3)) + wideFromAnsi(digits.data()) + L".tmp";
}

unsigned int createTemporaryFile(const fs::path& folder, std::wstring_view prefix)
{
    constexpr unsigned int numbers = 0xFFFF;
    const unsigned int first = std::random_device()() % numbers;
    for (unsigned int i = 0; i < numbers; ++i) {
        const unsigned int number = (first + i) % numbers + 1;
        const fs::path path = folder / utf8FromWide(temporaryName(prefix, number));
        const int descriptor = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (descriptor >= 0) {
            close(descriptor);
            return number;
        }
        if (errno != EEXIST)
            fail(errno, path);
    }
    fail(EEXIST, folder);
}

} // namespace platform

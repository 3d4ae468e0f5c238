#include "platform/FileState.h"

#include <sys/stat.h>

namespace {

FileState stateIn(const struct stat& info)
{
    return {info.st_dev, info.st_ino, static_cast<std::uint64_t>(info.st_size), info.st_mtim};
}

} // namespace

FileState FileState::of(const std::string& path)
{
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 ? stateIn(info) : FileState{};
}

FileState FileState::of(int descriptor)
{
    struct stat info {};
    return ::fstat(descriptor, &info) == 0 ? stateIn(info) : FileState{};
}

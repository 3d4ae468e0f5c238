#pragma once

#include <cstdint>
#include <ctime>
#include <string>

/// Which file stands under a name, its size and the time it was last written: what tells whether another program
/// changed or replaced it. A file that is not there has no size.
struct FileState {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::timespec time{};

    /// `path` is in the encoding of the file system.
    static FileState of(const std::string& path);
    static FileState of(int descriptor);

    bool operator==(const FileState& other) const
    {
        return device == other.device && number == other.number && size == other.size &&
               time.tv_sec == other.time.tv_sec && time.tv_nsec == other.time.tv_nsec;
    }
};

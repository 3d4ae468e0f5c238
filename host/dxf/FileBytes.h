#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/FileState.h"

class FileLease;

/// The bytes that a file had when it was opened, kept until they are released whatever becomes of the file.
///
/// They are a copy in memory; those of a large file a map, where the system tells of each change before it is made
/// (FileLease). docs/decisions/0004-fichier-ouvert.md says what is guaranteed.
class FileBytes {
public:
    FileBytes() = default;
    ~FileBytes() { release(); }
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    /// Reads a file. Throws std::system_error: with `device_or_resource_busy` when another program is writing it, with
    /// `invalid_argument` when it is no file.
    void read(const std::string& path);
    void release();

    std::string_view view() const { return {m_address, m_size}; }
    /// As it was when it was read.
    const FileState& state() const { return m_state; }

    /// Asks for every byte that is not in memory yet, so that all that is lost is known.
    void probe() const;
    bool anyLost() const;
    /// Whether one of these bytes can no longer be had: it reads as 0.
    bool isLost(std::size_t offset, std::size_t length) const;

private:
    bool map(int descriptor);
    void copy(int descriptor);
    bool copyOnce(int descriptor);

    char* m_address = nullptr;
    std::size_t m_size = 0;
    FileLease* m_lease = nullptr; // of a map
    FileState m_state;
};

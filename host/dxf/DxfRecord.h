#pragma once

#include <cstdint>

/// The tags from one group 0 up to the next, as a range of bytes of the file.
/// Header variables and the preview image lie in the record of their SECTION; what comes before the first group 0
/// (comments, a byte order mark) and after EOF lies in records of type 0 ("") whose flags say `pseudo`.
struct DxfRecord {
    std::uint64_t handle; ///< 0 where its kind has none (SECTION, ENDSEC, ENDTAB, EOF, CLASS...)
    std::uint64_t offset; ///< of its first byte in the file
    std::uint32_t length; ///< bytes
    std::uint16_t type;   ///< see DxfFile::typeName
    std::uint16_t flags;  ///< the low four bits below; the others are the object database's
    void* object;         ///< the object database's; null at opening

    enum : std::uint16_t {
        handleRepaired = 1, ///< `handle` is not the one in its bytes, which may have none: see DxfFile::repairedBytes
        spoiled = 2,        ///< a tag of it cannot be read: keep it as bytes
        pseudo = 4,         ///< no record: bytes before the first or after the last one
        lost = 8,           ///< the medium no longer gives its bytes: see DxfFile::findLost
        ownFlags = 15
    };
};
static_assert(sizeof(DxfRecord) == 32);

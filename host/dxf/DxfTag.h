#pragma once

#include <array>
#include <cstddef>

/// How the value of a group code is written.
enum class DxfKind : unsigned char { text, handle, real, int16, int32, int64, boolean, bytes };

/// Group codes go from 0 to this one.
inline constexpr int dxfLastCode = 1071;

/// What a line that should hold a group code, and does not, is read as.
inline constexpr int dxfBadCode = -1;

namespace dxf_detail {

constexpr DxfKind kindOfCode(int code)
{
    const auto in = [code](int first, int last) { return code >= first && code <= last; };
    if (code == 5 || code == 105 || code == 1005 || in(320, 369) || in(390, 399) || in(480, 481))
        return DxfKind::handle;
    if (in(10, 59) || in(110, 149) || in(210, 239) || in(460, 469) || in(1010, 1059))
        return DxfKind::real;
    if (in(60, 79) || in(170, 179) || in(270, 289) || in(370, 389) || in(400, 409) || in(1060, 1070))
        return DxfKind::int16;
    if (in(90, 99) || in(420, 429) || in(440, 459) || code == 1071)
        return DxfKind::int32;
    if (in(160, 169))
        return DxfKind::int64;
    if (in(290, 299))
        return DxfKind::boolean;
    if (in(310, 319) || code == 1004)
        return DxfKind::bytes;
    return DxfKind::text;
}

inline constexpr auto kindTable = [] {
    std::array<DxfKind, dxfLastCode + 1> table{};
    for (int code = 0; code <= dxfLastCode; ++code)
        table[static_cast<std::size_t>(code)] = kindOfCode(code);
    return table;
}();

} // namespace dxf_detail

/// Text for every code outside 0..dxfLastCode.
constexpr DxfKind dxfKind(int code)
{
    return code >= 0 && code <= dxfLastCode ? dxf_detail::kindTable[static_cast<std::size_t>(code)] : DxfKind::text;
}

constexpr bool dxfIsInteger(DxfKind kind)
{
    return kind == DxfKind::int16 || kind == DxfKind::int32 || kind == DxfKind::int64 || kind == DxfKind::boolean;
}

/// A group code with its value, in the bytes of a file.
/// [begin, end) is the value: in an ASCII file the line without its line end (CR included), blanks kept; in a binary
/// file the payload: without the zero that ends a text, without the length that opens a chunk of bytes.
/// [start, next) is the whole tag.
struct DxfTag {
    int code;
    const char* begin;
    const char* end;
    const char* start;
    const char* next;
};

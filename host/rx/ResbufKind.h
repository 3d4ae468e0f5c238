#pragma once

#include "dxf/DxfTag.h"

#include "adscodes.h"

/// Which member of the value of a result buffer counts.
enum class ResbufKind : unsigned char { unknown, none, real, point, int16, int32, int64, text, name, bytes };

namespace resbuf_detail {

constexpr ResbufKind kindOfGroupCode(int code)
{
    const auto in = [code](int first, int last) { return code >= first && code <= last; };
    // One buffer holds the three coordinates, under the code of X.
    if (in(10, 18) || in(110, 112) || code == 210 || in(1010, 1013))
        return ResbufKind::point;
    if (in(330, 369) || in(390, 399) || in(480, 481))
        return ResbufKind::name;
    switch (dxfKind(code)) {
    case DxfKind::real:
        return ResbufKind::real;
    case DxfKind::int16:
    case DxfKind::boolean:
        return ResbufKind::int16;
    case DxfKind::int32:
        return ResbufKind::int32;
    case DxfKind::int64:
        return ResbufKind::int64;
    case DxfKind::bytes:
        return ResbufKind::bytes;
    case DxfKind::text:
    case DxfKind::handle:
        break;
    }
    return ResbufKind::text;
}

constexpr ResbufKind kindOfOther(int type)
{
    switch (type) {
    case -1: // the entity itself, the entity it stands in, an object it reacts to
    case -2:
    case -5:
    case RTENAME:
    case RTPICKS:
        return ResbufKind::name;
    case -4: // operator of a filter
    case RTSTR:
        return ResbufKind::text;
    case -3: // extended data begin
    case RTVOID:
    case RTLB:
    case RTLE:
    case RTDOTE:
    case RTNIL:
    case RTT:
    case RTNONE:
        return ResbufKind::none;
    case RTREAL:
    case RTANG:
    case RTORINT:
        return ResbufKind::real;
    case RTPOINT:
    case RT3DPOINT:
        return ResbufKind::point;
    case RTSHORT:
        return ResbufKind::int16;
    case RTLONG:
        return ResbufKind::int32;
    case RTINT64:
        return ResbufKind::int64;
    default:
        return ResbufKind::unknown;
    }
}

inline constexpr auto groupCodeTable = [] {
    std::array<ResbufKind, dxfLastCode + 1> table{};
    for (int code = 0; code <= dxfLastCode; ++code)
        table[static_cast<std::size_t>(code)] = kindOfGroupCode(code);
    return table;
}();

} // namespace resbuf_detail

/// Kind of value of an RT... code or of a group code.
constexpr ResbufKind resbufKind(int type)
{
    return type >= 0 && type <= dxfLastCode ? resbuf_detail::groupCodeTable[static_cast<std::size_t>(type)]
                                            : resbuf_detail::kindOfOther(type);
}

#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "rx/ResbufKind.h"

#include "adsdef.h"

/// The name of an entity or of a selection set, in a result buffer.
struct ResbufName {
    const std::int64_t* words;
};

/// Calls `take` with what a buffer holds, by its type: a double, an std::int64_t for integers of any width, a
/// std::wstring_view, the two or three coordinates of a point (std::span<const ads_real>), a ResbufName, the bytes of a
/// block (const ads_binary&), or std::monostate for a buffer that holds nothing or is of a type that is not known.
template <class Take>
auto visitValue(const resbuf& buffer, const Take& take)
{
    const ads_u_val& value = buffer.resval;
    switch (resbufKind(buffer.restype)) {
    case ResbufKind::real:
        return take(value.rreal);
    case ResbufKind::point:
        return take(std::span<const ads_real>(value.rpoint, buffer.restype == RTPOINT ? 2 : 3));
    case ResbufKind::int16:
        return take(std::int64_t{value.rint});
    case ResbufKind::int32:
        return take(std::int64_t{value.rlong});
    case ResbufKind::int64:
        return take(std::int64_t{value.mnInt64});
    case ResbufKind::text:
        return take(std::wstring_view(value.rstring ? value.rstring : L""));
    case ResbufKind::name:
        return take(ResbufName{value.rlname});
    case ResbufKind::bytes:
        return take(value.rbinary);
    case ResbufKind::none:
    case ResbufKind::unknown:
        break;
    }
    return take(std::monostate());
}

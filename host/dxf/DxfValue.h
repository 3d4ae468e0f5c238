#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "dxf/DxfForm.h"
#include "dxf/DxfTag.h"

/// Readers of the value of a tag. Each gives false, and leaves its result as it was, where the value cannot be read.
/// Blanks around a number and a leading '+' do not count; anything else after it does.

namespace dxf_detail {
bool realSlow(const DxfForm& form, const DxfTag& tag, double& value);
bool integerSlow(const DxfForm& form, const DxfTag& tag, std::int64_t& value);
} // namespace dxf_detail

/// A finite number, in the unit of the file. NaN, infinity and numbers beyond a double's range are refused;
/// one too small for it is 0. Integers are taken as well.
inline bool dxfReal(const DxfForm& form, const DxfTag& tag, double& value)
{
    if (form.binary) {
        if (tag.end - tag.begin != 8 || dxfKind(tag.code) != DxfKind::real)
            return dxf_detail::realSlow(form, tag, value);
        double read;
        std::memcpy(&read, tag.begin, 8);
        if (!std::isfinite(read))
            return false;
        value = read;
        return true;
    }
    const char* p = tag.begin;
    while (p < tag.end && *p == ' ')
        ++p;
    double read;
    const auto [stop, error] = std::from_chars(p, tag.end, read);
    if (error != std::errc() || stop != tag.end || !std::isfinite(read))
        return dxf_detail::realSlow(form, tag, value);
    value = read;
    return true;
}

/// An integer; a real of whole value ("1.0") is taken as well.
inline bool dxfInteger(const DxfForm& form, const DxfTag& tag, std::int64_t& value)
{
    if (form.binary)
        return dxf_detail::integerSlow(form, tag, value);
    const char* p = tag.begin;
    while (p < tag.end && *p == ' ')
        ++p;
    std::int64_t read;
    const auto [stop, error] = std::from_chars(p, tag.end, read);
    if (error != std::errc() || stop != tag.end)
        return dxf_detail::integerSlow(form, tag, value);
    value = read;
    return true;
}

/// A handle: 1 to 16 hexadecimal digits. An empty value is the null handle, 0.
bool dxfHandle(const DxfTag& tag, std::uint64_t& value);

/// The bytes of a text as they stand, blanks kept; DxfEncoding::decode makes characters of them.
inline std::string_view dxfText(const DxfTag& tag)
{
    return {tag.begin, static_cast<std::size_t>(tag.end - tag.begin)};
}

/// Appends one chunk of bytes to `out`: pairs of hexadecimal digits in an ASCII file, the payload in a binary one.
bool dxfBytes(const DxfForm& form, const DxfTag& tag, std::string& out);

#include "dxf/DxfValue.h"

#include <array>

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

/// The value without blanks around it and without a leading '+'.
std::string_view number(const DxfTag& tag)
{
    const char* p = tag.begin;
    const char* end = tag.end;
    while (p < end && isBlank(*p))
        ++p;
    while (p < end && isBlank(end[-1]))
        --end;
    if (end - p > 1 && *p == '+' && p[1] != '-')
        ++p;
    return {p, static_cast<std::size_t>(end - p)};
}

bool parseReal(std::string_view text, double& value)
{
    const char* const end = text.data() + text.size();
    double read = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, read);
    if (stop != end || text.empty())
        return false;
    if (error == std::errc::result_out_of_range && text.find_first_of("eE") != text.npos)
        read = text.find("e-") != text.npos || text.find("E-") != text.npos ? 0.0 : HUGE_VAL;
    else if (error != std::errc())
        return false;
    if (!std::isfinite(read))
        return false;
    value = read;
    return true;
}

template <class Integer>
std::int64_t payload(const DxfTag& tag)
{
    Integer read;
    std::memcpy(&read, tag.begin, sizeof read);
    return static_cast<std::int64_t>(read);
}

bool integerPayload(const DxfTag& tag, std::int64_t& value)
{
    switch (tag.end - tag.begin) {
    case 1:
        value = payload<std::uint8_t>(tag);
        return true;
    case 2:
        value = payload<std::int16_t>(tag);
        return true;
    case 4:
        value = payload<std::int32_t>(tag);
        return true;
    case 8:
        value = payload<std::int64_t>(tag);
        return true;
    default:
        return false;
    }
}

constexpr auto hexDigits = [] {
    std::array<signed char, 256> table{};
    table.fill(-1);
    for (int digit = 0; digit < 16; ++digit) {
        table[static_cast<unsigned char>("0123456789ABCDEF"[digit])] = static_cast<signed char>(digit);
        table[static_cast<unsigned char>("0123456789abcdef"[digit])] = static_cast<signed char>(digit);
    }
    return table;
}();

int hexDigit(char c)
{
    return hexDigits[static_cast<unsigned char>(c)];
}

} // namespace

namespace dxf_detail {

bool realSlow(const DxfForm& form, const DxfTag& tag, double& value)
{
    const DxfKind kind = dxfKind(tag.code);
    if (form.binary && dxfIsInteger(kind)) {
        std::int64_t integer;
        if (!integerPayload(tag, integer))
            return false;
        value = static_cast<double>(integer);
        return true;
    }
    if (form.binary && kind != DxfKind::text && kind != DxfKind::handle)
        return false;
    return parseReal(number(tag), value);
}

bool integerSlow(const DxfForm& form, const DxfTag& tag, std::int64_t& value)
{
    const DxfKind kind = dxfKind(tag.code);
    if (form.binary && dxfIsInteger(kind))
        return integerPayload(tag, value);
    const std::string_view text = number(tag);
    std::int64_t integer = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), integer);
    if ((!form.binary || kind == DxfKind::text) && error == std::errc() && stop == text.data() + text.size()) {
        value = integer;
        return true;
    }
    double real = 0;
    constexpr double limit = 9.2e18;
    if (!dxfReal(form, tag, real) || real != std::floor(real) || std::abs(real) > limit)
        return false;
    value = static_cast<std::int64_t>(real);
    return true;
}

} // namespace dxf_detail

bool dxfHandle(const DxfTag& tag, std::uint64_t& value)
{
    const char* p = tag.begin;
    const char* end = tag.end;
    while (p < end && isBlank(*p))
        ++p;
    while (p < end && isBlank(end[-1]))
        --end;
    while (end - p > 16 && *p == '0')
        ++p;
    if (end - p > 16)
        return false;
    std::uint64_t read = 0;
    for (; p < end; ++p) {
        const int digit = hexDigit(*p);
        if (digit < 0)
            return false;
        read = read << 4 | static_cast<std::uint64_t>(digit);
    }
    value = read;
    return true;
}

bool dxfBytes(const DxfForm& form, const DxfTag& tag, std::string& out)
{
    if (form.binary && dxfKind(tag.code) == DxfKind::bytes) {
        out.append(tag.begin, tag.end);
        return true;
    }
    const char* p = tag.begin;
    const char* end = tag.end;
    while (p < end && isBlank(*p))
        ++p;
    while (p < end && isBlank(end[-1]))
        --end;
    if ((end - p) % 2 != 0)
        return false;
    const std::size_t before = out.size();
    for (; p < end; p += 2) {
        const int high = hexDigit(p[0]);
        const int low = hexDigit(p[1]);
        if (high < 0 || low < 0) {
            out.resize(before);
            return false;
        }
        out.push_back(static_cast<char>(high << 4 | low));
    }
    return true;
}

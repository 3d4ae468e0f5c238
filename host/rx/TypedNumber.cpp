#include "rx/TypedNumber.h"

#include <charconv>
#include <cmath>

std::optional<double> typedNumber(std::wstring_view text)
{
    std::string narrow;
    for (const wchar_t c : text) {
        if (c > 127)
            return std::nullopt;
        narrow += static_cast<char>(c);
    }
    const bool isSigned = narrow.starts_with('+') && narrow.find_first_of("+-", 1) != 1;
    const char* const first = narrow.data() + (isSigned ? 1 : 0);
    const char* const last = narrow.data() + narrow.size();
    double value = 0.0;
    const auto [end, error] = std::from_chars(first, last, value);
    if (first == last || end != last || error != std::errc() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::wstring fullNumberText(double value)
{
    char digits[32];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value);
    return error == std::errc() ? std::wstring(digits, end) : L"0";
}

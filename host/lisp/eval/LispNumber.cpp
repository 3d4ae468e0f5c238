#include "lisp/eval/LispNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// The longest start of `text` that is written as a number, and whether it is written as an integer.
struct NumberShape {
    std::size_t length = 0;
    bool whole = true;

    explicit NumberShape(std::wstring_view text)
    {
        std::size_t at = !text.empty() && (text[0] == L'+' || text[0] == L'-') ? 1 : 0;
        const auto digits = [&] {
            const std::size_t from = at;
            while (at < text.size() && isDigit(text[at]))
                ++at;
            return at - from;
        };
        std::size_t count = digits();
        if (at < text.size() && text[at] == L'.') {
            ++at;
            count += digits();
            whole = false;
        }
        if (count == 0)
            return;
        length = at;
        if (at >= text.size() || (text[at] != L'e' && text[at] != L'E'))
            return;
        ++at;
        if (at < text.size() && (text[at] == L'+' || text[at] == L'-'))
            ++at;
        if (digits() == 0)
            return;
        length = at;
        whole = false;
    }
};

/// `text` is written as a number. from_chars takes no plus sign.
std::string narrowed(std::wstring_view text)
{
    if (text.starts_with(L'+'))
        text.remove_prefix(1);
    std::string narrow(text.size(), '\0');
    std::transform(text.begin(), text.end(), narrow.begin(), [](wchar_t c) { return static_cast<char>(c); });
    return narrow;
}

/// Below the least real it is 0; nothing beyond the greatest.
std::optional<double> realOf(std::wstring_view text)
{
    const std::string digits = narrowed(text);
    double value = 0.0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        const std::size_t exponent = digits.find_first_of("eE");
        const bool tiny = exponent != std::string::npos ? digits.find('-', exponent) != std::string::npos
                                                        : digits.starts_with("0.") || digits.starts_with("-0.");
        return tiny ? std::optional(0.0) : std::nullopt;
    }
    return value;
}

std::wstring_view withoutBlanks(std::wstring_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(L" \t\r\n"), text.size()));
    return text.substr(0, NumberShape(text).length);
}

} // namespace

std::optional<LispValue> lispNumber(std::wstring_view text)
{
    const NumberShape shape(text);
    if (text.empty() || shape.length != text.size())
        return std::nullopt;
    if (shape.whole) {
        const std::string digits = narrowed(text);
        std::int32_t value = 0;
        if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec == std::errc())
            return LispValue(value);
    }
    const auto value = realOf(text);
    return value ? std::optional(LispValue(*value)) : std::nullopt;
}

double leadingReal(std::wstring_view text)
{
    const std::wstring_view number = withoutBlanks(text);
    return number.empty() ? 0.0 : realOf(number).value_or(HUGE_VAL);
}

std::int32_t leadingInteger(std::wstring_view text)
{
    const std::wstring_view number = withoutBlanks(text);
    std::int64_t value = 0;
    const std::string digits = narrowed(number);
    if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec != std::errc())
        return 0;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

LispValue lispInteger(std::int64_t value)
{
    const auto narrow = static_cast<std::int32_t>(value);
    return narrow == value ? LispValue(narrow) : LispValue(static_cast<double>(value));
}

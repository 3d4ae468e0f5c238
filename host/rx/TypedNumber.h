#pragma once

#include <optional>
#include <string>
#include <string_view>

/// A number as a user types it: digits with a sign, a point, an exponent; the whole text. Nothing for anything else,
/// nor for what is no finite number.
std::optional<double> typedNumber(std::wstring_view text);

/// The shortest text that reads as the same number.
std::wstring fullNumberText(double value);

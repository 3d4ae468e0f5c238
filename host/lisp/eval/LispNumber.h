#pragma once

#include <optional>
#include <string_view>

#include "lisp/eval/LispValue.h"

/// The number that a text is, all of it: digits with an optional sign are an integer, or a real beyond 32 bits; a point
/// or an exponent makes a real. Nothing for anything else, nor beyond the reals.
std::optional<LispValue> lispNumber(std::wstring_view text);

/// The number at the start of a text, blanks passed, as atof and atoi read it; 0 when there is none.
double leadingReal(std::wstring_view text);
std::int32_t leadingInteger(std::wstring_view text);

/// The integer, or the real when it goes beyond 32 bits.
LispValue lispInteger(std::int64_t value);

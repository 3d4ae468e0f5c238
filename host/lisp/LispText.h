#pragma once

#include <string>
#include <string_view>

#include "adsdef.h"

/// Values as AutoLISP shows them: texts between quotes, reals with six digits, lists between parentheses.
/// Several values are separated by blanks; "no value" is the empty text.
std::wstring lispText(const resbuf* values);

/// The same for single values.
std::wstring lispRealText(double value);
std::wstring lispQuotedText(std::wstring_view text);
/// `type` is RTENAME or RTPICKS.
std::wstring lispNameText(int type, std::int64_t name);

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The visible text of a multi-line text, a line each: codes for looks are dropped, stacked numbers are read as
/// "1/2", control codes as the characters that they show.
std::vector<std::wstring> visibleLines(std::wstring_view contents);

#pragma once

#include <string_view>

/// Whether `text` matches the pattern, as acutWcMatch documents: # @ . * ? [..] [~..] ~ ` and commas.
/// Time: length of the text times length of the pattern, at worst.
bool wildcardMatch(std::wstring_view text, std::wstring_view pattern);

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Separators of traverse files: a key may be followed by an equals sign, a colon or blanks alike.
inline constexpr wchar_t separateursPolygonale[] = L" \t:=";

/// Cuts a line into its tokens.
/// A line that is empty or begins with "*" has none. A double quote that begins a token makes it run to the next quote
/// or the end of the line, separators included, the quotes dropped; any other token runs to the next separator, so
/// that a quote inside it is a plain character. Empty tokens are not kept.
void decouperLigne(std::wstring_view ligne, std::wstring_view separateurs, std::vector<std::wstring>& elements);

/// "« mot » n'est pas compris."
std::wstring pasCompris(const std::wstring& mot);

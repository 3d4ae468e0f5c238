#pragma once

#include <string_view>

/// Widths of texts, in heights of a capital letter at a width factor of 1. All texts are shown in one font, whose
/// widths stand here, so that what is picked is what is painted, whatever fonts a machine has.

/// From the beginning of a character to that of the next one. Control characters have none.
double characterWidth(wchar_t character);
double textWidth(std::wstring_view text);

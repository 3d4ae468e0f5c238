#pragma once

#include <string_view>

/// The plain conversions of texts in code files: leading blanks and a sign, then digits; the rest of the text does not
/// count, and text that does not begin with a number reads as 0. An integer beyond 32 bits is held to the limit.
int entierDeTexte(std::wstring_view texte);

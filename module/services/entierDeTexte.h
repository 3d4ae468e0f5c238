#pragma once

#include <string_view>

/// The plain reading of whole numbers in code files and typed fields: leading blanks and a sign, then digits; the rest
/// of the text does not count, and text that does not begin with a number reads as 0. One beyond 32 bits is held to the
/// limit.
int entierDeTexte(std::wstring_view texte);

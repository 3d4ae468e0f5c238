#pragma once

#include <string>
#include <string_view>

/// The plain text-to-number conversion of typed cells and traverse files: leading blanks are skipped, the longest
/// number that follows is read (full stop, optional exponent) and the rest of the text does not count; text that does
/// not begin with a number reads as 0, "inf", "nan" and hexadecimal included. A number too large is infinite.
/// The decimal sign is a full stop whatever the user's locale.
/// @param entierement if given, receives whether the whole text (but blanks around it) was a number.
double reelDeTexte(std::wstring_view texte, bool* entierement = nullptr);

/// French sentence for a text that is not wholly a number, such as "217,63" which reads as 217; empty for one that is.
/// @param nomme what the sentence calls it: "la distance"
std::wstring remarqueNombre(std::wstring_view nomme, std::wstring_view texte);

#pragma once

#include <string>
#include <string_view>

/// The plain text-to-number conversion of typed cells and traverse files: leading blanks are skipped, the longest
/// number that follows is read (full stop, optional exponent) and the rest of the text does not count; text that does
/// not begin with a number reads as 0, "inf", "nan" and hexadecimal included. A number too large is infinite.
/// The decimal sign is a full stop whatever the user's locale.
/// @param entierement if given, receives whether the whole text (but blanks around it) was a number.
double reelDeTexte(std::wstring_view texte, bool* entierement = nullptr);

/// "« texte » n'est pas un nombre."
std::wstring pasUnNombre(std::wstring_view texte);

// French sentences for a text that is not wholly a number, such as "217,63"; empty for one that is. `nomme` is what
// they call it: "la distance".

/// Where it is refused.
std::wstring refusNombre(std::wstring_view nomme, std::wstring_view texte);
/// Where it is taken as reelDeTexte reads it, as 217.
std::wstring remarqueNombre(std::wstring_view nomme, std::wstring_view texte);

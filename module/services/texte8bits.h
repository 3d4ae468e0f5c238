#pragma once

#include <cstddef>
#include <string_view>

/// Narrow text in the 8-bit code page, Windows-1252.

/// The lower-case letter of the same page, accents included; anything else as it is.
char minuscule8(char c);

/// Whether the two texts differ by letter case only.
bool memesLettres(std::string_view a, std::string_view b);

/// `texte` without the characters of `blancs` at both ends.
std::string_view sansBlancs(std::string_view texte, std::string_view blancs);

/// Converts to the code page, cut to what fits in `taille` bytes with the terminating zero; the rest of `cible` is
/// filled with zeros. A character that the page cannot hold becomes "?". A null text is empty.
void convertirEn8bits(const wchar_t* texte, char* cible, std::size_t taille);

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Letter case of the letters of Windows-1252, accents included, and blanks.

/// The lower-case letter; anything else as it is.
wchar_t minuscule(wchar_t c);
/// The capital; anything else as it is.
wchar_t majuscule(wchar_t c);
/// The same for a byte of the code page.
char minuscule8(char c);

std::wstring enMinuscules(std::wstring texte);
std::wstring enMajuscules(std::wstring texte);

/// Whether two texts in the code page differ by letter case only.
bool memesLettres(std::string_view a, std::string_view b);
bool memesLettres(std::wstring_view a, std::wstring_view b);

/// `texte` without the characters of `blancs` at both ends.
std::string_view sansBlancs(std::string_view texte, std::string_view blancs);
std::wstring_view sansBlancs(std::wstring_view texte, std::wstring_view blancs);

/// Characters that do not count at the ends of names, paths and lines that users type.
inline constexpr std::wstring_view blancsSaisie = L" \t,;.";

/// The parts of a text between characters of `separateurs`; empty ones are left out.
std::vector<std::wstring_view> parties(std::wstring_view texte, std::wstring_view separateurs);

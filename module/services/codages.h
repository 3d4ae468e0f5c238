#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Narrow texts of files, reports and point names are Windows-1252 on every platform; those of XML are UTF-8, and files
// that users bring may be.

/// One byte a character; one outside the code page becomes "?". @param entier if given, receives whether none was
std::string versAnsi(std::wstring_view texte, bool* entier = nullptr);

/// The same into a buffer of `taille` bytes: cut to what fits with the terminating zero, the rest filled with zeros. A
/// null text is empty.
void versAnsi(const wchar_t* texte, char* cible, std::size_t taille);

/// Every byte has a character: the five that the code page leaves free stand for the control codes of that number,
/// so that bytes read and written again stay the same.
std::wstring depuisAnsi(std::string_view octets);

/// Appends a character in UTF-8.
void ajouterUtf8(std::string& octets, char32_t c);

/// What is no character (half of a pair) becomes "?".
std::string versUtf8(std::wstring_view texte);

/// A sequence that is cut short, longer than it need be or beyond all characters becomes "?".
/// @param entier if given, receives whether there was none
std::wstring depuisUtf8(std::string_view octets, bool* entier = nullptr);

/// Whether the bytes can be UTF-8.
bool estUtf8(std::string_view octets);
/// Whether they can, and hold more than ASCII: of 16-bit characters. Texts in Windows-1252 are not made so, but for a
/// few odd words.
bool sembleUtf8(std::string_view octets);

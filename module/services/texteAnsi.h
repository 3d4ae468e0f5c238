#pragma once

#include <string>
#include <string_view>

// Narrow texts of files and reports are Windows-1252 on every platform; files that users bring may be in UTF-8.

/// One byte a character; a character outside the code page becomes "?".
std::string versAnsi(std::wstring_view texte);

/// Every byte has a character: the five that the code page leaves free stand for the control codes of that number,
/// so that bytes read and written again stay the same.
std::wstring depuisAnsi(std::string_view octets);

/// A sequence that is cut short or beyond the 16-bit characters becomes "?".
std::wstring depuisUtf8(std::string_view octets);

/// Appends a character in UTF-8.
void ajouterUtf8(std::string& texte, char32_t caractere);

/// Whether the bytes are a text in UTF-8 that holds more than ASCII: sequences that are whole, in their shortest form,
/// of 16-bit characters. Texts in Windows-1252 are not made so, but for a few odd words.
bool sembleUtf8(std::string_view octets);

/// Lower case of the letters of the code page, accents included.
std::wstring enMinuscules(std::wstring texte);

#pragma once

#include <string>

/// The greatest number of new points: nine digits, as many characters as a name has.
inline constexpr int plusGrandNumero = 999999999;

/// Why a table cannot keep a name as it is, in French: too long, or a character that Windows-1252 has not. Empty when
/// it can. Names that stand twice are none of it.
std::wstring refusDuNom(const std::wstring& nom);

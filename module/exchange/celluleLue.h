#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Cells of other programs' point files: cutting lines, and what cells mean.

/// Cuts a line at a separator, or at runs of blanks and tabs for ' '. Cells lose the blanks around them and the quotes
/// they stand between. @return whether every quote is closed; otherwise the last cell runs to the end of the line
bool decouperCellules(std::string_view ligne, char separateur, std::vector<std::string>& cellules);

/// A number that fills the cell; its decimal sign is a full stop or a comma.
std::optional<double> nombreDeCellule(std::string_view cellule);
/// A whole number of 32 bits that fills the cell.
std::optional<int> entierDeCellule(std::string_view cellule);

/// @param utf8 false: the code page, unless the bytes are made as UTF-8
std::wstring texteDeCellule(std::string_view octets, bool utf8);

/// Joins with a blank.
void ajouterMots(std::wstring& texte, std::wstring_view mots);

/// A point's name in the code page. Characters outside it become "?", which is added to `remarque`.
std::string nomDePoint(std::wstring_view nom, std::wstring& remarque);

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "calculs/donneesPolygonale.h"

/// Cells of one line that a spreadsheet or a list puts on the clipboard, between tabs or, where there is none,
/// semicolons; without the blanks around them.
std::vector<std::wstring> cellulesCollees(std::wstring_view ligne);
/// "1 234,50" as "1234.50": how spreadsheets show numbers in French.
std::wstring nombreColle(std::wstring cellule);

/// Rows of a traverse, from the text that a spreadsheet or a list puts on the clipboard: station, angle, distance and,
/// if there is one, height difference, between tabs or semicolons, one row a line. Columns beyond the fourth do not
/// count. A comma inside a number becomes a full stop, blanks inside it go; an empty height is 0. Lines without an
/// angle and a distance, such as headings, are left out.
struct collage {
    std::vector<ligneObservation> lignes;
    std::size_t laissees = 0; ///< lines left out, but for empty ones
    std::wstring premiere;    ///< the first of them
};
collage lignesCollees(std::wstring_view texte);

/// French sentence for the lines left out; empty when there are none.
std::wstring remarqueCollage(const collage& colle);

/// The same the other way round, between tabs.
std::wstring texteDesLignes(const std::vector<ligneObservation>& lignes);

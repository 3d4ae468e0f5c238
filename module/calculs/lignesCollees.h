#pragma once

#include <string_view>
#include <vector>

#include "calculs/donneesPolygonale.h"

/// Rows of a traverse from the text that a spreadsheet or a list puts on the clipboard: station, angle, distance and,
/// if there is one, height difference, between tabs or semicolons, one row a line. Columns beyond the fourth do not
/// count. A comma inside a number becomes a full stop, blanks inside it go; an empty height is 0. Lines without an
/// angle and a distance, such as headings, are left out.
std::vector<ligneObservation> lignesCollees(std::wstring_view texte);

/// The same the other way round, between tabs.
std::wstring texteDesLignes(const std::vector<ligneObservation>& lignes);

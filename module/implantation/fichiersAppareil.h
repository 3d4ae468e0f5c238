#pragma once

#include "implantation/resultatImplantation.h"

/// A job as files. Texts in Windows-1252, lines end with a line feed; the last one too.

/// Columns parted by semicolons under a line of titles: for each station a row "S", then a row "P" for each of its
/// points, with angle and distances; points without station last. An unknown value is an empty cell.
std::string colonnesImplantation(const resultatImplantation& resultat);

/// Coordinate words of instruments, in metres: a block a line, of the point's number (11), east, north, height (81 82
/// 83); for a setup the coordinates of the station (84 85 86). A block of long words (16 characters, unit 0.1 mm)
/// begins with "*"; short ones (8 characters) are in mm.
/// @param ecartes names of places that the short words have no room for, or without known X and Y: they are left out
std::string motsImplantation(const resultatImplantation& resultat, bool longs, std::vector<std::wstring>& ecartes);

/// {"points":[{"nom","station","angle" (grades),"distance","reference","visible","hauteurVisible","distancePente",
/// "denivelee","x","y","z"}]}, UTF-8: a value that is not known is null, and so is "visible" for a sight that was not
/// checked. "visible" is true or false. "terrainPerime":true follows the points where the ground was out of date.
std::string jsonImplantation(const resultatImplantation& resultat);

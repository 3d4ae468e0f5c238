#pragma once

#include <string>

/// A DWG drawing of the R2000 version, written bit by bit from the format's published description, for tests: no
/// library at hand writes DWG, and a drawing of someone else's is not ours to ship.
///
/// Layers "0", on, and "Bâti", off and locked; linetype "Pointillé", dashes 12.5 and 0.5 with gaps of 6. In model
/// space: a POINT (handle 1E) at (1.5, -2.25, 101.125) on layer "Bâti", with extended data of application "SURVEY":
/// 1000 "Levés", 1040 -0.0625, 1071 70000; an INSERT (1F) of block "BORNE" at (10, 20, 0) with an attribute NOM =
/// "B.12" and an extension dictionary, whose xrecord "FICHE" holds 300 "borne". In the root dictionary xrecord "LEVE":
/// 1 "Été 2015", 40 1e38, 10 (4512.5, -7.25, 0.125), 70 12, 90 123456.
std::string dwgSample();

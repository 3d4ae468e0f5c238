#pragma once

#include <cstdint>
#include <string>

#include "sol/semisTerrain.h"

#include "sourcesTerrain.h"

/// What was found in the drawing, and what was left out.
struct recolteTerrain {
    semisTerrain semis;
    int points = 0, textes = 0, lignes = 0, contours = 0; ///< taken
    int sansAltitude = 0;                                 ///< symbols and points of tables without an altitude
    int aPlat = 0;                                        ///< left out: all at altitude 0 beside others that are not
    int textesLus = 0;                                    ///< left out: texts that are no number with decimals
    int traces = 0;      ///< left out: contours, profiles and triangles drawn of a model, which know no more than it
    int redites = 0;     ///< left out: texts that repeat the altitude of a point beside them
    int coordonnees = 0; ///< left out: figures of grids, of tables of coordinates, of stake-outs
    int inutiles = 0;    ///< left out: of other kinds, erased, outlines that are no lines

    /// In French, for the command line; each line begins with a line break.
    std::wstring texte() const;
};

/// Reads the sources. An object gives:
///   a point, its position; a symbol of a point of the tables, that point; another block, its altitude attribute, else
///   its position; a text that is a number with decimals, that altitude at its insertion;
///   a line, a polyline, an arc or another curve, a break line (curved parts by chords); a 3D face, its outline.
/// Lines on the layer "MNT_LIMITE" are limits and those on "MNT_TROU" holes, as are those chosen as such; one without
/// altitude (0 at every vertex) is laid upon the ground. What stands whole at altitude 0 has no altitude, unless
/// everything does.
recolteTerrain recolter(const sourcesTerrain& sources);

inline constexpr wchar_t calqueLimites[] = L"MNT_LIMITE";
inline constexpr wchar_t calqueTrous[] = L"MNT_TROU";

/// A number that differs, as good as always, between points and lines that differ.
std::uint64_t empreinte(const semisTerrain& semis);
/// The same of every point of the current drawing's tables.
std::uint64_t empreinteDesTables();

#pragma once

#include <array>
#include <string>

#include "gevec2d.h"

class listePointsDuDessin;

/// Points of a table taken from entities of the drawing: listePointsDuDessin::importFromDrawing is defined here.

/// Kinds of entities, one bit each.
enum genreEntite {
    genreAnciennePolyligne = 1,
    genreMaillage = 2,
    genrePolyligne3d = 4,
    genreBloc = 8,
    genreSymbole = 16, ///< blocks with the attributes of point symbols
    genreBlocAttributs = 32,
    genreFacette = 64,
    genreLigne = 128,
    genrePolyligne = 256,
    genrePoint = 512,
    genrePolyface = 1024,
    genreTexte = 2048,
    tousLesGenres = 4095
};

/// Codes that the points of each kind get, 9999 down to 9988. May be changed.
extern std::array<int, 12> codesImportation;

struct demandeImportation {
    int genres = 0;
    std::wstring tagNumero, tagAltitude, tagCode; ///< of genreBlocAttributs
    AcGeVector2d decalage;                        ///< of single-line texts
};

/// Runs the import on the table, as one undo group.
void releverEntites(listePointsDuDessin& table, const demandeImportation& demande);

#pragma once

class listePointsDuDessin;
class pointDuDessin;

/// Puts a point that the user edited in place of one of the table's (`position`), or at its end (-1), and brings its
/// symbol in line: name, altitude, place, and when the code changed its look; a point without symbol gets one. One undo
/// step. @return the point's position.
/// @param dessine false when the block of its code could not be had: the symbol is missing, or as it was
int enregistrerPoint(listePointsDuDessin& table, int position, const pointDuDessin& point, bool& dessine);

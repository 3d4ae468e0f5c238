#pragma once

#include <span>
#include <string>
#include <vector>

#include "tools/pointNomme.h"

class listePointsDuDessin;

/// Points of a table and their symbols, changed by the tools. Each call is one step of undo.

std::vector<pointNomme> pointsNommes(const listePointsDuDessin& table, std::span<const int> positions);

/// A point to be made; `observation` goes to its symbol.
struct pointACreer {
    pointNomme point;
    std::wstring observation;
};
/// Why a table cannot keep one of their names, in French; empty when it can keep them all.
std::wstring refusDesNoms(std::span<const pointACreer> points);
/// Appends them to the table and draws their symbols.
void creerPoints(listePointsDuDessin& table, std::span<const pointACreer> points, int code);

/// Gives points new places, their symbols along. Those whose symbol is on a locked layer stay, and are told at the
/// command line. @return how many moved.
int deplacerPoints(listePointsDuDessin& table, std::span<const int> positions, std::span<const point3> places);

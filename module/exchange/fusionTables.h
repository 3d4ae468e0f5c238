#pragma once

#include <span>

class projetsTopo;

/// A longer name of a table could be stored and not be read again, and the project be lost with it.
inline constexpr int longueurNomTable = 255;

/// Appends to the project a table that holds the points of others, in their order, renumbered from 1 with the symbols
/// that show them. It is named after them, "A + B"; they stay, and so does the current table.
/// @param places of the tables to merge, at least one
void fusionnerTables(projetsTopo& projet, std::span<const int> places);

#pragma once

#include <span>

#include "exchange/tableauCoordonnees.h"

class listePointsDuDessin;
class tableCodification;

/// The settings that the user chose last.
paramsTable lireParamsTable();
void garderParamsTable(const paramsTable& params);

/// Draws the table of these points of a table in model space: asks for its position, its outline at the cursor, or
/// puts it in place of the one drawn last, when the drawing has one and the user wants so. One undo group.
/// @return whether it was drawn; a drawing that refuses it is told of, and is as it was
bool placerTableau(const listePointsDuDessin& table, std::span<const int> places, const tableCodification& codes,
                   const paramsTable& params);

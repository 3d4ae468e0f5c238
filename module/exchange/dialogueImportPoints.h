#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exchange/ajoutPoints.h"

/// Asks for a point file, for its columns where it has separated ones, and for what becomes of names that exist, and
/// adds its points to the table.
/// @return what the user is to read: how many points, which lines gave none; nothing when the user gave up
std::optional<std::vector<std::wstring>> importerFichierPoints(listePointsDuDessin& table,
                                                               observationsEnAttente& observations);

#pragma once

#include "exchange/exportTable.h"

/// Maps of points, written by a library of its own that is loaded when one is asked for: what it stands on is large,
/// and no other command needs it.

/// The name of the format of a file of that extension, as the map library calls it; null when it is no map.
const char* formatCarte(const std::filesystem::path& fichier);

issueExport exporterCarte(const std::filesystem::path& fichier, const std::string& projection,
                          const tableCodification& codes, const pointSuivant& suivant);

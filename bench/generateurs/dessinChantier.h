#pragma once

#include <filesystem>

/// Writes the site drawing of `examples/`: a hamlet along two lanes, where the example traverse runs.
/// Parcels and buildings, lane edges with arcs, contour lines, trees, spot heights; layers with French names.
/// @throws std::runtime_error when the file cannot be written
void ecrireDessinChantier(const std::filesystem::path& fichier);

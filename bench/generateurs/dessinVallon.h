#pragma once

#include <filesystem>

/// Writes the ground drawing of `examples/`: a small valley in Lambert coordinates, surveyed as scattered points and
/// break lines (a stream, a path with its banks, a wall), with the limit of the survey and a pond.
/// @throws std::runtime_error when the file cannot be written
void ecrireDessinVallon(const std::filesystem::path& fichier);

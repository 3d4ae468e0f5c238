#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

class listePointsDuDessin;
class tableCodification;

/// Asks for a file and writes points of the table to it, in the order of their places.
/// @return what the user is to read; nothing when the user gave up
std::optional<std::vector<std::wstring>>
exporterFichierPoints(const listePointsDuDessin& table, std::span<const int> places, const tableCodification& codes);

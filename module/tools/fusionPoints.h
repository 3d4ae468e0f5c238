#pragma once

#include <string>
#include <vector>

/// Which points of overlapping groups stay and which go. Groups hold positions in a table.
struct fusionPoints {
    struct garde {
        int position;
        std::vector<int> partent; ///< their observations go to it
    };
    std::vector<garde> gardes;
};

/// In each group with a position among `choisis` (ascending) these stay, and the first of them takes what the others
/// leave. Groups without one stay as they are.
fusionPoints fusionner(const std::vector<std::vector<int>>& groupes, const std::vector<int>& choisis);

/// One observation of several: each once, in their order, parted by " / "; empty ones left out.
std::wstring observationsReunies(const std::vector<std::wstring>& observations);

#include "sol/ordreVoisinage.h"

#include <algorithm>

namespace {

/// The triangles' new numbers: sorted by their first vertex.
std::vector<int> rangsDesTriangles(const std::vector<triangleSol>& triangles, std::size_t nombreSommets)
{
    const auto premier = [](const triangleSol& t) {
        return static_cast<std::size_t>(*std::min_element(t.sommets.begin(), t.sommets.end()));
    };
    std::vector<int> debuts(nombreSommets + 1, 0), rangs;
    for (const triangleSol& t : triangles)
        ++debuts[premier(t) + 1];
    for (std::size_t s = 1; s < debuts.size(); ++s)
        debuts[s] += debuts[s - 1];
    rangs.reserve(triangles.size());
    for (const triangleSol& t : triangles)
        rangs.push_back(debuts[premier(t)]++);
    return rangs;
}

} // namespace

void rapprocher(std::vector<sommetSol>& sommets, std::vector<triangleSol>& triangles, const std::vector<int>& ordre)
{
    std::vector<int> rangs(sommets.size());
    std::vector<sommetSol> ranges;
    ranges.reserve(sommets.size());
    for (const int s : ordre) {
        rangs[static_cast<std::size_t>(s)] = static_cast<int>(ranges.size());
        ranges.push_back(sommets[static_cast<std::size_t>(s)]);
    }
    sommets = std::move(ranges);
    for (triangleSol& t : triangles)
        for (int& s : t.sommets)
            s = rangs[static_cast<std::size_t>(s)];

    const std::vector<int> places = rangsDesTriangles(triangles, sommets.size());
    std::vector<triangleSol> deplaces(triangles.size());
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        triangleSol t = triangles[i];
        for (int& v : t.voisins)
            v = v < 0 ? v : places[static_cast<std::size_t>(v)];
        deplaces[static_cast<std::size_t>(places[i])] = t;
    }
    triangles = std::move(deplaces);
}

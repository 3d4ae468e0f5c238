#pragma once

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "points/pointDuDessin.h"

#include "dbid.h"

/// Finds the first point that a given entity shows, so that moving many symbols does not walk the table for each.
/// Points are indexed when a look-up needs them, and again when they may have changed: an answer is always checked
/// against the points.
class indexObjets {
public:
    /// Position of the first of `points` drawn as `id`, or -1.
    int chercher(const AcDbObjectId& id, std::span<const pointDuDessin> points);
    /// The entity of this point may change.
    void suspecter(int position);
    /// Points from there on were removed.
    void raccourcir(std::size_t nombre);
    /// Any entity, or the order of the points, may have changed.
    void suspecterTout();

private:
    int trouver(const AcDbObjectId& id, std::span<const pointDuDessin> points) const;
    void mettreAJour(std::span<const pointDuDessin> points);

    std::unordered_map<std::int64_t, int> positions;
    std::size_t indexes = 0; // points from here on were never indexed
    std::vector<int> suspects;
};

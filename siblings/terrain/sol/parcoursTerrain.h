#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "sol/maillageTerrain.h"

/// Finds its way on a ground: which triangle holds a place, what is below it, what a sight passes over.
/// Remembers where it was last: places asked for in a row are found in the time of the way between them, others in a
/// few steps. Not for two threads at once; the ground must outlive it.
class parcoursTerrain {
public:
    explicit parcoursTerrain(const maillageTerrain& leMaillage) : sol(leMaillage) {}

    /// A triangle whose closed area holds the place, part of the model or not; -1 outside the hull.
    int triangleEn(const lieuSol& lieu);
    /// The same, a triangle of the model; -1 when none holds the place. On the limit counts as inside.
    int triangleDedans(const lieuSol& lieu);
    /// Altitude of the ground; nothing outside the model.
    std::optional<double> altitude(const lieuSol& lieu);

    /// The ground under a segment: one polyline where the model has no gap, each of two points at least. Time: the
    /// triangles crossed, and the hull's sides when the segment begins outside.
    using polylignes = std::vector<std::vector<sommetSol>>;
    void profil(const lieuSol& de, const lieuSol& vers, polylignes& troncons);
    polylignes profil(const lieuSol& de, const lieuSol& vers);

    /// A triangle of the hull that the segment crosses or holds one of its ends; -1 when it misses the hull.
    int triangleSurSegment(const lieuSol& de, const lieuSol& vers);

private:
    struct traversee;

    void autour(int t, const lieuSol& lieu);

    const maillageTerrain& sol;
    int dernier = -1;
    std::uint32_t hasard = 1;   // which side is tried first: a walk that always tried the same could turn in a circle
    std::vector<int> voisinage; // triangles that hold the place last asked for
};

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "services/grandeur.h"

/// Spreading points over stations.

struct choixRepartition {
    double portee = inconnu; ///< no point farther from its station
    bool equilibree = false; ///< as many points at each station as sights and range allow
};

/// What a station sees of a point.
struct vueDuPoint {
    bool vu = false;
    double manque = inconnu; ///< for a hidden point: by how much the worst obstruction is too high
};

struct repartition {
    static constexpr std::size_t aucune = SIZE_MAX;

    std::vector<std::size_t> stations; ///< of each point; `aucune` where no station sees it
    std::vector<double> manques;       ///< of these, the least over the stations in range; `inconnu` when none is
};

/// Each point goes to the nearest station that sees it within the range, the first of equals. When balanced, the
/// station with most points has as few as can be; among such ways, points still go to near stations, as one after the
/// other finds room.
/// @param distance, voir of (point, station); `voir` is asked for as few pairs as do
repartition repartir(std::size_t points, std::size_t stations, const choixRepartition& choix,
                     const std::function<double(std::size_t, std::size_t)>& distance,
                     const std::function<vueDuPoint(std::size_t, std::size_t)>& voir);

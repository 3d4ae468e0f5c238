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

/// Why a station does not serve a point, the better known the later.
enum class refusStation {
    horsDePortee,
    memeLieu, ///< the point is where the station stands
    sansSol,  ///< no ground along the sight: nobody knows
    obstruee,
};

/// What a station sees of a point.
struct vueDuPoint {
    bool vu = false;
    refusStation refus = refusStation::sansSol; ///< of a point that is not seen
    double manque = inconnu;                    ///< obstructed: by how much the worst obstruction is too high
};

/// A point and a station, by their positions.
struct paireRepartition {
    std::size_t point, station;
};

struct repartition {
    static constexpr std::size_t aucune = SIZE_MAX;
    /// What the stations say together of a point that none serves.
    struct refus {
        refusStation pourquoi = refusStation::horsDePortee;
        double manque = inconnu; ///< the least
    };

    std::vector<std::size_t> stations; ///< of each point; `aucune` where no station sees it
    std::vector<refus> refusees;       ///< of each point; of no meaning where one does
};

/// Each point goes to the nearest station that sees it within the range, the first of equals; never to one at its own
/// place. When balanced, stations have as even numbers of points as can be, and among such ways the sum of the
/// distances is the least.
/// @param distance of (point, station)
/// @param voir what is seen, for many pairs at a time; asked for as few pairs as do
repartition repartir(std::size_t points, std::size_t stations, const choixRepartition& choix,
                     const std::function<double(std::size_t, std::size_t)>& distance,
                     const std::function<std::vector<vueDuPoint>(const std::vector<paireRepartition>&)>& voir);

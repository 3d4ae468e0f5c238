#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "implantation/obstaclesPlan.h"

/// Sights over the ground and its obstacles. Lengths in drawing units.

/// The ground as sights ask for it.
class solImplantation {
public:
    using polyligne = std::vector<point3>;

    virtual ~solImplantation() = default;
    /// Altitude at a place. @return false, `z` as it was, where there is no ground
    virtual bool altitude(point2 place, double& z) const = 0;
    /// The ground along a segment, in the order of the way: one polyline, several where the ground has gaps.
    /// @return false when there is none
    virtual bool profil(point2 de, point2 vers, std::vector<polyligne>& lignes) const = 0;
};

inline constexpr std::size_t leSol = SIZE_MAX;

/// Something that rises above a sight.
struct obstruction {
    double hauteur = 0.0;     ///< square to the sight
    double depassement = 0.0; ///< upright
    double distance = 0.0;    ///< from the station, horizontal
    point3 place;
    std::size_t obstacle = leSol; ///< which one, or the ground
};

/// What stands along a sight, seen from the side: horizontal distances from the station, and heights.
struct coupeVisee {
    struct sommet {
        double distance;
        point3 place;
    };
    struct traversee {
        double distance;
        point3 sol; ///< the ground under the obstacle
        double hauteur;
        std::size_t obstacle;
    };
    point2 debut, fin; ///< of the line of sight: distance, height
    std::vector<std::vector<sommet>> sol;
    std::vector<traversee> obstacles;

    /// Length of the sight under which there is no ground.
    double sansSol() const;
};

/// A sight, seen from above.
struct viseeEnPlan {
    point2 station, point;
};

/// An order in which each sight runs near the one before it: station by station, round the horizon. Over a large ground
/// sights wait for memory more than for anything else, and this way most of it is still at hand: over a million
/// triangles they take half the time (bench/implantation).
std::vector<std::size_t> ordreDesVisees(const std::vector<viseeEnPlan>& visees);

/// By how much a place at that distance and height rises above the infinite line through two points, square to it; 0
/// for one that is on it or below. `debut` lies left of `fin`, or both are one place, which nothing rises above.
double hauteurAuDessus(point2 debut, point2 fin, point2 place);

/// @param station, point where the instrument and the target stand; altitudes are known
/// @param hauteur of both the instrument and the target above these places
/// @return nothing where the ground has no profile
std::optional<coupeVisee> couper(const solImplantation& sol, const obstaclesPlan& obstacles, point3 station,
                                 point3 point, double hauteur);

/// What rises most above the sight, the first of equals: the ground before obstacles. Nothing when all is below.
std::optional<obstruction> pireObstruction(const coupeVisee& coupe);

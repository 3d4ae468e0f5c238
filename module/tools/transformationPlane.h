#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "geometrie/plan.h"

/// Plane transformations from pairs of points, by least squares.

/// X = a·x − b·y + tx, Y = b'·x + a'·y + ty; of a similarity a = a' and b = b'. Reckoned from the centre of the
/// source points, so that coordinates far from the origin lose nothing.
struct transformationPlane {
    point2 centre, cible;                          ///< where the centre goes
    double xx = 1.0, xy = 0.0, yx = 0.0, yy = 1.0; ///< X from x, X from y, Y from x, Y from y

    double determinant() const { return xx * yy - xy * yx; }
    point2 appliquer(point2 p) const
    {
        const point2 d = p - centre;
        return cible + point2{xx * d.x + xy * d.y, yx * d.x + yy * d.y};
    }
    /// Where the origin of coordinates goes.
    point2 translation() const { return appliquer({0.0, 0.0}); }
    /// Of a similarity: factor of lengths, and angle in radians, counter-clockwise in ]-π, π].
    double echelle() const { return std::hypot(xx, yx); }
    double rotation() const { return std::atan2(yx, xx); }
};

inline constexpr double coordonneeAuPlus = 1e36; ///< as in every field

enum class typeTransformation { translation, similitude, affine };

struct couplePoints {
    std::wstring nom;
    point2 source, cible;
    double poids = 1.0; ///< above 0
    bool actif = true;
};

struct ecartCouple {
    double vx = 0.0, vy = 0.0;       ///< transformed source minus target, for pairs that are switched off too
    double redondance = 0.0;         ///< share of an error that shows in the residual, 0 to 1
    std::optional<double> normalise; ///< residual in its own standard deviations; none without redundancy
};

struct resultatTransformation {
    transformationPlane transformation;
    std::vector<ecartCouple> ecarts; ///< one a pair
    int degresDeLiberte = 0;
    std::optional<double> s0;        ///< standard deviation of a coordinate of weight 1; none without redundancy
    double sigmaCentre = 0.0;        ///< of where the centre goes, either axis, for s0 = 1
    double sigmaTranslation = 0.0;   ///< of where the origin goes, either axis, for s0 = 1
    double sigmaX = 0.0;             ///< of xx and yx, for s0 = 1; 0 for a translation, which has no such unknown
    double sigmaY = 0.0;             ///< of xy and yy, for s0 = 1
    std::optional<std::size_t> pire; ///< the pair that fits worst; none when none stands out
};

/// @return what is wrong, in French, when there are too few active pairs, or their places do not tell the
///         transformation (all at one place; for an affine one, all in line), or a coordinate is beyond
///         `coordonneeAuPlus`.
std::variant<resultatTransformation, std::wstring> calculerTransformation(std::span<const couplePoints> couples,
                                                                          typeTransformation type);

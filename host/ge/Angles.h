#pragma once

#include <cmath>
#include <numbers>

/// Angles are radians, counter-clockwise from the X axis.

inline constexpr double wholeTurn = 2.0 * std::numbers::pi;
inline constexpr double halfTurn = std::numbers::pi;
inline constexpr double quarterTurn = std::numbers::pi / 2.0;
inline constexpr double oneDegree = std::numbers::pi / 180.0;
inline constexpr double oneGrad = std::numbers::pi / 200.0;

/// The same direction, in [0, a whole turn).
inline double inOneTurn(double angle)
{
    const double rest = std::fmod(angle, wholeTurn);
    const double positive = rest < 0.0 ? rest + wholeTurn : rest;
    return positive < wholeTurn ? positive : 0.0; // a hair below zero rounds to a whole turn
}

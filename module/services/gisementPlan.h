#pragma once

/// Bearing from one place to another: π/2 − atan2(ΔY, ΔX), clockwise from north (+Y), plus 2π when negative.
/// @return radians in [0, 2π]: a direction a hair west of north rounds to 2π itself. Two points at the same place give
///         π/2. `inconnu` when a coordinate is.
double gisementPlan(double xDe, double yDe, double xVers, double yVers);

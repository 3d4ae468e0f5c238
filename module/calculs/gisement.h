#pragma once

/// Bearing of the line from a station to a direction: π/2 − atan2(ΔY, ΔX), clockwise from north (+Y), plus one turn
/// when negative, in the angle unit (uniteAngulaire).
/// @return in [0, turn]: a direction a hair west of north rounds to the full turn itself. Two points at the same place
///         give a quarter of a turn. `inconnu` when a coordinate is.
double gisement(double xStation, double yStation, double xDirection, double yDirection, int unite);

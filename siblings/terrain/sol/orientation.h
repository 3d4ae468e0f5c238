#pragma once

#include "sol/sommetSol.h"

/// Twice the area of the triangle a, b, c in plan: positive when c lies to the left of the way from a to b, zero when
/// the three are in line. The sign is exact, whatever the size of the coordinates; the value is the exact one rounded
/// where rounding could have turned the sign.
double orientation(const lieuSol& a, const lieuSol& b, const lieuSol& c);

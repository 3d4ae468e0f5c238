#pragma once

#include "calculs/reseau/resultatReseau.h"

/// Adjusts a network by least squares: approximate places, weights, iterations, precisions, tests, suspects.
/// A network of which a part floats is computed without that part, which the messages name.
/// @throws erreurReseau when nothing can be computed; says what would be missing.
resultatReseau compenser(const reseau& r, const optionsCompensation& options = {});

#pragma once

#include <vector>

#include "calculs/reseau/approcheReseau.h"
#include "calculs/reseau/resultatReseau.h"

/// Which observations take part; why others do not goes into `resultat`.
std::vector<int> observationsRetenues(const reseau& r, const approcheReseau& a, const std::vector<double>& ecarts,
                                      resultatReseau& resultat);

/// Sets aside observations whose points are farther from them than the network's tolerance, unless a few steps of
/// robust estimation show that the approximate places are at fault.
void ecarterHorsTolerance(const reseau& r, const approcheReseau& a, const std::vector<double>& ecarts,
                          std::vector<int>& retenues, resultatReseau& resultat);

/// Why there is nothing to compute.
std::wstring phraseRienACalculer(const reseau& r, const resultatReseau& resultat);

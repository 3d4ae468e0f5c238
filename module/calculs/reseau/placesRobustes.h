#pragma once

#include <vector>

#include "calculs/reseau/equationsObservation.h"

/// Places after some steps of adjustment in which what misfits counts the less the more it does.
coordonneesReseau placesRobustes(const reseau& r, const coordonneesReseau& depart, const std::vector<double>& ecarts,
                                 const std::vector<int>& retenues, int pas);

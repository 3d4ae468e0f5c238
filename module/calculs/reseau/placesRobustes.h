#pragma once

#include <vector>

#include "calculs/reseau/equationsObservation.h"

/// Places after some steps of adjustment in which what misfits counts the less the more it does.
coordonneesReseau placesRobustes(const reseau& r, const coordonneesReseau& depart, const std::vector<double>& ecarts,
                                 const std::vector<int>& retenues, int pas);

/// How well places fit: half of the observations misfit by less than that many of their deviations.
double desaccordMedian(const reseau& r, const coordonneesReseau& c, const std::vector<double>& ecarts,
                       const std::vector<int>& retenues);

#pragma once

#include <vector>

#include "geometrie/plan.h"

/// The texts of model space that read as numbers, single-line and multi-line: their place, the number as altitude.
std::vector<point3> cotesDuDessin();

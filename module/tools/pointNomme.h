#pragma once

#include <string>

#include "geometrie/plan.h"
#include "services/grandeur.h"

/// A survey point as the tools see it; its altitude may be `inconnu`.
struct pointNomme {
    std::wstring nom;
    point3 place;
};

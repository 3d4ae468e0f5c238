#pragma once

#include <random>

#include "sol/semisTerrain.h"

/// Grounds for tests, far from the origin as surveys are.
inline constexpr lieuSol origineLambert{1650000.0, 8180000.0};

inline double altitudeDouce(double x, double y)
{
    return 100.0 + 5.0 * std::sin(x / 37.0) + 4.0 * std::cos(y / 23.0) + (x + y) / 50.0;
}

/// Scattered points of a smooth ground, on a square.
inline semisTerrain semisAleatoire(int nombre, unsigned graine, double cote = 100.0)
{
    std::mt19937 hasard(graine);
    std::uniform_real_distribution<double> entre(0.0, cote);
    semisTerrain semis;
    for (int i = 0; i < nombre; ++i) {
        const double x = entre(hasard), y = entre(hasard);
        semis.points.push_back({{origineLambert.x + x, origineLambert.y + y}, altitudeDouce(x, y)});
    }
    return semis;
}

inline lieuSol lambert(double x, double y)
{
    return {origineLambert.x + x, origineLambert.y + y};
}

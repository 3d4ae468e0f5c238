#include "services/gisementPlan.h"

#include <cmath>
#include <numbers>

#include "services/grandeur.h"

double gisementPlan(double xDe, double yDe, double xVers, double yVers)
{
    const grandeur dx = grandeur(xVers) - xDe;
    const grandeur dy = grandeur(yVers) - yDe;
    if (!dx.connue() || !dy.connue())
        return inconnu;
    const double angle = std::numbers::pi / 2.0 - std::atan2(dy.valeur(), dx.valeur());
    return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
}

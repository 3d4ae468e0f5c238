#include "calculs/gisement.h"

#include <numbers>

#include "calculs/uniteAngulaire.h"
#include "services/gisementPlan.h"
#include "services/grandeur.h"

double gisement(double xStation, double yStation, double xDirection, double yDirection, int unite)
{
    const double angle = gisementPlan(xStation, yStation, xDirection, yDirection);
    if (angle == inconnu || unite == uniteRadians)
        return angle;
    return angle * (tourComplet(unite) / 2.0) / std::numbers::pi;
}

#include "calculs/gisement.h"

#include <cmath>
#include <numbers>

#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"

double gisement(double xStation, double yStation, double xDirection, double yDirection, int unite)
{
    const grandeur dx = grandeur(xDirection) - xStation;
    const grandeur dy = grandeur(yDirection) - yStation;
    if (!dx.connue() || !dy.connue())
        return inconnu;
    double angle = std::numbers::pi / 2.0 - std::atan2(dy.valeur(), dx.valeur());
    if (angle < 0.0)
        angle += tourComplet(uniteRadians);
    return unite == uniteRadians ? angle : angle * (tourComplet(unite) / 2.0) / std::numbers::pi;
}

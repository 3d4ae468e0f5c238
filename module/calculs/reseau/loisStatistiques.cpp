#include "calculs/reseau/loisStatistiques.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double precision = 1e-15;
constexpr int termesMax = 100000;

/// The regularised incomplete gamma function P(a, x): its series where x is small, else one minus Lentz's continued
/// fraction.
double gammaIncomplete(double a, double x)
{
    if (x <= 0.0)
        return 0.0;
    const double facteur = std::exp(a * std::log(x) - x - std::lgamma(a));
    if (x < a + 1.0) {
        double terme = 1.0 / a, somme = terme;
        for (int n = 1; n < termesMax && terme > somme * precision; ++n) {
            terme *= x / (a + n);
            somme += terme;
        }
        return std::min(1.0, somme * facteur);
    }
    constexpr double minuscule = std::numeric_limits<double>::min() / precision;
    double b = x + 1.0 - a, c = 1.0 / minuscule, d = 1.0 / b, h = d;
    for (int n = 1; n < termesMax; ++n) {
        const double an = -n * (n - a);
        b += 2.0;
        d = 1.0 / (an * d + b == 0.0 ? minuscule : an * d + b);
        c = b + an / c == 0.0 ? minuscule : b + an / c;
        h *= d * c;
        if (std::abs(d * c - 1.0) < precision)
            break;
    }
    return 1.0 - facteur * h;
}

/// The continued fraction of the incomplete beta function.
double fractionBeta(double a, double b, double x)
{
    constexpr double minuscule = std::numeric_limits<double>::min() / precision;
    const auto nonNul = [](double v) { return std::abs(v) < minuscule ? minuscule : v; };
    double c = 1.0, d = 1.0 / nonNul(1.0 - (a + b) * x / (a + 1.0)), h = d;
    for (int m = 1; m < termesMax; ++m) {
        const double pair = m * (b - m) * x / ((a + 2.0 * m - 1.0) * (a + 2.0 * m));
        d = 1.0 / nonNul(1.0 + pair * d);
        c = nonNul(1.0 + pair / c);
        h *= d * c;
        const double impair = -(a + m) * (a + b + m) * x / ((a + 2.0 * m) * (a + 2.0 * m + 1.0));
        d = 1.0 / nonNul(1.0 + impair * d);
        c = nonNul(1.0 + impair / c);
        h *= d * c;
        if (std::abs(d * c - 1.0) < precision)
            break;
    }
    return h;
}

double betaIncomplete(double a, double b, double x)
{
    if (x <= 0.0 || x >= 1.0)
        return x <= 0.0 ? 0.0 : 1.0;
    const double facteur =
        std::exp(std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) + a * std::log(x) + b * std::log1p(-x));
    return x < (a + 1.0) / (a + b + 2.0) ? facteur * fractionBeta(a, b, x) / a
                                         : 1.0 - facteur * fractionBeta(b, a, 1.0 - x) / b;
}

} // namespace

double chanceNormale(double x)
{
    return std::erfc(std::abs(x) / std::sqrt(2.0));
}

double chanceStudent(double t, int degres)
{
    return degres < 1 ? 1.0 : betaIncomplete(0.5 * degres, 0.5, degres / (degres + t * t));
}

double repartitionKhi2(double x, int degres)
{
    return degres < 1 ? 1.0 : gammaIncomplete(0.5 * degres, 0.5 * x);
}

double quantileKhi2(double probabilite, int degres)
{
    double bas = 0.0, haut = degres + 10.0;
    while (repartitionKhi2(haut, degres) < probabilite && haut < 1e12)
        haut *= 2.0;
    for (int i = 0; i < 200 && haut - bas > 1e-12 * haut; ++i) {
        const double milieu = 0.5 * (bas + haut);
        (repartitionKhi2(milieu, degres) < probabilite ? bas : haut) = milieu;
    }
    return 0.5 * (bas + haut);
}

double facteurEllipse(double probabilite, int degres)
{
    // Two dimensions make the law of Fisher elementary: (1 + F·2/f)^(−f/2) is the chance to be outside.
    const double dehors = 1.0 - probabilite;
    return degres < 1 ? std::sqrt(-2.0 * std::log(dehors))
                      : std::sqrt(degres * (std::pow(dehors, -2.0 / degres) - 1.0));
}

double mediane(std::vector<double> valeurs)
{
    if (valeurs.empty())
        return 0.0;
    const auto milieu = valeurs.begin() + static_cast<std::ptrdiff_t>(valeurs.size() / 2);
    std::ranges::nth_element(valeurs, milieu);
    if (valeurs.size() % 2 == 1)
        return *milieu;
    return 0.5 * (*std::max_element(valeurs.begin(), milieu) + *milieu);
}

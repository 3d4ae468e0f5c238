#include "tools/rectangleOriente.h"

#include <numbers>

namespace {

/// From `p` to the line through `a` and `b`, reckoned near them: far from the origin of coordinates their products
/// would lose the millimetres.
double distanceALaDroite(point2 p, point2 a, point2 b)
{
    const point2 decalage{std::floor(a.x + b.x) / 2.0, std::floor(a.y + b.y) / 2.0};
    const point2 u = (b - decalage) - (a - decalage), w = (p - decalage) - (a - decalage);
    return std::abs(vectoriel(u, w)) / norme(u);
}

double longueurManhattan(point2 u)
{
    return std::abs(u.x) + std::abs(u.y);
}

/// 1 when `vers` is to the left of `direction`, -1 to its right, 0 as good as along it.
int cote(point2 direction, point2 vers)
{
    const double longueurs = longueurManhattan(direction) * longueurManhattan(vers);
    const double sinus = longueurs > 0.0 ? vectoriel(direction, vers) / longueurs : 0.0;
    return std::abs(sinus) < 1e-8 ? 0 : sinus > 0.0 ? 1 : -1;
}

constexpr double longueurAuxiliaire = 1000.0;

} // namespace

std::array<point2, 4> rectangleOriente::sommets() const
{
    const point2 u{std::cos(rotation), std::sin(rotation)}, w{-u.y, u.x};
    const point2 v1 = origine + u * a, v2 = v1 + w * b;
    return {origine, v1, v2, v2 - u * a};
}

void rectangleOriente::orienterVers(point2 p)
{
    const point2 d = p - origine;
    rotation = std::atan2(d.y, d.x);
    a = norme(d);
}

void rectangleOriente::elargirVers(point2 p)
{
    const point2 vers = p - origine;
    if (std::abs(a) < 1e-12) {
        b = norme(vers);
        rotation = std::atan2(vers.y, vers.x) - std::numbers::pi / 2.0;
        return;
    }
    const point2 bout = origine + point2{std::cos(rotation), std::sin(rotation)} * a;
    b = distanceALaDroite(p, origine, bout);
    if (cote(bout - origine, vers) * (a > 0.0 ? 1 : -1) < 0)
        b = -b;
}

void rectangleOriente::etendreVers(point2 p)
{
    const point2 vers = p - origine;
    if (norme(vers) < 1e-8) {
        a = b = 0.0;
        return;
    }
    const point2 u{std::cos(rotation), std::sin(rotation)}, v{-u.y, u.x};
    a = distanceALaDroite(p, origine, origine + v * longueurAuxiliaire);
    if (cote(v, vers) > 0) // to the left of the second side is behind the origin
        a = -a;
    b = distanceALaDroite(p, origine, origine + u * longueurAuxiliaire);
    if (cote(u, vers) < 0)
        b = -b;
}

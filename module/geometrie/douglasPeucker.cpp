#include "geometrie/douglasPeucker.h"

namespace {

double carreDuSegment(const point3& p, const point3& a, const point3& b)
{
    const double ux = b.x - a.x, uy = b.y - a.y, uz = b.z - a.z;
    const double wx = p.x - a.x, wy = p.y - a.y, wz = p.z - a.z;
    const double carre = ux * ux + uy * uy + uz * uz;
    const double t = carre > 0.0 ? std::clamp((wx * ux + wy * uy + wz * uz) / carre, 0.0, 1.0) : 0.0;
    const double dx = wx - t * ux, dy = wy - t * uy, dz = wz - t * uz;
    return dx * dx + dy * dy + dz * dz;
}

} // namespace

std::vector<std::size_t> sommetsUtiles(std::span<const point3> ligne, double tolerance)
{
    std::vector<std::size_t> utiles;
    if (ligne.empty())
        return utiles;
    utiles.push_back(0);
    std::vector<std::size_t> fins; // ends of the stretches still to look at, the nearest last
    if (ligne.size() > 1)
        fins.push_back(ligne.size() - 1);
    while (!fins.empty()) {
        const std::size_t debut = utiles.back(), fin = fins.back();
        std::size_t loin = debut;
        double carre = tolerance * tolerance;
        for (std::size_t i = debut + 1; i < fin; ++i)
            if (const double d = carreDuSegment(ligne[i], ligne[debut], ligne[fin]); d > carre) {
                carre = d;
                loin = i;
            }
        if (loin != debut) {
            fins.push_back(loin);
            continue;
        }
        utiles.push_back(fin);
        fins.pop_back();
    }
    return utiles;
}

// Fuzz target of grounds: any points and lines can be triangulated, walked on, contoured and measured; what is found is
// finite, and the triangles fill the hull.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "sol/courbesNiveau.h"
#include "sol/orientation.h"
#include "sol/parcoursTerrain.h"
#include "sol/triangulation.h"
#include "sol/volumesTerrain.h"

namespace {

/// Bytes as small coordinates, which meet and line up often; now and then a little beside, or no number.
class source {
public:
    explicit source(std::span<const std::uint8_t> lesOctets) : octets(lesOctets) {}

    bool finie() const { return octets.empty(); }
    std::uint8_t octet()
    {
        if (octets.empty())
            return 0;
        const std::uint8_t premier = octets.front();
        octets = octets.subspan(1);
        return premier;
    }
    double reel()
    {
        const std::uint8_t o = octet();
        if (o == 255)
            return NAN;
        return o >= 200 ? 1650000.0 + (o - 200) * 0.37 : o >= 128 ? (o - 128) * 1e-5 + 7.0 : o % 16;
    }
    sommetSol sommet()
    {
        const double x = reel(), y = reel(), z = reel();
        return {{x, y}, z};
    }

private:
    std::span<const std::uint8_t> octets;
};

semisTerrain lire(source& octets)
{
    semisTerrain semis;
    semis.areteMax = octets.octet() % 4 == 0 ? octets.reel() : 0.0;
    while (!octets.finie()) {
        const std::uint8_t quoi = octets.octet();
        if (quoi % 3 != 0) {
            semis.points.push_back(octets.sommet());
            continue;
        }
        semisTerrain::ligne ligne{static_cast<semisTerrain::genre>(quoi / 3 % 3), {}};
        for (int i = quoi / 9 % 6; i >= 0; --i)
            ligne.sommets.push_back(octets.sommet());
        if (quoi % 2 == 0)
            for (sommetSol& s : ligne.sommets)
                s.z = semisTerrain::sansAltitude;
        semis.lignes.push_back(std::move(ligne));
    }
    return semis;
}

void exiger(bool vrai)
{
    if (!vrai)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille)
{
    source lue({octets, taille});
    const semisTerrain semis = lire(lue);
    const solTriangule fait = trianguler(semis);
    const maillageTerrain& sol = fait.maillage;
    for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t)
        exiger(orientation(sol.coin(t, 0), sol.coin(t, 1), sol.coin(t, 2)) > 0.0);
    parcoursTerrain parcours(sol);
    for (std::size_t i = 0; i < semis.points.size(); ++i) {
        const sommetSol &de = semis.points[i], &vers = semis.points[semis.points.size() - 1 - i];
        if (const auto z = parcours.altitude(de))
            exiger(std::isfinite(*z));
        for (const auto& troncon : parcours.profil(de, vers))
            exiger(troncon.size() > 1);
    }
    if (sol.nombreDedans() == 0)
        return 0;
    courbesDeNiveau(sol, {std::max(1.0, (sol.altitudeMax() - sol.altitudeMin()) / 40.0), true});
    exiger(volumesSousPlan(sol, 3.0).aire() >= 0.0);
    exiger(volumesEntre(sol, sol).aire() >= 0.0);
    return 0;
}

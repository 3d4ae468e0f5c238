#include "points/exportation.h"
#include "points/terrainVoisin.h"
#include "services/grandeur.h"

#include "acutads.h"
#include "raisonFaute.h"
#include "terrainsOuverts.h"

/// What the survey module finds by name. No exception leaves.

namespace {

template <class Fait>
int sansException(const Fait& fait)
{
    try {
        return fait();
    } catch (const std::exception& faute) {
        acutPrintf(L"\nLe mod\u00e8le de terrain ne peut pas \u00eatre construit : %s.", raisonDe(faute).c_str());
        return 0;
    }
}

bool placeConnue(const AcGePoint3d& p)
{
    return estConnue(p.x) && estConnue(p.y);
}

} // namespace

extern "C" {

VELA_EXPORT donneesTerrain* currDwgData()
{
    static donneesTerrain donnees;
    donnees = {};
    sansException([] {
        terrainsDuDessin* const dessin = terrainsEnSession() ? terrainsEnSession()->courants() : nullptr;
        if (!dessin)
            return 0;
        donnees = dessin->donnees();
        const modelesRanges noms = modelesDuDessin(dessin->base());
        if (!donnees.modeles.empty()) {
            const auto courant = static_cast<std::size_t>(donnees.courant);
            terrainsDuDessin::avertir(*donnees.modeles[courant], noms[courant].first);
        }
        return 1;
    });
    return &donnees;
}

VELA_EXPORT int calcZPoint(terrain* sol, AcGePoint3d& point)
{
    return sansException([&] {
        parcoursTerrain* const parcours = sol && placeConnue(point) ? sol->parcours() : nullptr;
        const auto z = parcours ? parcours->altitude({point.x, point.y}) : std::nullopt;
        if (z)
            point.z = *z;
        return z ? 1 : 0;
    });
}

VELA_EXPORT int tinExtractPath(terrain* sol, const AcGePoint3d& de, const AcGePoint3d& vers, profilTerrain& profil)
{
    profil.clear();
    return sansException([&] {
        parcoursTerrain* const parcours = sol && placeConnue(de) && placeConnue(vers) ? sol->parcours() : nullptr;
        if (!parcours)
            return 0;
        for (const auto& troncon : parcours->profil({de.x, de.y}, {vers.x, vers.y})) {
            auto& points = profil.emplace_back();
            points.reserve(troncon.size());
            for (const sommetSol& s : troncon)
                points.emplace_back(s.x, s.y, s.z);
        }
        return profil.empty() ? 0 : 1;
    });
}

VELA_EXPORT int tinPerime(terrain* sol)
{
    return sansException([&] { return sol && sol->perime() ? 1 : 0; });
}
}

// Whoever looks them up calls them as the header says.
static_assert(std::is_same_v<decltype(&currDwgData), fonctionCurrDwgData>);
static_assert(std::is_same_v<decltype(&calcZPoint), fonctionCalcZPoint>);
static_assert(std::is_same_v<decltype(&tinExtractPath), fonctionTinExtractPath>);
static_assert(std::is_same_v<decltype(&tinPerime), fonctionTinPerime>);

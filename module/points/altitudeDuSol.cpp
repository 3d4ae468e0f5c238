#include "points/altitudeDuSol.h"

#include "points/terrainVoisin.h"
#include "services/grandeur.h"

#include "windows.h"

namespace {

template <typename Fonction>
Fonction fonctionDuTerrain(const char* nom)
{
    const HMODULE module = GetModuleHandleW(moduleTerrain);
    // By way of the one function type that converts to any other without a warning.
    return module ? reinterpret_cast<Fonction>(reinterpret_cast<void (*)()>(GetProcAddress(module, nom))) : nullptr;
}

/// Asked for at each use: the terrain module may come and go.
terrain* modeleCourant()
{
    const auto donneesCourantes = fonctionDuTerrain<fonctionCurrDwgData>("currDwgData");
    const donneesTerrain* const donnees = donneesCourantes ? donneesCourantes() : nullptr;
    if (!donnees || donnees->modeles.empty())
        return nullptr;
    const auto rang = static_cast<std::size_t>(donnees->courant);
    return rang < donnees->modeles.size() ? donnees->modeles[rang] : donnees->modeles.front();
}

} // namespace

bool solPresent()
{
    return modeleCourant() && fonctionDuTerrain<fonctionCalcZPoint>("calcZPoint");
}

double altitudeDuSol(double x, double y)
{
    terrain* const sol = modeleCourant();
    const auto altitude = fonctionDuTerrain<fonctionCalcZPoint>("calcZPoint");
    AcGePoint3d place(x, y, 0.0);
    return sol && altitude && altitude(sol, place) ? place.z : inconnu;
}

#include "points/altitudeDuSol.h"

#include "services/grandeur.h"

#include "windows.h"

namespace {

/// Looked up once, and kept as long as the terrain module is the one it was.
struct fonctionsTerrain {
    HMODULE module = nullptr;
    fonctionCurrDwgData currDwgData = nullptr;
    fonctionCalcZPoint calcZPoint = nullptr;
    fonctionTinExtractPath tinExtractPath = nullptr;
    fonctionTinPerime tinPerime = nullptr; // older ones have none

    bool entieres() const { return currDwgData && calcZPoint && tinExtractPath; }
};

template <typename Fonction>
void chercher(HMODULE module, const char* nom, Fonction& fonction)
{
    // By way of the one function type that converts to any other without a warning.
    fonction = reinterpret_cast<Fonction>(reinterpret_cast<void (*)()>(GetProcAddress(module, nom)));
}

const fonctionsTerrain& fonctionsDuVoisin()
{
    static fonctionsTerrain f;
    const HMODULE module = GetModuleHandleW(moduleTerrain);
    if (module == f.module)
        return f;
    f = {};
    if (!module)
        return f;
    f.module = module;
    chercher(module, "currDwgData", f.currDwgData);
    chercher(module, "calcZPoint", f.calcZPoint);
    chercher(module, "tinExtractPath", f.tinExtractPath);
    chercher(module, "tinPerime", f.tinPerime);
    return f;
}

} // namespace

std::optional<solCourant> solDuDessin()
{
    const fonctionsTerrain& f = fonctionsDuVoisin();
    donneesTerrain* const donnees = f.entieres() ? f.currDwgData() : nullptr;
    if (!donnees || donnees->modeles.empty())
        return std::nullopt;
    if (donnees->courant < 0 || donnees->courant >= static_cast<int>(donnees->modeles.size()))
        donnees->courant = 0;
    terrain* const modele = donnees->modeles[static_cast<std::size_t>(donnees->courant)];
    return modele ? std::optional(solCourant{modele, f.calcZPoint, f.tinExtractPath, f.tinPerime}) : std::nullopt;
}

bool solPerime()
{
    const auto sol = solDuDessin();
    return sol && sol->tinPerime && sol->tinPerime(sol->modele) == 1;
}

double altitudeDuSol(double x, double y)
{
    const auto sol = x != inconnu && y != inconnu ? solDuDessin() : std::nullopt;
    AcGePoint3d place(x, y, 0.0);
    return sol && sol->calcZPoint(sol->modele, place) ? place.z : inconnu;
}

#include "implantation/terrainDuDessin.h"

#include "points/terrainVoisin.h"

#include "windows.h"

namespace {

/// Looked up once, and kept as long as the terrain module is the one it was.
struct fonctionsTerrain {
    HMODULE module = nullptr;
    fonctionCurrDwgData currDwgData = nullptr;
    fonctionCalcZPoint calcZPoint = nullptr;
    fonctionTinExtractPath tinExtractPath = nullptr;

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
    return f;
}

class solDuVoisin final : public solImplantation {
public:
    solDuVoisin(const fonctionsTerrain& fonctions, terrain* modele) : m_fonctions(fonctions), m_modele(modele) {}

    bool altitude(point2 place, double& z) const override
    {
        AcGePoint3d point(place.x, place.y, 0.0);
        if (!m_fonctions.calcZPoint(m_modele, point))
            return false;
        z = point.z;
        return true;
    }
    bool profil(point2 de, point2 vers, std::vector<polyligne>& lignes) const override
    {
        lignes.clear();
        m_profil.clear();
        if (!m_fonctions.tinExtractPath(m_modele, {de.x, de.y, 0.0}, {vers.x, vers.y, 0.0}, m_profil))
            return false;
        for (const auto& ligne : m_profil) {
            auto& lue = lignes.emplace_back();
            lue.reserve(ligne.size());
            for (const AcGePoint3d& p : ligne)
                lue.push_back({p.x, p.y, p.z});
        }
        return !lignes.empty();
    }

private:
    fonctionsTerrain m_fonctions;
    terrain* m_modele;
    mutable profilTerrain m_profil; // filled anew at each sight
};

} // namespace

std::unique_ptr<const solImplantation> terrainDuDessin()
{
    const fonctionsTerrain& f = fonctionsDuVoisin();
    donneesTerrain* const donnees = f.entieres() ? f.currDwgData() : nullptr;
    if (!donnees || donnees->modeles.empty())
        return nullptr;
    if (donnees->courant < 0 || donnees->courant >= static_cast<int>(donnees->modeles.size()))
        donnees->courant = 0;
    terrain* const modele = donnees->modeles[static_cast<std::size_t>(donnees->courant)];
    return modele ? std::make_unique<solDuVoisin>(f, modele) : nullptr;
}

double altitudeDuTerrain(point2 place)
{
    double z = inconnu;
    if (const auto sol = terrainDuDessin(); sol && place.x != inconnu && place.y != inconnu)
        sol->altitude(place, z);
    return z;
}

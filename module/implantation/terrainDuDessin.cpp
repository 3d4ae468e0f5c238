#include "implantation/terrainDuDessin.h"

#include "points/altitudeDuSol.h"

namespace {

class solDuVoisin final : public solImplantation {
public:
    explicit solDuVoisin(const solCourant& sol) : m_sol(sol) {}

    bool altitude(point2 place, double& z) const override
    {
        AcGePoint3d point(place.x, place.y, 0.0);
        if (!m_sol.calcZPoint(m_sol.modele, point))
            return false;
        z = point.z;
        return true;
    }
    bool profil(point2 de, point2 vers, std::vector<polyligne>& lignes) const override
    {
        lignes.clear();
        m_profil.clear();
        if (!m_sol.tinExtractPath(m_sol.modele, {de.x, de.y, 0.0}, {vers.x, vers.y, 0.0}, m_profil))
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
    solCourant m_sol;
    mutable profilTerrain m_profil; // filled anew at each sight
};

} // namespace

std::unique_ptr<const solImplantation> terrainDuDessin()
{
    const auto sol = solDuDessin();
    return sol ? std::make_unique<solDuVoisin>(*sol) : nullptr;
}

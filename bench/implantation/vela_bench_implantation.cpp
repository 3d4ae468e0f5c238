#include <cmath>
#include <cstdio>

#include "generateurs/Alea.h"
#include "implantation/visibilite.h"
#include "mesures/lancement.h"
#include "mesures/mediane.h"
#include "mesures/tableauMesures.h"
#include "sol/parcoursTerrain.h"
#include "sol/triangulation.h"

/// Sights: a thousand points, each from the station that stakes it out, then from all ten.

namespace {

constexpr auto rien = [] {};
constexpr int cotePoints = 708; // about a million triangles
constexpr double pas = 5.0;
constexpr double cote = pas * cotePoints;
constexpr lieuSol origine{1650000.0, 8180000.0};

class solMesure final : public solImplantation {
public:
    explicit solMesure(const maillageTerrain& maillage) : m_parcours(maillage) {}

    bool altitude(point2 place, double& z) const override
    {
        const auto trouvee = m_parcours.altitude({place.x, place.y});
        if (trouvee)
            z = *trouvee;
        return trouvee.has_value();
    }
    bool profil(point2 de, point2 vers, std::vector<polyligne>& lignes) const override
    {
        m_parcours.profil({de.x, de.y}, {vers.x, vers.y}, m_troncons);
        lignes.clear();
        for (const auto& troncon : m_troncons) {
            auto& ligne = lignes.emplace_back();
            ligne.reserve(troncon.size());
            for (const sommetSol& s : troncon)
                ligne.push_back({s.x, s.y, s.z});
        }
        return !lignes.empty();
    }

private:
    mutable parcoursTerrain m_parcours;
    mutable parcoursTerrain::polylignes m_troncons;
};

semisTerrain semis()
{
    Alea alea(1);
    semisTerrain s;
    for (int i = 0; i < cotePoints; ++i)
        for (int j = 0; j < cotePoints; ++j) {
            const double x = pas * i + alea.entre(-1.5, 1.5), y = pas * j + alea.entre(-1.5, 1.5);
            s.points.push_back({{origine.x + x, origine.y + y}, 100.0 + 8.0 * std::sin(x / 90.0)});
        }
    return s;
}

/// Walls of twenty sides and trees, by halves.
obstaclesPlan obstacles(int nombre)
{
    Alea alea(2);
    obstaclesPlan plan;
    for (int i = 0; i < nombre; ++i) {
        const point2 place{origine.x + alea.entre(0.0, cote), origine.y + alea.entre(0.0, cote)};
        if (i % 2 == 0) {
            plan.ajouterRond(place, 3.0, 8.0);
            continue;
        }
        std::vector<sommetAxe> sommets{{{place.x, place.y, inconnu}, 0.0}};
        for (int k = 0; k < 20; ++k) {
            const point3 p = sommets.back().place;
            sommets.push_back({{p.x + alea.entre(-5.0, 10.0), p.y + alea.entre(-5.0, 10.0), inconnu}, 0.0});
        }
        plan.ajouterLigne(axe::deSommets(sommets, false), 2.0);
    }
    plan.indexer();
    return plan;
}

std::vector<point3> lieux(const solImplantation& sol, int nombre, std::uint64_t graine)
{
    Alea alea(graine);
    std::vector<point3> tous;
    for (int i = 0; i < nombre; ++i) {
        point3 p{origine.x + alea.entre(0.1, 0.9) * cote, origine.y + alea.entre(0.1, 0.9) * cote, 0.0};
        sol.altitude(p.plan(), p.z);
        tous.push_back(p);
    }
    return tous;
}

bool mesurer(int passes)
{
    const solTriangule triangule = trianguler(semis());
    const solMesure sol(triangule.maillage);
    const obstaclesPlan plan = obstacles(1000);
    const std::vector<point3> stations = lieux(sol, 10, 3), points = lieux(sol, 1000, 4);
    std::printf("%zu triangles, %zu obstacles\n", triangule.maillage.triangles().size(), plan.nombre());
    std::size_t caches = 0, sommets = 0;
    const auto voir = [&](const point3& station, const point3& point) {
        const auto coupe = couper(sol, plan, station, point, 1.5);
        caches += coupe && pireObstruction(*coupe) ? 1 : 0;
    };
    const double chacun = mediane(passes, rien, [&] {
        caches = 0;
        for (std::size_t p = 0; p < points.size(); ++p)
            voir(stations[p % stations.size()], points[p]);
    });
    std::printf("1000 sights, one a point: %.4f s (%zu cut)\n", chacun, caches);
    std::vector<viseeEnPlan> visees;
    for (const point3& p : points)
        for (const point3& s : stations)
            visees.push_back({s.plan(), p.plan()});
    const double tous = mediane(passes, rien, [&] {
        caches = 0;
        for (const std::size_t i : ordreDesVisees(visees))
            voir(stations[i % stations.size()], points[i / stations.size()]);
    });
    std::printf("10000 sights, every point from every station: %.4f s (%zu cut)\n", tous, caches);
    const double plancher = mediane(passes, rien, [&] {
        sommets = 0;
        std::vector<solImplantation::polyligne> lignes;
        for (const std::size_t i : ordreDesVisees(visees))
            if (sol.profil(visees[i].station, visees[i].point, lignes))
                for (const auto& ligne : lignes)
                    sommets += ligne.size();
    });
    std::printf("their profiles alone: %.4f s, %zu vertices\n", plancher, sommets);
    tableauMesures tableau({1000}, "sight");
    tableau.rapport("sights against the profiles of their ground", tous, plancher, 3.0);
    std::printf("1000 points from 10 stations within a second: %s\n", tous <= 1.0 ? "yes" : "NO");
    return tableau.tenu() && tous <= 1.0;
}

} // namespace

int main(int argc, char** argv)
{
    return lancerMesures(argc, argv, "Sights over a ground and its obstacles.", 3, mesurer);
}

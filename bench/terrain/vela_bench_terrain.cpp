#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <tuple>

#include "generateurs/Alea.h"
#include "mesures/lancement.h"
#include "mesures/mediane.h"
#include "mesures/tableauMesures.h"
#include "sol/courbesNiveau.h"
#include "sol/parcoursTerrain.h"
#include "sol/triangulation.h"
#include "sol/volumesTerrain.h"

/// Grounds of growing size: what a point, a height, a crossing cost must not depend on how many there are.

namespace {

constexpr auto rien = [] {};
constexpr lieuSol origine{1650000.0, 8180000.0};

/// Scattered points, one for 25 m², of a rolling ground.
semisTerrain generer(int nombre, std::uint64_t graine)
{
    Alea alea(graine);
    const double cote = 5.0 * std::sqrt(nombre);
    semisTerrain semis;
    for (int i = 0; i < nombre; ++i) {
        const double x = alea.entre(0.0, cote), y = alea.entre(0.0, cote);
        const double z = 100.0 + 8.0 * std::sin(x / 90.0) + 6.0 * std::cos(y / 70.0) + alea.entre(-0.1, 0.1);
        semis.points.push_back({{auMillimetre(origine.x + x), auMillimetre(origine.y + y)}, auMillimetre(z)});
    }
    return semis;
}

/// Four cells of the ground's width, longest first, so that few sights stay short.
struct visee {
    lieuSol de, vers;
};

std::vector<visee> visees(int nombre, double cote)
{
    Alea alea(3);
    std::vector<visee> toutes;
    for (int i = 0; i < nombre; ++i) {
        const double x0 = alea.entre(0.1, 0.9), y0 = alea.entre(0.1, 0.9);
        const double x1 = alea.entre(0.1, 0.9), y1 = alea.entre(0.1, 0.9);
        toutes.push_back(
            {{origine.x + x0 * cote, origine.y + y0 * cote}, {origine.x + x1 * cote, origine.y + y1 * cote}});
    }
    return toutes;
}

class banc {
public:
    explicit banc(int passes) : m_passes(passes)
    {
        for (const int taille : m_tableau.tailles()) {
            m_semis.emplace(taille, generer(taille, 1));
            m_sols.emplace(taille, trianguler(m_semis.at(taille)).maillage);
        }
    }

    bool mesurer()
    {
        m_tableau.enTete();
        // From triangle to triangle in no order: what memory makes of growing grounds.
        m_lecture = m_tableau.plancher("from triangle to triangle, in no order", [&](int n) { return sauter(n); });
        mesurerTriangulation();
        mesurerAltitudes();
        mesurerProfils();
        m_tableau.croissance(
            "contours every metre, smoothed",
            [&](int n) {
                return mediane(m_passes, rien, [&] {
                    m_temoin += static_cast<double>(courbesDeNiveau(m_sols.at(n), {1.0, true}).size());
                });
            },
            m_lecture);
        m_tableau.croissance(
            "volumes between two grounds",
            [&](int n) {
                const maillageTerrain autre = trianguler(generer(n, 2)).maillage;
                return mediane(m_passes, rien, [&] { m_temoin += volumesEntre(m_sols.at(n), autre).deblai; });
            },
            m_lecture);
        return m_tableau.tenu();
    }

private:
    static double cote(int n) { return 5.0 * std::sqrt(n); }

    double sauter(int n)
    {
        const maillageTerrain& sol = m_sols.at(n);
        Alea alea(9);
        std::vector<int> ordre(static_cast<std::size_t>(n));
        for (int& t : ordre)
            t = static_cast<int>(alea.suivant() % sol.triangles().size());
        return mediane(m_passes, rien, [&] {
            for (const int t : ordre)
                m_temoin += sol.coin(t, 0).z;
        });
    }

    void mesurerTriangulation()
    {
        std::map<int, double> tris;
        for (const int n : m_tableau.tailles()) {
            std::vector<sommetSol> points;
            tris[n] = mediane(
                m_passes, [&] { points = m_semis.at(n).points; },
                [&] {
                    std::sort(points.begin(), points.end(), [](const sommetSol& p, const sommetSol& q) {
                        return std::tie(p.x, p.y) < std::tie(q.x, q.y);
                    });
                });
        }
        std::map<int, double> secondes;
        m_tableau.croissance(
            "triangulation",
            [&](int n) {
                return secondes[n] =
                           mediane(1, rien, [&] { m_temoin += trianguler(m_semis.at(n)).maillage.altitudeMax(); });
            },
            4.0 * m_lecture);
        for (const auto& [n, duree] : secondes)
            m_tableau.rapport("  against std::sort, " + std::to_string(n), duree, tris[n], 40.0);
    }

    void mesurerAltitudes()
    {
        m_tableau.croissance(
            "heights at scattered places, one a point",
            [&](int n) {
                const std::vector<sommetSol> lieux = generer(n, 5).points;
                parcoursTerrain parcours(m_sols.at(n));
                return mediane(m_passes, rien, [&] {
                    for (const sommetSol& lieu : lieux)
                        m_temoin += parcours.altitude(lieu).value_or(0.0);
                });
            },
            6.0 * m_lecture);
    }

    /// A thousand sights across the ground; what a crossing of a triangle's side costs.
    void mesurerProfils()
    {
        std::map<int, double> parCroisement;
        for (const int n : m_tableau.tailles()) {
            parcoursTerrain parcours(m_sols.at(n));
            const std::vector<visee> toutes = visees(1000, cote(n));
            parcoursTerrain::polylignes troncons;
            std::size_t points = 0;
            const double secondes = mediane(m_passes, rien, [&] {
                points = 0;
                for (const visee& v : toutes) {
                    parcours.profil(v.de, v.vers, troncons);
                    for (const auto& troncon : troncons)
                        points += troncon.size();
                }
            });
            parCroisement[n] = secondes / static_cast<double>(points);
            std::printf("1000 profiles, %d points: %.4f s, %.1f ns a crossing (%zu)\n", n, secondes,
                        1e9 * parCroisement[n], points);
        }
        const int petit = m_tableau.tailles().front(), grand = m_tableau.tailles().back();
        m_tableau.rapport("a crossing of a profile, largest ground against smallest", parCroisement[grand],
                          parCroisement[petit], 4.0);
    }

    tableauMesures m_tableau{{10000, 100000, 1000000}, "point"};
    int m_passes;
    std::map<int, semisTerrain> m_semis;
    std::map<int, maillageTerrain> m_sols;
    double m_lecture = 0.0;
    double m_temoin = 0.0;
};

} // namespace

int main(int argc, char** argv)
{
    return lancerMesures(argc, argv, "Grounds: triangulation, heights, profiles, contours, volumes.", 3,
                         [](int passes) { return banc(passes).mesurer(); });
}

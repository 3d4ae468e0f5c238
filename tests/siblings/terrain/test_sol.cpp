#include <cmath>
#include <set>

#include <gtest/gtest.h>

#include "sol/orientation.h"
#include "sol/parcoursTerrain.h"
#include "sol/triangulation.h"

#include "solAleatoire.h"

namespace {

using genre = semisTerrain::genre;

std::string texteDe(const std::wstring& large)
{
    std::string texte;
    for (const wchar_t c : large)
        texte += c < 128 ? static_cast<char>(c) : '?';
    return texte;
}

/// Every triangle asked in turn.
std::optional<double> altitudeExhaustive(const maillageTerrain& sol, const lieuSol& p)
{
    for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t) {
        bool dedans = sol.triangle(t).dedans;
        for (int i = 0; i < 3 && dedans; ++i)
            dedans = orientation(sol.debut(t, i), sol.fin(t, i), p) >= 0.0;
        if (dedans)
            return sol.altitudeDans(t, p);
    }
    return std::nullopt;
}

double aireTotale(const maillageTerrain& sol, bool dedansSeuls)
{
    double aire = 0.0;
    for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t)
        if (!dedansSeuls || sol.triangle(t).dedans)
            aire += orientation(sol.coin(t, 0), sol.coin(t, 1), sol.coin(t, 2)) / 2;
    return aire;
}

/// Neighbours name each other across the same side, corners turn counter-clockwise, the Delaunay rule holds away from
/// constraints (with a margin for the test's own rounding).
void verifierMaillage(const maillageTerrain& sol)
{
    for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t) {
        ASSERT_GT(orientation(sol.coin(t, 0), sol.coin(t, 1), sol.coin(t, 2)), 0.0);
        for (int i = 0; i < 3; ++i) {
            const int v = sol.voisin(t, i);
            if (v < 0)
                continue;
            const int j = sol.coteEnFace(t, i);
            ASSERT_LT(j, 3);
            ASSERT_EQ(sol.debut(t, i), sol.fin(v, j));
            ASSERT_EQ(sol.triangle(t).contrainte(i), sol.triangle(v).contrainte(j));
            if (sol.triangle(t).contrainte(i))
                continue;
            const lieuSol d = sol.coin(v, j);
            double m[3][3];
            for (int k = 0; k < 3; ++k) {
                const double x = sol.coin(t, k).x - d.x, y = sol.coin(t, k).y - d.y;
                m[k][0] = x, m[k][1] = y, m[k][2] = x * x + y * y;
            }
            const double cercle = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                                  m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                                  m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
            ASSERT_LE(cercle, 1e-6 * (m[0][2] + m[1][2] + m[2][2]));
        }
    }
}

TEST(Sol, orientationIsExactFarFromTheOrigin)
{
    const lieuSol a = lambert(0.0, 0.0), b = lambert(3000.0, 1000.0);
    const lieuSol sur{a.x + 1500.0, a.y + 500.0};
    EXPECT_EQ(orientation(a, b, sur), 0.0);
    EXPECT_GT(orientation(a, b, {sur.x, std::nextafter(sur.y, 1e9)}), 0.0);
    EXPECT_LT(orientation(a, b, {sur.x, std::nextafter(sur.y, 0.0)}), 0.0);
    // In line without any of them on a grid: multiples of one vector.
    const lieuSol p{0.1, 0.3}, q{0.2, 0.6}, r{0.4, 1.2};
    EXPECT_EQ(orientation(p, q, r), -orientation(q, p, r));
}

TEST(Sol, randomGroundsAgreeWithAnExhaustiveSearch)
{
    for (unsigned graine = 1; graine <= 6; ++graine) {
        SCOPED_TRACE(graine);
        semisTerrain semis = semisAleatoire(300, graine);
        std::mt19937 hasard(graine + 100);
        std::uniform_real_distribution<double> entre(-10.0, 110.0);
        // Break lines that cross, a limit and a hole laid upon the ground.
        for (int k = 0; k < 8; ++k) {
            semisTerrain::ligne l;
            for (int i = 0; i < 4; ++i)
                l.sommets.push_back({lambert(entre(hasard), entre(hasard)), 100.0 + entre(hasard) / 10});
            semis.lignes.push_back(l);
        }
        if (graine % 2 == 0) {
            constexpr double sans = semisTerrain::sansAltitude;
            semis.lignes.push_back({genre::limite,
                                    {{lambert(10, 5), sans},
                                     {lambert(95, 15), sans},
                                     {lambert(80, 130), sans},
                                     {lambert(-20, 60), sans}}});
            semis.lignes.push_back(
                {genre::trou, {{lambert(40, 40), sans}, {lambert(60, 42), sans}, {lambert(50, 61), sans}}});
        }
        const maillageTerrain sol = trianguler(semis).maillage;
        ASSERT_GT(sol.nombreDedans(), 300);
        verifierMaillage(sol);
        parcoursTerrain parcours(sol);
        std::uniform_int_distribution<int> unSommet(0, static_cast<int>(sol.sommets().size()) - 1);
        for (int k = 0; k < 600; ++k) {
            lieuSol p = lambert(entre(hasard), entre(hasard));
            if (k % 5 == 0)
                p = sol.sommet(unSommet(hasard)); // exactly on a vertex
            const auto cherche = altitudeExhaustive(sol, p), trouve = parcours.altitude(p);
            ASSERT_EQ(cherche.has_value(), trouve.has_value()) << p.x << ' ' << p.y;
            if (cherche) {
                ASSERT_NEAR(*cherche, *trouve, 1e-6);
            }
        }
    }
}

/// The profile by brute force: altitudes at places along the way.
void verifierProfil(const maillageTerrain& sol, const lieuSol& de, const lieuSol& vers)
{
    parcoursTerrain parcours(sol);
    const auto troncons = parcours.profil(de, vers);
    const double longueur = std::hypot(vers.x - de.x, vers.y - de.y);
    const auto abscisse = [&](const sommetSol& s) {
        return ((s.x - de.x) * (vers.x - de.x) + (s.y - de.y) * (vers.y - de.y)) / longueur;
    };
    double avant = -1e-6;
    for (const auto& troncon : troncons) {
        ASSERT_GE(troncon.size(), 2U);
        for (const sommetSol& s : troncon) {
            ASSERT_GE(abscisse(s), avant - 1e-6);
            avant = abscisse(s);
        }
    }
    ASSERT_LE(avant, longueur + 1e-6);
    for (int k = 1; k < 200; ++k) {
        const double s = longueur * (k + 0.3711) / 201;
        const lieuSol p{de.x + s / longueur * (vers.x - de.x), de.y + s / longueur * (vers.y - de.y)};
        std::optional<double> z;
        for (const auto& troncon : troncons)
            for (std::size_t i = 1; i < troncon.size(); ++i) {
                const double s0 = abscisse(troncon[i - 1]), s1 = abscisse(troncon[i]);
                if (s0 <= s && s <= s1 && s1 > s0)
                    z = troncon[i - 1].z + (s - s0) / (s1 - s0) * (troncon[i].z - troncon[i - 1].z);
            }
        const auto attendu = altitudeExhaustive(sol, p);
        const double nx = (vers.y - de.y) / longueur * 1e-6, ny = (de.x - vers.x) / longueur * 1e-6;
        if (altitudeExhaustive(sol, {p.x + nx, p.y + ny}).has_value() !=
            altitudeExhaustive(sol, {p.x - nx, p.y - ny}).has_value())
            continue; // along a rim: the place asked for rounds to either hand
        ASSERT_EQ(z.has_value(), attendu.has_value()) << k << " at " << s;
        if (z) {
            ASSERT_NEAR(*z, *attendu, 1e-5);
        }
    }
}

TEST(Sol, profilesAgreeWithAltitudesAlongTheWay)
{
    constexpr double sans = semisTerrain::sansAltitude;
    semisTerrain semis = semisAleatoire(200, 7);
    semis.lignes.push_back({genre::trou, {{lambert(40, 40), sans}, {lambert(60, 42), sans}, {lambert(50, 61), sans}}});
    const maillageTerrain sol = trianguler(semis).maillage;
    std::mt19937 hasard(5);
    std::uniform_real_distribution<double> entre(-30.0, 130.0);
    for (int k = 0; k < 60; ++k)
        verifierProfil(sol, lambert(entre(hasard), entre(hasard)), lambert(entre(hasard), entre(hasard)));
    std::uniform_int_distribution<int> unSommet(0, static_cast<int>(sol.sommets().size()) - 1);
    for (int k = 0; k < 60; ++k) // from vertex to vertex
        verifierProfil(sol, sol.sommet(unSommet(hasard)), sol.sommet(unSommet(hasard)));
}

/// 5 x 5 points, 10 apart, z = x: every way along a row or a diagonal goes through vertices and along sides.
semisTerrain grille()
{
    semisTerrain semis;
    for (int i = 0; i < 5; ++i)
        for (int j = 0; j < 5; ++j)
            semis.points.push_back({lambert(10.0 * i, 10.0 * j), 10.0 * i});
    return semis;
}

TEST(Sol, profilesAlongSidesAndThroughVertices)
{
    const maillageTerrain sol = trianguler(grille()).maillage;
    EXPECT_NEAR(aireTotale(sol, false), 1600.0, 1e-9);
    struct cas {
        const char* nom;
        double x0, y0, x1, y1;
        double zDebut, zFin; // both negative: nothing
        std::size_t points;  // 0: not counted
    };
    for (const cas& c :
         {cas{"along a row", 0, 20, 40, 20, 0, 40, 5}, cas{"against it", 40, 20, 0, 20, 40, 0, 5},
          cas{"along the hull", 0, 0, 40, 0, 0, 40, 5}, cas{"along its far side", 0, 40, 40, 40, 0, 40, 5},
          cas{"from beyond to beyond along the hull", -5, 0, 45, 0, 0, 40, 5},
          cas{"along a column", 10, 0, 10, 40, 10, 10, 5}, cas{"through all", -10, -10, 50, 50, 0, 40, 0},
          cas{"within one triangle", 1, 2, 2, 3, 1, 2, 2}, cas{"ends on a vertex", 5, 5, 20, 20, 5, 20, 0},
          cas{"leaves from the rim", 40, 20, 50, 20, -1, -1, 0}, cas{"beyond", 50, 0, 60, 40, -1, -1, 0},
          cas{"towards the rim, not there", -9, 20, -1, 20, -1, -1, 0}}) {
        SCOPED_TRACE(c.nom);
        parcoursTerrain parcours(sol);
        const auto troncons = parcours.profil(lambert(c.x0, c.y0), lambert(c.x1, c.y1));
        ASSERT_EQ(troncons.size(), c.zDebut < 0 ? 0U : 1U);
        if (troncons.empty())
            continue;
        EXPECT_NEAR(troncons[0].front().z, c.zDebut, 1e-9);
        EXPECT_NEAR(troncons[0].back().z, c.zFin, 1e-9);
        if (c.points > 0) {
            EXPECT_EQ(troncons[0].size(), c.points);
        }
    }
}

TEST(Sol, limitsAndHolesLeaveTheGroundAsItWas)
{
    constexpr double sans = semisTerrain::sansAltitude;
    semisTerrain semis = grille();
    semis.lignes.push_back(
        {genre::limite,
         {{lambert(3, 3), sans}, {lambert(33, 3), sans}, {lambert(33, 60), sans}, {lambert(3, 60), sans}}});
    semis.lignes.push_back(
        {genre::trou,
         {{lambert(13, 13), sans}, {lambert(23, 13), sans}, {lambert(23, 23), sans}, {lambert(13, 23), sans}}});
    const maillageTerrain sol = trianguler(semis).maillage;
    EXPECT_NEAR(aireTotale(sol, true), 30.0 * 37.0 - 100.0, 1e-6);
    parcoursTerrain parcours(sol);
    for (const auto& [x, y, dedans] : {std::tuple{20.0, 30.0, true},
                                       {15.0, 20.0, false},
                                       {13.0, 18.0, true},
                                       {3.0, 20.0, true},
                                       {2.9, 20.0, false},
                                       {20.0, 40.0, true},
                                       {34.0, 20.0, false}}) {
        const auto z = parcours.altitude(lambert(x, y));
        ASSERT_EQ(z.has_value(), dedans) << x << ' ' << y;
        if (z) {
            EXPECT_NEAR(*z, x, 1e-6);
        }
    }
    EXPECT_EQ(parcours.profil(lambert(0, 20), lambert(40, 20)).size(), 2U);

    semisTerrain court = grille(); // a far point draws long sides
    court.points.push_back({lambert(200, 20), 7.0});
    court.areteMax = 15.0;
    EXPECT_NEAR(aireTotale(trianguler(court).maillage, true), 1600.0, 1e-6);
}

TEST(Sol, tellsWhatDisagrees)
{
    semisTerrain semis = grille();
    semis.points.push_back({lambert(20, 20), 25.0});                                        // 20 is there
    semis.points.push_back({lambert(30, 30.00001), 30.001});                                // the same point
    semis.lignes.push_back({genre::rupture, {{lambert(2, 5), 2.0}, {lambert(8, 5), 8.0}}}); // crossed at (5, 5)
    semis.lignes.push_back({genre::rupture, {{lambert(5, 2), 7.0}, {lambert(5, 8), 7.0}}});
    semis.lignes.push_back({genre::rupture, {{lambert(25, 40), 25.0}, {lambert(35, 40), 45.0}}}); // over (30, 40)
    const solTriangule fait = trianguler(semis);
    ASSERT_EQ(fait.incidents.size(), 3U);
    EXPECT_EQ(texteDe(texteIncident(fait.incidents[0])),
              "Points confondus en 1650020.000, 8180020.000 : altitudes 20.000 et 25.000, la plus haute est gard?e");
    EXPECT_EQ(texteDe(texteIncident(fait.incidents[1])),
              "Lignes de rupture qui se croisent en 1650005.000, 8180005.000 : altitudes 5.000 et 7.000, la plus haute "
              "est gard?e");
    EXPECT_EQ(fait.incidents[2].nature, incidentSol::genre::ecart);
    EXPECT_NEAR(fait.incidents[2].z2, 35.0, 1e-9);
    parcoursTerrain parcours(fait.maillage);
    EXPECT_EQ(parcours.altitude(lambert(20, 20)), 25.0);
    EXPECT_NEAR(parcours.altitude(lambert(5, 5)).value(), 7.0, 1e-6);
    EXPECT_EQ(parcours.altitude(lambert(30, 40)), 30.0);
}

TEST(Sol, wallsLinesOfPointsAndUnknownValues)
{
    constexpr double sans = semisTerrain::sansAltitude;
    EXPECT_TRUE(trianguler({}).maillage.vide());
    semisTerrain aligne;
    for (int i = 0; i < 50; ++i)
        aligne.points.push_back({lambert(3.0 * i, i), 1.0});
    EXPECT_TRUE(trianguler(aligne).maillage.vide());
    EXPECT_FALSE(parcoursTerrain(trianguler(aligne).maillage).altitude(lambert(3, 1)));

    // A wall: foot and top one millimetre apart in plan, ten metres in height; and what no survey holds.
    semisTerrain mur = grille();
    mur.lignes.push_back({genre::rupture, {{lambert(15, 5), 0.0}, {lambert(15, 35), 0.0}}});
    mur.lignes.push_back({genre::rupture, {{lambert(15.001, 5), 10.0}, {lambert(15.001, 35), 10.0}}});
    mur.points.push_back({lambert(1, 1), sans});
    mur.points.push_back({{NAN, 1.0}, 2.0});
    mur.points.push_back({{1e300, 1.0}, 2.0});
    mur.lignes.push_back({genre::rupture, {}});
    mur.lignes.push_back({genre::trou, {{lambert(1, 1), sans}}});
    mur.lignes.push_back({genre::rupture, {{lambert(2, 2), 1.0}, {lambert(2, 2), 1.0}, {lambert(9, 9), sans}}});
    const maillageTerrain sol = trianguler(mur).maillage;
    EXPECT_NEAR(aireTotale(sol, true), 1600.0, 1e-6);
    verifierProfil(sol, lambert(2, 21), lambert(38, 20));
    parcoursTerrain parcours(sol);
    EXPECT_NEAR(parcours.altitude(lambert(15.0005, 20)).value(), 5.0, 1e-3);
    EXPECT_FALSE(parcours.altitude({1e38, 1e38}));
    EXPECT_FALSE(parcours.altitude({NAN, 0.0}));
    EXPECT_TRUE(parcours.profil({NAN, 0.0}, lambert(1, 1)).empty());
}

} // namespace

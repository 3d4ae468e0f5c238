#include <algorithm>
#include <cmath>
#include <set>

#include <gtest/gtest.h>

#include "sol/cotesCourbes.h"
#include "sol/courbesNiveau.h"
#include "sol/orientation.h"
#include "sol/parcoursTerrain.h"
#include "sol/triangulation.h"

#include "solAleatoire.h"

namespace {

struct segment {
    lieuSol a, b;
    std::size_t courbe;
};

std::vector<segment> segments(const std::vector<courbeNiveau>& courbes)
{
    std::vector<segment> tous;
    for (std::size_t k = 0; k < courbes.size(); ++k) {
        const auto& p = courbes[k].points;
        for (std::size_t i = 0; i + 1 < p.size() + (courbes[k].fermee ? 1 : 0); ++i)
            tous.push_back({p[i], p[(i + 1) % p.size()], k});
    }
    return tous;
}

bool seCroisent(const segment& s, const segment& t)
{
    return orientation(s.a, s.b, t.a) * orientation(s.a, s.b, t.b) < 0.0 &&
           orientation(t.a, t.b, s.a) * orientation(t.a, t.b, s.b) < 0.0;
}

TEST(Courbes, aPyramidHasSquareLines)
{
    semisTerrain semis;
    for (const auto& [x, y, z] :
         {std::tuple{0.0, 0.0, 0.0}, {10.0, 0.0, 0.0}, {10.0, 10.0, 0.0}, {0.0, 10.0, 0.0}, {5.0, 5.0, 5.0}})
        semis.points.push_back({lambert(x, y), z});
    const maillageTerrain sol = trianguler(semis).maillage;
    const auto courbes = courbesDeNiveau(sol, {2.0, false});
    ASSERT_EQ(courbes.size(), 2U); // at 2 and 4; the base, all at 0, is no line
    for (const courbeNiveau& c : courbes) {
        EXPECT_TRUE(c.fermee);
        ASSERT_EQ(c.points.size(), 4U);
        double aire = 0.0; // uphill on the left: counter-clockwise around a summit
        for (std::size_t i = 0; i < 4; ++i)
            aire += orientation(lambert(5, 5), c.points[i], c.points[(i + 1) % 4]) / 2;
        const double cote = 10.0 - 2.0 * c.altitude;
        EXPECT_NEAR(aire, cote * cote, 1e-9);
    }
}

TEST(Courbes, smoothedLinesNeverCrossAndStayInTheirBand)
{
    for (unsigned graine = 1; graine <= 5; ++graine) {
        SCOPED_TRACE(graine);
        semisTerrain semis = semisAleatoire(400, graine);
        std::mt19937 hasard(graine);
        std::uniform_real_distribution<double> bruit(-1.5, 1.5);
        for (sommetSol& s : semis.points)
            s.z += bruit(hasard); // rough ground bends lines sharply
        semis.lignes.push_back({semisTerrain::genre::rupture,
                                {{lambert(10, 10), 100.0}, {lambert(60, 50), 103.0}, {lambert(90, 20), 99.0}}});
        const maillageTerrain sol = trianguler(semis).maillage;
        const auto courbes = courbesDeNiveau(sol, {0.5, true});
        parcoursTerrain parcours(sol);
        for (const courbeNiveau& c : courbes)
            for (const lieuSol& p : c.points) {
                const auto z = parcours.altitude(p);
                if (z) { // a line's end on the rim may round to just beyond it
                    ASSERT_LT(std::abs(*z - c.altitude), 0.25);
                }
            }
        std::vector<segment> tous = segments(courbes);
        ASSERT_GT(tous.size(), 3000U);
        const auto gauche = [](const segment& s) { return std::min(s.a.x, s.b.x); };
        std::sort(tous.begin(), tous.end(), [&](const segment& s, const segment& t) { return gauche(s) < gauche(t); });
        for (std::size_t i = 0; i < tous.size(); ++i)
            for (std::size_t j = i + 1; j < tous.size() && gauche(tous[j]) <= std::max(tous[i].a.x, tous[i].b.x); ++j)
                ASSERT_FALSE(seCroisent(tous[i], tous[j]));
    }
}

TEST(Courbes, flatGroundAndPlateausGiveTheirRim)
{
    semisTerrain plat = semisAleatoire(100, 3);
    for (sommetSol& s : plat.points)
        s.z = 100.0;
    EXPECT_TRUE(courbesDeNiveau(trianguler(plat).maillage, {1.0, true}).empty());
    // A plateau at 10 in a plain at 0: each line goes round it once.
    semisTerrain plateau;
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < 12; ++j)
            plateau.points.push_back({lambert(i, j), i > 3 && i < 8 && j > 3 && j < 8 ? 10.0 : 0.0});
    const auto courbes = courbesDeNiveau(trianguler(plateau).maillage, {5.0, true});
    ASSERT_EQ(courbes.size(), 2U);
    EXPECT_TRUE(courbes[0].fermee && courbes[1].fermee);
    EXPECT_EQ(courbes[1].altitude, 10.0);
}

// The crest of a dyke at the very altitude of a line was drawn twice, its texts one upon the other.
TEST(Courbes, aCrestAtTheAltitudeIsOneLine)
{
    const auto digue = [](double debut, double fin) { // its crest at 10 from `debut` to `fin`, its foot at 0
        semisTerrain semis;
        for (const double y : {-20.0, 20.0})
            for (const double x : {-30.0, 50.0, 130.0}) // the bend of the crest has one side on each hand
                semis.points.push_back({lambert(x, y), 0.0});
        semis.lignes.push_back({semisTerrain::genre::rupture,
                                {{lambert(debut, 0), 10.0}, {lambert(50, 3), 10.0}, {lambert(fin, 0), 10.0}}});
        return trianguler(semis).maillage;
    };
    for (const bool lisser : {false, true}) {
        const auto dedans = courbesDeNiveau(digue(0, 100), {5.0, lisser});
        ASSERT_EQ(dedans.size(), 2U) << "one at 5, the crest at 10";
        EXPECT_TRUE(dedans[0].fermee);
        EXPECT_FALSE(dedans[1].fermee);
        EXPECT_EQ(dedans[1].points.size(), 3U);
        const auto entiere = courbesDeNiveau(digue(-30, 130), {5.0, lisser});
        EXPECT_EQ(std::ranges::count(entiere, 10.0, &courbeNiveau::altitude), 1) << "from rim to rim";
    }
    // Three crests that meet, one of which rises further: no stretch is drawn twice.
    semisTerrain semis;
    for (const auto& [x, y] : {std::pair{-100.0, -100.0}, {100.0, -100.0}, {100.0, 100.0}, {-100.0, 100.0}})
        semis.points.push_back({lambert(x, y), 0.0});
    for (const auto& [x, y, z] : {std::tuple{-50.0, 2.0, 10.0}, {50.0, 3.0, 10.0}, {1.0, 50.0, 18.0}})
        semis.lignes.push_back(
            {semisTerrain::genre::rupture, {{lambert(0, 0), 10.0}, {lambert(x / 2, y / 2), 10.0}, {lambert(x, y), z}}});
    const maillageTerrain etoile = trianguler(semis).maillage;
    for (const bool lisser : {false, true}) {
        std::set<std::pair<double, double>> milieux;
        std::size_t cotes = 0;
        double plate = 0.0;
        for (const segment& s : segments(courbesDeNiveau(etoile, {10.0, lisser}))) {
            milieux.emplace(s.a.x + s.b.x, s.a.y + s.b.y);
            plate +=
                s.a.y < lambert(0, 4).y && s.b.y < lambert(0, 4).y ? std::hypot(s.b.x - s.a.x, s.b.y - s.a.y) : 0.0;
            ++cotes;
        }
        EXPECT_EQ(milieux.size(), cotes) << lisser;
        EXPECT_NEAR(plate, 100.0, 1.0) << lisser;
    }
}

TEST(Courbes, textsFollowTheLineUphill)
{
    courbeNiveau droite{12.0, false, {lambert(0, 0), lambert(30, 0), lambert(30, 30)}};
    const courbeCotee cotee = coter(droite, 4.0, 30.0);
    ASSERT_EQ(cotee.cotes.size(), 2U);
    EXPECT_NEAR(cotee.cotes[0].angle, 0.0, 1e-9);
    EXPECT_NEAR(cotee.cotes[1].angle, std::acos(0.0), 1e-9);
    ASSERT_EQ(cotee.troncons.size(), 3U);
    double longueur = 0.0;
    for (const courbeNiveau& t : cotee.troncons)
        for (std::size_t i = 1; i < t.points.size(); ++i)
            longueur += std::hypot(t.points[i].x - t.points[i - 1].x, t.points[i].y - t.points[i - 1].y);
    EXPECT_NEAR(longueur, 60.0 - 2 * 4.0, 1e-6);
    droite.fermee = true; // the stretch over the beginning is one
    EXPECT_EQ(coter(droite, 4.0, 1000.0).troncons.size(), 1U);
    EXPECT_TRUE(coter(droite, 50.0, 1000.0).cotes.empty());
}

} // namespace

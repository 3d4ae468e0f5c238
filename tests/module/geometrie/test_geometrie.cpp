#include <algorithm>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "geometrie/abscisses.h"
#include "geometrie/arbreSegments.h"
#include "geometrie/axe.h"
#include "geometrie/clothoide.h"
#include "geometrie/douglasPeucker.h"

namespace {

constexpr double pi = std::numbers::pi;

// Values of the Fresnel integrals from M. Abramowitz and I. Stegun, "Handbook of Mathematical Functions", table 7.7:
// C(u) and S(u) are the end of a clothoid of length u whose curvature grows by pi for each unit of length.
TEST(clothoide, tabulatedFresnelIntegrals)
{
    struct row {
        double u, c, s;
    };
    constexpr row rows[] = {{0.5, 0.4923442, 0.0647324},
                            {1.0, 0.7798934, 0.4382591},
                            {2.0, 0.4882534, 0.3434157},
                            {3.0, 0.6057208, 0.4963130},
                            {5.0, 0.5636312, 0.4991914}};
    for (const row& r : rows) {
        const point2 fin = finDeCourbe(0.0, pi, r.u);
        EXPECT_NEAR(fin.x, r.c, 6e-8) << r.u;
        EXPECT_NEAR(fin.y, r.s, 6e-8) << r.u;
    }
}

// The series of the abscissa and ordinate, whose terms fall fast for the angles of roads.
TEST(clothoide, seriesToTheNanometre)
{
    for (const double R : {60.0, 300.0, 2000.0})
        for (const double L : {20.0, 90.0, 250.0}) {
            const elementsClothoide c = clothoideDe(R, L);
            double x = 0.0, y = 0.0, terme = L; // term n: L (-1)^(n/2) tau^n / (n! (2n+1))
            for (int n = 0; n < 60; ++n) {
                const double signe = n % 4 < 2 ? 1.0 : -1.0;
                (n % 2 == 0 ? x : y) += signe * terme / (2 * n + 1);
                terme *= c.tau / (n + 1);
            }
            EXPECT_NEAR(c.X, x, 1e-9) << R << " " << L;
            EXPECT_NEAR(c.Y, y, 1e-9) << R << " " << L;
            EXPECT_NEAR(c.A * c.A, R * L, 1e-9 * R * L);
            EXPECT_NEAR(std::hypot(c.tangenteCourte * std::cos(c.tau) + c.tangenteLongue - c.X,
                                   c.tangenteCourte * std::sin(c.tau) - c.Y),
                        0.0, 1e-9);
        }
}

TEST(clothoide, runsBackwardsAndFarAlike)
{
    // Walking back from the end of a curve leads to its start.
    const double k = 0.01, v = -0.0003, L = 700.0;
    const point2 fin = finDeCourbe(k, v, L);
    const double tourne = L * (k + v * L / 2);
    const point2 retour = fin + tourner(finDeCourbe(k + v * L, v, -L), tourne);
    EXPECT_NEAR(norme(retour), 0.0, 1e-9);
}

axe equerre()
{
    const sommetAxe sommets[] = {{{0, 0, 10}}, {{100, 0, 20}}, {{100, 100, 20}}};
    return axe::deSommets(sommets, false);
}

TEST(axe, projectionsOnASquare)
{
    struct row {
        const char* nom;
        point2 p;
        double longueur, decalage, distance, z;
        bool auDela;
    };
    constexpr row rows[] = {
        {"right of the first side", {40, -3}, 40, 3, 3, 14, false},
        {"left of it", {40, 3}, 40, -3, 3, 14, false},
        {"outside the corner", {103, -4}, 100, 5, 5, 20, false},
        {"bisector inside: the first of equals", {95, 5}, 95, -5, 5, 19.5, false},
        {"before the start", {-3, 4}, 0, -4, 5, 10, true},
        {"square at the start", {0, 4}, 0, -4, 4, 10, false},
        {"in line beyond the end", {100, 107}, 200, 0, 7, 20, true},
        {"on it", {100, 50}, 150, 0, 0, 20, false},
    };
    const axe a = equerre();
    for (const row& r : rows) {
        const axe::projection p = a.projeter(r.p);
        EXPECT_DOUBLE_EQ(p.longueur, r.longueur) << r.nom;
        EXPECT_NEAR(p.decalage, r.decalage, 1e-12) << r.nom;
        EXPECT_NEAR(p.distance, r.distance, 1e-12) << r.nom;
        EXPECT_NEAR(p.pied.z, r.z, 1e-12) << r.nom;
        EXPECT_EQ(p.auDela, r.auDela) << r.nom;
    }
    EXPECT_FALSE(a.projeter({50, 20}, 19.9));
}

TEST(axe, sharpCornerIsSeenFromItsOutside)
{
    // Turns left by more than a right angle: a point beyond the corner stays on the right, though left of the first
    // side.
    const sommetAxe sommets[] = {{{-10, 0, 0}}, {{0, 0, 0}}, {{-7, 7, 0}}};
    EXPECT_GT(axe::deSommets(sommets, false).projeter({1, 0.5}).decalage, 0.0);
}

TEST(axe, repeatedVerticesAndArcs)
{
    // Half a circle to the left about (10, 5), then back to the start; vertices repeated.
    const sommetAxe sommets[] = {{{10, 0, 0}}, {{10, 0, 0}, 1.0}, {{10, 10, 0}}, {{10, 10, 0}}};
    const axe a = axe::deSommets(sommets, true);
    ASSERT_EQ(a.elements().size(), 2u);
    EXPECT_NEAR(a.longueur(), 5 * pi + 10, 1e-12);
    const point2 milieu = a.pointA(2.5 * pi);
    EXPECT_NEAR(milieu.x, 15, 1e-12);
    EXPECT_NEAR(milieu.y, 5, 1e-12);
    const axe::projection p = a.projeter({17, 5});
    EXPECT_NEAR(p.longueur, 2.5 * pi, 1e-9);
    EXPECT_NEAR(p.decalage, 2.0, 1e-12);
}

/// Straight, clothoid, arc, clothoid, straight: as roads are.
axe route()
{
    std::vector<elementAxe> elements;
    point2 p{1650000.0, 8180000.0}, u{std::cos(0.3), std::sin(0.3)};
    const struct {
        double longueur, de, a;
    } parts[] = {{120, 0, 0}, {80, 0, 1 / 150.0}, {200, 1 / 150.0, 1 / 150.0}, {80, 1 / 150.0, -1 / 90.0}, {50, 0, 0}};
    for (const auto& part : parts) {
        elementAxe e;
        e.debut = p;
        e.direction = u;
        e.longueur = part.longueur;
        e.courbureDebut = part.de;
        e.courbureFin = part.a;
        e.zDebut = e.zFin = 0.0;
        p = e.pointA(e.longueur);
        u = e.directionA(e.longueur);
        elements.push_back(e);
    }
    return axe(std::move(elements));
}

TEST(axe, offsetPointsComeBack)
{
    const axe a = route();
    std::mt19937 hasard(7);
    std::uniform_real_distribution<double> longueur(0.0, a.longueur()), decalage(-60.0, 60.0);
    for (int i = 0; i < 2000; ++i) {
        const double s = longueur(hasard), d = decalage(hasard);
        const point3 p = a.decale(s, d);
        const axe::projection pied = a.projeter(p.plan());
        EXPECT_NEAR(pied.longueur, s, 2e-7) << s << " " << d;
        EXPECT_NEAR(pied.decalage, d, 1e-8) << s << " " << d;
    }
}

TEST(axe, nearestPlaceAgainstACloseWalk)
{
    const axe a = route();
    std::mt19937 hasard(11);
    std::uniform_real_distribution<double> ecart(-300.0, 500.0);
    for (int i = 0; i < 200; ++i) {
        const point2 p{1650100.0 + ecart(hasard), 8180100.0 + ecart(hasard)};
        double distance = norme(p - a.pointA(a.longueur()));
        for (double s = 0.0; s <= a.longueur(); s += 0.05)
            distance = std::min(distance, norme(p - a.pointA(s)));
        EXPECT_NEAR(a.projeter(p).distance, distance, 1e-4);
        EXPECT_LE(a.projeter(p).distance, distance + 1e-9);
    }
}

TEST(axe, chordsStayWithin)
{
    const axe a = route();
    const std::vector<point3> ligne = polyligneDe(a, 0.01);
    std::vector<segmentPlan> cordes;
    for (std::size_t i = 1; i < ligne.size(); ++i)
        cordes.push_back({ligne[i - 1].plan(), ligne[i].plan()});
    const arbreSegments arbre(cordes);
    for (double s = 0.0; s < a.longueur(); s += 0.3)
        EXPECT_LE(arbre.plusProche(a.pointA(s))->distance, 0.01);
    EXPECT_EQ(ligne.size(), 1u + 1 + 24 + 58 + 30 + 1); // chords as long as sqrt(8 R fleche)
}

TEST(abscisses, equations)
{
    // 1+250 behind is 1+300 ahead, then 1+500 behind is 1+400 ahead.
    const abscisses a(1000.0, {{1250.0, 1300.0}, {1500.0, 1400.0}, {1200.0, 0.0}});
    EXPECT_DOUBLE_EQ(a.abscisseA(249.0), 1249.0);
    EXPECT_DOUBLE_EQ(a.abscisseA(250.0), 1300.0);
    EXPECT_DOUBLE_EQ(a.abscisseA(449.0), 1499.0);
    EXPECT_DOUBLE_EQ(a.abscisseA(450.0), 1400.0);
    EXPECT_TRUE(a.longueursDe(1270.0, 900.0).empty());
    EXPECT_EQ(a.longueursDe(1450.0, 900.0), (std::vector<double>{400.0, 500.0}));
    EXPECT_EQ(a.jalons(100.0, 600.0), (std::vector<double>{0, 100, 200, 250, 350, 450, 550}));
    EXPECT_TRUE(abscisses(1e36, {}).jalons(100.0, 600.0).empty()) << "no multiple beyond another";
}

TEST(douglasPeucker, keepsWhatStrays)
{
    const point3 ligne[] = {{0, 0, 0}, {1, 0.01, 0}, {2, 0, 0}, {3, 0, 0.5}, {4, 0, 0}, {5, 0, 0}};
    EXPECT_EQ(sommetsUtiles(ligne, 0.02), (std::vector<std::size_t>{0, 2, 3, 4, 5}));
    EXPECT_EQ(sommetsUtiles(ligne, 1.0), (std::vector<std::size_t>{0, 5}));
    const point3 boucle[] = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 0, 0}};
    EXPECT_EQ(sommetsUtiles(boucle, 1.0).size(), 4u);
}

TEST(arbreBoites, agreesWithLookingAtAll)
{
    std::mt19937 hasard(3);
    std::uniform_real_distribution<double> place(0.0, 1000.0), taille(0.0, 20.0);
    for (const std::size_t nombre : {0u, 1u, 8u, 9u, 65u, 3000u}) {
        std::vector<segmentPlan> segments;
        for (std::size_t i = 0; i < nombre; ++i) {
            const point2 p{place(hasard), place(hasard)};
            segments.push_back({p, p + point2{taille(hasard), taille(hasard) - 10.0}});
        }
        const arbreSegments arbre(segments);
        for (int essai = 0; essai < 50; ++essai) {
            const point2 p{place(hasard), place(hasard)}, q{place(hasard), place(hasard)};
            std::vector<std::size_t> trouves, attendus;
            arbre.croisant(p, q, [&](std::size_t i, double) { trouves.push_back(i); });
            double meilleure = std::numeric_limits<double>::infinity();
            for (std::size_t i = 0; i < nombre; ++i) {
                if (croisement(p, q, segments[i]))
                    attendus.push_back(i);
                const double t = partPlusProche(p, segments[i].debut, segments[i].fin);
                meilleure =
                    std::min(meilleure, norme(p - (segments[i].debut + (segments[i].fin - segments[i].debut) * t)));
            }
            std::sort(trouves.begin(), trouves.end());
            EXPECT_EQ(trouves, attendus);
            const auto pied = arbre.plusProche(p);
            ASSERT_EQ(pied.has_value(), nombre > 0);
            if (pied) {
                EXPECT_NEAR(pied->distance, meilleure, 1e-9);
            }
        }
    }
    // What is no place is passed over.
    const double nan = std::nan("");
    const arbreSegments troue({{{nan, 0}, {1, nan}}, {{5, 5}, {6, 6}}});
    EXPECT_EQ(troue.plusProche({0, 0})->segment, 1u);
}

} // namespace

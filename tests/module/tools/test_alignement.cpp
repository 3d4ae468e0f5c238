#include <numbers>

#include <gtest/gtest.h>

#include "tools/alignement.h"

namespace {

constexpr double pi = std::numbers::pi;

TEST(alignement, circularCurveByHand)
{
    // A right angle with a radius of 100: tangents of 100, an arc of 50 pi.
    const sommetAlignement s[] = {{{0, 0}}, {{300, 0}, 100}, {{300, 500}}};
    const auto trace = tracerAlignement(s);
    const axe& a = std::get<axe>(trace);
    ASSERT_EQ(a.elements().size(), 3u);
    EXPECT_NEAR(a.elements()[0].longueur, 200, 1e-9);
    EXPECT_NEAR(a.elements()[1].longueur, 50 * pi, 1e-9);
    EXPECT_NEAR(a.elements()[2].longueur, 400, 1e-9);
    EXPECT_LT(norme(a.pointA(a.longueur()) - point2{300, 500}), 1e-9);
}

// Where one element ends the next begins, in place, direction and curvature; the ends are those given.
TEST(alignement, elementsJoinWithUnequalClothoids)
{
    const sommetAlignement s[] = {{{1650000, 8180000}},
                                  {{1650400, 8180100}, 150, 60, 90},
                                  {{1650600, 8179700}, 120, 0, 50},
                                  {{1651000, 8179800}, 200, 70, 0},
                                  {{1651300, 8180300}}};
    const auto trace = tracerAlignement(s);
    ASSERT_TRUE(std::holds_alternative<axe>(trace)) << "fits";
    const axe& a = std::get<axe>(trace);
    EXPECT_EQ(a.elements().size(), 4u + 3 + 2 + 2);
    for (std::size_t i = 0; i + 1 < a.elements().size(); ++i) {
        const elementAxe &e = a.elements()[i], &f = a.elements()[i + 1];
        EXPECT_LT(norme(e.pointA(e.longueur) - f.debut), 1e-7) << i;
        EXPECT_LT(norme(e.directionA(e.longueur) - f.direction), 1e-10) << i;
    }
    EXPECT_LT(norme(a.pointA(a.longueur()) - s[4].place), 1e-7);
}

// Corners found again from what was laid out, and from lines drawn otherwise: half a turn, a whole one, an arc that its
// neighbours do not touch as tangents.
TEST(alignement, cornersOfALine)
{
    const sommetAlignement pose[] = {
        {{1650000, 8180000}}, {{1650400, 8180100}, 150, 60, 90}, {{1650600, 8179700}, 120, 0, 50},
        {{1650800, 8179700}}, {{1651000, 8179800}, 200, 70, 0},  {{1651300, 8180300}, 25, 20, 10},
        {{1650900, 8179850}}}; // at last a hairpin
    const auto trouves = sommetsDeLAxe(std::get<axe>(tracerAlignement(pose)));
    const auto& sommets = std::get<std::vector<sommetAlignement>>(trouves);
    ASSERT_EQ(sommets.size(), std::size(pose));
    for (std::size_t i = 0; i < sommets.size(); ++i) {
        EXPECT_LT(norme(sommets[i].place - pose[i].place), 1e-6) << i;
        EXPECT_NEAR(sommets[i].rayon, pose[i].rayon, 1e-6) << i;
        EXPECT_NEAR(sommets[i].entree, pose[i].entree, 1e-6) << i;
        EXPECT_NEAR(sommets[i].sortie, pose[i].sortie, 1e-6) << i;
    }
    const std::vector<sommetAxe> lignes[] = {
        {{{0, 0}, 0}, {{200, 0}, 1}, {{200, 100}, 0}, {{0, 100}, 0}},
        {{{0, 0}, 1}, {{100, 0}, 1}, {{0, 0}, 0}},
        {{{0, 0}, 0}, {{100, 0}, -0.5}, {{200, 0}, 0.2}, {{250, 80}, 0}, {{300, 80}, 0}, {{400, 80}, 0}},
    };
    for (const std::vector<sommetAxe>& ligne : lignes) {
        const axe a = axe::deSommets(ligne, false);
        const auto refait = tracerAlignement(std::get<std::vector<sommetAlignement>>(sommetsDeLAxe(a)));
        ASSERT_TRUE(std::holds_alternative<axe>(refait)) << ligne.size();
        EXPECT_NEAR(std::get<axe>(refait).longueur(), a.longueur(), 1e-6);
        for (double s = 0.0; s < a.longueur(); s += 10.0)
            EXPECT_LT(norme(std::get<axe>(refait).pointA(s) - a.pointA(s)), 1e-6) << ligne.size() << ' ' << s;
    }
    elementAxe ove;
    ove.longueur = 50;
    ove.courbureDebut = 0.01;
    ove.courbureFin = 0.02;
    EXPECT_TRUE(std::holds_alternative<std::wstring>(sommetsDeLAxe(axe({ove}))));
}

TEST(alignement, refusesWhatCannotBe)
{
    struct row {
        const char* nom;
        std::vector<sommetAlignement> sommets;
        const wchar_t* morceau;
    };
    const row rows[] = {
        {"one corner", {{{0, 0}}}, L"au moins deux"},
        {"two at one place", {{{0, 0}}, {{0, 0}}, {{5, 0}}}, L"Sommet 2"},
        {"two as good as at one place", {{{0, 0}}, {{1e-12, 0}}}, L"Sommet 2"},
        {"farther than numbers go", {{{-1e308, 0}}, {{1e308, 0}}}, L"trop loin"},
        {"turns back", {{{0, 0}}, {{10, 0}, 5}, {{5, 0}}}, L"revient"},
        {"does not fit", {{{0, 0}}, {{50, 0}, 100}, {{50, 500}}}, L"il manque 50.000"},
        {"clothoids turn too much", {{{0, 0}}, {{500, 0}, 100, 200, 200}, {{500, 500}}}, L"tournent plus"},
        {"clothoid without radius", {{{0, 0}}, {{500, 0}, 0, 20}, {{500, 500}}}, L"demandent un rayon"},
        {"negative radius", {{{0, 0}}, {{500, 0}, -10}, {{500, 500}}}, L"n\u00e9gatif"},
    };
    for (const row& r : rows) {
        const auto trace = tracerAlignement(r.sommets);
        ASSERT_TRUE(std::holds_alternative<std::wstring>(trace)) << r.nom;
        EXPECT_NE(std::get<std::wstring>(trace).find(r.morceau), std::wstring::npos) << r.nom;
    }
}

} // namespace

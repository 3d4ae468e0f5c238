// Sights over ground and obstacles.

#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "implantation/visibilite.h"

namespace {

/// Ground by a function, its profile at every `pas`.
class solCalcule final : public solImplantation {
public:
    explicit solCalcule(std::function<double(point2)> z, double pas = 1.0) : m_z(std::move(z)), m_pas(pas) {}

    bool altitude(point2 place, double& z) const override
    {
        z = m_z(place);
        return std::isfinite(z);
    }
    bool profil(point2 de, point2 vers, std::vector<polyligne>& lignes) const override
    {
        lignes.assign(1, {});
        const double n = std::max(1.0, std::ceil(norme(vers - de) / m_pas));
        for (double i = 0.0; i <= n; i += 1.0) {
            const point2 p = de + (vers - de) * (i / n);
            lignes[0].push_back({p.x, p.y, m_z(p)});
        }
        return de != vers;
    }

private:
    std::function<double(point2)> m_z;
    double m_pas;
};

solCalcule plat()
{
    return solCalcule([](point2) { return 100.0; });
}

axe mur(point2 de, point2 vers, double bombement = 0.0)
{
    return axe({elementAxe::arc({de.x, de.y, 0.0}, {vers.x, vers.y, 0.0}, bombement)});
}

double visible(const solImplantation& sol, const obstaclesPlan& obstacles, point3 station, point3 point, double h)
{
    const auto coupe = couper(sol, obstacles, station, point, h);
    if (!coupe)
        return inconnu;
    const auto pire = pireObstruction(*coupe);
    return pire ? pire->hauteur : 0.0;
}

} // namespace

TEST(Visibilite, GivesTheHeightsOfFlatGround)
{
    obstaclesPlan rien, unMur, murEtArbre, arc, leLong;
    unMur.ajouterLigne(mur({20.0, -5.0}, {20.0, 5.0}), 3.0);
    murEtArbre.ajouterLigne(mur({20.0, -5.0}, {20.0, 5.0}), 3.0);
    murEtArbre.ajouterRond({10.0, 0.5}, 1.0, 8.0);
    arc.ajouterLigne(mur({10.0, -10.0}, {10.0, 10.0}, 1.0), 2.0); // half a circle to the right, through (20, 0)
    leLong.ajouterLigne(mur({5.0, 0.0}, {15.0, 0.0}), 2.5);
    for (obstaclesPlan* const o : {&unMur, &murEtArbre, &arc, &leLong})
        o->indexer();
    const point3 station{0.0, 0.0, 100.0}, point{40.0, 0.0, 100.0}, haut{40.0, 0.0, 110.0};
    const double pente = std::cos(std::atan2(10.0, 40.0));
    const struct {
        const char* nom;
        const obstaclesPlan& obstacles;
        point3 vers;
        double h, attendu;
    } lignes[] = {
        {"flat, nothing there", rien, point, 1.5, 0.0},
        {"ground on the sight itself does not count", rien, point, 0.0, 0.0},
        {"a wall half way", unMur, point, 1.5, 1.5},
        {"a wall that ends at the sight", unMur, point, 3.0, 0.0},
        {"the higher one counts", murEtArbre, point, 1.5, 6.5},
        {"a round wall is met where it is", arc, point, 1.5, 0.5},
        {"a wall along the sight", leLong, point, 1.5, 1.0},
        {"square to a sight that climbs: 3 - 1.5 - 5 at the wall, below", unMur, haut, 1.5, 0.0},
        {"by the slope", murEtArbre, haut, 1.5, (8.0 - 1.5 - 10.0 / 4.0 + std::sqrt(0.75) / 4.0) * pente},
    };
    for (const auto& l : lignes) {
        SCOPED_TRACE(l.nom);
        EXPECT_NEAR(visible(plat(), l.obstacles, station, l.vers, l.h), l.attendu, 1e-9);
    }
    EXPECT_EQ(visible(plat(), unMur, station, station, 1.5), inconnu) << "equal places have no profile";
}

TEST(Visibilite, TellsWhereTheSightIsCut)
{
    // A bank of 104 from 10 to 20, and beyond it a wall of 2 on ground at 100: the bank rises 2.5 above the sight.
    const solCalcule sol([](point2 p) { return p.x >= 10.0 && p.x <= 20.0 ? 104.0 : 100.0; });
    obstaclesPlan plan;
    plan.ajouterLigne(mur({30.0, -5.0}, {30.0, 5.0}), 2.0);
    plan.indexer();
    const auto coupe = couper(sol, plan, {0.0, 0.0, 100.0}, {40.0, 0.0, 100.0}, 1.5);
    ASSERT_TRUE(coupe);
    ASSERT_EQ(coupe->obstacles.size(), 1U);
    EXPECT_NEAR(coupe->obstacles[0].distance, 30.0, 1e-9);
    const auto pire = pireObstruction(*coupe);
    ASSERT_TRUE(pire);
    EXPECT_EQ(pire->obstacle, leSol);
    EXPECT_EQ(pire->distance, 10.0) << "the first of equals";
    EXPECT_NEAR(pire->depassement, 2.5, 1e-12);
}

TEST(Visibilite, LooksRoundTheHorizonOfEachStation)
{
    const point2 a{0.0, 0.0}, b{5.0, 0.0};
    const std::vector<viseeEnPlan> visees{{a, {0.0, 9.0}}, {b, {9.0, 0.0}},  {a, {9.0, 1.0}},
                                          {b, {5.0, 9.0}}, {a, {9.0, -1.0}}, {a, {9.0, 1.0}}};
    EXPECT_EQ(ordreDesVisees(visees), (std::vector<std::size_t>{4, 2, 5, 0, 1, 3}));
}

TEST(Visibilite, KeepsItsPrecisionFarFromTheOrigin)
{
    const point2 loin{700000.25, 6600000.75};
    obstaclesPlan plan;
    plan.ajouterRond(loin + point2{20.0, 0.0}, 1.0, 3.0);
    plan.indexer();
    const solCalcule sol([](point2) { return 1234.5; });
    EXPECT_NEAR(visible(sol, plan, {loin.x, loin.y, 1234.5}, {loin.x + 40.0, loin.y, 1234.5}, 1.5), 1.5, 1e-8);
}

TEST(Visibilite, MeetsTheSameObstaclesAsALookAtEachOfThem)
{
    std::mt19937 hasard(20);
    std::uniform_real_distribution<double> place(0.0, 100.0), bombement(-1.5, 1.5);
    obstaclesPlan plan;
    std::vector<elementAxe> murs;
    for (int i = 0; i < 300; ++i) {
        const point2 de{place(hasard), place(hasard)};
        const point2 vers = de + point2{place(hasard) / 10.0 - 5.0, place(hasard) / 10.0 - 5.0};
        const axe a = mur(de, vers, i % 2 ? bombement(hasard) : 0.0);
        murs.push_back(a.elements().front());
        plan.ajouterLigne(a, 1.0);
    }
    plan.indexer();
    for (int i = 0; i < 40; ++i) {
        const point2 a{place(hasard), place(hasard)}, b{place(hasard), place(hasard)};
        std::vector<std::size_t> trouves, attendus;
        plan.croiser(a, b, [&](double part, std::size_t obstacle) {
            EXPECT_TRUE(part >= -1e-9 && part <= 1.0 + 1e-9);
            trouves.push_back(obstacle);
        });
        for (std::size_t m = 0; m < murs.size(); ++m) {
            // Straight chords of the wall, crossed one by one by their sides.
            const int cordes = murs[m].estDroit() ? 1 : 1000;
            point2 avant = murs[m].pointA(0.0);
            for (int k = 1; k <= cordes; ++k) {
                const point2 apres = murs[m].pointA(murs[m].longueur * k / cordes);
                const auto cote = [](point2 p, point2 q, point2 r) { return vectoriel(q - p, r - p); };
                if (cote(a, b, avant) * cote(a, b, apres) < 0.0 && cote(avant, apres, a) * cote(avant, apres, b) < 0.0)
                    attendus.push_back(m);
                avant = apres;
            }
        }
        std::ranges::sort(trouves);
        std::ranges::sort(attendus);
        EXPECT_EQ(trouves, attendus) << i;
    }
}

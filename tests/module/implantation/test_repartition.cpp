// Spreading over stations, points along axes.

#include <map>
#include <set>

#include <gtest/gtest.h>

#include "implantation/pointsAxe.h"
#include "implantation/repartition.h"

namespace {

/// Points and stations on a line, and pairs that do not see each other.
struct ligne {
    std::vector<double> points, stations;
    std::map<std::pair<std::size_t, std::size_t>, double> caches; ///< and what is missing

    repartition repartir(double portee, bool equilibree) const
    {
        return ::repartir(
            points.size(), stations.size(), {portee, equilibree},
            [this](std::size_t p, std::size_t s) { return std::abs(points[p] - stations[s]); },
            [this](const std::vector<paireRepartition>& paires) {
                std::vector<vueDuPoint> vues;
                for (const auto& [p, s] : paires) {
                    const auto cache = caches.find({p, s});
                    vues.push_back(cache == caches.end() ? vueDuPoint{true}
                                                         : vueDuPoint{false, refusStation::obstruee, cache->second});
                }
                return vues;
            });
    }
};

constexpr std::size_t aucune = repartition::aucune;

} // namespace

TEST(Repartition, GivesEachPointToTheNearestStationThatSeesIt)
{
    const ligne l{{1.0, 4.0, 9.0, 30.0, 5.0, 10.0}, {0.0, 10.0}, {{{1, 0}, 0.4}, {{4, 0}, 0.7}, {{4, 1}, 0.3}}};
    const repartition r = l.repartir(12.0, false);
    EXPECT_EQ(r.stations, (std::vector<std::size_t>{0, 1, 1, aucune, aucune, 0})) << "the last is not seen from itself";
    EXPECT_EQ(r.refusees[3].pourquoi, refusStation::horsDePortee);
    EXPECT_EQ(r.refusees[4].pourquoi, refusStation::obstruee);
    EXPECT_EQ(r.refusees[4].manque, 0.3) << "the least that is missing";
    EXPECT_EQ((ligne{{5.0}, {5.0, 90.0}, {}}.repartir(12.0, false).refusees[0].pourquoi), refusStation::memeLieu);
}

TEST(Repartition, BalancesAsFarAsSightsAllow)
{
    // All are near the first station; the last point sees only that one.
    const ligne l{{0.5, 1.0, 2.0, 3.0}, {0.0, 50.0}, {{{3, 1}, 0.1}}};
    EXPECT_EQ(l.repartir(inconnu, false).stations, (std::vector<std::size_t>{0, 0, 0, 0}));
    const repartition r = l.repartir(inconnu, true);
    EXPECT_EQ(std::ranges::count(r.stations, 0U), 2);
    EXPECT_EQ(r.stations[3], 0U);
    const ligne cache{{0.5, 1.0}, {0.0}, {{{1, 0}, 0.5}}};
    EXPECT_EQ(cache.repartir(inconnu, true).stations, (std::vector<std::size_t>{0, aucune}));
}

TEST(Repartition, BalancesWithTheShortestSights)
{
    // One of the three on the right has to go to the left: not the farthest, whichever stands last in the list.
    const ligne l{{10.0, 120.0, 60.0, 95.0}, {0.0, 100.0}, {}};
    EXPECT_EQ(l.repartir(inconnu, true).stations, (std::vector<std::size_t>{0, 1, 0, 1}));
    // The last finds its only station full: another hands a point on to the next, which does so too.
    const ligne chaine{{40.0, 90.0, 3.0}, {0.0, 100.0, 130.0}, {{{2, 1}, 1.0}, {{2, 2}, 1.0}, {{0, 2}, 1.0}}};
    EXPECT_EQ(chaine.repartir(inconnu, true).stations, (std::vector<std::size_t>{1, 2, 0}));
    // Of ten points three stations get four, three and three, even where two would do with the nearest.
    ligne dix{{}, {0.0, 50.0, 400.0}, {}};
    for (int i = 0; i < 10; ++i)
        dix.points.push_back(5.0 * i + 1.0);
    const repartition r = dix.repartir(inconnu, true);
    for (std::size_t s = 0; s < 3; ++s)
        EXPECT_GE(std::ranges::count(r.stations, s), 3) << s;
    // Stations of another system, thousands of kilometres off, and points on one another: ways that cost the same to
    // the last digit but one. They must not turn in circles, which would never end.
    const ligne loin{{-38.20, -727.09, -727.09, -727.09, -727.09, -727.09, -727.09, -904.83, -38.20, 317.69},
                     {5588751.63, 313368.07, -1263920.53},
                     {}};
    EXPECT_EQ(std::ranges::count(loin.repartir(inconnu, true).stations, aucune), 0);
}

TEST(PointsAxe, StandAtStepsOrWithinTheError)
{
    const point3 a{0.0, 0.0, inconnu}, b{25.0, 0.0, inconnu}, c{25.0, 20.0, inconnu};
    const sommetAxe sommets[] = {{a, 0.0}, {b, 1.0}, {c, 0.0}}; // a straight of 25, then half a circle of radius 10
    const axe ouvert = axe::deSommets(sommets, false);
    EXPECT_EQ(longueursAImplanter(ouvert, {false, 10.0}).size(), 7U); // 0 to 50, and the end
    const std::vector<double> fins = longueursAImplanter(ouvert, {true, 0.05});
    EXPECT_EQ(fins.front(), 0.0);
    EXPECT_EQ(fins[1], 25.0) << "a straight needs nothing between its ends";
    for (std::size_t i = 2; i < fins.size(); ++i) {
        const double demiAngle = (fins[i] - fins[i - 1]) / 10.0 / 2.0;
        EXPECT_LE(10.0 * (1.0 - std::cos(demiAngle)), 0.05);
    }
    const axe ferme = axe::deSommets(std::span(sommets, 2), true);
    EXPECT_LT(longueursAImplanter(ferme, {true, 0.05}).back(), ferme.longueur()) << "does not come back to its start";
    EXPECT_TRUE(longueursAImplanter(ouvert, {false, 0.0}).empty());
    EXPECT_TRUE(longueursAImplanter(ouvert, {false, 1e-9}).empty()) << "too many";
}

#include <random>
#include <set>

#include <gtest/gtest.h>

#include "tools/allegement.h"

namespace {

ligneAllegee ligne(std::initializer_list<sommetAxe> sommets, bool fermee = false)
{
    return {std::vector<sommetAxe>(sommets), fermee, false};
}

using rangs = std::vector<std::size_t>;

TEST(allegement, straightParts)
{
    struct row {
        const char* nom;
        ligneAllegee ligne;
        rangs restent;
    };
    const row rows[] = {
        {"in line", ligne({{{0, 0, 0}}, {{1, 0.001, 0}}, {{2, 0, 0}}, {{3, 5, 0}}}), {0, 2, 3}},
        {"repeated vertices", ligne({{{0, 0, 0}}, {{0, 0, 0}}, {{2, 2, 0}}, {{2, 2, 0}}}), {1, 3}},
        {"arcs stay with their ends",
         ligne({{{0, 0, 0}}, {{1, 0, 0}, 0.5}, {{2, 0, 0}}, {{3, 0, 0}}, {{4, 0, 0}}}),
         {0, 1, 2, 4}},
        {"square with a vertex on a side",
         ligne({{{5, 0, 0}}, {{10, 0, 0}}, {{10, 10, 0}}, {{0, 10, 0}}, {{0, 0, 0}}}, true),
         {1, 2, 3, 4}},
        {"closed onto itself", ligne({{{0, 0, 0}}, {{10, 0, 0}}, {{10, 10, 0}}, {{0, 0, 0}}}, true), {0, 1, 2}},
        {"a ring smaller than the tolerance keeps its shape",
         ligne({{{0, 0, 0}}, {{0.001, 0, 0}}, {{0, 0.001, 0}}}, true),
         {0, 1, 2}},
        {"altitudes count", ligne({{{0, 0, 0}}, {{1, 0, 3}}, {{2, 0, 0}}}), {0, 1, 2}},
        {"one vertex", ligne({{{0, 0, 0}}}), {0}},
    };
    for (const row& r : rows)
        EXPECT_EQ(sommetsGardes(std::vector{r.ligne}, 0.01)[0], r.restent) << r.nom;
}

// Neighbouring parcels over a wavy ground, their shared borders run in both senses: what one loses the other loses.
TEST(allegement, neighboursStayTogether)
{
    std::mt19937 hasard(31);
    std::uniform_real_distribution<double> bruit(-0.05, 0.05);
    constexpr int cases = 4, pas = 40;
    const auto bord = [&](point2 de, point2 a) {
        std::vector<point3> points;
        for (int i = 0; i < pas; ++i) {
            const point2 p = de + (a - de) * (double(i) / pas);
            points.push_back({p.x + (i ? bruit(hasard) : 0), p.y + (i ? bruit(hasard) : 0), 0});
        }
        return points;
    };
    std::vector<std::vector<std::vector<point3>>> horizontaux, verticaux;
    for (int i = 0; i <= cases; ++i) {
        horizontaux.emplace_back();
        verticaux.emplace_back();
        for (int j = 0; j < cases; ++j) {
            horizontaux.back().push_back(bord({j * 20.0, i * 20.0}, {(j + 1) * 20.0, i * 20.0}));
            verticaux.back().push_back(bord({i * 20.0, j * 20.0}, {i * 20.0, (j + 1) * 20.0}));
        }
    }
    std::vector<ligneAllegee> parcelles;
    for (std::size_t i = 0; i < cases; ++i)
        for (std::size_t j = 0; j < cases; ++j) {
            std::vector<point3> tour;
            const auto suivre = [&](const std::vector<point3>& points, point3 bout, bool retour) {
                std::vector<point3> tous = points;
                tous.push_back(bout);
                if (retour)
                    std::reverse(tous.begin(), tous.end());
                tour.insert(tour.end(), tous.begin(), tous.end() - 1);
            };
            const double x0 = double(j) * 20, y0 = double(i) * 20, x1 = x0 + 20, y1 = y0 + 20;
            suivre(horizontaux[i][j], {x1, y0, 0}, false);
            suivre(verticaux[j + 1][i], {x1, y1, 0}, false);
            suivre(horizontaux[i + 1][j], {x1, y1, 0}, true);
            suivre(verticaux[j][i], {x0, y1, 0}, true);
            ligneAllegee p;
            p.fermee = true;
            for (const point3& s : tour)
                p.sommets.push_back({s, 0.0});
            parcelles.push_back(p);
        }
    const auto restent = sommetsGardes(parcelles, 0.06);
    std::set<std::pair<double, double>> gardes;
    std::size_t total = 0;
    for (std::size_t i = 0; i < parcelles.size(); ++i) {
        total += restent[i].size();
        for (const std::size_t r : restent[i])
            gardes.emplace(parcelles[i].sommets[r].place.x, parcelles[i].sommets[r].place.y);
    }
    EXPECT_LT(total, parcelles.size() * parcelles[0].sommets.size() / 2);
    for (std::size_t i = 0; i < parcelles.size(); ++i)
        for (std::size_t s = 0; s < parcelles[i].sommets.size(); ++s) {
            const bool reste = std::binary_search(restent[i].begin(), restent[i].end(), s);
            const point3 p = parcelles[i].sommets[s].place;
            EXPECT_EQ(reste, gardes.contains({p.x, p.y}));
        }
}

TEST(allegement, overlappingSegments)
{
    const segmentAllege segments[] = {
        {{0, 0, 0}, {10, 0, 0}},     // 0: the longest of its line
        {{12, 0, 0}, {4, 0, 0}},     // 1: run the other way, reaches farther
        {{2, 0.0001, 0}, {3, 0, 0}}, // 2: within it
        {{12, 0, 0}, {15, 0, 0}},    // 3: touches end to end
        {{0, 0, 0}, {10, 0, 0}, 1},  // 4: of another family
        {{0, 0, 0}, {10, 0, 2}},     // 5: rises
        {{0, 0, 0}, {0, 10, 0}},     // 6: crosses
        {{5, 5, 0}, {5, 5, 0}},      // 7: no length
    };
    const auto reunis = reunirSegments(segments, 0.001);
    for (const std::size_t i : {1u, 2u})
        EXPECT_TRUE(reunis[i].part) << i;
    for (const std::size_t i : {0u, 3u, 4u, 5u, 6u, 7u})
        EXPECT_FALSE(reunis[i].part) << i;
    EXPECT_TRUE(reunis[0].change);
    EXPECT_EQ(reunis[0].fin.x, 12);
    EXPECT_EQ(reunis[0].debut.x, 0);
    EXPECT_FALSE(reunis[3].change);
}

} // namespace

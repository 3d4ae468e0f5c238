#include <random>

#include <gtest/gtest.h>

#include "tools/rectangleOriente.h"

namespace {

void attendre(const rectangleOriente& r, std::array<point2, 4> sommets, const char* nom, double tolerance = 1e-9)
{
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_LT(norme(r.sommets()[i] - sommets[i]), tolerance) << nom << " " << i;
}

TEST(rectangleOriente, growsTowardsThePoint)
{
    struct row {
        const char* nom;
        point2 rotation, cote;
        std::array<point2, 4> sommets;
    };
    const row rows[] = {
        {"to the left", {10, 0}, {3, 4}, {{{0, 0}, {10, 0}, {10, 4}, {0, 4}}}},
        {"to the right", {10, 0}, {3, -4}, {{{0, 0}, {10, 0}, {10, -4}, {0, -4}}}},
        {"no first side: the second gives the direction", {0, 0}, {0, 5}, {{{0, 0}, {0, 0}, {0, 5}, {0, 5}}}},
        {"on the first side", {10, 0}, {4, 0}, {{{0, 0}, {10, 0}, {10, 0}, {0, 0}}}},
    };
    for (const row& r : rows) {
        rectangleOriente rectangle;
        rectangle.orienterVers(r.rotation);
        rectangle.elargirVers(r.cote);
        attendre(rectangle, r.sommets, r.nom);
    }
}

TEST(rectangleOriente, cornerThenSideKeepsSigns)
{
    rectangleOriente r;
    r.orienterVers({10, 0});
    r.etendreVers({-5, 2});
    EXPECT_DOUBLE_EQ(r.a, -5);
    EXPECT_DOUBLE_EQ(r.b, 2);
    attendre(r, {{{0, 0}, {-5, 0}, {-5, 2}, {0, 2}}}, "corner");
    r.elargirVers({-1, -7}); // the first side stays negative
    attendre(r, {{{0, 0}, {-5, 0}, {-5, -7}, {0, -7}}}, "side");
    r.etendreVers({0, 0});
    attendre(r, {}, "nothing");
}

TEST(rectangleOriente, cornerIsThePointFarFromTheOrigin)
{
    std::mt19937 hasard(5);
    std::uniform_real_distribution<double> d(-100.0, 100.0);
    for (int i = 0; i < 500; ++i) {
        rectangleOriente r;
        r.origine = {1650000.0 + d(hasard), 8180000.0 + d(hasard)};
        r.orienterVers(r.origine + point2{d(hasard), d(hasard)});
        const point2 p = r.origine + point2{d(hasard), d(hasard)};
        r.etendreVers(p);
        EXPECT_LT(norme(r.sommets()[2] - p), 1e-7);
        const double b = r.b;
        r.elargirVers(p);
        EXPECT_NEAR(r.b, b, 1e-7);
    }
}

} // namespace

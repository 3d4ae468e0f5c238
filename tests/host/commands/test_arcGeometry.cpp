#include <cmath>

#include <gtest/gtest.h>

#include "commands/ArcGeometry.h"

/// Relations that hold for every arc, beside the hand-made ones of the commands.

namespace {

constexpr double pi = 3.141592653589793;

TEST(ArcGeometry, anArcThroughAPointPassesThere)
{
    for (int i = 1; i < 36; ++i) {
        const double turned = i * pi / 18.0 - pi * (i % 2); // small and large, both ways
        if (std::fabs(turned) < 1e-9)
            continue;
        SCOPED_TRACE(turned);
        const auto on = [](double angle) {
            return AcGePoint2d(1e6 + 50.0 * std::cos(angle), 2e5 + 50.0 * std::sin(angle));
        };
        const AcGePoint2d from = on(0.3), through = on(0.3 + turned / 3.0), to = on(0.3 + turned);
        const auto bulge = bulgeThrough(from, through, to);
        ASSERT_TRUE(bulge);
        EXPECT_NEAR(*bulge, std::tan(turned / 4.0), 1e-5 * std::fmax(1.0, *bulge * *bulge));
        const auto arc = arcOfBulge(from, to, *bulge);
        ASSERT_TRUE(arc);
        EXPECT_NEAR(arc->radius, 50.0, 1e-4);
        EXPECT_NEAR(arc->center.x, 1e6, 1e-4);
        EXPECT_NEAR(turnBetween(arc->start, arc->end), std::fabs(turned), 1e-6);
        EXPECT_NEAR(
            std::remainder(directionAtEnd(from, to, *bulge) - (0.3 + turned + (turned > 0 ? pi : -pi) / 2.0), 2.0 * pi),
            0.0, 1e-5);
    }
}

TEST(ArcGeometry, thereIsNotAlwaysAnArc)
{
    const AcGePoint2d a(0, 0), b(10, 0);
    EXPECT_FALSE(bulgeByTangent(a, pi, b)) << "straight back";
    EXPECT_FALSE(bulgeByTangent(a, 0.0, a));
    EXPECT_FALSE(bulgeThrough(a, {5, 0}, b));
    EXPECT_FALSE(bulgeByRadius(a, b, 4.9));
    EXPECT_TRUE(bulgeByRadius(a, b, 5.0));
    EXPECT_FALSE(bulgeByAngle(2.0 * pi));
    EXPECT_FALSE(angleOfChord(1.0, 0.0));
    EXPECT_FALSE(circleThrough(a, b, {20, 0}));
    EXPECT_FALSE(arcOfBulge(a, b, 0.0));
}

} // namespace

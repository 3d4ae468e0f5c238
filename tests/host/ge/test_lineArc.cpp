#include <numbers>
#include <optional>

#include <gtest/gtest.h>

#include "gecarc2d.h"
#include "geline2d.h"
#include "geline3d.h"
#include "gelnsg2d.h"
#include "gelnsg3d.h"

namespace {

constexpr double pi = std::numbers::pi;
const double half = std::sqrt(0.5);

AcGeTol within(double tolerance)
{
    AcGeTol tol;
    tol.setEqualPoint(tolerance);
    return tol;
}

TEST(Lines2d, MeetOnlyWhereBothReach)
{
    const AcGeLineSeg2d flat(AcGePoint2d(0, 0), AcGePoint2d(10, 0));
    struct Row {
        const char* name;
        AcGeLineSeg2d other;
        std::optional<AcGePoint2d> meeting;
    };
    const Row rows[] = {
        {"crossing", {AcGePoint2d(3, -1), AcGePoint2d(5, 1)}, AcGePoint2d(4, 0)},
        {"touching with an end", {AcGePoint2d(7, 0), AcGePoint2d(7, 3)}, AcGePoint2d(7, 0)},
        {"end to end", {AcGePoint2d(10, 0), AcGePoint2d(12, 2)}, AcGePoint2d(10, 0)},
        {"stopping short", {AcGePoint2d(7, 0.001), AcGePoint2d(7, 3)}, std::nullopt},
        {"beyond the end", {AcGePoint2d(11, -1), AcGePoint2d(11, 1)}, std::nullopt},
        {"parallel", {AcGePoint2d(0, 1), AcGePoint2d(10, 1)}, std::nullopt},
        {"overlapping", {AcGePoint2d(2, 0), AcGePoint2d(3, 0)}, std::nullopt},
        {"without length", {AcGePoint2d(2, 0), AcGePoint2d(2, 0)}, std::nullopt},
    };
    for (const Row& row : rows)
        for (const AcGeVector2d shift : {AcGeVector2d(0, 0), AcGeVector2d(1e6, 6.5e6)}) { // as national grids have
            const AcGeLineSeg2d a(flat.startPoint() + shift, flat.endPoint() + shift);
            const AcGeLineSeg2d b(row.other.startPoint() + shift, row.other.endPoint() + shift);
            AcGePoint2d met(-1, -1);
            EXPECT_EQ(a.intersectWith(b, met) != 0, row.meeting.has_value()) << row.name;
            EXPECT_EQ(b.intersectWith(a, met) != 0, row.meeting.has_value()) << row.name;
            EXPECT_TRUE(met.isEqualTo(row.meeting ? *row.meeting + shift : AcGePoint2d(-1, -1), within(1e-8)))
                << row.name;
        }
    AcGePoint2d met;
    EXPECT_TRUE(AcGeLine2d(AcGePoint2d(0, 5), AcGePoint2d(1, 5))
                    .intersectWith(AcGeLineSeg2d(AcGePoint2d(90, 0), AcGePoint2d(90, 9)), met));
    EXPECT_EQ(met, AcGePoint2d(90, 5));
}

TEST(Lines2d, NearestPoints)
{
    const AcGeLineSeg2d s(AcGePoint2d(1, 1), AcGePoint2d(5, 1));
    EXPECT_EQ(s.closestPointTo({3, 9}), AcGePoint2d(3, 1));
    EXPECT_EQ(s.closestPointTo({-4, 1}), AcGePoint2d(1, 1));
    EXPECT_EQ(s.distanceTo({8, 5}), 5.0);
    EXPECT_EQ(AcGeLine2d(AcGePoint2d(1, 1), AcGePoint2d(5, 1)).distanceTo({8, 5}), 4.0);
    EXPECT_TRUE(s.isOn(AcGePoint2d(5, 1)) && !s.isOn(AcGePoint2d(5.001, 1)));
    double parameter = 0;
    s.isOn(AcGePoint2d(2, 1), parameter);
    EXPECT_EQ(parameter, 0.25);
    const AcGeLineSeg2d point(AcGePoint2d(2, 2), AcGePoint2d(2, 2));
    EXPECT_EQ(point.distanceTo({2, 5}), 3.0);
    // Ends are kept to the bit, which start + (end − start) would not do.
    EXPECT_EQ(AcGeLineSeg2d(AcGePoint2d(1234567.1, 0), AcGePoint2d(0.1, 0)).endPoint().x, 0.1);
}

TEST(Lines3d, MeetAndCrossPlanes)
{
    const AcGeLineSeg3d s(AcGePoint3d(0, 0, 0), AcGePoint3d(4, 4, 4));
    AcGePoint3d met;
    EXPECT_TRUE(s.intersectWith(AcGeLineSeg3d(AcGePoint3d(0, 4, 2), AcGePoint3d(4, 0, 2)), met));
    EXPECT_EQ(met, AcGePoint3d(2, 2, 2));
    EXPECT_FALSE(s.intersectWith(AcGeLineSeg3d(AcGePoint3d(0, 4, 2.1), AcGePoint3d(4, 0, 2.1)), met)); // passes above
    EXPECT_FALSE(s.intersectWith(AcGeLine3d(AcGePoint3d(9, 0, 9), AcGeVector3d::kYAxis), met));
    EXPECT_TRUE(s.intersectWith(AcGePlane({0, 0, 1}, AcGeVector3d::kZAxis), met));
    EXPECT_EQ(met, AcGePoint3d(1, 1, 1));
    EXPECT_FALSE(s.intersectWith(AcGePlane({0, 0, 5}, AcGeVector3d::kZAxis), met));
    EXPECT_EQ(s.closestPointTo({9, 9, 9}), AcGePoint3d(4, 4, 4));
    EXPECT_NEAR(AcGeLine3d(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis).distanceTo({3, 4, 100}), 5.0, 1e-12);
}

TEST(Arc2d, FromABulgeByHand)
{
    struct Row {
        const char* name;
        AcGePoint2d start, end;
        double bulge;
        AcGePoint2d center;
        double radius, turned;
        AcGePoint2d middle; // of the arc
    };
    const double quarterTurn = std::sqrt(2.0) - 1.0; // tan(90°/4)
    const Row rows[] = {
        {"half circle, counter-clockwise", {-1, 0}, {1, 0}, 1.0, {0, 0}, 1, pi, {0, -1}},
        {"half circle, clockwise", {-1, 0}, {1, 0}, -1.0, {0, 0}, 1, pi, {0, 1}},
        {"quarter circle", {1, 0}, {0, 1}, quarterTurn, {0, 0}, 1, pi / 2, {half, half}},
        {"quarter circle, clockwise", {0, 1}, {1, 0}, -quarterTurn, {0, 0}, 1, pi / 2, {half, half}},
        {"three quarters", {0, 1}, {1, 0}, 1 / quarterTurn, {0, 0}, 1, 1.5 * pi, {-half, -half}},
        {"national grid", {1000000, 6000000}, {1000010, 6000000}, 1.0, {1000005, 6000000}, 5, pi, {1000005, 5999995}},
    };
    for (const Row& row : rows) {
        const AcGeCircArc2d arc(row.start, row.end, row.bulge, Adesk::kFalse);
        EXPECT_TRUE(arc.center().isEqualTo(row.center, within(1e-8))) << row.name;
        EXPECT_NEAR(arc.radius(), row.radius, 1e-9) << row.name;
        EXPECT_NEAR(arc.endAng() - arc.startAng(), row.turned, 1e-12) << row.name;
        EXPECT_NEAR(arc.length(), row.radius * row.turned, 1e-9) << row.name;
        EXPECT_EQ(arc.isClockWise() != 0, row.bulge < 0) << row.name;
        EXPECT_TRUE(arc.startPoint().isEqualTo(row.start, within(1e-8))) << row.name;
        EXPECT_TRUE(arc.endPoint().isEqualTo(row.end, within(1e-8))) << row.name;
        EXPECT_TRUE(arc.evalPoint((arc.startAng() + arc.endAng()) / 2).isEqualTo(row.middle, within(1e-8))) << row.name;
        // The rise over the chord says the same as the tangent; so does the point halfway.
        const double rise = row.bulge * row.start.distanceTo(row.end) / 2;
        EXPECT_TRUE(AcGeCircArc2d(row.start, row.end, rise).center().isEqualTo(row.center, within(1e-8))) << row.name;
        const AcGeCircArc2d through(row.start, row.middle, row.end);
        EXPECT_TRUE(through.center().isEqualTo(row.center, within(1e-8))) << row.name;
        EXPECT_EQ(through.isClockWise(), arc.isClockWise()) << row.name;
    }
    EXPECT_EQ(AcGeCircArc2d({1, 2}, {3, 4}, 0.0, Adesk::kFalse).length(), 0.0);
    EXPECT_EQ(AcGeCircArc2d({1, 2}, {1, 2}, 1.0).endPoint(), AcGePoint2d(1, 2));
    EXPECT_EQ(AcGeCircArc2d({0, 0}, {1, 1}, {2, 2}).radius(), 0.0);
}

TEST(Arc2d, NearestPointsStayOnTheArc)
{
    const AcGeCircArc2d upper({0, 0}, 2, 0, pi);
    EXPECT_EQ(upper.closestPointTo({0, 9}), AcGePoint2d(0, 2));
    EXPECT_EQ(upper.closestPointTo({-1, -9}), AcGePoint2d(-2, 0)); // the nearer end
    EXPECT_EQ(upper.closestPointTo({1, -9}), AcGePoint2d(2, 0));
    EXPECT_EQ(upper.distanceTo({0, 0}), 2.0);
    EXPECT_TRUE(upper.isOn({2 * half, 2 * half}) && !upper.isOn({0, -2}));
    const AcGeCircArc2d lower({0, 0}, 2, 0, pi, AcGeVector2d::kXAxis, Adesk::kTrue);
    EXPECT_EQ(lower.closestPointTo({0, -9}), AcGePoint2d(0, -2));
    EXPECT_NEAR(AcGeCircArc2d({0, 0}, 1, pi, pi / 2).length(), 1.5 * pi, 1e-12); // on through the reference vector
    EXPECT_NEAR(AcGeCircArc2d({0, 0}, 1, 1, 1).length(), 2 * pi, 1e-12);
    AcGePoint2dArray samples;
    upper.getSamplePoints(3, samples);
    ASSERT_EQ(samples.length(), 3);
    EXPECT_TRUE(samples[0] == AcGePoint2d(2, 0) && samples[1] == AcGePoint2d(0, 2) && samples[2] == AcGePoint2d(-2, 0));
}

TEST(Arc2d, MeetsLines)
{
    const AcGeCircArc2d upper({0, 0}, 5, 0, pi);
    struct Row {
        const char* name;
        AcGeLineSeg2d line;
        int count;
        AcGePoint2d first;
    };
    const Row rows[] = {
        {"chord", {AcGePoint2d(-9, 3), AcGePoint2d(9, 3)}, 2, {-4, 3}},
        {"chord walked backwards", {AcGePoint2d(9, 3), AcGePoint2d(-9, 3)}, 2, {4, 3}},
        {"vertical: the lower half is no part of it", {AcGePoint2d(3, -9), AcGePoint2d(3, 9)}, 1, {3, 4}},
        {"segment that ends inside", {AcGePoint2d(0, 0), AcGePoint2d(0, 9)}, 1, {0, 5}},
        {"tangent", {AcGePoint2d(-9, 5), AcGePoint2d(9, 5)}, 1, {0, 5}},
        {"through both ends", {AcGePoint2d(-9, 0), AcGePoint2d(9, 0)}, 2, {-5, 0}},
        {"too far", {AcGePoint2d(-9, 5.001), AcGePoint2d(9, 5.001)}, 0, {}},
        {"too short", {AcGePoint2d(-1, 0), AcGePoint2d(1, 0)}, 0, {}},
    };
    for (const Row& row : rows) {
        int count = -1;
        AcGePoint2d p1;
        AcGePoint2d p2;
        EXPECT_EQ(upper.intersectWith(row.line, count, p1, p2) != 0, row.count > 0) << row.name;
        EXPECT_EQ(count, row.count) << row.name;
        EXPECT_EQ(p1, row.first) << row.name;
    }
}

} // namespace

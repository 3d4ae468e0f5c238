#include <functional>
#include <memory>

#include "dbelipse.h"
#include "dbents.h"
#include "dbspline.h"
#include "DrawingWithEntities.h"
#include "gemat3d.h"
#include "geplane.h"
#include "Near.h"

namespace {

template <class T>
AcGePoint3dArray arrayOf(std::initializer_list<T> points)
{
    AcGePoint3dArray array;
    for (const T& point : points)
        array.append(point);
    return array;
}

std::unique_ptr<AcDbCurve> bulgedPolyline()
{
    auto polyline = std::make_unique<AcDbPolyline>();
    polyline->addVertexAt(0, {0.0, 0.0}, 1.0);
    polyline->addVertexAt(1, {10.0, 0.0}, -0.3);
    polyline->addVertexAt(2, {20.0, 10.0});
    polyline->addVertexAt(3, {5.0, 25.0}, 1e-7);
    polyline->setClosed(Adesk::kTrue);
    polyline->setElevation(3.0);
    polyline->setNormal({0.3, -0.5, 0.8});
    return polyline;
}

/// The points of a circle of radius 5, closed: only those that it runs through are known.
std::unique_ptr<AcDbCurve> circleThroughPoints()
{
    std::string points;
    for (int i = 0; i < 100; ++i)
        points += "11 " + std::to_string(5 * std::cos(i * pi / 50)) + "\n21 " +
                  std::to_string(5 * std::sin(i * pi / 50)) + "\n31 0\n";
    const DrawingWithEntities drawing("0 SPLINE\n100 AcDbSpline\n70 9\n71 3\n72 0\n73 0\n74 100\n" + points);
    return std::unique_ptr<AcDbCurve>(static_cast<AcDbCurve*>(drawing.open<AcDbSpline>(0)->clone()));
}

/// Two quarter turns: a quadratic rational spline draws circles exactly.
std::unique_ptr<AcDbCurve> halfCircleSpline()
{
    const auto points = arrayOf<AcGePoint3d>({{5, 0, 0}, {5, 5, 0}, {0, 5, 0}, {-5, 5, 0}, {-5, 0, 0}});
    AcGeDoubleArray knots, weights;
    for (const double knot : {0.0, 0.0, 0.0, 0.5, 0.5, 1.0, 1.0, 1.0})
        knots.append(knot);
    for (const double weight : {1.0, std::sqrt(0.5), 1.0, std::sqrt(0.5), 1.0})
        weights.append(weight);
    return std::make_unique<AcDbSpline>(2, Adesk::kTrue, Adesk::kFalse, Adesk::kFalse, points, knots, weights);
}

struct Row {
    const char* name;
    std::function<std::unique_ptr<AcDbCurve>()> make;
    double length; ///< 0: not asked
    double tolerance;
};

const Row rows[] = {
    {"line", [] { return std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 6, 15)); }, 13.0, 1e-9},
    {"circle", [] { return std::make_unique<AcDbCircle>(AcGePoint3d(5, 5, 1), AcGeVector3d(0, 0, 1), 2.0); }, 4 * pi,
     1e-9},
    {"circle of a tilted plane",
     [] { return std::make_unique<AcDbCircle>(AcGePoint3d(5, 5, 1), AcGeVector3d(1, 1, 1), 2.0); }, 4 * pi, 1e-9},
    {"arc over the X axis", [] { return std::make_unique<AcDbArc>(AcGePoint3d(1, 1, 0), 10.0, 1.75 * pi, 0.5); },
     (0.25 * pi + 0.5) * 10.0, 1e-9},
    {"arc seen from below",
     [] { return std::make_unique<AcDbArc>(AcGePoint3d(1, 1, 0), AcGeVector3d(0, 0, -1), 10.0, 0.0, pi / 2); }, 5 * pi,
     1e-9},
    {"bulged polyline of a tilted plane", bulgedPolyline, 0.0, 1e-7},
    {"3D polyline",
     [] {
         return std::make_unique<AcDb3dPolyline>(
             AcDb::k3dSimplePoly, arrayOf<AcGePoint3d>({{0, 0, 0}, {3, 4, 0}, {3, 4, 12}}), Adesk::kTrue);
     },
     5.0 + 12.0 + 13.0, 1e-9},
    {"2D polyline",
     [] {
         return std::make_unique<AcDb2dPolyline>(AcDb::k2dSimplePoly,
                                                 arrayOf<AcGePoint3d>({{0, 0, 0}, {3, 4, 0}, {3, 10, 0}}), 7.0);
     },
     11.0, 1e-9},
    // Ramanujan's second series for the perimeter, good to 1e-9 at this shape: half axes 4 and 3.
    {"ellipse",
     [] {
         return std::make_unique<AcDbEllipse>(AcGePoint3d(0, 0, 2), AcGeVector3d(0, 0, 1), AcGeVector3d(4, 0, 0), 0.75);
     },
     22.103492160709504, 1e-5},
    {"circle through points", circleThroughPoints, 10 * pi, 1e-4},
    {"half circle as a spline", halfCircleSpline, 5 * pi, 1e-4},
};

} // namespace

TEST(Curves, distancesAndPointsAnswerEachOther)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto curve = row.make();
        double end = 0.0, length = 0.0;
        ASSERT_EQ(curve->getEndParam(end), Acad::eOk);
        ASSERT_EQ(curve->getDistAtParam(end, length), Acad::eOk);
        if (row.length > 0.0) {
            EXPECT_NEAR(length, row.length, row.tolerance);
        }
        for (const double share : {0.0, 0.13, 0.5, 0.77}) {
            SCOPED_TRACE(share);
            AcGePoint3d point, nearest;
            double dist = 0.0, param = 0.0;
            ASSERT_EQ(curve->getPointAtDist(share * length, point), Acad::eOk);
            ASSERT_EQ(curve->getDistAtPoint(point, dist), Acad::eOk);
            EXPECT_NEAR(dist, share * length, row.tolerance);
            ASSERT_EQ(curve->getParamAtPoint(point, param), Acad::eOk);
            ASSERT_EQ(curve->getClosestPointTo(point, nearest), Acad::eOk);
            expectNear(nearest, point, row.tolerance);
        }
        AcGePoint3d nowhere;
        EXPECT_EQ(curve->getPointAtDist(length + 1.0, nowhere), Acad::eInvalidInput);
        EXPECT_EQ(curve->getPointAtDist(-1.0, nowhere), Acad::eInvalidInput);
        double param = 0.0;
        EXPECT_EQ(curve->getParamAtPoint(AcGePoint3d(1000, 1000, 1000), param), Acad::eInvalidInput);
    }
}

TEST(Curves, derivativeIsTheSpeedOfThePoint)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto curve = row.make();
        double from = 0.0, to = 0.0;
        curve->getStartParam(from);
        curve->getEndParam(to);
        const double at = from + 0.37 * (to - from), step = 1e-5 * (to - from);
        AcGePoint3d before, after;
        AcGeVector3d speed;
        ASSERT_EQ(curve->getPointAtParam(at - step, before), Acad::eOk);
        ASSERT_EQ(curve->getPointAtParam(at + step, after), Acad::eOk);
        ASSERT_EQ(curve->getFirstDeriv(at, speed), Acad::eOk);
        EXPECT_TRUE(speed.isEqualTo((after - before) / (2.0 * step), [] {
            AcGeTol loose;
            loose.setEqualVector(1e-3);
            return loose;
        }()));
    }
}

TEST(Curves, extentsHoldEveryPointAndNoMore)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto curve = row.make();
        AcDbExtents box, walked;
        ASSERT_EQ(curve->getGeomExtents(box), Acad::eOk);
        double from = 0.0, to = 0.0;
        curve->getStartParam(from);
        curve->getEndParam(to);
        constexpr int count = 4000;
        for (int i = 0; i <= count; ++i) {
            AcGePoint3d point;
            ASSERT_EQ(curve->getPointAtParam(from + (to - from) * i / count, point), Acad::eOk);
            walked.addPoint(point);
        }
        expectNear(box.minPoint(), walked.minPoint(), 0.01);
        expectNear(box.maxPoint(), walked.maxPoint(), 0.01);
    }
}

TEST(Curves, areas)
{
    double area = 0.0;
    EXPECT_EQ(AcDbCircle({7, 7, 0}, {0, 0, 1}, 3.0).getArea(area), Acad::eOk);
    EXPECT_NEAR(area, 9 * pi, 1e-12);
    AcDbArc({7, 7, 0}, 2.0, 0.0, pi).getArea(area); // closed by its diameter
    EXPECT_NEAR(area, 2 * pi, 1e-12);
    AcDbEllipse({0, 0, 0}, {0, 0, 1}, {4, 0, 0}, 0.5).getArea(area);
    EXPECT_NEAR(area, 8 * pi, 1e-12);
}

TEST(Curves, arcEndsOutsideOfOneTurnAreTheSameArc)
{
    const AcDbArc arc({0, 0, 0}, 1.0, -pi / 2, 5 * pi); // from -90 to 180 degrees
    EXPECT_NEAR(arc.totalAngle(), 1.5 * pi, 1e-12);
    expectBox(arc, {-1, -1, 0}, {1, 1, 0});
    expectBox(AcDbArc({0, 0, 0}, 1.0, pi / 6, pi / 3), {0.5, 0.5, 0}, {std::sqrt(0.75), std::sqrt(0.75), 0});
}

TEST(Curves, lineGoesOnBeyondItsEndsWhenExtended)
{
    const AcDbLine line({0, 0, 0}, {10, 0, 0});
    AcGePoint3d nearest;
    line.getClosestPointTo({15, 3, 0}, nearest);
    expectNear(nearest, {10, 0, 0});
    line.getClosestPointTo({15, 3, 0}, nearest, Adesk::kTrue);
    expectNear(nearest, {15, 0, 0});
}

TEST(Curves, pointNearestToAnArcIsAnEndWhereTheArcIsNot)
{
    const AcDbArc arc({0, 0, 0}, 10.0, 0.0, pi / 2);
    AcGePoint3d nearest;
    arc.getClosestPointTo({1, -5, 0}, nearest);
    expectNear(nearest, {10, 0, 0});
    arc.getClosestPointTo({-5, 1, 0}, nearest);
    expectNear(nearest, {0, 10, 0});
    arc.getClosestPointTo({-5, 0, 0}, nearest, Adesk::kTrue);
    expectNear(nearest, {-10, 0, 0});
}

TEST(Curves, droppedOnThePlan)
{
    AcDbCurve* flat = nullptr;
    const AcDbCircle tilted({1, 2, 9}, {0, 1, 1}, 4.0);
    ASSERT_EQ(tilted.getOrthoProjectedCurve(AcGePlane::kXYPlane, flat), Acad::eOk);
    const std::unique_ptr<AcDbCurve> owned(flat);
    const auto* ellipse = AcDbEllipse::cast(flat);
    ASSERT_TRUE(ellipse);
    EXPECT_NEAR(ellipse->majorAxis().length(), 4.0, 1e-9);
    EXPECT_NEAR(ellipse->radiusRatio(), std::sqrt(0.5), 1e-9);
    expectNear(ellipse->center(), {1, 2, 0});
}

/// One arch of a cubic, which the spline of its points and end tangents is itself.
TEST(Curves, splinesRunThroughTheirFitPointsAlongTheirTangents)
{
    const auto cubic = [](double x) { return x * x * x - 3.0 * x; };
    std::string points;
    for (const double x : {-1.0, -0.4, 0.5, 1.0})
        points += "11 " + std::to_string(x) + "\n21 " + std::to_string(cubic(x)) + "\n31 0\n";
    const std::string head = "0 SPLINE\n100 AcDbSpline\n70 8\n71 3\n72 0\n73 0\n74 4\n";
    DrawingWithEntities along(head + "12 1\n22 0\n32 0\n13 1\n23 0\n33 0\n" + points), alone(head + points);
    AcDbExtents box;
    ASSERT_EQ(along.open<AcDbSpline>(0)->getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.maxPoint().y, 2.0, 0.02) << "level at both ends";
    ASSERT_EQ(alone.open<AcDbSpline>(0)->getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.maxPoint().y, 2.0, 1e-6);
    for (int i = 0; i < 4; ++i) {
        AcGePoint3d fit, on;
        const auto spline = alone.open<AcDbSpline>(0);
        ASSERT_EQ(spline->getFitPointAt(i, fit), Acad::eOk);
        ASSERT_EQ(spline->getPointAtParam(i, on), Acad::eOk);
        expectNear(on, fit, 1e-12);
    }
    AcGePoint3d between;
    ASSERT_EQ(alone.open<AcDbSpline>(0)->getPointAtParam(1.5, between), Acad::eOk);
    EXPECT_NEAR(between.y, cubic(between.x), 0.1) << "not the chord, which is half a unit off";
    DrawingWithEntities same(head + "11 1\n21 1\n31 0\n11 1\n21 1\n31 0\n11 1\n21 1\n31 0\n11 1\n21 1\n31 0\n");
    ASSERT_EQ(same.open<AcDbSpline>(0)->getPointAtParam(1.5, between), Acad::eOk);
    expectNear(between, {1, 1, 0}, 1e-12);
}

TEST(Curves, hostileSplinesAnswerWithAStatus)
{
    AcGeDoubleArray knots;
    for (const double knot : {3.0, 1.0, 0.0})
        knots.append(knot);
    const auto points = arrayOf<AcGePoint3d>({{0, 0, 0}, {1, 1, 0}});
    double param = 0.0;
    AcDbExtents box;
    for (const int degree : {-1, 0, 1, 3, 30000}) {
        const AcDbSpline spline(degree, Adesk::kFalse, Adesk::kFalse, Adesk::kFalse, points, knots);
        EXPECT_NE(spline.getEndParam(param), Acad::eOk) << degree;
        EXPECT_NE(spline.getGeomExtents(box), Acad::eOk) << degree;
    }
}

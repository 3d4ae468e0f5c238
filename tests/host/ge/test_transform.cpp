#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "gemat2d.h"
#include "gemat3d.h"
#include "geplane.h"
#include "gescl3d.h"

namespace {

constexpr double pi = std::numbers::pi;
const AcGePoint3d here(1.0, -2.0, 3.5);

AcGeTol within(double tolerance)
{
    AcGeTol tol;
    tol.setEqualPoint(tolerance);
    tol.setEqualVector(tolerance);
    return tol;
}

struct Named {
    const char* name;
    AcGeMatrix3d matrix;
};

const std::vector<Named>& transforms()
{
    static const std::vector<Named> rows = {
        {"identity", AcGeMatrix3d::kIdentity},
        {"translation", AcGeMatrix3d::translation({4.0, 5.0, -6.0})},
        {"rotation about Z", AcGeMatrix3d::rotation(0.3, AcGeVector3d::kZAxis, {10.0, 20.0, 0.0})},
        {"rotation about a slant axis", AcGeMatrix3d::rotation(2.0, {1.0, 2.0, 3.0}, {-1.0, 0.0, 7.0})},
        {"scaling", AcGeMatrix3d::scaling(2.5, {3.0, 3.0, 3.0})},
        {"mirror in a plane", AcGeMatrix3d::mirroring(AcGePlane({1.0, 0.0, 0.0}, {1.0, 1.0, 0.5}))},
        {"mirror in a point", AcGeMatrix3d::mirroring(AcGePoint3d(1.0, 1.0, 1.0))},
        {"slant plane", AcGeMatrix3d::planeToWorld(AcGeVector3d(0.2, -0.7, 0.4))},
        {"shear", AcGeMatrix3d().setCoordSystem({1, 2, 3}, {1, 0, 0}, {0.5, 2, 0}, {0, 1, 1})},
    };
    return rows;
}

TEST(Matrix3d, InverseUndoes)
{
    for (const Named& row : transforms()) {
        EXPECT_TRUE(row.matrix * row.matrix.inverse() == AcGeMatrix3d::kIdentity) << row.name;
        EXPECT_TRUE(row.matrix.inverse() * (row.matrix * here) == here) << row.name;
        EXPECT_NEAR(row.matrix.det() * row.matrix.inverse().det(), 1.0, 1e-12) << row.name;
    }
    AcGeMatrix3d flat;
    flat.entry[2][2] = 0.0;
    EXPECT_TRUE(flat.isSingular());
    EXPECT_TRUE(flat.inverse() == flat);
}

TEST(Matrix3d, ProductAppliesTheRightOneFirst)
{
    for (const Named& a : transforms())
        for (const Named& b : transforms()) {
            EXPECT_TRUE((a.matrix * b.matrix) * here == a.matrix * (b.matrix * here)) << a.name << ", " << b.name;
            EXPECT_NEAR((a.matrix * b.matrix).det(), a.matrix.det() * b.matrix.det(), 1e-9) << a.name << ", " << b.name;
        }
    AcGeMatrix3d m = AcGeMatrix3d::translation({1, 0, 0});
    m.preMultBy(AcGeMatrix3d::scaling(2.0));
    EXPECT_EQ(m * AcGePoint3d::kOrigin, AcGePoint3d(2, 0, 0));
    m = AcGeMatrix3d::translation({1, 0, 0});
    m.postMultBy(AcGeMatrix3d::scaling(2.0));
    EXPECT_EQ(m * AcGePoint3d::kOrigin, AcGePoint3d(1, 0, 0));
}

TEST(Matrix3d, RotationByHand)
{
    const AcGeMatrix3d quarter = AcGeMatrix3d::rotation(pi / 2, AcGeVector3d::kZAxis, {10, 10, 0});
    EXPECT_EQ(quarter * AcGePoint3d(12, 10, 5), AcGePoint3d(10, 12, 5));
    EXPECT_EQ(quarter * AcGeVector3d::kXAxis, AcGeVector3d::kYAxis); // directions do not move with the centre
    // A third of a turn about the cube's diagonal takes X to Y, Y to Z, Z to X.
    const AcGeMatrix3d third = AcGeMatrix3d::rotation(2 * pi / 3, {1, 1, 1});
    EXPECT_EQ(third * AcGeVector3d::kXAxis, AcGeVector3d::kYAxis);
    EXPECT_EQ(third * AcGeVector3d::kYAxis, AcGeVector3d::kZAxis);
    EXPECT_EQ(AcGeMatrix3d::rotation(1.0, AcGeVector3d::kIdentity), AcGeMatrix3d::kIdentity);
}

TEST(Matrix3d, MirrorsTwiceIsNothing)
{
    for (const std::size_t i : {5U, 6U}) {
        const Named& row = transforms()[i];
        EXPECT_EQ(row.matrix * row.matrix, AcGeMatrix3d::kIdentity) << row.name;
        EXPECT_NEAR(row.matrix.det(), -1.0, 1e-12) << row.name;
    }
    EXPECT_EQ(AcGeMatrix3d::mirroring(AcGePlane({2, 0, 0}, {1, 0, 0})) * AcGePoint3d(5, 1, 1), AcGePoint3d(-1, 1, 1));
}

TEST(Matrix3d, KnowsWhatKeepsShapes)
{
    for (const Named& row : transforms())
        EXPECT_EQ(row.matrix.isUniScaledOrtho() != 0, std::string(row.name) != "shear") << row.name;
    EXPECT_NEAR(transforms()[4].matrix.scale(), 2.5, 1e-12);
}

TEST(Matrix3d, AlignsCoordinateSystems)
{
    const AcGePoint3d from(1, 1, 0);
    const AcGePoint3d to(100, 200, 300);
    const AcGeMatrix3d m =
        AcGeMatrix3d::alignCoordSys(from, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, to, {0, 2, 0}, {-2, 0, 0}, {0, 0, 2});
    EXPECT_EQ(m * from, to);
    EXPECT_EQ(m * AcGePoint3d(4, 1, 1), AcGePoint3d(100, 206, 302));
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    m.getCoordSystem(origin, x, y, z);
    EXPECT_EQ(x, AcGeVector3d(0, 2, 0));
    EXPECT_EQ(AcGeMatrix3d().setCoordSystem(origin, x, y, z), m);
}

TEST(Matrix3d, ArbitraryAxes)
{
    struct Row {
        const char* name;
        AcGeVector3d normal;
        AcGeVector3d xAxis;
    };
    const Row rows[] = {
        {"world Z", {0, 0, 1}, {1, 0, 0}},
        {"a long Z", {0, 0, 12}, {1, 0, 0}},
        {"downwards", {0, 0, -1}, {-1, 0, 0}},
        {"world X: Z cross N", {1, 0, 0}, {0, 1, 0}},
        {"world Y", {0, 1, 0}, {-1, 0, 0}},
        {"just inside 1/64: Y cross N",
         {0.0156, 0, std::sqrt(1 - 0.0156 * 0.0156)},
         {std::sqrt(1 - 0.0156 * 0.0156), 0, -0.0156}},
        {"just outside: Z cross N", {0.0157, 0, std::sqrt(1 - 0.0157 * 0.0157)}, {0, 1, 0}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(AcGeMatrix3d::planeToWorld(row.normal) * AcGeVector3d::kXAxis, row.xAxis) << row.name;
        EXPECT_EQ(AcGeMatrix3d::planeToWorld(row.normal) * AcGeVector3d::kZAxis, row.normal.normal()) << row.name;
        EXPECT_NEAR(AcGeMatrix3d::planeToWorld(row.normal).det(), 1.0, 1e-12) << row.name;
        EXPECT_EQ(AcGeMatrix3d::worldToPlane(row.normal) * (AcGeMatrix3d::planeToWorld(row.normal) * here), here)
            << row.name;
    }
}

TEST(Matrix2d, FollowsItsRules)
{
    const AcGeMatrix2d turn = AcGeMatrix2d::rotation(pi / 2, {10, 10});
    const AcGeMatrix2d grow = AcGeMatrix2d::scaling(3.0, {1, 1});
    EXPECT_EQ(turn * AcGePoint2d(12, 10), AcGePoint2d(10, 12));
    EXPECT_EQ(grow * AcGePoint2d(2, 1), AcGePoint2d(4, 1));
    EXPECT_EQ((turn * grow) * AcGePoint2d(2, 5), turn * (grow * AcGePoint2d(2, 5)));
    EXPECT_EQ((turn * grow) * (turn * grow).inverse(), AcGeMatrix2d::kIdentity);
    EXPECT_EQ(AcGePoint2d(12, 10).rotateBy(pi, {10, 10}), AcGePoint2d(8, 10));
}

TEST(Vectors, AnglesKeepTheirDigits)
{
    EXPECT_NEAR(AcGeVector2d(1, 0).angleTo({1, 1e-9}), 1e-9, 1e-24); // acos would answer 0
    EXPECT_NEAR(AcGeVector3d(1, 0, 0).angleTo({-1, 1e-9, 0}), pi - 1e-9, 1e-15);
    EXPECT_NEAR(AcGeVector2d(0, -2).angle(), 1.5 * pi, 1e-15);
    EXPECT_EQ(AcGeVector2d(1, -1e-30).angle(), 0.0); // never a whole turn
    EXPECT_NEAR(AcGeVector3d(1, 0, 0).angleTo({0, 1, 0}, {0, 0, 1}), pi / 2, 1e-15);
    EXPECT_NEAR(AcGeVector3d(1, 0, 0).angleTo({0, 1, 0}, {0, 0, -1}), 1.5 * pi, 1e-15);
}

TEST(Vectors, CompareWithinTolerance)
{
    const AcGeVector3d v(3, 4, 0);
    EXPECT_EQ(v.length(), 5.0);
    EXPECT_EQ(v.normal(), AcGeVector3d(0.6, 0.8, 0));
    EXPECT_EQ(AcGeVector3d::kIdentity.normal(), AcGeVector3d::kIdentity);
    EXPECT_TRUE(v.isParallelTo(v * -1e6) && !v.isCodirectionalTo(v * -1e6) && v.isCodirectionalTo(v * 1e-3));
    EXPECT_FALSE(v.isParallelTo(AcGeVector3d::kIdentity));
    EXPECT_TRUE(v.isPerpendicularTo({-4, 3, 7}));
    EXPECT_TRUE(v.isParallelTo({3, 4.001, 0}, within(1e-3)) && !v.isParallelTo({3, 4.001, 0}));
    EXPECT_TRUE(v.perpVector().isPerpendicularTo(v) && v.perpVector().isUnitLength());
    EXPECT_EQ(v.crossProduct({0, 0, 1}), AcGeVector3d(4, -3, 0));
    EXPECT_TRUE(AcGePoint3d(0, 0, 0).isEqualTo({0, 0, 1e-10}) && AcGePoint3d(0, 0, 0) != AcGePoint3d(0, 0, 2e-10));
    EXPECT_EQ(AcGeVector3d(2, 3, 4).orthoProject({0, 0, 9}), AcGeVector3d(2, 3, 0));
}

TEST(Plane, ProjectsAndGivesCoordinates)
{
    const AcGePlane plane({0, 0, 10}, {0, 0, 2});
    EXPECT_EQ(plane.normal(), AcGeVector3d::kZAxis);
    EXPECT_NEAR(plane.signedDistanceTo({5, 5, 7}), -3.0, 1e-12);
    EXPECT_EQ(AcGePoint3d(5, 6, 7).orthoProject(plane), AcGePoint3d(5, 6, 10));
    EXPECT_EQ(AcGePoint3d(5, 6, 7).project(plane, {1, 0, 1}), AcGePoint3d(8, 6, 10));
    EXPECT_EQ(AcGePoint3d(5, 6, 7).project(plane, {1, 0, 0}), AcGePoint3d(5, 6, 7));
    const AcGePlane slant({1, 2, 3}, {0.2, -0.7, 0.4});
    const AcGePoint3d foot = here.orthoProject(slant);
    EXPECT_TRUE(slant.isOn(foot));
    EXPECT_EQ(AcGePoint3d(slant, foot.convert2d(slant)), foot);
    EXPECT_EQ(AcGePlane::kYZPlane.normal(), AcGeVector3d::kXAxis);
    EXPECT_EQ(AcGePlane::kZXPlane.normal(), AcGeVector3d::kYAxis);
}

TEST(Scale, Compares)
{
    EXPECT_TRUE(AcGeScale3d(-2, 2, 2).isProportional() && !AcGeScale3d(2, 2, 1).isProportional());
    EXPECT_EQ(AcGeScale3d(2, 4, 8) * AcGeScale3d(2, 4, 8).inverse(), AcGeScale3d::kIdentity);
}

} // namespace

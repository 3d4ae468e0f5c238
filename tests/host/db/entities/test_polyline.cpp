#include <memory>

#include "dbents.h"
#include "gemat3d.h"
#include "geplane.h"
#include "Near.h"

namespace {

/// Counter-clockwise from the origin.
class Square : public AcDbPolyline {
public:
    explicit Square(double side)
    {
        addVertexAt(0, {0, 0});
        addVertexAt(1, {side, 0});
        addVertexAt(2, {side, side});
        addVertexAt(3, {0, side});
        setClosed(Adesk::kTrue);
    }
};

double lengthOf(const AcDbCurve& curve)
{
    double end = 0.0, length = 0.0;
    EXPECT_EQ(curve.getEndParam(end), Acad::eOk);
    EXPECT_EQ(curve.getDistAtParam(end, length), Acad::eOk);
    return length;
}

} // namespace

TEST(Polyline, bulgeOneIsAHalfCircle)
{
    AcDbPolyline half;
    half.addVertexAt(0, {0, 0}, 1.0); // counter-clockwise from (0,0) to (10,0): below the chord
    half.addVertexAt(1, {10, 0});
    EXPECT_NEAR(lengthOf(half), 5 * pi, 1e-12);
    expectBox(half, {0, -5, 0}, {10, 0, 0});
    AcGePoint3d middle;
    half.getPointAtParam(0.5, middle);
    expectNear(middle, {5, -5, 0});
    double area = 0.0;
    half.getArea(area);
    EXPECT_NEAR(area, 12.5 * pi, 1e-9);
    half.setBulgeAt(0, -1.0);
    expectBox(half, {0, 0, 0}, {10, 5, 0});
}

TEST(Polyline, flatArcFarFromTheOriginKeepsItsDigits)
{
    // The centre lies 2.5e9 m away; the arrow of the arc is chord * bulge / 2.
    AcDbPolyline arc;
    arc.addVertexAt(0, {652000.0, 6862000.0}, 1e-8);
    arc.addVertexAt(1, {652100.0, 6862000.0});
    AcGePoint3d middle;
    arc.getPointAtParam(0.5, middle);
    expectNear(middle, {652050.0, 6862000.0 - 5e-7, 0.0}, 2e-9);
    EXPECT_NEAR(lengthOf(arc), 100.0, 1e-9);
    double param = 0.0;
    ASSERT_EQ(arc.getParamAtPoint({652030.0, 6862000.0, 0.0}, param), Acad::eOk);
    EXPECT_NEAR(param, 0.3, 1e-9);
}

TEST(Polyline, areaDoesNotDependOnWhereItIsNorHowItIsWalked)
{
    Square shape(250.0);
    shape.setBulgeAt(1, 1.0); // a half disc outside on the right
    const double expected = 62500.0 + 0.5 * pi * 125.0 * 125.0;
    double area = 0.0;
    shape.getArea(area);
    EXPECT_NEAR(area, expected, 1e-8);
    shape.transformBy(AcGeMatrix3d::translation({652000.0, 6862000.0, 12.0}));
    shape.getArea(area);
    EXPECT_NEAR(area, expected, 1e-5);
    const double length = lengthOf(shape);
    shape.reverseCurve();
    shape.getArea(area);
    EXPECT_NEAR(area, expected, 1e-5);
    EXPECT_NEAR(lengthOf(shape), length, 1e-8);
}

TEST(Polyline, verticesAreInsertedSetAndRemoved)
{
    Square polyline(10.0);
    EXPECT_EQ(polyline.addVertexAt(5, {1, 1}), Acad::eInvalidIndex);
    EXPECT_EQ(polyline.addVertexAt(1, {5, -2}, 0.5, 0.1, 0.2, 77), Acad::eOk);
    AcGePoint2d point;
    double bulge = 0.0, start = 0.0, end = 0.0;
    Adesk::Int32 identifier = 0;
    polyline.getPointAt(1, point);
    polyline.getBulgeAt(1, bulge);
    polyline.getWidthsAt(1, start, end);
    polyline.getVertexIdentifierAt(1, identifier);
    EXPECT_EQ(point, AcGePoint2d(5, -2));
    EXPECT_EQ(bulge, 0.5);
    EXPECT_EQ(start, 0.1);
    EXPECT_EQ(end, 0.2);
    EXPECT_EQ(identifier, 77);
    EXPECT_EQ(polyline.segType(1), AcDbPolyline::kArc);
    EXPECT_EQ(polyline.segType(0), AcDbPolyline::kLine);
    EXPECT_EQ(polyline.removeVertexAt(1), Acad::eOk);
    EXPECT_EQ(polyline.numVerts(), 4U);
    polyline.setClosed(Adesk::kFalse);
    EXPECT_EQ(polyline.segType(3), AcDbPolyline::kPoint);
    EXPECT_EQ(polyline.removeVertexAt(4), Acad::eInvalidIndex);
    EXPECT_EQ(AcDbPolyline().getGeomExtents(*std::make_unique<AcDbExtents>()), Acad::eInvalidExtents);
}

TEST(Polyline, aVertexWithoutWidthsOfItsOwnHasTheConstantOne)
{
    Square polyline(10.0);
    polyline.setConstantWidth(0.5);
    double start = 0.0, end = 0.0, width = 0.0;
    polyline.getWidthsAt(2, start, end);
    EXPECT_EQ(start, 0.5);
    polyline.setWidthsAt(2, 0.0, 1.0);
    polyline.getWidthsAt(2, start, end);
    EXPECT_EQ(start, 0.0);
    EXPECT_EQ(end, 1.0);
    polyline.getWidthsAt(3, start, end);
    EXPECT_EQ(end, 0.5);
    EXPECT_EQ(polyline.getConstantWidth(width), Acad::eInvalidInput);
    EXPECT_EQ(polyline.setWidthsAt(0, -1.0, 0.0), Acad::eInvalidInput);
}

TEST(Polyline, segmentsAgreeWithTheGeometryLibrary)
{
    AcDbPolyline polyline;
    polyline.addVertexAt(0, {3, 4}, 0.4);
    polyline.addVertexAt(1, {10, 2});
    AcGeCircArc2d arc;
    ASSERT_EQ(polyline.getArcSegAt(0, arc), Acad::eOk);
    EXPECT_NEAR(arc.length(), lengthOf(polyline), 1e-9);
    AcGePoint3d middle;
    polyline.getPointAtParam(0.5, middle);
    EXPECT_NEAR(arc.distanceTo({middle.x, middle.y}), 0.0, 1e-9);
    AcGeLineSeg2d line;
    EXPECT_EQ(polyline.getLineSegAt(0, line), Acad::eNotApplicable);
}

TEST(Polyline, explodesIntoPiecesOfTheSameLength)
{
    Square polyline(10.0);
    polyline.setBulgeAt(0, 1.0);
    polyline.setBulgeAt(2, -0.5);
    polyline.setElevation(4.0);
    polyline.setNormal({0, 0.6, 0.8});
    AcDbVoidPtrArray pieces;
    ASSERT_EQ(polyline.explode(pieces), Acad::eOk);
    ASSERT_EQ(pieces.length(), 4);
    double total = 0.0;
    AcDbExtents whole, sum;
    for (void* held : pieces) {
        const std::unique_ptr<AcDbEntity> piece(static_cast<AcDbEntity*>(held));
        total += lengthOf(*AcDbCurve::cast(piece.get()));
        AcDbExtents box;
        piece->getGeomExtents(box);
        sum.addExt(box);
    }
    EXPECT_NEAR(total, lengthOf(polyline), 1e-9);
    polyline.getGeomExtents(whole);
    expectNear(sum.minPoint(), whole.minPoint());
    expectNear(sum.maxPoint(), whole.maxPoint());
}

/// A 2D polyline lost its thickness when it was exploded, and its extents did not count it.
TEST(Polyline, thicknessIsPartOfTheExtentsAndOfThePieces)
{
    Square light(10.0);
    light.setThickness(3.0);
    AcGePoint3dArray corners;
    for (const AcGePoint3d& corner : {AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), AcGePoint3d(10, 10, 0)})
        corners.append(corner);
    AcDb2dPolyline heavy(AcDb::k2dSimplePoly, corners);
    heavy.setThickness(3.0);
    for (const AcDbCurve* curve : {static_cast<const AcDbCurve*>(&light), static_cast<const AcDbCurve*>(&heavy)}) {
        expectBox(*curve, {0, 0, 0}, {10, 10, 3});
        AcDbVoidPtrArray pieces;
        ASSERT_EQ(curve->explode(pieces), Acad::eOk);
        for (void* held : pieces) {
            const std::unique_ptr<AcDbEntity> piece(static_cast<AcDbEntity*>(held));
            EXPECT_EQ(AcDbLine::cast(piece.get())->thickness(), 3.0);
        }
    }
}

TEST(Polyline, turningKeepsLengthAndMirroringKeepsTheNormal)
{
    Square polyline(10.0);
    polyline.setBulgeAt(1, 0.7);
    const double length = lengthOf(polyline);
    polyline.transformBy(AcGeMatrix3d::rotation(1.1, {1, 2, 3}, {4, 5, 6}));
    EXPECT_NEAR(lengthOf(polyline), length, 1e-9);
    Square mirrored(10.0);
    mirrored.setBulgeAt(1, 1.0); // bulges to the right
    mirrored.transformBy(AcGeMatrix3d::mirroring(AcGePlane::kYZPlane));
    EXPECT_EQ(mirrored.normal().z, 1.0);
    double bulge = 0.0;
    mirrored.getBulgeAt(1, bulge);
    EXPECT_EQ(bulge, -1.0);
    expectBox(mirrored, {-15, 0, 0}, {0, 10, 0});
}

TEST(Polyline, unevenScaleIsRefusedForArcsOnly)
{
    AcGeMatrix3d stretch;
    stretch(0, 0) = 3.0;
    Square straight(10.0), round(10.0);
    round.setBulgeAt(0, 0.5);
    EXPECT_EQ(straight.transformBy(stretch), Acad::eOk);
    expectBox(straight, {0, 0, 0}, {30, 10, 0});
    EXPECT_EQ(round.transformBy(stretch), Acad::eInvalidInput);
    expectBox(round, {0, -2.5, 0}, {10, 10, 0}); // as it was
}

TEST(Polyline, splineControlVerticesShapeNothing)
{
    AcGePoint3dArray points;
    points.append({0, 0, 0});
    points.append({10, 0, 0});
    AcDb2dPolyline polyline(AcDb::k2dSimplePoly, points, 5.0);
    EXPECT_EQ(lengthOf(polyline), 10.0);
    expectBox(polyline, {0, 0, 5}, {10, 0, 5});
    const std::unique_ptr<AcDbObjectIterator> vertices(polyline.vertexIterator());
    int count = 0;
    for (vertices->start(); !vertices->done(); vertices->step())
        count += AcDb2dVertex::cast(vertices->entity()) != nullptr;
    EXPECT_EQ(count, 2);
}

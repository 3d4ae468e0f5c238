#include <numbers>

#include <gtest/gtest.h>

#include "geometrie/axeDeCourbe.h"

#include "dbelipse.h"
#include "dbents.h"
#include "dbentvrt.h"
#include "dbpl.h"

namespace {

constexpr double pi = std::numbers::pi;

void attendre(const char* nom, const axe& a, double longueur, point2 debut, point2 milieu, double tolerance = 1e-9)
{
    ASSERT_FALSE(a.vide()) << nom;
    EXPECT_NEAR(a.longueur(), longueur, tolerance) << nom;
    EXPECT_LT(norme(a.pointA(0.0) - debut), tolerance) << nom;
    EXPECT_LT(norme(a.pointA(longueur / 2) - milieu), tolerance) << nom;
}

TEST(axeDeCourbe, everyKindOfCurve)
{
    const AcGeVector3d dessous(0, 0, -1);
    attendre("line", axeDeCourbe(AcDbLine({1, 2, 0}, {4, 6, 0})), 5, {1, 2}, {2.5, 4});
    attendre("arc", axeDeCourbe(AcDbArc({10, 0, 0}, 5, 0, pi)), 5 * pi, {15, 0}, {10, 5});
    attendre("arc seen from below", axeDeCourbe(AcDbArc({10, 0, 0}, dessous, 5, 0, pi)), 5 * pi, {5, 0}, {10, 5});
    attendre("circle", axeDeCourbe(AcDbCircle({10, 0, 0}, {0, 0, 1}, 5)), 10 * pi, {15, 0}, {5, 0});
    attendre("ellipse", axeDeCourbe(AcDbEllipse({0, 0, 0}, {0, 0, 1}, {5, 0, 0}, 1.0), 1e-5), 10 * pi, {5, 0}, {-5, 0},
             1e-3);

    AcDbPolyline legere;
    legere.addVertexAt(0, {0, 0}, 1.0);
    legere.addVertexAt(1, {0, 2});
    legere.addVertexAt(2, {-4, 2});
    attendre("lightweight", axeDeCourbe(legere), pi + 4, {0, 0}, {-(4 - pi) / 2, 2});
    legere.setNormal(dessous);
    attendre("lightweight from below", axeDeCourbe(legere), pi + 4, {0, 0}, {(4 - pi) / 2, 2});

    AcGePoint3dArray sommets;
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 1), AcGePoint3d(6, 0, 1), AcGePoint3d(6, 6, 5)})
        sommets.append(p);
    attendre("3D polyline", axeDeCourbe(AcDb3dPolyline(AcDb::k3dSimplePoly, sommets, Adesk::kTrue)),
             12 + 6 * std::sqrt(2.0), {0, 0}, {6, 3 * std::sqrt(2.0)});
    EXPECT_NEAR(axeDeCourbe(AcDb3dPolyline(AcDb::k3dSimplePoly, sommets)).altitudeA(9.0), 3.0, 1e-12);
    attendre("old-style 2D", axeDeCourbe(AcDb2dPolyline(AcDb::k2dSimplePoly, sommets)), 12, {0, 0}, {6, 0});
}

TEST(axeDeCourbe, drawnAtZeroHasNoAltitude)
{
    EXPECT_EQ(axeDeCourbe(AcDbLine({0, 0, 0}, {4, 0, 0})).altitudeA(1.0), inconnu);
    EXPECT_DOUBLE_EQ(axeDeCourbe(AcDbLine({0, 0, 0}, {4, 0, 8})).altitudeA(1.0), 2.0);
    EXPECT_TRUE(axeDeCourbe(AcDbLine({1, 1, 0}, {1, 1, 0})).vide());
}

} // namespace

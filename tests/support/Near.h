#pragma once

#include <gtest/gtest.h>

#include "dbmain.h"

inline constexpr double pi = 3.141592653589793;

/// Equal within a tolerance in drawing units.
inline void expectNear(const AcGePoint3d& actual, const AcGePoint3d& expected, double tolerance = 1e-9)
{
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

inline void expectBox(const AcDbEntity& entity, const AcGePoint3d& min, const AcGePoint3d& max, double tolerance = 1e-9)
{
    AcDbExtents box;
    ASSERT_EQ(entity.getGeomExtents(box), Acad::eOk);
    expectNear(box.minPoint(), min, tolerance);
    expectNear(box.maxPoint(), max, tolerance);
}

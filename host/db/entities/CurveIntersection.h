#pragma once

#include "dbcurve.h"

/// Appends to `points` where two curves meet, in the order in which `curve` runs through them; points of `curve`.
/// Without a plane they must meet in space; with one they are dropped on it first.
/// Stretches that lie on each other give no points. eNotApplicable when the other entity is not a curve.
/// Each segment of one curve is only tried against those of the other whose boxes it touches.
Acad::ErrorStatus intersectCurves(const AcDbCurve& curve, const AcDbEntity* other, AcDb::Intersect type,
                                  const AcGePlane* plane, AcGePoint3dArray& points);

#pragma once

#include <vector>

#include "gi/Picking.h"

#include "dbmain.h"

/// What a user points at, in the space shown: entities the youngest first.

/// Half the side of the pick box in drawing units, by PICKBOX and the view.
double pickAperture();

/// What lies under a point.
std::vector<PickHit> hitsUnder(AcDbDatabase& database, const AcGePoint3d& point);
/// The entities under a point: all, or the topmost one alone.
std::vector<AcDbObjectId> entitiesUnder(AcDbDatabase& database, const AcGePoint3d& point, bool all);

std::vector<AcDbObjectId> entitiesInBox(AcDbDatabase& database, const AcGePoint3d& corner, const AcGePoint3d& other,
                                        PickExtent extent);
/// Fewer than three points enclose nothing.
std::vector<AcDbObjectId> entitiesInPolygon(AcDbDatabase& database, const std::vector<AcGePoint3d>& polygon,
                                            PickExtent extent);
std::vector<AcDbObjectId> entitiesOnFence(AcDbDatabase& database, const std::vector<AcGePoint3d>& points);

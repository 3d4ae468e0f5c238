#pragma once

#include <span>
#include <vector>

#include "gi/Scene.h"

#include "gemat3d.h"

/// What lies under a point or in an area of a scene, seen from above; coordinates are the world's. Entities on layers
/// that are off or frozen, and invisible ones, are never found. Topmost first: the entity drawn last leads.

struct PickHit {
    AcDbObjectId entity; ///< of the scene
    /// What was hit within it, innermost first: the entity drawn at that place (an attribute, an entity of a block),
    /// then the references that hold it; `entity` is the last. Of a plain entity, itself alone.
    std::vector<AcDbObjectId> path;
    /// From the coordinates of the innermost entity to the world.
    AcGeMatrix3d toWorld;
};

/// Entities that pass within `aperture` (drawing units, to each side) of a point. Areas that are filled are hit inside.
std::vector<PickHit> hitsAt(Scene& scene, const AcGePoint2d& point, double aperture);

/// What must hold of an entity for it to be found.
enum class PickExtent {
    inside,   ///< it lies wholly within the area
    crossing, ///< some of it does
};

std::vector<AcDbObjectId> pickBox(Scene& scene, const Box2d& box, PickExtent extent);
/// The polygon is closed by itself; it may cross itself (odd and even).
std::vector<AcDbObjectId> pickPolygon(Scene& scene, std::span<const AcGePoint2d> polygon, PickExtent extent);
/// Entities that a line through these points meets.
std::vector<AcDbObjectId> pickFence(Scene& scene, std::span<const AcGePoint2d> points);

#include "gi/EntityGraphics.h"

#include <array>

namespace {

using Corners = std::array<AcGePoint3d, 4>;

void addEdge(const AcGePoint3d& from, const AcGePoint3d& to, DisplayList& list)
{
    if (from.x == to.x && from.y == to.y && from.z == to.z)
        return;
    Path edge;
    edge.points = {from, to};
    list.add(std::move(edge));
}

} // namespace

void addFace(const AcDbFace& face, DisplayList& list)
{
    Corners corners;
    for (Adesk::UInt16 i = 0; i < 4; ++i)
        face.getVertexAt(i, corners[i]);
    for (Adesk::UInt16 i = 0; i < 4; ++i) {
        Adesk::Boolean visible = Adesk::kFalse;
        face.isEdgeVisibleAt(i, visible);
        if (visible)
            addEdge(corners[i], corners[(i + 1U) % 4U], list);
    }
}

/// Its outline runs 0, 1, 3, 2.
void addQuad(const AcDbFilledQuad& quad, DisplayList& list)
{
    Path ring;
    constexpr Adesk::UInt16 outline[] = {0, 1, 3, 2, 0};
    for (const Adesk::UInt16 corner : outline) {
        AcGePoint3d point;
        quad.getPointAt(corner, point);
        ring.points.push_back(point);
    }
    list.add(Area{{std::move(ring)}, true});
}

void addMesh(const AcDbVertexMesh& mesh, DisplayList& list)
{
    AcDbVoidPtrArray faces;
    mesh.explode(faces);
    for (void* held : faces) {
        const std::unique_ptr<AcDbEntity> face(static_cast<AcDbEntity*>(held));
        addFace(*AcDbFace::cast(face.get()), list);
    }
}

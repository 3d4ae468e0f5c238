#include <array>

#include "gi/EntityGraphics.h"

/// Visible edges that follow each other are one path.
void addFace(const AcDbFace& face, DisplayList& list)
{
    constexpr Adesk::UInt16 count = 4;
    std::array<AcGePoint3d, count> corners;
    for (Adesk::UInt16 i = 0; i < count; ++i)
        face.getVertexAt(i, corners[i]);
    Path path;
    const auto flush = [&] {
        list.add(std::move(path));
        path = Path();
    };
    for (Adesk::UInt16 i = 0; i < count; ++i) {
        const AcGePoint3d &from = corners[i], &to = corners[(i + 1U) % count];
        Adesk::Boolean visible = Adesk::kFalse;
        face.isEdgeVisibleAt(i, visible);
        if (!visible) {
            flush();
            continue;
        }
        if (from.x == to.x && from.y == to.y && from.z == to.z)
            continue; // of a triangle, whose last two corners are one
        if (path.points.empty())
            path.points.push_back(from);
        path.points.push_back(to);
    }
    flush();
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

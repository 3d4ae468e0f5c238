#include "db/fields/EntityFields.h"

#include "dbents.h"

void DxfFieldsOfFaces::add(DxfClasses& classes)
{
    static const DxfSubclass face("AcDbFace", {pointField<&AcDbFace::m_corner0>(10, DxfWhen::always),
                                               pointField<&AcDbFace::m_corner1>(11, DxfWhen::always),
                                               pointField<&AcDbFace::m_corner2>(12, DxfWhen::always),
                                               pointField<&AcDbFace::m_corner3>(13, DxfWhen::always),
                                               integerField<&AcDbFace::m_invisibleEdges>(70)});
    addEntityClass<AcDbFace>(classes, "3DFACE", {&face});

    const auto corners = [] {
        return std::vector<DxfField>{pointField<&AcDbFilledQuad::m_corner0>(10, DxfWhen::always),
                                     pointField<&AcDbFilledQuad::m_corner1>(11, DxfWhen::always),
                                     pointField<&AcDbFilledQuad::m_corner2>(12, DxfWhen::always),
                                     pointField<&AcDbFilledQuad::m_corner3>(13, DxfWhen::always),
                                     realField<&AcDbFilledQuad::m_thickness>(39),
                                     pointField<&AcDbFilledQuad::m_normal>(210)};
    };
    static const DxfSubclass filled("AcDbTrace", corners()); // both kinds bear this marker
    addEntityClass<AcDbSolid>(classes, "SOLID", {&filled});
    addEntityClass<AcDbTrace>(classes, "TRACE", {&filled});
}

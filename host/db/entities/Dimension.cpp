#include <cmath>
#include <memory>

#include "db/DatabaseImpl.h"
#include "db/entities/BlockExtents.h"
#include "db/entities/DimensionBlock.h"
#include "db/entities/EntityText.h"
#include "db/entities/OcsTransform.h"

#include "dbdim.h"
#include "dbents.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDimension, AcDbEntity)
ACRX_DXF_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, DIMENSION)
ACRX_DXF_DEFINE_MEMBERS(AcDbRotatedDimension, AcDbDimension, DIMENSION)
ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimension, AcDbDimension, DIMENSION)
ACRX_DXF_DEFINE_MEMBERS(AcDbDiametricDimension, AcDbDimension, DIMENSION)
ACRX_DXF_DEFINE_MEMBERS(AcDb2LineAngularDimension, AcDbDimension, DIMENSION)
ACRX_DXF_DEFINE_MEMBERS(AcDb3PointAngularDimension, AcDbDimension, DIMENSION)
ACRX_DXF_DEFINE_MEMBERS(AcDbOrdinateDimension, AcDbDimension, DIMENSION)

namespace {

/// What one without a block reaches: the points that it measures, its dimension line and its text's place. Lengths of
/// arrows and texts, which styles give, are left out.
AcDbExtents ownExtents(const AcDbDimension& dimension)
{
    AcDbExtents box;
    const auto add = [&](std::initializer_list<AcGePoint3d> points) {
        for (const AcGePoint3d& point : points)
            box.addPoint(point);
    };
    const auto addLinear = [&](const AcGePoint3d& first, const AcGePoint3d& second, const AcGeVector3d& way) {
        const AcGeVector3d out = dimension.normal().crossProduct(way).normal();
        const AcGePoint3d on = dimension.definitionPoint();
        add({first, second, first + out * (on - first).dotProduct(out), second + out * (on - second).dotProduct(out)});
    };
    if (const auto* rotated = AcDbRotatedDimension::cast(&dimension)) {
        const AcGeVector3d way(std::cos(rotated->rotation()), std::sin(rotated->rotation()), 0.0);
        addLinear(rotated->xLine1Point(), rotated->xLine2Point(), AcGeMatrix3d::planeToWorld(dimension.normal()) * way);
    } else if (const auto* aligned = AcDbAlignedDimension::cast(&dimension))
        addLinear(aligned->xLine1Point(), aligned->xLine2Point(), aligned->xLine2Point() - aligned->xLine1Point());
    else if (const auto* radial = AcDbRadialDimension::cast(&dimension))
        add({radial->center(), radial->chordPoint()});
    else if (const auto* diameter = AcDbDiametricDimension::cast(&dimension))
        add({diameter->farChordPoint(), diameter->chordPoint()});
    else if (const auto* three = AcDb3PointAngularDimension::cast(&dimension))
        add({three->xLine1Point(), three->xLine2Point(), three->centerPoint(), three->definitionPoint()});
    else if (const auto* two = AcDb2LineAngularDimension::cast(&dimension))
        add({two->xLine1Start(), two->xLine1End(), two->xLine2Start(), two->xLine2End(), two->arcPoint()});
    else if (const auto* ordinate = AcDbOrdinateDimension::cast(&dimension))
        add({ordinate->definingPoint(), ordinate->leaderEndPoint()});
    if (const AcGePoint3d text = dimension.textPosition(); !box.isEmpty() && text != AcGePoint3d::kOrigin)
        box.addPoint(text);
    return box;
}

} // namespace

AcGePoint3d AcDbDimension::textPosition() const
{
    assertReadEnabled();
    return ocsToWorld(m_textPosition, m_normal);
}

AcGePoint3d AcDbDimension::dimBlockPosition() const
{
    assertReadEnabled();
    return ocsToWorld(m_insertion, m_normal);
}

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text)
{
    assertWriteEnabled();
    m_text = givenText(text);
    return Acad::eOk;
}

/// A dimension stands like a reference of its block, whose entities are in the world's coordinates already.
Acad::ErrorStatus AcDbDimension::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    AcDbExtents box = BlockExtents().of(AcDbBlockReference(dimBlockPosition(), dimBlockId()));
    if (box.isEmpty())
        box = ownExtents(*this);
    if (box.isEmpty())
        return Acad::eInvalidExtents;
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const OcsTransform moved(m_normal, matrix);
    if (!moved.isValid())
        return Acad::eInvalidInput;
    AcGeMatrix3d turned = matrix;
    turned.setTranslation(AcGeVector3d(0.0, 0.0, 0.0));
    if (!moved.keepsShapes()) { // texts would be distorted, and say former lengths
        m_block = nullptr;
        m_insertion = AcGePoint3d::kOrigin;
        m_measurement = 0.0;
    } else if (database() && m_block && turned != AcGeMatrix3d::kIdentity) {
        const AcGeMatrix3d shown = matrix * AcGeMatrix3d::translation(dimBlockPosition().asVector());
        AcDbStub* const block = blockShownThrough(*database(), m_block, shown);
        if (!block)
            return Acad::eInvalidInput;
        m_block = block;
        m_insertion = AcGePoint3d::kOrigin; // the new block is in the world's coordinates
    } else {
        m_insertion = moved.point(m_insertion);
    }
    for (AcGePoint3d* point : {&m_definition, &m_point13, &m_point14, &m_point15, &m_point16})
        *point = matrix * *point;
    m_textPosition = moved.point(m_textPosition);
    m_angle = moved.angle(m_angle);
    m_normal = moved.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::explode(AcDbVoidPtrArray& entities) const
{
    assertReadEnabled();
    return AcDbBlockReference(dimBlockPosition(), AcDbObjectId(m_block)).explode(entities);
}

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
    const AcDbExtents box = BlockExtents().of(AcDbBlockReference(dimBlockPosition(), AcDbObjectId(m_block)));
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
    if (database() && m_block && turned != AcGeMatrix3d::kIdentity) {
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

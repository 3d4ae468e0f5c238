#include "dbents.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPoint, AcDbEntity, POINT)

Acad::ErrorStatus AcDbPoint::setPosition(const AcGePoint3d& position)
{
    assertWriteEnabled();
    m_position = position;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::setEcsRotation(double angle)
{
    assertWriteEnabled();
    m_rotation = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    extents = AcDbExtents(m_position, m_position);
    extents.addPoint(m_position + m_normal * m_thickness);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    m_position = matrix * m_position;
    const AcGeVector3d normal = matrix * m_normal;
    if (!normal.isZeroLength()) {
        m_thickness *= normal.length();
        m_normal = normal.normal();
    }
    return Acad::eOk;
}

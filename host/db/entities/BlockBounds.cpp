#include "db/entities/EntityText.h"

#include "dbents.h"
#include "dbproxy.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockBegin, AcDbEntity, BLOCK)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockEnd, AcDbEntity, ENDBLK)
ACRX_DXF_DEFINE_MEMBERS(AcDbProxyEntity, AcDbEntity, ACAD_PROXY_ENTITY)
ACRX_DXF_DEFINE_MEMBERS(AcDbProxyObject, AcDbObject, ACAD_PROXY_OBJECT)

/// The name stands twice in a drawing file.
Acad::ErrorStatus AcDbBlockBegin::setName(const ACHAR* name)
{
    assertWriteEnabled();
    m_name = m_secondName = givenText(name);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockBegin::setFlags(Adesk::Int16 flags)
{
    assertWriteEnabled();
    m_flags = flags;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockBegin::setBasePoint(const AcGePoint3d& point)
{
    assertWriteEnabled();
    m_basePoint = point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockBegin::setPathName(const ACHAR* path)
{
    assertWriteEnabled();
    m_path = givenText(path);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockBegin::setDescription(const ACHAR* description)
{
    assertWriteEnabled();
    m_description = givenText(description);
    return Acad::eOk;
}

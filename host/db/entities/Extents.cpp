#include <algorithm>

#include "dbmain.h"
#include "gemat3d.h"

namespace {
constexpr double farthest = 1e20;
}

AcDbExtents::AcDbExtents() : m_min(farthest, farthest, farthest), m_max(-farthest, -farthest, -farthest) {}

Acad::ErrorStatus AcDbExtents::set(const AcGePoint3d& min, const AcGePoint3d& max)
{
    if (min.x > max.x || min.y > max.y || min.z > max.z)
        return Acad::eInvalidInput;
    m_min = min;
    m_max = max;
    return Acad::eOk;
}

void AcDbExtents::addPoint(const AcGePoint3d& point)
{
    m_min = {std::min(m_min.x, point.x), std::min(m_min.y, point.y), std::min(m_min.z, point.z)};
    m_max = {std::max(m_max.x, point.x), std::max(m_max.y, point.y), std::max(m_max.z, point.z)};
}

void AcDbExtents::addExt(const AcDbExtents& other)
{
    if (other.isEmpty())
        return;
    addPoint(other.m_min);
    addPoint(other.m_max);
}

void AcDbExtents::transformBy(const AcGeMatrix3d& matrix)
{
    if (isEmpty())
        return;
    const AcGePoint3d corners[] = {m_min, m_max};
    *this = AcDbExtents();
    for (int i = 0; i < 8; ++i)
        addPoint(matrix * AcGePoint3d(corners[i & 1].x, corners[i >> 1 & 1].y, corners[i >> 2].z));
}

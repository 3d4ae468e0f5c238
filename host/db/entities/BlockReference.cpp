#include <algorithm>
#include <cmath>
#include <memory>

#include "db/DatabaseImpl.h"
#include "db/entities/BlockExtents.h"
#include "db/entities/BlockParts.h"
#include "db/entities/OcsTransform.h"
#include "db/entities/OwnedVertices.h"

#include "dbents.h"
#include "dbsymtb.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, INSERT)
ACRX_DXF_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference, INSERT)

namespace {

constexpr double normalTolerance = 1e-9;

AcGeMatrix3d planeToWorld(const AcGeVector3d& normal)
{
    return isWorldNormal(normal) ? AcGeMatrix3d() : AcGeMatrix3d::planeToWorld(normal);
}

/// Base point of a block definition, open or not.
AcGePoint3d basePointOf(AcDbStub* block)
{
    if (!block)
        return AcGePoint3d::kOrigin;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(block);
    AcDbStub* begin = database.blocks().of(block).begin;
    const auto* bounds = begin ? AcDbBlockBegin::cast(&database.object(*recordOf(begin))) : nullptr;
    return bounds ? bounds->basePoint() : AcGePoint3d::kOrigin;
}

} // namespace

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block) :
    m_block(block.stub()),
    m_position(position)
{
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block)
{
    assertWriteEnabled();
    if (block.isNull())
        return Acad::eNullObjectId;
    if (!isOfClass(block, AcDbBlockTableRecord::desc()))
        return Acad::eWrongObjectType;
    m_block = block.stub();
    return Acad::eOk;
}

AcGePoint3d AcDbBlockReference::position() const
{
    assertReadEnabled();
    return ocsToWorld(m_position, m_normal);
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& position)
{
    assertWriteEnabled();
    m_position = worldToOcs(position, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale)
{
    assertWriteEnabled();
    if (scale.sx == 0.0 || scale.sy == 0.0 || scale.sz == 0.0)
        return Acad::eInvalidInput;
    m_scaleX = scale.sx;
    m_scaleY = scale.sy;
    m_scaleZ = scale.sz;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle)
{
    assertWriteEnabled();
    m_rotation = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGePoint3d place = position();
    m_normal = normal.normal();
    m_position = worldToOcs(place, m_normal);
    return Acad::eOk;
}

// ---- placement

/// Turned and moved, not scaled: where rows and columns are counted.
AcGeMatrix3d AcDbBlockReference::placement() const
{
    AcGeMatrix3d turned = AcGeMatrix3d::rotation(m_rotation, AcGeVector3d::kZAxis);
    turned.setTranslation(m_position.asVector());
    return planeToWorld(m_normal) * turned;
}

AcGeMatrix3d AcDbBlockReference::cellTransform(int row, int column) const
{
    const AcGePoint3d base = basePointOf(m_block);
    AcGeMatrix3d scaled; // scales about the base point, which goes to its cell's corner
    for (const auto& [axis, factor] : {std::pair(0U, m_scaleX), std::pair(1U, m_scaleY), std::pair(2U, m_scaleZ)}) {
        scaled(axis, axis) = factor;
        scaled(axis, 3) = -factor * base[axis];
    }
    scaled(0, 3) += column * m_columnSpacing;
    scaled(1, 3) += row * m_rowSpacing;
    return placement() * scaled;
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const
{
    assertReadEnabled();
    return cellTransform(0, 0);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTransform(const AcGeMatrix3d& transform)
{
    assertWriteEnabled();
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    transform.getCoordSystem(origin, x, y, z);
    if (!hasRightAngles(x, y, z))
        return Acad::eInvalidInput;
    // Signs of the factors stay where the axes leave a choice: a mirrored symbol keeps its negative factor.
    const double signX = m_scaleX < 0.0 ? -1.0 : 1.0, signZ = m_scaleZ < 0.0 ? -1.0 : 1.0;
    const AcGePoint3d place = transform * basePointOf(m_block);
    m_normal = (z * signZ).normal();
    if (std::fabs(m_normal.x) < normalTolerance && std::fabs(m_normal.y) < normalTolerance)
        m_normal = AcGeVector3d(0.0, 0.0, m_normal.z < 0.0 ? -1.0 : 1.0);
    const AcGeVector3d along = planeToWorld(m_normal).inverse() * (x * signX);
    const double handed = (x * signX).crossProduct(y).dotProduct(m_normal);
    m_rotation = AcGeVector2d(along.x, along.y).angle();
    m_scaleX = signX * x.length();
    m_scaleY = handed < 0.0 ? -y.length() : y.length();
    m_scaleZ = signZ * z.length();
    m_position = worldToOcs(place, m_normal);
    return Acad::eOk;
}

// ---- attributes

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute)
{
    AcDbObjectId id;
    return appendAttribute(id, attribute);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute)
{
    assertWriteEnabled();
    const Acad::ErrorStatus es = appendSubentity(id, attribute);
    if (es == Acad::eOk)
        m_attributesFollow = true;
    return es;
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                                    bool openErased) const
{
    return acdbOpenObject(attribute, id, mode, openErased);
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const
{
    assertReadEnabled();
    return new AcDbObjectIterator(subentities(), pendingSubentities());
}

// ---- geometry

Acad::ErrorStatus AcDbBlockReference::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    const AcDbExtents box = BlockExtents().of(*this);
    if (box.isEmpty())
        return Acad::eInvalidExtents;
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const AcGeMatrix3d before = placement();
    // Programs that draw in the plane write a height factor of 0: such an axis has no direction, and is turned as one
    // of factor 1.
    double* const factors[] = {&m_scaleX, &m_scaleY, &m_scaleZ};
    const bool isFlat[] = {m_scaleX == 0.0, m_scaleY == 0.0, m_scaleZ == 0.0};
    for (std::size_t axis = 0; axis < 3; ++axis)
        *factors[axis] = isFlat[axis] ? 1.0 : *factors[axis];
    const Acad::ErrorStatus es = setBlockTransform(matrix * cellTransform(0, 0));
    for (std::size_t axis = 0; axis < 3; ++axis)
        *factors[axis] = isFlat[axis] ? 0.0 : *factors[axis];
    if (es != Acad::eOk)
        return es;
    if (m_rows > 1 || m_columns > 1) {
        const AcGeMatrix3d after = placement().inverse() * matrix * before;
        m_columnSpacing *= after(0, 0);
        m_rowSpacing *= after(1, 1);
    }
    return visitOwned<AcDbAttribute>(subentities(), pendingSubentities(), AcDb::kForWrite,
                                     [&](AcDbAttribute& attribute) {
                                         attribute.transformBy(matrix);
                                         return true;
                                     });
}

Acad::ErrorStatus AcDbBlockReference::explode(AcDbVoidPtrArray& entities) const
{
    assertReadEnabled();
    if (!m_block)
        return Acad::eNullObjectId;
    BlockParts parts;
    const Acad::ErrorStatus es = parts.add(*this);
    if (es == Acad::eOk)
        parts.giveTo(entities);
    return es;
}

// ---- rows and columns

Acad::ErrorStatus AcDbMInsertBlock::setRows(Adesk::Int16 rows)
{
    assertWriteEnabled();
    if (rows < 1)
        return Acad::eInvalidInput;
    m_rows = rows;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMInsertBlock::setColumns(Adesk::Int16 columns)
{
    assertWriteEnabled();
    if (columns < 1)
        return Acad::eInvalidInput;
    m_columns = columns;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMInsertBlock::setRowSpacing(double spacing)
{
    assertWriteEnabled();
    m_rowSpacing = spacing;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMInsertBlock::setColumnSpacing(double spacing)
{
    assertWriteEnabled();
    m_columnSpacing = spacing;
    return Acad::eOk;
}

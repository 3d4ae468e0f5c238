#include "db/entities/BlockExtents.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "db/DatabaseImpl.h"

#include "dbents.h"

namespace {

/// Whether boxes along the axes stay boxes along the axes.
bool keepsAxes(const AcGeMatrix3d& matrix)
{
    for (unsigned int row = 0; row < 3; ++row) {
        int used = 0;
        for (unsigned int column = 0; column < 3; ++column)
            used += std::fabs(matrix(row, column)) > 1e-14;
        if (used > 1)
            return false;
    }
    return true;
}

bool contains(const AcDbExtents& outer, const AcDbExtents& inner)
{
    const AcGePoint3d a = outer.minPoint(), b = outer.maxPoint(), c = inner.minPoint(), d = inner.maxPoint();
    return a.x <= c.x && a.y <= c.y && a.z <= c.z && d.x <= b.x && d.y <= b.y && d.z <= b.z;
}

} // namespace

void BlockExtents::add(const AcDbBlockReference& reference, const AcGeMatrix3d& matrix, AcDbExtents& extents)
{
    if (m_entered.empty())
        m_left = mostWalked;
    AcDbStub* block = reference.blockTableRecord().stub();
    if (block) {
        // Of rows and columns, those at the corners reach furthest.
        const int lastRow = std::max(reference.m_rows - 1, 0), lastColumn = std::max(reference.m_columns - 1, 0);
        for (const int row : {0, lastRow})
            for (const int column : {0, lastColumn})
                if ((row == 0 || lastRow > 0) && (column == 0 || lastColumn > 0))
                    addBlock(block, matrix * reference.cellTransform(row, column), extents);
    }
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    for (attributes->start(); !attributes->done(); attributes->step()) {
        AcDbObjectPointer<AcDbAttribute> opened(attributes->objectId());
        const AcDbAttribute* attribute =
            attributes->entity() ? AcDbAttribute::cast(attributes->entity()) : opened.object();
        if (attribute && !attribute->isInvisible())
            addEntity(*attribute, matrix, extents);
    }
}

void BlockExtents::addBlock(AcDbStub* block, const AcGeMatrix3d& matrix, AcDbExtents& extents)
{
    if (std::ranges::find(m_entered, block) != m_entered.end())
        return;
    AcDbExtents box = ownBox(block);
    if (box.isEmpty())
        return;
    box.transformBy(matrix);
    // The box of a turned box is too large, which says nothing where it lies within what was found already.
    if (keepsAxes(matrix) || m_left <= 0 || (!extents.isEmpty() && contains(extents, box)))
        return extents.addExt(box);
    walk(block, matrix, extents);
}

const AcDbExtents& BlockExtents::ownBox(AcDbStub* block)
{
    const auto known = m_boxes.find(block);
    if (known != m_boxes.end())
        return known->second;
    AcDbExtents box;
    walk(block, AcGeMatrix3d::kIdentity, box);
    return m_boxes.emplace(block, box).first->second;
}

void BlockExtents::walk(AcDbStub* block, const AcGeMatrix3d& matrix, AcDbExtents& extents)
{
    m_entered.push_back(block);
    for (AcDbStub* stub : AcDbDatabaseImpl::of(block).blocks().of(block).entities) {
        AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(stub)};
        if (!entity.object() || entity->visibility() == AcDb::kInvisible)
            continue;
        --m_left;
        // What a definition of attributes says is shown by the attributes, unless it is the same for all references.
        const auto* definition = AcDbAttributeDefinition::cast(entity.object());
        if (definition && (!definition->isConstant() || definition->isInvisible()))
            continue;
        if (const auto* nested = AcDbBlockReference::cast(entity.object()))
            add(*nested, matrix, extents);
        else
            addEntity(*entity.object(), matrix, extents);
    }
    m_entered.pop_back();
}

void BlockExtents::addEntity(const AcDbEntity& entity, const AcGeMatrix3d& matrix, AcDbExtents& extents)
{
    AcDbExtents box;
    if (!keepsAxes(matrix)) {
        AcDbEntity* copy = nullptr;
        const bool turned = entity.getTransformedCopy(matrix, copy) == Acad::eOk;
        const std::unique_ptr<AcDbEntity> owned(copy);
        if (turned && owned->getGeomExtents(box) == Acad::eOk)
            return extents.addExt(box);
    }
    if (entity.getGeomExtents(box) != Acad::eOk)
        return;
    box.transformBy(matrix);
    extents.addExt(box);
}

#include "db/entities/BlockExtents.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "db/DatabaseImpl.h"

#include "dbdim.h"
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

std::array<double, 9> turnOf(const AcGeMatrix3d& matrix)
{
    std::array<double, 9> turn{};
    for (unsigned int i = 0; i < 9; ++i)
        turn.at(i) = matrix(i / 3, i % 3);
    return turn;
}

/// Factors of blocks in blocks multiply, past all numbers where they are many: such a box tells nothing.
void addMoved(AcDbExtents box, const AcGeMatrix3d& matrix, AcDbExtents& extents)
{
    box.transformBy(matrix);
    const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
    if (!box.isEmpty() && std::isfinite(low.x + low.y + low.z) && std::isfinite(high.x + high.y + high.z))
        extents.addExt(box);
}

void addMoved(const AcDbEntity& entity, const AcGeMatrix3d& matrix, AcDbExtents& extents)
{
    AcDbExtents box;
    if (!keepsAxes(matrix)) {
        AcDbEntity* copy = nullptr;
        const bool turned = entity.getTransformedCopy(matrix, copy) == Acad::eOk;
        const std::unique_ptr<AcDbEntity> owned(copy);
        if (turned && owned->getGeomExtents(box) == Acad::eOk)
            return addMoved(box, AcGeMatrix3d::kIdentity, extents);
    }
    if (entity.getGeomExtents(box) == Acad::eOk)
        addMoved(box, matrix, extents);
}

} // namespace

AcDbExtents BlockExtents::of(const AcDbBlockReference& reference)
{
    m_left = mostWalked;
    return walked(reference);
}

AcDbExtents BlockExtents::around(const AcDbBlockReference& reference)
{
    m_left = 0;
    return walked(reference);
}

AcDbExtents BlockExtents::walked(const AcDbBlockReference& reference)
{
    m_turned.clear();
    m_walks.emplace_back();
    addReference(reference, m_walks.back());
    for (;;) {
        Walk& walk = m_walks.back();
        if (!walk.uses.empty()) {
            const Use use = walk.uses.back();
            walk.uses.pop_back();
            enter(use);
        } else if (walk.next < walk.entities.size())
            step();
        else if (m_walks.size() > 1)
            leave();
        else
            break;
    }
    const AcDbExtents box = m_walks.back().box;
    m_walks.clear();
    return box;
}

void BlockExtents::addReference(const AcDbBlockReference& reference, Walk& walk)
{
    if (AcDbStub* const block = reference.blockTableRecord().stub()) {
        // Of rows and columns, those at the corners reach furthest.
        const int lastRow = std::max(reference.m_rows - 1, 0), lastColumn = std::max(reference.m_columns - 1, 0);
        for (int row = 0; row <= lastRow; row += std::max(lastRow, 1))
            for (int column = 0; column <= lastColumn; column += std::max(lastColumn, 1))
                walk.uses.push_back({block, walk.matrix * reference.cellTransform(row, column)});
    }
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    for (attributes->start(); !attributes->done(); attributes->step()) {
        AcDbObjectPointer<AcDbAttribute> opened(attributes->objectId());
        const AcDbAttribute* attribute =
            attributes->entity() ? AcDbAttribute::cast(attributes->entity()) : opened.object();
        if (attribute && !attribute->isInvisible())
            addMoved(*attribute, walk.matrix, walk.box);
    }
}

void BlockExtents::enter(const Use& use)
{
    if (m_entered.contains(use.block))
        return;
    Walk walk;
    walk.block = use.block;
    walk.isTurned = m_left > 0 && !keepsAxes(use.matrix);
    walk.toOuter = use.matrix;
    if (walk.isTurned) {
        walk.toOuter = AcGeMatrix3d::translation(use.matrix.translation());
        walk.matrix = use.matrix;
        walk.matrix.setTranslation(AcGeVector3d(0.0, 0.0, 0.0));
    }
    if (const AcDbExtents* const box = known(walk))
        return addMoved(*box, walk.toOuter, m_walks.back().box);
    walk.entities = AcDbDatabaseImpl::of(use.block).blocks().of(use.block).entities;
    m_entered.insert(use.block);
    m_walks.push_back(std::move(walk));
}

const AcDbExtents* BlockExtents::known(const Walk& walk) const
{
    if (walk.isTurned) {
        const auto found = m_turned.find({walk.block, turnOf(walk.matrix)});
        return found == m_turned.end() ? nullptr : &found->second;
    }
    const auto found = m_boxes.find(walk.block);
    return found == m_boxes.end() ? nullptr : &found->second;
}

void BlockExtents::step()
{
    Walk& walk = m_walks.back();
    const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(walk.entities[walk.next++])};
    if (!entity.object() || entity->visibility() == AcDb::kInvisible)
        return;
    --m_left;
    addEntity(*entity.object(), walk);
}

void BlockExtents::addEntity(const AcDbEntity& entity, Walk& walk)
{
    // What a definition of attributes says is shown by the attributes, unless it is the same for all references.
    const auto* definition = AcDbAttributeDefinition::cast(&entity);
    if (definition && (!definition->isConstant() || definition->isInvisible()))
        return;
    if (const auto* nested = AcDbBlockReference::cast(&entity))
        return addReference(*nested, walk);
    if (const auto* dimension = AcDbDimension::cast(&entity); dimension && !dimension->dimBlockId().isNull())
        return addReference(AcDbBlockReference(dimension->dimBlockPosition(), dimension->dimBlockId()), walk);
    addMoved(entity, walk.matrix, walk.box);
}

void BlockExtents::leave()
{
    const Walk walk = std::move(m_walks.back());
    m_walks.pop_back();
    m_entered.erase(walk.block);
    if (walk.isTurned)
        m_turned.emplace(std::pair(walk.block, turnOf(walk.matrix)), walk.box);
    else
        m_boxes.emplace(walk.block, walk.box);
    addMoved(walk.box, walk.toOuter, m_walks.back().box);
}

#include "db/entities/BlockParts.h"

#include <algorithm>

#include "db/DatabaseImpl.h"

#include "acarray.h"
#include "dbents.h"

namespace {
constexpr int most = 1000000;       // cells of a reference, and parts in all
constexpr int mostSteps = 4 * most; // cells and entities gone through: those without a part take time as well
} // namespace

Acad::ErrorStatus BlockParts::add(const AcDbBlockReference& reference)
{
    Acad::ErrorStatus es = enter(reference, AcGeMatrix3d::kIdentity);
    while (es == Acad::eOk && !m_walks.empty())
        es = step();
    return es;
}

void BlockParts::giveTo(AcDbVoidPtrArray& entities)
{
    for (auto& entity : m_made)
        entities.append(entity.release());
    m_made.clear();
}

/// A block within itself has no parts there.
Acad::ErrorStatus BlockParts::enter(const AcDbBlockReference& reference, const AcGeMatrix3d& matrix)
{
    AcDbStub* const block = reference.blockTableRecord().stub();
    if (!block || std::ranges::find(m_walks, block, &Walk::block) != m_walks.end())
        return Acad::eOk;
    const int rows = std::max<int>(reference.m_rows, 1), columns = std::max<int>(reference.m_columns, 1);
    if (rows > most / columns || (m_steps += rows * columns) > mostSteps)
        return Acad::eOutOfRange;
    Walk walk{block, {}, AcDbDatabaseImpl::of(block).blocks().of(block).entities};
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            walk.cells.push_back(matrix * reference.cellTransform(row, column));
    m_walks.push_back(std::move(walk));
    return Acad::eOk;
}

Acad::ErrorStatus BlockParts::step()
{
    if (++m_steps > mostSteps)
        return Acad::eOutOfRange;
    Walk& walk = m_walks.back();
    if (walk.next == walk.entities.size()) {
        walk.next = 0;
        if (++walk.cell == walk.cells.size())
            m_walks.pop_back();
        return Acad::eOk;
    }
    const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(walk.entities[walk.next++])};
    const auto* definition = AcDbAttributeDefinition::cast(entity.object());
    if (!entity.object() || (definition && !definition->isConstant()))
        return Acad::eOk;
    return addEntity(*entity.object(), walk.cells[walk.cell]);
}

Acad::ErrorStatus BlockParts::addEntity(const AcDbEntity& entity, const AcGeMatrix3d& matrix)
{
    const Acad::ErrorStatus es = addMoved(entity, matrix);
    if (es == Acad::eOk || es == Acad::eOutOfRange)
        return es;
    if (const auto* nested = AcDbBlockReference::cast(&entity))
        return enter(*nested, matrix);
    AcDbVoidPtrArray held;
    if (entity.explode(held) != Acad::eOk)
        return es;
    std::vector<std::unique_ptr<AcDbEntity>> parts;
    for (void* part : held)
        parts.emplace_back(static_cast<AcDbEntity*>(part));
    for (const auto& part : parts)
        if (const Acad::ErrorStatus moved = addMoved(*part, matrix); moved != Acad::eOk)
            return moved;
    return Acad::eOk;
}

Acad::ErrorStatus BlockParts::addMoved(const AcDbEntity& entity, const AcGeMatrix3d& matrix)
{
    if (m_made.size() >= most)
        return Acad::eOutOfRange;
    AcDbEntity* copy = nullptr;
    const Acad::ErrorStatus es = entity.getTransformedCopy(matrix, copy);
    if (es == Acad::eOk)
        m_made.emplace_back(copy);
    return es;
}

#include "db/entities/BlockParts.h"

#include <algorithm>
#include <unordered_map>

#include "db/DatabaseImpl.h"
#include "db/entities/OcsTransform.h"

#include "acarray.h"
#include "dbents.h"

namespace {
constexpr int most = 1000000;       // cells of a reference, and parts in all
constexpr int mostSteps = 4 * most; // cells and entities gone through: those without a part take time as well

bool hasParts(const AcDbEntity& entity)
{
    const auto* definition = AcDbAttributeDefinition::cast(&entity);
    return !definition || definition->isConstant();
}
} // namespace

/// Says how many parts there would be, making none. Blocks that bend and hold each other twice double from level to
/// level, and no two of their shapes need be alike: they are gone through one by one, in a tenth of a microsecond.
class BlockParts::Count {
public:
    bool isTooMuch(const AcDbBlockReference& reference)
    {
        const Nested outermost = nestedOf(reference);
        enter(outermost, outermost.place, 1);
        while (!m_walks.empty() && m_parts <= most && m_steps <= mostSteps)
            step();
        return m_parts > most || m_steps > mostSteps;
    }

private:
    /// A transformation without its shift.
    struct Axes {
        AcGeVector3d x = AcGeVector3d::kXAxis, y = AcGeVector3d::kYAxis, z = AcGeVector3d::kZAxis;

        AcGeVector3d operator*(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
        Axes operator*(const Axes& inner) const { return {*this * inner.x, *this * inner.y, *this * inner.z}; }
    };
    struct Nested {
        AcDbStub* block;
        Axes place; ///< of all its cells
        std::int64_t cells;
    };
    struct Contents {
        std::int64_t entities = 0, parts = 0; ///< parts of those that are no references
        std::vector<Nested> nested;
        bool isEntered = false;
    };
    struct Walk {
        Contents* contents;
        Axes axes;
        std::int64_t times; ///< cells of cells
        std::size_t next = 0;
    };

    static Nested nestedOf(const AcDbBlockReference& reference)
    {
        const std::int64_t rows = std::max<int>(reference.m_rows, 1), columns = std::max<int>(reference.m_columns, 1);
        Nested nested{reference.blockTableRecord().stub(), {}, rows * columns};
        AcGePoint3d origin;
        reference.cellTransform(0, 0).getCoordSystem(origin, nested.place.x, nested.place.y, nested.place.z);
        return nested;
    }

    Contents& contentsOf(AcDbStub* block)
    {
        const auto [found, isNew] = m_contents.try_emplace(block);
        Contents& contents = found->second;
        if (!isNew)
            return contents;
        for (AcDbStub* const stub : AcDbDatabaseImpl::of(block).blocks().of(block).entities) {
            ++contents.entities;
            const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(stub)};
            if (const auto* nested = AcDbBlockReference::cast(entity.object()))
                contents.nested.push_back(nestedOf(*nested));
            else if (entity.object() && hasParts(*entity.object()))
                ++contents.parts;
        }
        return contents;
    }

    void enter(const Nested& nested, const Axes& axes, std::int64_t times)
    {
        if (!nested.block)
            return;
        Contents& contents = contentsOf(nested.block);
        if (contents.isEntered)
            return;
        if (nested.cells > mostSteps / times) {
            m_steps = mostSteps + 1;
            return;
        }
        times *= nested.cells;
        m_parts += times * contents.parts;
        m_steps += times * (contents.entities + 1);
        if (contents.nested.empty())
            return;
        contents.isEntered = true;
        m_walks.push_back({&contents, axes, times});
    }

    void step()
    {
        Walk& walk = m_walks.back();
        if (walk.next == walk.contents->nested.size()) {
            walk.contents->isEntered = false;
            m_walks.pop_back();
            return;
        }
        const Nested& nested = walk.contents->nested[walk.next++];
        const Axes axes = walk.axes * nested.place;
        if (hasRightAngles(axes.x, axes.y, axes.z)) // stays a reference
            m_parts += walk.times;
        else
            enter(nested, axes, walk.times);
    }

    std::unordered_map<AcDbStub*, Contents> m_contents;
    std::vector<Walk> m_walks; // each within the one before it
    std::int64_t m_parts = 0, m_steps = 0;
};

Acad::ErrorStatus BlockParts::add(const AcDbBlockReference& reference)
{
    if (Count().isTooMuch(reference))
        return Acad::eOutOfRange;
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
    if (!entity.object() || !hasParts(*entity.object()))
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

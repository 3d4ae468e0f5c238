#include "commands/Transforming.h"

#include <cmath>
#include <map>
#include <set>

#include "commands/Drawing.h"
#include "ed/input/Transients.h"

#include "acdocman.h"
#include "dbents.h"
#include "dbsymtb.h"

namespace {

using Group = std::vector<AcDbObjectId>;

/// Entities by the block that they stand in.
std::map<std::int64_t, Group> byBlock(const Group& objects)
{
    std::map<std::int64_t, Group> groups;
    for (const AcDbObjectId id : objects)
        if (const AcDbObjectPointer<AcDbEntity> entity(id); entity.object())
            groups[entity->ownerId().asOldId()].push_back(id);
    return groups;
}

/// Copies lie on each other as their originals do, in whatever order those were picked.
AcDbObjectIdArray inDrawingOrder(const Group& group)
{
    AcDbObjectIdArray ordered;
    if (group.size() == 1) {
        ordered.append(group.front());
        return ordered;
    }
    const AcDbObjectPointer<AcDbBlockTableRecord> block(AcDbObjectPointer<AcDbEntity>(group.front())->ownerId());
    std::set<std::int64_t> wanted;
    for (const AcDbObjectId id : group)
        wanted.insert(id.asOldId());
    AcDbBlockTableRecordIterator* made = nullptr;
    if (!block.object() || block->newIterator(made) != Acad::eOk)
        return ordered;
    const std::unique_ptr<AcDbBlockTableRecordIterator> each(made);
    for (; !each->done(); each->step()) {
        AcDbObjectId id;
        each->getEntityId(id);
        if (wanted.contains(id.asOldId()))
            ordered.append(id);
    }
    return ordered;
}

bool isNumber(const AcGePoint3d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

void tellNotTransformed(std::size_t refused, std::size_t all)
{
    tellRefused(refused, all, L" ne peut être transformé.", L" ne peuvent être transformés.");
}

} // namespace

std::vector<AcDbObjectId> copyObjects(const std::vector<AcDbObjectId>& objects)
{
    AcDbIdMapping mapping;
    for (const auto& [key, group] : byBlock(objects))
        drawing().deepCloneObjects(inDrawingOrder(group), AcDbObjectPointer<AcDbEntity>(group.front())->ownerId(),
                                   mapping);
    std::vector<AcDbObjectId> copies;
    for (const AcDbObjectId id : objects)
        if (AcDbObjectId copy; mapping.find(id, copy) && !copy.isErased())
            copies.push_back(copy);
    return copies;
}

bool staysAmongNumbers(const AcDbEntity& entity, const AcGeMatrix3d& matrix)
{
    const auto* const reference = AcDbBlockReference::cast(&entity); // those far off may have no extents
    const auto* const text = AcDbText::cast(&entity);
    if ((reference && !isNumber(matrix * reference->position())) || (text && !isNumber(matrix * text->position())))
        return false;
    AcDbExtents box;
    if (entity.getGeomExtents(box) != Acad::eOk)
        return true;
    const AcGePoint3d corners[] = {box.minPoint(), box.maxPoint()};
    for (int i = 0; i < 8; ++i)
        if (!isNumber(matrix * AcGePoint3d(corners[i & 1].x, corners[i >> 1 & 1].y, corners[i >> 2].z)))
            return false;
    return true;
}

Acad::ErrorStatus transformed(AcDbEntity& entity, const AcGeMatrix3d& matrix)
{
    return staysAmongNumbers(entity, matrix) ? entity.transformBy(matrix) : Acad::eInvalidInput;
}

void transformObjects(const std::vector<AcDbObjectId>& objects, const AcGeMatrix3d& matrix)
{
    std::size_t refused = 0;
    for (const AcDbObjectId id : objects)
        if (change<AcDbEntity>(id, [&](AcDbEntity& entity) { return transformed(entity, matrix); }) != Acad::eOk)
            ++refused;
    tellNotTransformed(refused, objects.size());
}

std::vector<AcDbObjectId> transformCopies(const std::vector<AcDbObjectId>& objects, const AcGeMatrix3d& matrix)
{
    std::vector<AcDbObjectId> copies = copyObjects(objects);
    const std::size_t all = copies.size();
    const std::size_t refused = std::erase_if(copies, [&](AcDbObjectId id) {
        const bool stays =
            change<AcDbEntity>(id, [&](AcDbEntity& entity) { return transformed(entity, matrix); }) != Acad::eOk;
        if (stays)
            eraseObject(id);
        return stays;
    });
    tellNotTransformed(refused, all);
    return copies;
}

Ghost::Ghost(const std::vector<AcDbObjectId>& objects, const AcGePoint3d& base,
             std::function<AcGeMatrix3d(const AcGePoint3d& place)> moved) :
    m_transients(Transients::of(*curDoc()))
{
    m_transients.setGhost(Transients::Ghost{objects, base, std::move(moved)});
}

Ghost::~Ghost()
{
    m_transients.setGhost(std::nullopt);
}

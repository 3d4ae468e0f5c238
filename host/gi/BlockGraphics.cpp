#include "gi/BlockGraphics.h"

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "gi/EntityGraphics.h"

namespace {
/// What of a box lies within another, as seen from above.
AcDbExtents common(const AcDbExtents& box, const AcDbExtents& within)
{
    const AcGePoint3d low(std::max(box.minPoint().x, within.minPoint().x),
                          std::max(box.minPoint().y, within.minPoint().y), box.minPoint().z);
    const AcGePoint3d high(std::min(box.maxPoint().x, within.maxPoint().x),
                           std::min(box.maxPoint().y, within.maxPoint().y), box.maxPoint().z);
    AcDbExtents both;
    if (low.x <= high.x && low.y <= high.y) {
        both.addPoint(low);
        both.addPoint(high);
    }
    return both;
}
/// What of a box may lie within a ring.
AcDbExtents cut(const AcDbExtents& box, const std::vector<AcGePoint3d>& ring)
{
    AcDbExtents within;
    for (const AcGePoint3d& point : ring)
        within.addPoint(point);
    return box.isEmpty() ? box : common(box, within);
}
} // namespace

const BlockGraphics::Block& BlockGraphics::of(AcDbStub* block)
{
    if (const auto known = m_blocks.find(block); known != m_blocks.end())
        return *known->second;
    // Boxes are known from within outwards; the blocks in between stand in a list, however deep they nest.
    std::vector<Reading> readings{read(block)};
    while (!readings.empty()) {
        Reading& reading = readings.back();
        if (!reading.nested.empty()) {
            AcDbStub* const nested = reading.nested.back();
            reading.nested.pop_back();
            if (!m_blocks.contains(nested))
                readings.push_back(read(nested));
            continue;
        }
        reading.block->box = boxOf(reading.block->list, true);
        readings.pop_back();
    }
    return *m_blocks.at(block);
}

BlockGraphics::Reading BlockGraphics::read(AcDbStub* block)
{
    Block& made = *(m_blocks[block] = std::make_unique<Block>());
    Reading reading{&made, {}};
    if (!block)
        return reading;
    const std::vector<AcDbStub*> entities = AcDbDatabaseImpl::of(block).blocks().of(block).entities;
    for (AcDbStub* stub : entities) {
        const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(stub)};
        if (entity.object())
            addEntity(*entity.object(), Standing::withinBlock, made.list);
    }
    for (const DisplayPart& part : made.list.parts())
        for (std::uint32_t i = part.first; made.list.showsBlocks() && i < part.last; ++i)
            if (const auto* use = std::get_if<std::unique_ptr<BlockUse>>(&made.list.primitive(i)))
                reading.nested.push_back((*use)->block);
    return reading;
}

AcDbExtents BlockGraphics::boxOf(const DisplayList& list, bool withHidden)
{
    AcDbExtents box;
    for (const DisplayPart& part : list.parts()) {
        if (part.isHidden && !withHidden)
            continue;
        if (const AcDbExtents own = boxOf(list, part); !own.isEmpty())
            box.addExt(own);
    }
    return box;
}

AcDbExtents BlockGraphics::boxOf(const DisplayList& list, const DisplayPart& part)
{
    AcDbExtents box = part.isEndless ? AcDbExtents() : part.box;
    for (const PartClip* clip = part.clip.get(); clip; clip = clip->outer.get())
        box = cut(box, clip->ring);
    for (std::uint32_t i = part.first; list.showsBlocks() && i < part.last; ++i)
        if (const auto* use = std::get_if<std::unique_ptr<BlockUse>>(&list.primitive(i)))
            if (const AcDbExtents shown = boxOf(**use); !shown.isEmpty())
                box.addExt(shown);
    return box;
}

AcDbExtents BlockGraphics::boxOf(const BlockUse& use)
{
    AcDbExtents cell = of(use.block).box;
    if (!use.clip.empty())
        cell = cut(cell, use.clip);
    if (cell.isEmpty())
        return cell;
    cell.transformBy(use.toOwner);
    AcDbExtents box;
    for (const int row : {0, use.rows - 1})
        for (const int column : {0, use.columns - 1}) {
            const AcGeVector3d step = use.rowStep * row + use.columnStep * column;
            box.addPoint(cell.minPoint() + step);
            box.addPoint(cell.maxPoint() + step);
        }
    return box;
}

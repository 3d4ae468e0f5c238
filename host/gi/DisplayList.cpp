#include "gi/DisplayList.h"

#include <algorithm>

#include "ge/Angles.h"
#include "text/TextMetrics.h"

namespace {

/// Beyond this, squares and products of coordinates overflow.
constexpr double furthest = 1e50;

bool isUsable(double value)
{
    return std::fabs(value) < furthest;
}
bool isUsable(const AcGePoint3d& p)
{
    return isUsable(p.x) && isUsable(p.y) && isUsable(p.z);
}
bool isUsable(const AcGeVector3d& v)
{
    return isUsable(v.x) && isUsable(v.y) && isUsable(v.z);
}

bool isUsable(const Path& path)
{
    return path.points.size() >= 2 && std::ranges::all_of(path.points, [](const auto& p) { return isUsable(p); }) &&
           std::ranges::all_of(path.arcs, [](const PathArc& arc) {
               return isUsable(arc.center) && isUsable(arc.toStart) && isUsable(arc.across) && isUsable(arc.turn);
           });
}

/// Of an arc, the points where it is furthest along each axis: a sine wave has its extremes a half turn apart.
void addArc(AcDbExtents& box, const PathArc& arc)
{
    for (unsigned int axis = 0; axis < 3; ++axis) {
        const double extreme = std::atan2(arc.across[axis], arc.toStart[axis]);
        for (double t = extreme - halfTurn; t < arc.turn; t += halfTurn)
            if (t > 0.0)
                box.addPoint(arc.at(t));
    }
}

void addPath(AcDbExtents& box, const Path& path, double around = 0.0)
{
    AcDbExtents own;
    for (const AcGePoint3d& point : path.points)
        own.addPoint(point);
    for (const PathArc& arc : path.arcs)
        addArc(own, arc);
    const AcGeVector3d margin(around, around, around);
    box.addPoint(own.minPoint() - margin);
    box.addPoint(own.maxPoint() + margin);
}

std::size_t bytesOf(const Path& path)
{
    return path.points.capacity() * sizeof(AcGePoint3d) + path.arcs.capacity() * sizeof(PathArc);
}
std::size_t bytesOf(const std::vector<Path>& rings)
{
    std::size_t bytes = rings.capacity() * sizeof(Path);
    for (const Path& ring : rings)
        bytes += bytesOf(ring);
    return bytes;
}

bool dropUnusable(std::vector<Path>& rings)
{
    std::erase_if(rings, [](const Path& ring) { return !isUsable(ring); });
    return !rings.empty();
}

} // namespace

bool Path::isClosed() const
{
    return points.size() > 2 || !arcs.empty()
               ? points.front().x == points.back().x && points.front().y == points.back().y &&
                     points.front().z == points.back().z
               : false;
}

const PathArc* Path::arcOf(std::size_t segment) const
{
    const auto found = std::ranges::lower_bound(arcs, segment, {}, &PathArc::segment);
    return found != arcs.end() && found->segment == segment ? &*found : nullptr;
}

std::array<AcGePoint3d, 4> cornersOf(const Label& label)
{
    const AcGeVector3d whole = label.along * label.width;
    return {label.origin, label.origin + whole, label.origin + whole + label.up, label.origin + label.up};
}

DisplayPart& DisplayList::begin(const AcDbEntity& entity)
{
    DisplayPart& part = m_parts.emplace_back();
    part.entity = entity.objectId();
    part.look = {entity.layerId().stub(),
                 entity.linetypeId().stub(),
                 entity.linetypeScale(),
                 entity.trueColor(),
                 static_cast<std::int16_t>(entity.colorIndex()),
                 static_cast<std::int16_t>(entity.lineWeight())};
    part.first = part.last = static_cast<std::uint32_t>(m_primitives.size());
    m_bytes += sizeof(DisplayPart);
    return part;
}

void DisplayList::append(Primitive primitive, std::size_t bytes)
{
    m_primitives.push_back(std::move(primitive));
    m_parts.back().last = static_cast<std::uint32_t>(m_primitives.size());
    m_bytes += sizeof(Primitive) + bytes;
}

void DisplayList::add(Path path)
{
    if (!isUsable(path))
        return;
    addPath(m_parts.back().box, path);
    const std::size_t bytes = bytesOf(path);
    append(std::move(path), bytes);
}

void DisplayList::add(Area area)
{
    if (!dropUnusable(area.rings))
        return;
    for (const Path& ring : area.rings)
        addPath(m_parts.back().box, ring);
    const std::size_t bytes = bytesOf(area.rings);
    append(std::move(area), bytes);
}

void DisplayList::add(PointMark mark)
{
    if (!isUsable(mark.position))
        return;
    m_parts.back().box.addPoint(mark.position);
    append(mark, 0);
}

void DisplayList::add(Label label)
{
    if (label.text.empty() || !isUsable(label.origin) || !isUsable(label.along) || !isUsable(label.up))
        return;
    label.width = textWidth(label.text);
    for (const AcGePoint3d& corner : cornersOf(label))
        m_parts.back().box.addPoint(corner);
    const std::size_t bytes = label.text.capacity() * sizeof(wchar_t);
    append(std::move(label), bytes);
}

void DisplayList::add(Anchor anchor)
{
    if (isUsable(anchor.point))
        append(anchor, 0);
}

void DisplayList::add(WidePath path)
{
    if (!isUsable(path.path))
        return;
    double widest = 0.0;
    for (auto& [start, end] : path.widths) {
        start = isUsable(start) ? std::fabs(start) : 0.0;
        end = isUsable(end) ? std::fabs(end) : 0.0;
        widest = std::max({widest, start, end});
    }
    addPath(m_parts.back().box, path.path, widest / 2.0);
    const std::size_t bytes = sizeof(WidePath) + bytesOf(path.path) + path.widths.capacity() * sizeof(path.widths[0]);
    append(std::make_unique<WidePath>(std::move(path)), bytes);
}

void DisplayList::add(Pattern pattern)
{
    if (!dropUnusable(pattern.rings))
        return;
    std::erase_if(pattern.families, [](const PatternFamily& family) {
        return !isUsable(family.base) || !isUsable(family.direction) || !isUsable(family.offset);
    });
    for (const Path& ring : pattern.rings)
        addPath(m_parts.back().box, ring);
    const std::size_t bytes =
        sizeof(Pattern) + bytesOf(pattern.rings) + pattern.families.capacity() * (sizeof(PatternFamily) + 64);
    append(std::make_unique<Pattern>(std::move(pattern)), bytes);
}

void DisplayList::add(BlockUse use)
{
    for (unsigned int row = 0; row < 3; ++row)
        for (unsigned int column = 0; column < 4; ++column)
            if (!isUsable(use.toOwner(row, column)))
                return;
    if (!use.block || !isUsable(use.rowStep) || !isUsable(use.columnStep))
        return;
    m_showsBlocks = true;
    append(std::make_unique<BlockUse>(use), sizeof(BlockUse));
}

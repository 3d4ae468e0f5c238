#include "gi/SceneWalk.h"

#include "db/Colors.h"
#include "gi/AciPalette.h"

namespace {

constexpr std::size_t deepest = 100; // blocks within blocks; more would be no drawing, and much of the stack
constexpr long mostWithinBlocks = 4000000;
constexpr long mostOutlined = 100000; // of blocks shown as their boxes when that is used up
constexpr std::size_t usualDepth = 8; // of blocks within blocks
constexpr double mostCells = 250000;  // of rows and columns, in one view

void setColor(Appearance& look, int index, std::int32_t trueColor)
{
    look.contrasting = trueColor < 0 && index == contrastingColor;
    look.rgb = trueColor >= 0 ? static_cast<std::uint32_t>(trueColor) & 0xFFFFFF : aciColor(index);
}

/// Which of the cells along one direction a view may show, and how many steps apart they are taken.
struct CellRange {
    int first = 0, last = 0, stride = 1;
    double count() const { return first > last ? 0.0 : std::floor((last - first) / stride) + 1.0; }
};

/// Where along two directions the corners of a box lie, in steps; false when the directions are one.
bool stepsTo(const Box2d& box, const AcGePoint3d& from, const AcGeVector3d& u, const AcGeVector3d& v, Box2d& steps)
{
    const double det = u.x * v.y - u.y * v.x;
    if (!(std::fabs(det) > 1e-12 * u.length() * v.length()) || !std::isfinite(det))
        return false;
    for (const double x : {box.minX, box.maxX})
        for (const double y : {box.minY, box.maxY})
            steps.add(((x - from.x) * v.y - (y - from.y) * v.x) / det, ((y - from.y) * u.x - (x - from.x) * u.y) / det);
    return !steps.isEmpty();
}

std::vector<AcGePoint3d> ringAt(std::vector<AcGePoint3d> ring, const Placement& place)
{
    for (AcGePoint3d& point : ring)
        point = place(point);
    return ring;
}

CellRange rangeOf(int count, double low, double high)
{
    const double last = count - 1.0;
    return {static_cast<int>(std::clamp(std::floor(low), 0.0, last + 1.0)),
            static_cast<int>(std::clamp(std::ceil(high), -1.0, last)), 1};
}

} // namespace

Box2d boxIn(const AcDbExtents& box, const Placement& place)
{
    Box2d seen;
    if (box.isEmpty())
        return seen;
    const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
    if (place.isWorld())
        return {low.x, low.y, high.x, high.y};
    for (const double x : {low.x, high.x})
        for (const double y : {low.y, high.y})
            for (const double z : {low.z, high.z})
                seen.add(place(AcGePoint3d(x, y, z)));
    return seen;
}

SceneWalk::SceneWalk(SceneTables& tables, BlockGraphics& blocks, const SceneView& view) :
    m_tables(tables),
    m_blocks(blocks),
    m_view(view),
    m_viewBox(view.box()),
    m_left(mostWithinBlocks)
{
}

void SceneWalk::walk(const DisplayList& list, const Placement& place)
{
    walkParts(list, place, nullptr);
}

void SceneWalk::shrink(const EntityLook& look, const AcGePoint3d& at)
{
    const Resolved resolved = resolve(look, nullptr);
    if (resolved.shows)
        shrunk(at, resolved.pen);
}

Appearance SceneWalk::lookOf(const Pen& pen, std::int16_t color, std::int32_t trueColor)
{
    Appearance look = pen.look;
    if (trueColor >= 0 || (color > colorByBlock && color < colorByLayer))
        setColor(look, color, trueColor);
    return look;
}

SceneWalk::Resolved SceneWalk::resolve(const EntityLook& look, const Reference* within)
{
    const LayerState* layer = &m_tables.layer(look.layer);
    const bool ofReference = within && layer->isZero;
    if (ofReference)
        layer = within->layer;
    const bool frozen = layer->frozen || (m_view.frozen && !ofReference && m_view.frozen->contains(look.layer));
    Resolved resolved{layer, {}, frozen, !frozen && !layer->off};
    Pen& pen = resolved.pen;

    if (look.color == colorByBlock && look.trueColor < 0 && within)
        pen.look = within->pen.look;
    else if (look.color == colorByLayer && look.trueColor < 0)
        setColor(pen.look, layer->color, layer->trueColor);
    else
        setColor(pen.look, look.color == colorByBlock ? contrastingColor : look.color, look.trueColor);

    pen.look.lineWeight = look.lineWeight == AcDb::kLnWtByLayer   ? layer->lineWeight
                          : look.lineWeight != AcDb::kLnWtByBlock ? look.lineWeight
                          : within                                ? within->pen.look.lineWeight
                                                                  : -3;
    pen.dashes = m_tables.isByLayer(look.linetype)             ? m_tables.linetype(layer->linetype)
                 : m_tables.isByBlock(look.linetype) && within ? within->pen.dashes
                                                               : m_tables.linetype(look.linetype);
    pen.dashScale = m_tables.settings().linetypeScale * look.linetypeScale;
    return resolved;
}

bool SceneWalk::isSpent() const
{
    return m_left < -mostOutlined;
}

/// Blocks that hold each other several times, level after level, are without number: what is deep costs more.
long SceneWalk::cost() const
{
    const std::size_t depth = m_entered.size();
    return depth <= usualDepth ? 1 : static_cast<long>(depth * depth);
}

bool SceneWalk::isSmall(const Box2d& box) const
{
    return m_view.simplified && box.width() < m_view.pixel && box.height() < m_view.pixel;
}

void SceneWalk::walkParts(const DisplayList& list, const Placement& place, const Reference* within)
{
    const std::span<const DisplayPart> parts(list.parts());
    for (std::size_t i = 0, next = 0; i < parts.size() && !stopped(); i = next) {
        for (next = i + 1; next < parts.size() && (parts[next].isAttribute || parts[next].isPiece);)
            ++next;
        showEntity(list, parts.subspan(i, next - i), place, within);
        if (!afford(within))
            return;
    }
}

/// Counts what is within a block; false when there was too much of it.
bool SceneWalk::afford(const Reference* within)
{
    if (within && m_left >= 0)
        m_left -= cost();
    return !within || m_left >= 0;
}

/// @param parts that of the entity, then the pieces of its picture or its attributes
void SceneWalk::showEntity(const DisplayList& list, std::span<const DisplayPart> parts, const Placement& place,
                           const Reference* within)
{
    const int attributeMode = m_tables.settings().attributeMode;
    const Resolved resolved = resolve(parts.front().look, within);
    if (resolved.frozen || (parts.front().isHidden && attributeMode != 2) || !enter(parts.front().entity, place))
        return;
    const PartClip* clip = nullptr;
    changeClip(clip, parts.front().clip.get(), place);
    showPart(list, parts.front(), place, resolved);
    for (const DisplayPart& part : parts.subspan(1)) {
        if (part.isPiece && (stopped() || !afford(within)))
            break;
        if (part.isAttribute && (attributeMode == 0 || (part.isHidden && attributeMode != 2)))
            continue;
        const Resolved own = resolve(part.look, within);
        if (!own.shows)
            continue;
        changeClip(clip, part.clip.get(), place);
        if (part.isAttribute && !enter(part.entity, place))
            continue;
        showPart(list, part, place, own);
        if (part.isAttribute)
            leave();
    }
    changeClip(clip, nullptr, place);
    leave();
}

/// Takes away the rings that are on, and puts on those of what comes next; pieces in a row mostly have the same.
void SceneWalk::changeClip(const PartClip*& on, const PartClip* next, const Placement& place)
{
    if (on == next)
        return;
    for (; on; on = on->outer.get())
        endClip();
    for (on = next; next; next = next->outer.get()) {
        beginClip(ringAt(next->ring, place));
        chargeClip(next->ring.size());
    }
}

/// A clip within a block is cut into its triangles wherever the block is shown, which takes as long as so many
/// entities.
void SceneWalk::chargeClip(std::size_t corners)
{
    if (!m_entered.empty() && m_left >= 0)
        m_left = std::max(m_left - static_cast<long>(corners * corners / 16), -1L);
}

void SceneWalk::showPart(const DisplayList& list, const DisplayPart& part, const Placement& place,
                         const Resolved& resolved)
{
    const Box2d box = boxIn(part.box, place);
    const bool ownInView = part.isEndless || box.touches(m_viewBox);
    for (std::uint32_t i = part.first; i < part.last; ++i) {
        const Primitive& primitive = list.primitive(i);
        const bool isBlock = std::holds_alternative<std::unique_ptr<BlockUse>>(primitive);
        if (isBlock || (resolved.shows && (ownInView || std::holds_alternative<PointMark>(primitive) ||
                                           std::holds_alternative<Anchor>(primitive))))
            showPrimitive(primitive, place, resolved);
    }
}

void SceneWalk::showPrimitive(const Primitive& primitive, const Placement& place, const Resolved& resolved)
{
    struct Show {
        SceneWalk& walk;
        const Placement& place;
        const Resolved& resolved;

        void operator()(const Path& path) const { walk.show(path, place, resolved.pen); }
        void operator()(const Area& area) const { walk.show(area, place, resolved.pen); }
        void operator()(const PointMark& mark) const { walk.show(mark, place, resolved.pen); }
        void operator()(const Label& label) const { walk.show(label, place, resolved.pen); }
        void operator()(const Anchor& anchor) const { walk.show(anchor, place); }
        void operator()(const std::unique_ptr<WidePath>& path) const { walk.show(*path, place, resolved.pen); }
        void operator()(const std::unique_ptr<Pattern>& pattern) const { walk.show(*pattern, place, resolved.pen); }
        void operator()(const std::unique_ptr<BlockUse>& use) const { walk.showBlocks(*use, place, resolved); }
    };
    std::visit(Show{*this, place, resolved}, primitive);
}

void SceneWalk::showBlocks(const BlockUse& use, const Placement& place, const Resolved& resolved)
{
    const BlockGraphics::Block& block = m_blocks.of(use.block);
    if (block.box.isEmpty() || std::ranges::find(m_entered, &block) != m_entered.end())
        return;
    const Placement first = place.then(use.toOwner);
    const Box2d cell = boxIn(block.box, first);
    if (cell.isEmpty())
        return;
    if (use.rows == 1 && use.columns == 1) {
        if (cell.touches(m_viewBox))
            showClipped(use, block, first, resolved);
        return;
    }

    const AcGeVector3d rowStep = place(use.rowStep), columnStep = place(use.columnStep);
    CellRange rows = rangeOf(use.rows, 0.0, use.rows), columns = rangeOf(use.columns, 0.0, use.columns);
    Box2d steps; // x: columns, y: rows
    const Box2d reach{m_viewBox.minX - cell.width(), m_viewBox.minY - cell.height(), m_viewBox.maxX + cell.width(),
                      m_viewBox.maxY + cell.height()};
    const AcGePoint3d corner(cell.minX, cell.minY, 0.0);
    if (stepsTo(reach, corner, columnStep, rowStep, steps)) {
        columns = rangeOf(use.columns, steps.minX, steps.maxX);
        rows = rangeOf(use.rows, steps.minY, steps.maxY);
    }
    // What is smaller than a pixel need not be shown more than once a pixel; and never more than a view can bear.
    const auto thin = [&](CellRange& range, const AcGeVector3d& step) {
        const double pitch = std::hypot(step.x, step.y);
        if (m_view.simplified && isSmall(cell) && pitch < m_view.pixel)
            range.stride = pitch * 1e9 > m_view.pixel ? static_cast<int>(std::ceil(m_view.pixel / pitch)) : 1000000000;
    };
    thin(rows, rowStep);
    thin(columns, columnStep);
    while (rows.count() * columns.count() > mostCells) {
        CellRange& longer = rows.count() > columns.count() ? rows : columns;
        longer.stride *= 2;
    }
    for (int row = rows.first; row <= rows.last && !isSpent() && !stopped(); row += rows.stride)
        for (int column = columns.first; column <= columns.last && !isSpent(); column += columns.stride) {
            const AcGeVector3d step = use.rowStep * row + use.columnStep * column;
            const Placement placed = place.then(AcGeMatrix3d::translation(step) * use.toOwner);
            if (boxIn(block.box, placed).touches(m_viewBox))
                showClipped(use, block, placed, resolved);
        }
}

void SceneWalk::showClipped(const BlockUse& use, const BlockGraphics::Block& block, const Placement& place,
                            const Resolved& resolved)
{
    if (use.clip.empty())
        return showCell(block, place, resolved);
    beginClip(ringAt(use.clip, place));
    showCell(block, place, resolved);
    endClip();
}

void SceneWalk::showCell(const BlockGraphics::Block& block, const Placement& place, const Resolved& resolved)
{
    const Box2d box = boxIn(block.box, place);
    if (isSmall(box)) {
        const AcGePoint2d center = box.center();
        return shrunk(AcGePoint3d(center.x, center.y, 0.0), resolved.pen);
    }
    if (m_left < 0 || m_entered.size() >= deepest) {
        if (isSpent())
            return;
        --m_left;
        Path outline;
        outline.points = {AcGePoint3d(box.minX, box.minY, 0.0), AcGePoint3d(box.maxX, box.minY, 0.0),
                          AcGePoint3d(box.maxX, box.maxY, 0.0), AcGePoint3d(box.minX, box.maxY, 0.0),
                          AcGePoint3d(box.minX, box.minY, 0.0)};
        return show(outline, Placement(), resolved.pen);
    }
    const Reference reference{resolved.layer, resolved.pen};
    m_entered.push_back(&block);
    walkParts(block.list, place, &reference);
    m_entered.pop_back();
}

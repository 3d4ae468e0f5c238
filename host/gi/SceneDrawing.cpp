#include "gi/SceneDrawing.h"

#include "ge/Angles.h"
#include "gi/DashCutter.h"
#include "gi/PathFlattening.h"
#include "gi/PatternLines.h"
#include "gi/ViewClip.h"
#include "gi/WideOutline.h"

namespace {

constexpr double leastPattern = 3.0; // pixels of a whole pattern of dashes
constexpr double usualFigure = 0.05; // size of a point figure, as a share of the view's height

bool isFinite(const AcGePoint3d& p)
{
    return std::isfinite(p.x + p.y + p.z);
}
bool isFinite(const AcGeVector3d& v)
{
    return std::isfinite(v.x + v.y + v.z);
}

} // namespace

double pointFigureSize(const SceneTables::Settings& settings, double viewHeight)
{
    const double size = settings.pointSize;
    return (size > 0.0 ? size : viewHeight * (size < 0.0 ? -size / 100.0 : usualFigure)) / 2.0;
}

SceneDrawing::SceneDrawing(SceneTables& tables, BlockGraphics& blocks, const SceneView& view, double figureHeight,
                           GraphicsSink& sink) :
    SceneWalk(tables, blocks, view),
    m_sink(&sink),
    m_figureHeight(figureHeight),
    m_reach(viewBox().grown(view.width + view.height))
{
}

/// The sink is asked once in a while only: it may have to look at a clock.
bool SceneDrawing::stopped()
{
    constexpr unsigned interval = 64;
    if (!m_stopped && ++m_asked % interval == 0)
        m_stopped = m_sink->stopped();
    return m_stopped;
}

void SceneDrawing::beginClip(Points ring)
{
    m_clips.push_back(std::make_unique<ClippedSink>(*m_sink, std::move(ring)));
    m_below.push_back(m_sink);
    m_sink = m_clips.back().get();
}

void SceneDrawing::endClip()
{
    m_sink = m_below.back();
    m_below.pop_back();
    m_clips.pop_back();
}

bool SceneDrawing::isSpeck(const Box2d& box) const
{
    return view().simplified && box.width() < view().pixel && box.height() < view().pixel;
}

// ---- lines

void SceneDrawing::show(const Path& path, const Placement& place, const Pen& pen)
{
    const bool dashed = pen.dashes && view().dashes;
    if (dashed && !path.unbroken && !path.smooth)
        return strokeDashed(path, place, pen);
    if (place.isWorld() && path.arcs.empty())
        return stroke(path.points, pen);
    if (flatten(path, place, deviation(), m_points))
        stroke(m_points, pen);
}

/// Dashes begin anew at each corner.
void SceneDrawing::strokeDashed(const Path& path, const Placement& place, const Pen& pen)
{
    for (std::size_t i = 0; i + 1 < path.points.size(); ++i) {
        m_points.clear();
        m_points.push_back(place(path.points[i]));
        flattenSegment(path, i, place, deviation(), m_points);
        if (std::ranges::all_of(m_points, [](const AcGePoint3d& p) { return isFinite(p); }))
            stroke(m_points, pen);
    }
}

void SceneDrawing::stroke(GraphicsSink::Points points, const Pen& pen)
{
    const Box2d box = boxOf(points);
    if (!box.touches(viewBox()))
        return;
    if (isSpeck(box))
        return m_sink->dot(points.front(), pen.look);
    const auto take = [&](GraphicsSink::Points run) {
        const bool isDot = run.size() == 2 && run[0].x == run[1].x && run[0].y == run[1].y && view().simplified;
        if (isDot)
            m_sink->dot(run[0], pen.look);
        else
            m_sink->polyline(run, pen.look);
    };
    if (pen.dashes && view().dashes)
        DashCutter(*pen.dashes, pen.dashScale, leastPattern * view().pixel, m_reach, take).cut(points);
    else if (m_reach.holds(box))
        take(points);
    else
        clipPolyline(points, m_reach, take);
}

// ---- areas

void SceneDrawing::fill(std::vector<Points> rings, const Pen& pen)
{
    Box2d box;
    for (const Points& ring : rings)
        box.add(boxOf(ring));
    if (!box.touches(viewBox()))
        return;
    if (isSpeck(box))
        return m_sink->dot(rings.front().front(), pen.look);
    if (!tables().settings().fill) {
        for (Points& ring : rings) {
            ring.push_back(ring.front());
            stroke(ring, pen);
        }
        return;
    }
    if (!m_reach.holds(box)) {
        for (Points& ring : rings)
            ring = clipRing(std::move(ring), m_reach);
        std::erase_if(rings, [](const Points& ring) { return ring.size() < 3; });
    }
    if (!rings.empty())
        m_sink->polygon(rings, pen.look);
}

std::vector<SceneDrawing::Points> SceneDrawing::flattened(const std::vector<Path>& rings, const Placement& place) const
{
    std::vector<Points> flat;
    for (const Path& ring : rings) {
        Points points;
        if (!flatten(ring, place, deviation(), points))
            continue;
        points.pop_back(); // it ends where it begins
        if (points.size() >= 2)
            flat.push_back(std::move(points));
    }
    return flat;
}

void SceneDrawing::show(const WidePath& path, const Placement& place, const Pen& pen)
{
    if (widestOf(path, place) < view().pixel)
        return show(path.path, place, pen);
    for (auto& ring : wideOutline(path, place, deviation()))
        fill({std::move(ring)}, pen);
}

void SceneDrawing::show(const Area& area, const Placement& place, const Pen& pen)
{
    auto rings = flattened(area.rings, place);
    if (rings.empty())
        return;
    Pen filling = pen;
    filling.look = lookOf(area, pen);
    filling.look.ground = area.hides;
    fill(std::move(rings), filling);
}

void SceneDrawing::show(const Pattern& pattern, const Placement& place, const Pen& pen)
{
    const std::vector<Points> rings = flattened(pattern.rings, place);
    if (rings.empty())
        return;
    if (view().solidHatches)
        return fill(rings, pen);
    Box2d box;
    for (const Points& ring : rings)
        box.add(boxOf(ring));
    if (isSpeck(box))
        return m_sink->dot(rings.front().front(), pen.look);
    const Pen whole{pen.look, nullptr, 1.0};
    for (const PatternFamily& family : pattern.families) {
        const PatternFamily placed{place(family.base), place(family.direction), place(family.offset), family.dashes};
        patternLines(rings, placed, view(), [&](GraphicsSink::Points line) { stroke(line, whole); });
    }
}

// ---- points, texts

void SceneDrawing::show(const PointMark& mark, const Placement& place, const Pen& pen)
{
    const SceneTables::Settings& settings = tables().settings();
    const AcGePoint3d at = place(mark.position);
    if (!isFinite(at))
        return;
    constexpr int nothing = 1, plus = 2, cross = 3, tick = 4, circled = 32, squared = 64;
    const int figure = settings.pointMode & 7;
    const double half = pointFigureSize(settings, m_figureHeight);
    if (!viewBox().grown(2.0 * half).holds(at.x, at.y))
        return;
    if (settings.pointMode == 0 || (half < view().pixel && view().simplified)) {
        if (settings.pointMode != nothing)
            m_sink->dot(at, pen.look);
        return;
    }
    const double cosine = std::cos(mark.rotation), sine = std::sin(mark.rotation);
    const auto corner = [&](double x, double y) {
        return at + AcGeVector3d(x * cosine - y * sine, x * sine + y * cosine, 0.0);
    };
    const Pen whole{pen.look, nullptr, 1.0};
    const auto line = [&](double x0, double y0, double x1, double y1) {
        const AcGePoint3d ends[] = {corner(x0, y0), corner(x1, y1)};
        stroke(ends, whole);
    };
    const double arm = 2.0 * half;
    if (figure == plus) {
        line(-arm, 0.0, arm, 0.0);
        line(0.0, -arm, 0.0, arm);
    } else if (figure == cross) {
        line(-arm, -arm, arm, arm);
        line(-arm, arm, arm, -arm);
    } else if (figure == tick)
        line(0.0, 0.0, 0.0, half);
    else if (figure != nothing)
        m_sink->dot(at, pen.look);
    if ((settings.pointMode & circled) != 0) {
        Path circle;
        circle.points = {corner(half, 0.0), corner(half, 0.0)};
        circle.arcs = {{0, at, corner(half, 0.0) - at, corner(0.0, half) - at, wholeTurn}};
        show(circle, Placement(), whole);
    }
    if ((settings.pointMode & squared) != 0) {
        const AcGePoint3d ring[] = {corner(-half, -half), corner(half, -half), corner(half, half), corner(-half, half),
                                    corner(-half, -half)};
        stroke(ring, whole);
    }
}

void SceneDrawing::show(const Label& label, const Placement& place, const Pen& pen)
{
    TextItem item;
    item.origin = place(label.origin);
    item.along = place(label.along);
    item.up = place(label.up);
    if (!isFinite(item.origin) || !isFinite(item.along) || !isFinite(item.up))
        return;
    item.text = label.text;
    item.width = label.width;
    item.font = tables().font(label.style);
    item.underlined = label.underlined;
    item.overlined = label.overlined;
    item.struck = label.struck;
    m_sink->text(item, lookOf(label, pen));
}

void SceneDrawing::shrunk(const AcGePoint3d& at, const Pen& pen)
{
    if (viewBox().holds(at.x, at.y))
        m_sink->dot(at, pen.look);
}

#include "gi/Picking.h"

#include <algorithm>
#include <cmath>

#include "gi/GraphicsSink.h"
#include "gi/PickArea.h"

namespace {

/// Curves are followed to this share of what is picked with.
constexpr double fineness = 1.0 / 500.0;

using Rings = std::vector<std::vector<AcGePoint3d>>;

Rings frameOf(const TextItem& item)
{
    const AcGeVector3d whole = item.along * item.width;
    return {{item.origin, item.origin + whole, item.origin + whole + item.up, item.origin + item.up}};
}

/// Says whether what is drawn is found. Ends the drawing once it knows.
class AreaSink : public GraphicsSink {
public:
    AreaSink(const PickArea& area, PickExtent extent) : m_area(area), m_extent(extent) {}

    bool isFound() const { return m_extent == PickExtent::crossing ? m_touched : m_seen && !m_outside; }

    void polyline(Points points, const Appearance&) override { take(points); }
    void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance&) override { takeFilled(rings); }
    void dot(const AcGePoint3d& point, const Appearance&) override
    {
        m_seen = true;
        (m_area.holds(point.x, point.y) ? m_touched : m_outside) = true;
    }
    void text(const TextItem& item, const Appearance&) override { takeFilled(frameOf(item)); }
    bool enter(AcDbObjectId, const AcGeMatrix3d&) override { return !isDecided(); }
    bool stopped() override { return isDecided(); }

private:
    bool isDecided() const { return m_extent == PickExtent::crossing ? m_touched : m_outside; }

    void take(Points points)
    {
        m_seen = true;
        if (isDecided())
            return;
        if (m_extent == PickExtent::crossing)
            m_touched = m_area.touches(points);
        else
            m_outside = !m_area.encloses(points);
    }
    void takeFilled(std::span<const std::vector<AcGePoint3d>> rings)
    {
        m_seen = true;
        if (isDecided())
            return;
        if (m_extent == PickExtent::crossing)
            m_touched = m_area.touchesFilled(rings);
        else
            m_outside = !m_area.encloses(rings);
    }

    const PickArea& m_area;
    PickExtent m_extent;
    bool m_seen = false, m_touched = false, m_outside = false;
};

/// Finds the first thing drawn that touches a box, and what holds it.
class HitSink : public GraphicsSink {
public:
    explicit HitSink(const PickArea& area) : m_area(area) {}

    bool isHit() const { return !m_path.empty(); }
    /// Innermost first.
    const std::vector<AcDbObjectId>& path() const { return m_path; }
    const AcGeMatrix3d& toWorld() const { return m_toWorld; }

    void polyline(Points points, const Appearance&) override { note(m_area.touches(points)); }
    void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance&) override
    {
        note(m_area.touchesFilled(rings));
    }
    void dot(const AcGePoint3d& point, const Appearance&) override { note(m_area.holds(point.x, point.y)); }
    void text(const TextItem& item, const Appearance&) override { note(m_area.touchesFilled(frameOf(item))); }
    bool enter(AcDbObjectId entity, const AcGeMatrix3d& toWorld) override
    {
        if (isHit())
            return false;
        m_entered.push_back({entity, toWorld});
        return true;
    }
    void leave() override { m_entered.pop_back(); }
    bool stopped() override { return isHit(); }

private:
    struct Entered {
        AcDbObjectId entity;
        AcGeMatrix3d toWorld;
    };

    void note(bool hit)
    {
        if (!hit || isHit() || m_entered.empty())
            return;
        for (auto entered = m_entered.rbegin(); entered != m_entered.rend(); ++entered)
            m_path.push_back(entered->entity);
        m_toWorld = m_entered.back().toWorld;
    }

    const PickArea& m_area;
    std::vector<Entered> m_entered;
    std::vector<AcDbObjectId> m_path;
    AcGeMatrix3d m_toWorld;
};

SceneView viewOf(const Box2d& box, double pixel)
{
    SceneView view;
    view.center = box.center();
    view.width = box.width();
    view.height = box.height();
    view.pixel = pixel;
    view.dashes = false;
    view.simplified = false;
    return view;
}

/// All entities of an area. Of those that lie in the area whole, by their boxes, it only matters that they show.
std::vector<AcDbObjectId> pick(Scene& scene, const PickArea& area, bool isBox, PickExtent extent)
{
    std::vector<AcDbObjectId> found;
    const double size = std::max(area.box().width(), area.box().height());
    scene.visit(area.box(), [&](AcDbObjectId entity, const Box2d& box) {
        const bool boxWithin = isBox && area.box().holds(box);
        if (!boxWithin && isBox && extent == PickExtent::inside &&
            !area.box().grown(std::max(box.width(), box.height())).holds(box))
            return true; // far outside, whatever it is made of
        const Box2d seen = boxWithin || extent == PickExtent::inside ? box : area.box();
        const double pixel = std::max(boxWithin ? std::max(box.width(), box.height()) : size, 1e-12) * fineness;
        AreaSink sink(area, boxWithin ? PickExtent::crossing : extent);
        scene.draw(entity, viewOf(seen.grown(pixel), pixel), sink);
        if (sink.isFound())
            found.push_back(entity);
        return true;
    });
    return found;
}

} // namespace

std::vector<PickHit> hitsAt(Scene& scene, const AcGePoint2d& point, double aperture)
{
    std::vector<PickHit> hits;
    const double reach = std::max(aperture, 1e-9);
    const Box2d box = Box2d{point.x, point.y, point.x, point.y}.grown(reach);
    const PickArea area = PickArea::ofBox(box);
    scene.visit(box, [&](AcDbObjectId entity, const Box2d&) {
        HitSink sink(area);
        scene.draw(entity, viewOf(box, reach / 8.0), sink);
        if (sink.isHit())
            hits.push_back({entity, sink.path(), sink.toWorld()});
        return true;
    });
    return hits;
}

std::vector<AcDbObjectId> pickBox(Scene& scene, const Box2d& box, PickExtent extent)
{
    return pick(scene, PickArea::ofBox(box), true, extent);
}

std::vector<AcDbObjectId> pickPolygon(Scene& scene, std::span<const AcGePoint2d> polygon, PickExtent extent)
{
    return pick(scene, PickArea::ofPolygon(polygon), false, extent);
}

std::vector<AcDbObjectId> pickFence(Scene& scene, std::span<const AcGePoint2d> points)
{
    return pick(scene, PickArea::ofFence(points), false, PickExtent::crossing);
}

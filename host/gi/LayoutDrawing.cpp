#include "gi/LayoutDrawing.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "db/DatabaseImpl.h"
#include "db/Layouts.h"
#include "gi/ClippedSink.h"
#include "gi/EntityGraphics.h"
#include "gi/PathFlattening.h"
#include "gi/RecordTags.h"

#include "dbsymtb.h"

namespace {

constexpr double pi = 3.141592653589793;

/// One window of a layout on model space, by the tags of its file.
struct Viewport {
    AcGePoint3d center;   ///< on paper
    double width, height; ///< on paper
    double viewHeight;    ///< of model space
    AcGeMatrix3d toPaper;
    bool fromAbove;                       ///< else the view is turned in space
    std::vector<AcGePoint3d> ring;        ///< on paper
    std::unordered_set<AcDbStub*> frozen; ///< layers that do not show in it

    double scale() const { return height / viewHeight; }
};

/// The corners, or the outline of the entity that clips it.
std::vector<AcGePoint3d> ringOf(const RecordTags& tags, const AcGePoint3d& center, double width, double height)
{
    const AcDbObjectPointer<AcDbEntity> clip(tags.object(340));
    DisplayList list;
    if (clip.openStatus() == Acad::eOk)
        addEntity(*clip.object(), Standing::open, list);
    if (!list.parts().empty() && list.parts().front().first < list.parts().front().last)
        if (const Path* const path = std::get_if<Path>(&list.primitive(list.parts().front().first))) {
            std::vector<AcGePoint3d> ring;
            if (flatten(*path, Placement(), height / 1000.0, ring) && ring.size() > 3 && path->isClosed())
                ring.pop_back();
            if (ring.size() > 2)
                return ring;
        }
    const double x = width / 2.0, y = height / 2.0;
    return {center + AcGeVector3d(-x, -y, 0.0), center + AcGeVector3d(x, -y, 0.0), center + AcGeVector3d(x, y, 0.0),
            center + AcGeVector3d(-x, y, 0.0)};
}

bool isFrozen(AcDbObjectId layer)
{
    const AcDbObjectPointer<AcDbLayerTableRecord> record(layer);
    return record.openStatus() == Acad::eOk && record->isFrozen();
}

/// Nothing for one that is off, is the paper itself, or has no size.
std::optional<Viewport> viewportOf(AcDbObjectId id)
{
    constexpr int off = 0x20000;
    const RecordTags tags(id);
    Viewport port;
    port.center = tags.point(10, AcGePoint3d::kOrigin);
    port.width = tags.real(40, 0.0);
    port.height = tags.real(41, 0.0);
    port.viewHeight = tags.real(45, 0.0);
    if (tags.integer(69, 0) == 1 || tags.integer(68, 1) == 0 || (tags.integer(90, 0) & off) != 0 ||
        !(port.width > 0.0) || !(port.height > 0.0) || !(port.viewHeight > 0.0))
        return std::nullopt;
    const AcGeVector3d towards = tags.point(16, AcGePoint3d(0.0, 0.0, 1.0)).asVector();
    port.fromAbove = towards.x == 0.0 && towards.y == 0.0 && towards.z > 0.0;
    const AcGePoint3d seen(tags.real(12, 0.0), tags.real(22, 0.0), 0.0);
    const AcGePoint3d target = tags.point(17, AcGePoint3d::kOrigin);
    port.toPaper = AcGeMatrix3d::translation(port.center.asVector()) * AcGeMatrix3d::scaling(port.scale()) *
                   AcGeMatrix3d::translation(AcGePoint3d::kOrigin - seen) *
                   AcGeMatrix3d::rotation(tags.real(51, 0.0) * pi / 180.0, AcGeVector3d::kZAxis) *
                   planeOf(towards).inverse() * AcGeMatrix3d::translation(AcGePoint3d::kOrigin - target);
    port.ring = ringOf(tags, port.center, port.width, port.height);
    for (const DxfTag& tag : tags)
        if (tag.code == 331 || tag.code == 341)
            port.frozen.insert(tags.object(tag).stub());
    return port;
}

/// Takes what is drawn in model space to the paper.
class OnPaper : public GraphicsSink {
public:
    OnPaper(GraphicsSink& sink, const Viewport& port) : m_sink(sink), m_port(port) {}

    void polyline(Points points, const Appearance& look) override { m_sink.polyline(moved(points), look); }
    void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance& look) override
    {
        std::vector<std::vector<AcGePoint3d>> placed;
        for (const std::vector<AcGePoint3d>& ring : rings)
            placed.push_back(moved(ring));
        m_sink.polygon(placed, look);
    }
    void dot(const AcGePoint3d& point, const Appearance& look) override { m_sink.dot(flat(point), look); }
    void text(const TextItem& item, const Appearance& look) override
    {
        TextItem placed = item;
        placed.origin = flat(item.origin);
        placed.along = m_port.toPaper * item.along;
        placed.up = m_port.toPaper * item.up;
        for (std::vector<AcGePoint3d>& ring : placed.clips)
            ring = moved(ring);
        m_sink.text(placed, look);
    }
    bool stopped() override { return m_sink.stopped(); }

private:
    AcGePoint3d flat(const AcGePoint3d& point) const
    {
        const AcGePoint3d placed = m_port.toPaper * point;
        return {placed.x, placed.y, 0.0};
    }
    std::vector<AcGePoint3d> moved(Points points) const
    {
        std::vector<AcGePoint3d> placed;
        placed.reserve(points.size());
        for (const AcGePoint3d& point : points)
            placed.push_back(flat(point));
        return placed;
    }

    GraphicsSink& m_sink;
    const Viewport& m_port;
};

/// What of model space a viewport holds, as fine as the paper is seen, without the layers that it freezes. A view
/// turned in space holds all of it.
SceneView modelView(Scene& model, const Viewport& port, const SceneView& paper)
{
    SceneView view;
    Box2d box;
    if (port.fromAbove) {
        const AcGeMatrix3d toModel = port.toPaper.inverse();
        for (const AcGePoint3d& corner : port.ring) {
            const AcGePoint3d seen = toModel * corner;
            box.add(seen.x, seen.y);
        }
    } else
        box = model.extents();
    view.center = box.center();
    view.width = box.width();
    view.height = view.wholeHeight = box.height();
    view.pixel = paper.pixel / port.scale();
    if (!port.frozen.empty())
        view.frozen = &port.frozen;
    return view;
}

} // namespace

std::vector<LayoutTab> paperLayouts(AcDbDatabase& database)
{
    std::vector<LayoutTab> tabs;
    AcDbStub* const model = database.impl().blocks().modelSpace();
    for (const AcDbObjectId& block : layoutBlocks(database)) {
        if (block.stub() == model)
            continue;
        const std::wstring name = layoutName(block);
        tabs.push_back({name.empty() ? L"Présentation " + std::to_wstring(tabs.size() + 1) : name, block});
    }
    return tabs;
}

void drawLayout(Scene& paper, const SceneView& view, GraphicsSink& sink)
{
    paper.draw(view, sink);
    Scene& model = Scene::of(paper.database());
    std::vector<AcDbObjectId> ports;
    paper.visit(view.box(), [&](AcDbObjectId entity, const Box2d&) {
        if (paper.database().impl().typeName(*recordOf(entity)) == "VIEWPORT")
            ports.push_back(entity);
        return true;
    });
    std::ranges::reverse(ports); // as they were drawn
    for (const AcDbObjectId& id : ports) {
        const std::optional<Viewport> port = viewportOf(id);
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (!port || (entity.openStatus() == Acad::eOk && isFrozen(entity->layerId())))
            continue;
        ClippedSink window(sink, port->ring);
        OnPaper placed(window, *port);
        model.draw(modelView(model, *port, view), placed);
    }
}

#pragma once

#include "gi/ClippedSink.h"
#include "gi/SceneWalk.h"

/// Draws display lists on a sink: follows curves, cuts dashes, fills patterns with lines, cuts what reaches far outside
/// the view.
class SceneDrawing : public SceneWalk {
public:
    /// @param figureHeight height of the view that point figures of relative size are reckoned from
    SceneDrawing(SceneTables& tables, BlockGraphics& blocks, const SceneView& view, double figureHeight,
                 GraphicsSink& sink);

    bool isStopped() { return stopped(); }

protected:
    bool enter(AcDbObjectId entity, const Placement& place) override { return m_sink->enter(entity, place.matrix()); }
    void leave() override { m_sink->leave(); }
    void beginClip(std::vector<AcGePoint3d> ring) override;
    void endClip() override;
    bool stopped() override;
    void show(const Path& path, const Placement& place, const Pen& pen) override;
    void show(const WidePath& path, const Placement& place, const Pen& pen) override;
    void show(const Area& area, const Placement& place, const Pen& pen) override;
    void show(const Pattern& pattern, const Placement& place, const Pen& pen) override;
    void show(const PointMark& mark, const Placement& place, const Pen& pen) override;
    void show(const Label& label, const Placement& place, const Pen& pen) override;
    void show(const Anchor&, const Placement&) override {}
    void shrunk(const AcGePoint3d& at, const Pen& pen) override;

private:
    using Points = std::vector<AcGePoint3d>;

    double deviation() const { return view().pixel / 4.0; }
    void stroke(GraphicsSink::Points points, const Pen& pen);
    void strokeDashed(const Path& path, const Placement& place, const Pen& pen);
    void fill(std::vector<Points> rings, const Pen& pen);
    std::vector<Points> flattened(const std::vector<Path>& rings, const Placement& place) const;
    bool isSpeck(const Box2d& box) const;

    GraphicsSink* m_sink;
    std::vector<std::unique_ptr<ClippedSink>> m_clips; // those that are on, each above the one before
    std::vector<GraphicsSink*> m_below;
    double m_figureHeight;
    Box2d m_reach; // what lies beyond it is cut away
    Points m_points;
    bool m_stopped = false;
    unsigned m_asked = 0;
};

/// Half of the side of the figure that point entities are shown by, in drawing units.
double pointFigureSize(const SceneTables::Settings& settings, double viewHeight);

#pragma once

#include <memory>
#include <optional>
#include <QColor>

#include "gi/GraphicsSink.h"
#include "gi/SceneView.h"

class QPainter;
class Scene;

/// How a scene is painted.
struct PaintStyle {
    QColor ground = Qt::white;
    std::optional<QColor> only;     ///< everything in this colour: highlights, black prints
    bool dashed = false;            ///< lines are dashed, whatever their linetype: highlights
    double width = 0.0;             ///< pixels of thin lines; 0 for as thin as can be
    bool smooth = true;             ///< edges are smoothed
    double pixelsPerMillimetre = 0; ///< line weights are drawn so; 0: all lines one pixel thin
};

/// Paints primitives of a view on a painter whose device coordinates are pixels, the view's box on the rectangle from
/// (0, 0) to its size in pixels. Coordinates are reckoned from the view's centre, so that surveys in far coordinates
/// stay sharp. Primitives of one look are gathered and painted together: `flush`, or the end of the painter's life,
/// paints the rest.
class ScenePainter : public GraphicsSink {
public:
    ScenePainter(QPainter& painter, const SceneView& view, const PaintStyle& style);
    ~ScenePainter() override;

    void polyline(Points points, const Appearance& look) override;
    void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance& look) override;
    void dot(const AcGePoint3d& point, const Appearance& look) override;
    void text(const TextItem& item, const Appearance& look) override;
    void flush();

private:
    class Strokes;
    void paint(const TextItem& item);

    std::unique_ptr<Strokes> m_strokes;
};

/// The whole of it: ground, then the scene. The view's box is shown in the whole of the painter's device.
void paintScene(QPainter& painter, Scene& scene, const SceneView& view, const PaintStyle& style);
/// The same of a layout, model space in its viewports; `paper` is the scene of its block.
void paintLayout(QPainter& painter, Scene& paper, const SceneView& view, const PaintStyle& style);

#pragma once

#include <functional>
#include <optional>
#include <QImage>
#include <QRegion>

#include "ui/window/CanvasView.h"

class QPainter;

/// A picture of what a canvas shows, kept so that a moving cursor costs nothing: when the view moves along, only what
/// came into sight is painted; when the drawing changes, only where it did.
class CanvasPicture {
public:
    /// Paints a view whose middle is at the middle of `view.width` × `view.height` pixels from the painter's origin.
    using Paint = std::function<void(QPainter& painter, const SceneView& view)>;

    explicit CanvasPicture(Paint paint) : m_paint(std::move(paint)) {}

    /// What it shows is out of date: all of it, or within a box of the drawing.
    void forget() { m_stale = true; }
    void forget(const Box2d& box) { m_damaged.add(box); }
    /// Whether bringing it up to date only takes painting what came into sight.
    bool isNear(const CanvasView& view) const { return !m_stale && shift(view).has_value(); }
    /// Brings it up to date. `ratio`: pixels of the screen for one of the canvas.
    void render(const CanvasView& view, double ratio);
    /// Draws what there is, stretched to where it belongs in a view that it was not made for.
    void draw(QPainter& painter, const CanvasView& view) const;

private:
    std::optional<QPoint> shift(const CanvasView& view) const;
    void scroll(const CanvasView& view, const QPoint& by);
    void mend();
    void paint(const QRect& part);

    Paint m_paint;
    QImage m_image;
    CanvasView m_view;
    bool m_stale = true;
    Box2d m_damaged;
};

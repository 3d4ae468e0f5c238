#pragma once

#include <QPointF>
#include <QSize>

#include "gi/SceneView.h"

#include "gepnt2d.h"

/// Which part of the drawing a canvas of so many pixels shows.
struct CanvasView {
    AcGePoint2d center;
    double pixel = 1.0; ///< drawing units
    QSize size;         ///< of the canvas, in pixels

    AcGePoint2d toWorld(const QPointF& at) const
    {
        return {center.x + (at.x() - size.width() / 2.0) * pixel, center.y - (at.y() - size.height() / 2.0) * pixel};
    }
    QPointF toCanvas(const AcGePoint2d& point) const
    {
        return {(point.x - center.x) / pixel + size.width() / 2.0, (center.y - point.y) / pixel + size.height() / 2.0};
    }
    QPointF toCanvas(const AcGePoint3d& point) const { return toCanvas(AcGePoint2d(point.x, point.y)); }

    double height() const { return size.height() * pixel; }
    SceneView sceneView() const
    {
        SceneView view;
        view.center = center;
        view.width = size.width() * pixel;
        view.height = height();
        view.pixel = pixel;
        return view;
    }
    bool operator==(const CanvasView& other) const
    {
        return center.x == other.center.x && center.y == other.center.y && pixel == other.pixel && size == other.size;
    }
};

#pragma once

#include <QColor>

#include "ed/input/InputSource.h"
#include "gi/ObjectSnap.h"
#include "ui/window/CanvasView.h"

class QPainter;

/// What is drawn around the cursor, over the drawing.

struct MarkColors {
    QColor lines;     ///< crosshair and stretched lines
    QColor snap;      ///< markers of object snaps
    QColor inside;    ///< a box that takes what lies in it
    QColor crossing;  ///< a box that takes what it touches
    QColor highlight; ///< what is selected
    static MarkColors on(bool darkGround);
};

/// Cross of the cursor; `aperture` (pixels to each side) is that of the box within which a click picks, 0 for none;
/// without `cross` only the box shows.
void drawCrosshair(QPainter& painter, const QPointF& at, int aperture, bool cross, const QColor& color);
/// Each kind of snap has its own shape.
void drawSnapMarker(QPainter& painter, const QPointF& at, SnapKind kind, const QColor& color);
/// A ring about a place that a panel has pointed out.
void drawPlaceMark(QPainter& painter, const QPointF& at, const QColor& color);
/// A text beside the cursor; above it, for the names of snaps stand below.
void drawCursorText(QPainter& painter, const QPointF& at, const QString& text, const QColor& color);
/// The name of a kind of snap, in French.
QString snapName(SnapKind kind);
/// The line or box from the base of a request to the cursor.
void drawRubberBand(QPainter& painter, const InputRequest& request, const QPointF& base, const QPointF& cursor,
                    const MarkColors& colors);
/// A box of selection: drawn from left to right it takes what lies in it, else what it touches.
void drawSelectionBox(QPainter& painter, const QPointF& from, const QPointF& to, const MarkColors& colors);

#include "ui/window/CanvasMarks.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr double markerSize = 6.0; // pixels, to each side

QPainterPath polygon(std::initializer_list<QPointF> corners)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QList<QPointF>(corners)));
    path.closeSubpath();
    return path;
}

/// Around the origin.
QPainterPath markerOf(SnapKind kind)
{
    constexpr double s = markerSize;
    QPainterPath path;
    switch (kind) {
    case SnapKind::end:
        path.addRect(-s, -s, 2 * s, 2 * s);
        break;
    case SnapKind::middle:
        path = polygon({{-s, s}, {s, s}, {0.0, -s}});
        break;
    case SnapKind::center:
        path.addEllipse(QPointF(), s, s);
        break;
    case SnapKind::node:
        path.addEllipse(QPointF(), s, s);
        [[fallthrough]];
    case SnapKind::intersection:
        path.moveTo(-s, -s);
        path.lineTo(s, s);
        path.moveTo(-s, s);
        path.lineTo(s, -s);
        break;
    case SnapKind::quadrant:
        path = polygon({{0.0, -s}, {s, 0.0}, {0.0, s}, {-s, 0.0}});
        break;
    case SnapKind::insertion:
        path = polygon(
            {{-s, -s}, {s / 3, -s}, {s / 3, -s / 3}, {s, -s / 3}, {s, s}, {-s / 3, s}, {-s / 3, s / 3}, {-s, s / 3}});
        break;
    case SnapKind::perpendicular:
        path.moveTo(-s, -s);
        path.lineTo(-s, s);
        path.lineTo(s, s);
        path.moveTo(-s, 0.0);
        path.lineTo(0.0, 0.0);
        path.lineTo(0.0, s);
        break;
    case SnapKind::nearest:
        path = polygon({{-s, -s}, {s, -s}, {-s, s}, {s, s}});
        break;
    }
    return path;
}

} // namespace

MarkColors MarkColors::on(bool darkGround)
{
    if (darkGround)
        return {QColor(230, 230, 230), QColor(70, 220, 110), QColor(80, 140, 255), QColor(70, 200, 110),
                QColor(90, 170, 255)};
    return {QColor(40, 40, 40), QColor(0, 140, 50), QColor(30, 80, 220), QColor(0, 140, 60), QColor(0, 100, 230)};
}

void drawCrosshair(QPainter& painter, const QPointF& at, int aperture, bool cross, const QColor& color)
{
    constexpr double arm = 48.0;
    painter.setPen(QPen(color, 0));
    painter.setBrush(Qt::NoBrush);
    if (aperture > 0)
        painter.drawRect(QRectF(at.x() - aperture, at.y() - aperture, 2.0 * aperture, 2.0 * aperture));
    if (!cross)
        return;
    painter.drawLine(QPointF(at.x() - arm, at.y()), QPointF(at.x() - aperture, at.y()));
    painter.drawLine(QPointF(at.x() + aperture, at.y()), QPointF(at.x() + arm, at.y()));
    painter.drawLine(QPointF(at.x(), at.y() - arm), QPointF(at.x(), at.y() - aperture));
    painter.drawLine(QPointF(at.x(), at.y() + aperture), QPointF(at.x(), at.y() + arm));
}

void drawSnapMarker(QPainter& painter, const QPointF& at, SnapKind kind, const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(at);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 2.0));
    painter.drawPath(markerOf(kind));
    const QPointF label(markerSize + 6.0, 2.0 * markerSize + 6.0);
    painter.drawText(label, snapName(kind));
    painter.restore();
}

void drawPlaceMark(QPainter& painter, const QPointF& at, const QColor& color)
{
    constexpr double ring = 14.0, tick = 8.0; // pixels: about a symbol, not over it
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 2.5));
    painter.drawEllipse(at, ring, ring);
    for (const QPointF& way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        painter.drawLine(at + way * ring, at + way * (ring + tick));
    painter.restore();
}

void drawCursorText(QPainter& painter, const QPointF& at, const QString& text, const QColor& color)
{
    constexpr double aside = 14.0;
    if (text.isEmpty())
        return;
    const double width = painter.fontMetrics().horizontalAdvance(text);
    const double space = painter.viewport().width() / painter.device()->devicePixelRatioF();
    const bool fits = at.x() + aside + width < space; // else to the left
    const double top = at.y() < 2.0 * aside ? 3.0 * aside : -aside;
    painter.setPen(color);
    painter.drawText(at + QPointF(fits ? aside : -aside - width, top), text);
}

QString snapName(SnapKind kind)
{
    switch (kind) {
    case SnapKind::end:
        return QStringLiteral("Extrémité");
    case SnapKind::middle:
        return QStringLiteral("Milieu");
    case SnapKind::center:
        return QStringLiteral("Centre");
    case SnapKind::node:
        return QStringLiteral("Point");
    case SnapKind::quadrant:
        return QStringLiteral("Quadrant");
    case SnapKind::intersection:
        return QStringLiteral("Intersection");
    case SnapKind::insertion:
        return QStringLiteral("Insertion");
    case SnapKind::perpendicular:
        return QStringLiteral("Perpendiculaire");
    case SnapKind::nearest:
        return QStringLiteral("Proche");
    }
    return {};
}

void drawSelectionBox(QPainter& painter, const QPointF& from, const QPointF& to, const MarkColors& colors)
{
    const bool crossing = to.x() < from.x();
    const QColor color = crossing ? colors.crossing : colors.inside;
    QColor fill = color;
    fill.setAlpha(40);
    painter.setPen(QPen(color, 0, crossing ? Qt::DashLine : Qt::SolidLine));
    painter.setBrush(fill);
    painter.drawRect(QRectF(from, to).normalized());
}

void drawRubberBand(QPainter& painter, const InputRequest& request, const QPointF& base, const QPointF& cursor,
                    const MarkColors& colors)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colors.lines, 0, request.dashed ? Qt::DashLine : Qt::SolidLine));
    if (request.kind == InputRequest::Kind::corner)
        painter.drawRect(QRectF(base, cursor).normalized());
    else
        painter.drawLine(base, cursor);
}

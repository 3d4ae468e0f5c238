#include "ui/window/CanvasPicture.h"

#include <cmath>
#include <QPainter>
#include <utility>

void CanvasPicture::render(const CanvasView& view, double ratio)
{
    const QSize pixels = view.size * ratio;
    const bool fits = m_image.size() == pixels && m_image.devicePixelRatio() == ratio;
    if (const auto by = shift(view); by && fits && !m_stale) {
        scroll(view, *by);
        return mend();
    }
    if (!fits)
        m_image = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    m_image.setDevicePixelRatio(ratio);
    m_view = view;
    m_stale = false;
    m_damaged = Box2d();
    paint(QRect(QPoint(), view.size));
}

/// How far what is there is from where it belongs. Nothing when that is not by whole pixels, or so far that nothing of
/// it stays in sight.
std::optional<QPoint> CanvasPicture::shift(const CanvasView& view) const
{
    const double across = (m_view.center.x - view.center.x) / view.pixel;
    const double down = (view.center.y - m_view.center.y) / view.pixel;
    constexpr double hair = 1e-3;
    if (m_image.isNull() || view.pixel != m_view.pixel || view.size != m_view.size)
        return std::nullopt;
    if (view == m_view)
        return QPoint();
    if (m_image.devicePixelRatio() != 1.0 || std::abs(across) >= view.size.width() ||
        std::abs(down) >= view.size.height())
        return std::nullopt;
    const QPoint by(static_cast<int>(std::lround(across)), static_cast<int>(std::lround(down)));
    if (std::abs(across - by.x()) > hair || std::abs(down - by.y()) > hair)
        return std::nullopt;
    return by;
}

void CanvasPicture::scroll(const CanvasView& view, const QPoint& by)
{
    if (view == m_view)
        return;
    QImage moved(m_image.size(), m_image.format());
    QPainter painter(&moved);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(by, m_image);
    painter.end();
    m_image = std::move(moved);
    m_view = view;
    const QRect all(QPoint(), view.size);
    for (const QRect& part : QRegion(all).subtracted(all.translated(by)))
        paint(part);
}

void CanvasPicture::mend()
{
    const Box2d box = std::exchange(m_damaged, Box2d());
    if (box.isEmpty())
        return;
    constexpr double spill = 3.0; // pixels that lines and smooth edges reach out of their boxes
    const QRectF spoilt(m_view.toCanvas(AcGePoint2d(box.minX, box.maxY)),
                        m_view.toCanvas(AcGePoint2d(box.maxX, box.minY)));
    const QRectF seen = spoilt.adjusted(-spill, -spill, spill, spill) & QRectF(QPointF(), m_view.size);
    if (!seen.isEmpty())
        paint(seen.toAlignedRect() & QRect(QPoint(), m_view.size));
}

void CanvasPicture::paint(const QRect& part)
{
    QPainter painter(&m_image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(part, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setClipRect(part);
    painter.translate(part.topLeft());
    CanvasView seen = m_view;
    seen.size = part.size();
    seen.center = m_view.toWorld(QPointF(part.x() + part.width() / 2.0, part.y() + part.height() / 2.0));
    SceneView strip = seen.sceneView();
    strip.wholeHeight = m_view.height();
    m_paint(painter, strip);
}

void CanvasPicture::draw(QPainter& painter, const CanvasView& view) const
{
    if (m_image.isNull())
        return;
    if (view == m_view) {
        painter.drawImage(0, 0, m_image);
        return;
    }
    const AcGePoint2d topLeft = m_view.toWorld(QPointF(0.0, 0.0));
    const AcGePoint2d bottomRight = m_view.toWorld(QPointF(m_view.size.width(), m_view.size.height()));
    painter.drawImage(QRectF(view.toCanvas(topLeft), view.toCanvas(bottomRight)), m_image);
}

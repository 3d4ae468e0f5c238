#include "ui/window/LayerIcons.h"

#include <functional>
#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include "gi/AciPalette.h"

namespace {

constexpr int size = 16;

/// Twice as fine as it is shown, for sharp screens.
QIcon drawn(const std::function<void(QPainter&)>& draw)
{
    constexpr int ratio = 2;
    QPixmap picture(size * ratio, size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    painter.end();
    return picture;
}

QColor faint()
{
    QColor color = QApplication::palette().color(QPalette::Text);
    color.setAlpha(70);
    return color;
}

void drawTick(QPainter& painter)
{
    QPainterPath tick;
    tick.moveTo(3.0, 8.5);
    tick.lineTo(6.5, 12.0);
    tick.lineTo(13.0, 4.0);
    painter.setPen(QPen(QColor(40, 160, 80), 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(tick);
}

void drawBulb(QPainter& painter, bool lit)
{
    painter.setPen(QPen(lit ? QColor(190, 140, 0) : faint(), 1.2));
    painter.setBrush(lit ? QBrush(QColor(255, 210, 60)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QPointF(8.0, 6.5), 4.2, 4.2);
    painter.drawRect(QRectF(6.3, 11.0, 3.4, 3.0));
}

void drawFlake(QPainter& painter, bool frozen)
{
    painter.setPen(QPen(frozen ? QColor(40, 130, 230) : faint(), frozen ? 1.6 : 1.2));
    painter.translate(size / 2.0, size / 2.0);
    for (int arm = 0; arm < 6; ++arm) {
        painter.drawLine(QPointF(0.0, 0.0), QPointF(0.0, -6.5));
        painter.drawLine(QPointF(0.0, -4.0), QPointF(1.8, -5.8));
        painter.drawLine(QPointF(0.0, -4.0), QPointF(-1.8, -5.8));
        painter.rotate(60.0);
    }
}

void drawPadlock(QPainter& painter, bool locked)
{
    painter.setPen(QPen(locked ? QColor(190, 70, 40) : faint(), 1.4));
    painter.setBrush(locked ? QBrush(QColor(240, 150, 90)) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(QRectF(3.5, 7.5, 9.0, 6.5), 1.2, 1.2);
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(locked ? 5.0 : 8.0, 2.0, 6.0, 10.0), 0, 180 * 16);
}

void drawSwatch(QPainter& painter, int color)
{
    painter.setPen(QPen(QColor(110, 110, 110), 1.0));
    painter.setBrush(QColor(QRgb(aciColor(color))));
    painter.drawRect(QRectF(1.5, 1.5, 13.0, 13.0));
}

/// A picture of a state that is on or off.
QIcon state(void (*draw)(QPainter&, bool), bool on)
{
    return drawn([draw, on](QPainter& painter) { draw(painter, on); });
}

} // namespace

LayerIcons::LayerIcons() :
    m_current(drawn(drawTick)),
    m_lit(state(drawBulb, true)),
    m_unlit(state(drawBulb, false)),
    m_frozen(state(drawFlake, true)),
    m_thawed(state(drawFlake, false)),
    m_locked(state(drawPadlock, true)),
    m_unlocked(state(drawPadlock, false))
{
}

const QIcon& LayerIcons::swatch(int color) const
{
    const auto [place, isNew] = m_swatches.try_emplace(color);
    if (isNew)
        place->second = drawn([color](QPainter& painter) { drawSwatch(painter, color); });
    return place->second;
}

#include "ui/window/LayoutView.h"

#include <cmath>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "ui/render/ScenePainter.h"

LayoutView::LayoutView(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("presentation"));
}

void LayoutView::show(AcDbDatabase* database, AcDbObjectId block)
{
    m_paper = database && !block.isNull() ? std::make_unique<Scene>(*database, block) : nullptr;
    if (m_paper)
        m_paper->onChange([this] { update(); });
    showAll();
}

void LayoutView::setDarkGround(bool dark)
{
    m_dark = dark;
    update();
}

void LayoutView::showAll()
{
    constexpr double margin = 0.02;
    m_view.size = size();
    if (m_paper && width() > 0 && height() > 0) {
        const SceneView whole = SceneView::showing(m_paper->extents(), width(), height(), margin);
        m_view.center = whole.center;
        m_view.pixel = whole.pixel;
    }
    update();
}

void LayoutView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintStyle style;
    style.ground = m_dark ? QColor(33, 40, 48) : QColor(Qt::white);
    if (m_paper)
        paintLayout(painter, *m_paper, m_view.sceneView(), style);
}

void LayoutView::resizeEvent(QResizeEvent*)
{
    showAll();
}

void LayoutView::wheelEvent(QWheelEvent* event)
{
    constexpr double step = 120.0; // of a wheel's notch
    const AcGePoint2d under = m_view.toWorld(event->position());
    m_view.pixel *= std::pow(0.8, event->angleDelta().y() / step);
    const AcGePoint2d now = m_view.toWorld(event->position());
    m_view.center = {m_view.center.x + under.x - now.x, m_view.center.y + under.y - now.y};
    update();
}

void LayoutView::mousePressEvent(QMouseEvent* event)
{
    m_grabbed = event->position().toPoint();
}

void LayoutView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint moved = event->position().toPoint() - m_grabbed;
    m_grabbed = event->position().toPoint();
    m_view.center = {m_view.center.x - moved.x() * m_view.pixel, m_view.center.y + moved.y() * m_view.pixel};
    update();
}

void LayoutView::mouseDoubleClickEvent(QMouseEvent*)
{
    showAll();
}

#pragma once

#include <memory>
#include <QPoint>
#include <QWidget>

#include "gi/Scene.h"
#include "ui/window/CanvasView.h"

/// A layout on its paper, to look at: the wheel zooms, dragging moves the paper, a double click shows all of it.
/// Commands go on in model space.
class LayoutView : public QWidget {
    Q_OBJECT

public:
    explicit LayoutView(QWidget* parent = nullptr);

    /// The block of a layout; null for none. Its drawing must live as long as it is shown.
    void show(AcDbDatabase* database, AcDbObjectId block);
    void setDarkGround(bool dark);
    void showAll();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    std::unique_ptr<Scene> m_paper;
    CanvasView m_view;
    QPoint m_grabbed;
    bool m_dark = false;
};

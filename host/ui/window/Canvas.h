#pragma once

#include <memory>
#include <optional>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include "gi/ObjectSnap.h"
#include "ui/window/CanvasPicture.h"

#include "gepnt3d.h"

class AcApDocument;
class CommandInput;
class Document;
class GraphicsSink;
class Scene;

/// Where the drawing shows, and where one clicks. The view it shows is that of the document (CurrentView), which wheel
/// and middle button change. While a command asks for a place, clicks answer it; else they select.
class Canvas : public QWidget {
    Q_OBJECT

public:
    explicit Canvas(CommandInput& input, QWidget* parent = nullptr);
    ~Canvas() override;

    /// Null for none. One that is shown for the first time is seen whole.
    void setDocument(Document* document);
    void setDarkGround(bool dark);
    bool hasDarkGround() const { return m_dark; }
    /// What is shown, as it will be painted next.
    CanvasView view() const;
    void showExtents();
    /// By a factor, about a place of the canvas.
    void zoom(double factor, const QPointF& about);
    /// Shows which place is meant, until the next click or Escape.
    void mark(const AcGePoint2d& place);
    /// All of the drawing is to be painted anew.
    void refresh();
    /// The document's view changed.
    void followView();
    /// Selection, transient graphics.
    void refreshAbove();

signals:
    void cursorAt(const AcGePoint3d& point);
    void menuAsked(const QPoint& globalPosition);
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    Scene* scene() const;
    void followChanges();
    void setView(const AcGePoint2d& center, double height);
    void keepFormerView();
    void paintDrawing(QPainter& painter, const SceneView& view);
    void paintAbove(QPainter& painter, const SceneView& view);
    void paintMarks(QPainter& painter, const CanvasView& view);
    void paintDragged(QPainter& painter, const CanvasView& view);
    void renderLater();
    void render();

    void follow(const QPointF& cursor);
    void findPlace();
    std::optional<SnapPoint> snap(const AcGePoint3d& at) const;
    AcGePoint3d orthogonal(const AcGePoint3d& at) const;
    void press(const QPointF& at, bool withShift);
    void select(const QPointF& at, bool withShift);
    void selectBox(const QPointF& to, bool withShift);
    void choose(const std::vector<AcDbObjectId>& found, bool withShift);
    void endSelecting();

    CommandInput& m_input;
    Document* m_document = nullptr;
    CanvasPicture m_drawing, m_above;
    bool m_dark = true;
    QTimer m_renderTimer;
    QElapsedTimer m_gesture; ///< since the view was last changed by hand
    qint64 m_renderTime = 0; ///< milliseconds that the last whole picture took
    std::optional<QPointF> m_cursor;
    AcGePoint3d m_place; // of the cursor, snapped
    std::optional<SnapPoint> m_snap;
    std::optional<AcGePoint2d> m_marked;
    std::optional<QPointF> m_panFrom;     // while the middle button is down
    std::optional<AcGePoint2d> m_boxFrom; // first corner of a box that selects
    QPointF m_pressed;                    // where the left button went down
};

// Stays whole: the events of one widget, and the state that each of them shares with the others.
#include "ui/window/Canvas.h"

#include <algorithm>
#include <cmath>
#include <QMouseEvent>
#include <QPainter>

#include "ap/DocumentData.h"
#include "ap/DocumentList.h"
#include "commands/NumberTexts.h"
#include "ed/input/CurrentView.h"
#include "ed/input/PickFirst.h"
#include "ed/input/SnapWords.h"
#include "ed/input/ViewHistory.h"
#include "ed/select/PickEffect.h"
#include "ed/select/SelectionSets.h"
#include "ed/SystemVariables.h"
#include "gi/Picking.h"
#include "gi/Scene.h"
#include "ui/render/ScenePainter.h"
#include "ui/window/CanvasMarks.h"
#include "ui/window/CanvasTransients.h"
#include "ui/window/CommandInput.h"

namespace {

constexpr double zoomStep = 1.25;      // of one notch of the wheel
constexpr double extentsMargin = 0.04; // of the canvas
constexpr double snapAperture = 12.0;  // pixels
constexpr double dragStart = 5.0;      // pixels that tell a drag from a click
constexpr double highlightWidth = 2.0; // pixels: seen beside the thin lines that it lies on

QColor groundOf(bool dark)
{
    return dark ? QColor(33, 38, 45) : QColor(Qt::white);
}

int integerVariable(const wchar_t* name)
{
    const auto value = SystemVariables::instance().value(name);
    const short* const number = value ? std::get_if<short>(&*value) : nullptr;
    return number ? *number : 0;
}

double elevation()
{
    const auto value = SystemVariables::instance().value(L"ELEVATION");
    const double* const number = value ? std::get_if<double>(&*value) : nullptr;
    return number ? *number : 0.0;
}

/// Pixels around the cursor within which a click picks.
int pickAperture()
{
    return std::max(1, integerVariable(L"PICKBOX"));
}

/// Whether a document has been on the canvas before: then its view is the user's.
struct Shown {
    bool before = false;
};
DocumentData<Shown>& shownDocuments()
{
    static DocumentData<Shown> shown;
    return shown;
}

/// Whether a request takes a place that object snaps may move.
bool takesSnaps(const InputRequest& request)
{
    using Kind = InputRequest::Kind;
    return CommandInput::takesPoint(request) && request.kind != Kind::entity && request.kind != Kind::selection;
}

/// Whether the place given is seen from the base: a corner is not.
bool takesBearing(const InputRequest& request)
{
    using Kind = InputRequest::Kind;
    return request.kind == Kind::point || request.kind == Kind::distance || request.kind == Kind::angle;
}

/// What a leg measures in the plane; empty while the cursor is on its base.
QString legText(const AcGeVector3d& leg)
{
    const double length = std::hypot(leg.x, leg.y);
    if (length == 0.0)
        return {};
    return QString::fromStdWString(lengthText(length) + L"   " + bearingText(leg.x, leg.y));
}

} // namespace

Canvas::Canvas(CommandInput& input, QWidget* parent) :
    QWidget(parent),
    m_input(input),
    m_drawing([this](QPainter& painter, const SceneView& view) { paintDrawing(painter, view); }),
    m_above([this](QPainter& painter, const SceneView& view) { paintAbove(painter, view); })
{
    setObjectName(QStringLiteral("canevas"));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    setMinimumSize(200, 150);
    m_renderTimer.setSingleShot(true);
    connect(&m_renderTimer, &QTimer::timeout, this, &Canvas::render);
    connect(&m_input, &CommandInput::asked, this, [this] {
        m_boxFrom.reset();
        if (m_cursor)
            findPlace();
        update();
    });
    connect(&m_input, &CommandInput::escaped, this, &Canvas::endSelecting);
}

Canvas::~Canvas() = default;

// ---- what is shown

Scene* Canvas::scene() const
{
    return m_document ? &Scene::of(*m_document->database()) : nullptr;
}

void Canvas::setDocument(Document* document)
{
    if (document == m_document)
        return;
    if (DocumentList::instance().isOpen(m_document))
        scene()->onChange(nullptr);
    m_document = document;
    m_boxFrom.reset();
    m_snap.reset();
    m_marked.reset();
    m_drawing.forget();
    m_above.forget();
    if (document) {
        CurrentView::setScreen(width(), height());
        scene()->onChange([this] { refreshAbove(); });
        if (!std::exchange(shownDocuments().of(*document).before, true))
            showExtents();
    }
    refresh();
}

void Canvas::setDarkGround(bool dark)
{
    m_dark = dark;
    refresh();
}

CanvasView Canvas::view() const
{
    const CurrentView shown = CurrentView::get();
    CanvasView view;
    view.center = shown.center;
    view.size = size();
    view.pixel = shown.height / std::max(1, height());
    return view;
}

void Canvas::setView(const AcGePoint2d& center, double height)
{
    if (!m_document)
        return;
    keepFormerView();
    if (CurrentView::set(center, height))
        followView();
}

/// For ZOOM Previous: once for a turning of the wheel, or a drag.
void Canvas::keepFormerView()
{
    constexpr qint64 pause = 1000; // milliseconds between two gestures
    if (!m_gesture.isValid() || m_gesture.elapsed() > pause)
        ViewHistory::of(*m_document).remember();
    m_gesture.start();
}

void Canvas::showExtents()
{
    Scene* const shown = scene();
    if (!shown)
        return;
    const Box2d box = shown->extents();
    if (!box.isEmpty()) {
        keepFormerView();
        CurrentView::show({box.minX, box.minY}, {box.maxX, box.maxY}, extentsMargin);
    }
    renderLater();
}

void Canvas::zoom(double factor, const QPointF& about)
{
    const CanvasView now = view();
    const AcGePoint2d fixed = now.toWorld(about);
    setView({fixed.x + (now.center.x - fixed.x) / factor, fixed.y + (now.center.y - fixed.y) / factor},
            now.height() / factor);
}

void Canvas::mark(const AcGePoint2d& place)
{
    m_marked = place;
    update();
}

void Canvas::refresh()
{
    m_drawing.forget();
    refreshAbove();
}

void Canvas::refreshAbove()
{
    m_above.forget();
    renderLater();
}

/// A picture that takes long waits until the wheel rests: meanwhile the former one shows, stretched.
void Canvas::followView()
{
    constexpr qint64 slow = 60; // milliseconds
    constexpr int rest = 120;
    if (m_renderTime > slow && !m_drawing.isNear(view()))
        m_renderTimer.start(rest);
    else
        renderLater();
    update();
}

/// Once for all that happens until the event loop comes round.
void Canvas::renderLater()
{
    m_renderTimer.start(0);
    update();
}

void Canvas::render()
{
    if (!m_document || !isVisible())
        return;
    QElapsedTimer time;
    time.start();
    followChanges();
    const bool whole = !m_drawing.isNear(view());
    m_drawing.render(view(), devicePixelRatioF());
    m_above.render(view(), devicePixelRatioF());
    if (whole)
        m_renderTime = time.elapsed();
    if (m_cursor)
        findPlace();
    update();
}

/// An edit is painted where it shows only.
void Canvas::followChanges()
{
    if (const std::optional<Box2d> damaged = scene()->takeDamage())
        m_drawing.forget(*damaged);
    else
        m_drawing.forget();
}

// ---- painting

void Canvas::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_document) {
        painter.fillRect(rect(), palette().window());
        return;
    }
    const CanvasView shown = view();
    painter.fillRect(rect(), groundOf(m_dark));
    m_drawing.draw(painter, shown);
    m_above.draw(painter, shown);
    paintDragged(painter, shown);
    if (m_marked)
        drawPlaceMark(painter, shown.toCanvas(*m_marked), MarkColors::on(m_dark).snap);
    paintMarks(painter, shown);
}

void Canvas::paintDrawing(QPainter& painter, const SceneView& view)
{
    PaintStyle style;
    style.ground = groundOf(m_dark);
    paintScene(painter, *scene(), view, style);
}

void Canvas::paintAbove(QPainter& painter, const SceneView& view)
{
    PaintStyle style;
    style.ground = groundOf(m_dark);
    paintTransients(painter, *m_document, *scene(), view, style);
    style.only = MarkColors::on(m_dark).highlight;
    style.dashed = true;
    style.width = highlightWidth;
    ScenePainter highlights(painter, view, style);
    for (const AcDbObjectId id : PickFirst::of(*m_document).highlighted())
        scene()->draw(id, view, highlights);
}

void Canvas::paintDragged(QPainter& painter, const CanvasView& view)
{
    PaintStyle style;
    style.ground = groundOf(m_dark);
    ::paintDragged(painter, *m_document, *scene(), view.sceneView(), style);
    const InputRequest* const request = m_input.request();
    if (m_cursor && request && request->base)
        paintGhost(painter, *m_document, *scene(), view.sceneView(), style, {*request->base, m_place});
}

void Canvas::paintMarks(QPainter& painter, const CanvasView& view)
{
    if (!m_cursor || m_panFrom)
        return;
    const MarkColors colors = MarkColors::on(m_dark);
    const InputRequest* const request = m_input.request();
    const QPointF cursor = m_snap ? view.toCanvas(m_snap->point) : *m_cursor;
    const bool idle = m_input.isIdle();
    const bool picks = idle || (request && !takesSnaps(*request));
    if (m_boxFrom)
        drawSelectionBox(painter, view.toCanvas(*m_boxFrom), *m_cursor, colors);
    else if (request && request->base && CommandInput::takesPoint(*request))
        drawRubberBand(painter, *request, view.toCanvas(*request->base), view.toCanvas(m_place), colors);
    drawCrosshair(painter, *m_cursor, picks ? pickAperture() : 0, idle || !picks, colors.lines);
    if (m_snap)
        drawSnapMarker(painter, cursor, m_snap->kind, colors.snap);
    if (request && request->base && takesBearing(*request))
        drawCursorText(painter, *m_cursor, legText(m_place - *request->base), colors.lines);
}

void Canvas::resizeEvent(QResizeEvent*)
{
    if (m_document)
        CurrentView::setScreen(width(), height());
    renderLater();
}

// ---- the cursor

void Canvas::follow(const QPointF& cursor)
{
    m_cursor = cursor;
    findPlace();
    if (m_document)
        emit cursorAt(m_place);
    m_input.move(m_place);
    update();
}

/// Where in the drawing the cursor is, once snaps and orthogonal mode have had their say.
void Canvas::findPlace()
{
    m_snap.reset();
    if (!m_document)
        return;
    const AcGePoint2d at = view().toWorld(*m_cursor);
    m_place = AcGePoint3d(at.x, at.y, elevation());
    const InputRequest* const request = m_input.request();
    if (!request || !takesSnaps(*request))
        return;
    m_snap = snap(m_place);
    m_place = m_snap ? m_snap->point : orthogonal(m_place);
}

std::optional<SnapPoint> Canvas::snap(const AcGePoint3d& at) const
{
    const InputRequest& request = *m_input.request();
    const int modes = request.snapModes ? request.snapModes : integerVariable(L"OSMODE");
    if (modes == 0 || (modes & kNoSnap) != 0)
        return std::nullopt;
    return snapAt(*scene(), {at.x, at.y}, snapAperture * view().pixel, static_cast<unsigned>(modes),
                  request.base ? &*request.base : nullptr);
}

AcGePoint3d Canvas::orthogonal(const AcGePoint3d& at) const
{
    const InputRequest& request = *m_input.request();
    if (!request.base || request.kind == InputRequest::Kind::corner || integerVariable(L"ORTHOMODE") == 0)
        return at;
    const AcGePoint3d& base = *request.base;
    if (std::abs(at.x - base.x) >= std::abs(at.y - base.y))
        return {at.x, base.y, at.z};
    return {base.x, at.y, at.z};
}

// ---- mouse and keys

void Canvas::mousePressEvent(QMouseEvent* event)
{
    m_marked.reset();
    follow(event->position());
    emit clicked();
    switch (event->button()) {
    case Qt::LeftButton:
        m_pressed = event->position();
        return press(event->position(), event->modifiers().testFlag(Qt::ShiftModifier));
    case Qt::MiddleButton:
        m_panFrom = event->position();
        return update();
    case Qt::RightButton:
        if (m_input.isIdle())
            emit menuAsked(event->globalPosition().toPoint());
        else
            m_input.type(QString());
        return;
    default:
        return;
    }
}

void Canvas::press(const QPointF& at, bool withShift)
{
    if (!m_document)
        return;
    if (!m_input.isIdle())
        return m_input.pick(m_place, withShift);
    if (m_boxFrom)
        return selectBox(at, withShift);
    select(at, withShift);
}

void Canvas::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panFrom) {
        const QPointF by = event->position() - *std::exchange(m_panFrom, event->position());
        const CanvasView now = view();
        setView({now.center.x - by.x() * now.pixel, now.center.y + by.y() * now.pixel}, now.height());
    }
    follow(event->position());
}

void Canvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton) {
        m_panFrom.reset();
        return update();
    }
    const bool dragged = (event->position() - m_pressed).manhattanLength() > dragStart;
    if (event->button() != Qt::LeftButton || !dragged || !m_document)
        return;
    const bool withShift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (m_input.isIdle() && m_boxFrom)
        return selectBox(event->position(), withShift);
    const InputRequest* const request = m_input.request();
    if (request && request->kind == InputRequest::Kind::corner)
        m_input.pick(m_place, withShift);
}

void Canvas::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        showExtents();
    else
        mousePressEvent(event);
}

void Canvas::wheelEvent(QWheelEvent* event)
{
    constexpr double notch = 120.0; // eighths of a degree
    zoom(std::pow(zoomStep, event->angleDelta().y() / notch), event->position());
    follow(event->position());
    event->accept();
}

void Canvas::leaveEvent(QEvent*)
{
    m_cursor.reset();
    m_snap.reset();
    update();
}

// ---- selecting between commands

void Canvas::select(const QPointF& at, bool withShift)
{
    const CanvasView now = view();
    const auto hits = hitsAt(*scene(), now.toWorld(at), pickAperture() * now.pixel);
    if (hits.empty())
        m_boxFrom = now.toWorld(at);
    else
        choose({hits.front().entity}, withShift);
    update();
}

void Canvas::selectBox(const QPointF& to, bool withShift)
{
    const AcGePoint2d from = *std::exchange(m_boxFrom, std::nullopt);
    const AcGePoint2d end = view().toWorld(to);
    Box2d box;
    box.add(from.x, from.y);
    box.add(end.x, end.y);
    choose(pickBox(*scene(), box, end.x < from.x ? PickExtent::crossing : PickExtent::inside), withShift);
    update();
}

void Canvas::choose(const std::vector<AcDbObjectId>& found, bool withShift)
{
    PickFirst& selection = PickFirst::of(*m_document);
    SelectionSet chosen;
    for (const AcDbObjectId id : selection.objects())
        chosen.add(id);
    const PickEffect effect =
        pickEffect(withShift, std::ranges::all_of(found, [&](AcDbObjectId id) { return chosen.has(id); }));
    if (effect == PickEffect::replaces)
        chosen = {};
    for (const AcDbObjectId id : found)
        effect == PickEffect::removes ? chosen.remove(id) : chosen.add(id);
    selection.set(chosen.objects());
}

void Canvas::endSelecting()
{
    m_marked.reset();
    if (m_boxFrom)
        m_boxFrom.reset();
    else if (m_document)
        PickFirst::of(*m_document).clear();
    update();
}

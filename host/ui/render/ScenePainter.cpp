#include "ui/render/ScenePainter.h"

#include <cmath>
#include <QGlyphRun>
#include <QList>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include "gi/LayoutDrawing.h"
#include "text/TextMetrics.h"
#include "ui/render/CrowdedArea.h"
#include "ui/render/GlyphShapes.h"

namespace {

constexpr double leastText = 2.5; // pixels of a capital letter below which a text is a line
constexpr float textLineStrength = 0.45F;
constexpr double mostGlyph = 40.0;       // pixels of a capital that glyphs are kept as pictures for
constexpr double usualWeight = 25.0;     // hundredths of a millimetre
constexpr double shortLine = 4.0;        // pixels below which a line need not be smooth: it is a speck, and drawn fast
constexpr double leastWidth = 1.0;       // pixels of a line with a weight
constexpr qsizetype mostGathered = 4096; // lines or dots painted at once
constexpr double underDrop = -0.2, overRise = 1.2, strikeRise = 0.45, lineThickness = 0.08; // heights of a capital

/// A text is cut off past so many pixels of a capital: a font as large as that shows nothing but a stroke.
constexpr double mostText = 20000.0;

void addShapes(QPainterPath& path, std::wstring_view text)
{
    double pen = 0.0;
    for (const wchar_t character : text) {
        path.addPath(GlyphShapes::instance().shape(character).translated(pen, 0.0));
        pen += characterWidth(character);
    }
}

bool isLight(const QColor& ground)
{
    return qGray(ground.rgb()) > 127;
}

QColor contrastTo(const QColor& ground)
{
    return isLight(ground) ? Qt::black : Qt::white;
}

/// Light that a colour sends out, from 0 (black) to 1 (white).
double luminance(const QColor& color)
{
    constexpr double gamma = 2.2;
    return 0.2126 * std::pow(color.redF(), gamma) + 0.7152 * std::pow(color.greenF(), gamma) +
           0.0722 * std::pow(color.blueF(), gamma);
}

/// Whether a thin line of one colour is lost on the other: the same hue, all but the same light.
bool isLostOn(const QColor& ground, const QColor& ink)
{
    constexpr int nearHue = 64;       // of 255, in each channel
    constexpr double contrast = 1.45; // between the lights, with a glare added to both
    constexpr double glare = 0.05;
    const auto apart = [](int a, int b) { return std::abs(a - b) >= nearHue; };
    if (apart(ground.red(), ink.red()) || apart(ground.green(), ink.green()) || apart(ground.blue(), ink.blue()))
        return false;
    const double a = luminance(ground) + glare, b = luminance(ink) + glare;
    return std::max(a, b) < contrast * std::min(a, b);
}

} // namespace

/// The painter with what is gathered for it.
class ScenePainter::Strokes {
public:
    Strokes(QPainter& painter, const SceneView& view, const PaintStyle& style) :
        m_painter(painter),
        m_style(style),
        m_centerX(view.center.x),
        m_centerY(view.center.y),
        m_perUnit(1.0 / view.pixel),
        m_halfWidth(view.width / view.pixel / 2.0),
        m_halfHeight(view.height / view.pixel / 2.0),
        m_onPixels(painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster)
    {
        m_painter.save();
    }
    ~Strokes()
    {
        flush();
        m_painter.restore();
    }
    Strokes(const Strokes&) = delete;
    Strokes& operator=(const Strokes&) = delete;

    QPointF at(const AcGePoint3d& p) const
    {
        return {(p.x - m_centerX) * m_perUnit + m_halfWidth, m_halfHeight - (p.y - m_centerY) * m_perUnit};
    }
    QPointF vector(const AcGeVector3d& v) const { return {v.x * m_perUnit, -v.y * m_perUnit}; }

    void take(const Appearance& look)
    {
        if (m_hasLook && look == m_look)
            return;
        flush();
        m_look = look;
        m_hasLook = true;
        m_color = look.ground        ? m_style.ground
                  : m_style.only     ? *m_style.only
                  : look.contrasting ? contrastTo(m_style.ground)
                                     : QColor(QRgb(look.rgb));
        m_area = m_color;
        if (!m_style.only && !look.ground && isLostOn(m_style.ground, m_color))
            m_color = contrastTo(m_style.ground);
        const double weight = (look.lineWeight >= 0 ? look.lineWeight : usualWeight) / 100.0;
        m_pen =
            QPen(m_color, m_style.pixelsPerMillimetre > 0.0 ? std::max(weight * m_style.pixelsPerMillimetre, leastWidth)
                                                            : m_style.width);
        m_pen.setCapStyle(Qt::RoundCap);
        m_pen.setJoinStyle(Qt::RoundJoin);
        if (m_style.dashed)
            m_pen.setDashPattern({4.0, 3.0});
    }

    /// Highlights lie above the picture: they must not hide it.
    bool leavesOut(const Appearance& look) const { return look.ground && m_style.dashed; }

    void line(const QPointF& from, const QPointF& to)
    {
        const bool isShort = std::fabs(to.x() - from.x()) < shortLine && std::fabs(to.y() - from.y()) < shortLine;
        QList<QLineF>& lines = isShort ? m_shortLines : m_lines;
        lines.append(QLineF(from, to));
        if (lines.size() >= mostGathered)
            flush();
    }
    /// In place of a text too small to read: paler, as its letters would be.
    void textLine(const QPointF& from, const QPointF& to)
    {
        m_textLines.append(QLineF(from, to));
        if (m_textLines.size() >= mostGathered)
            flush();
    }
    void dot(const QPointF& point)
    {
        m_dots.append(point);
        if (m_dots.size() >= mostGathered)
            flush();
    }
    void polyline(const QPolygonF& points)
    {
        usePen();
        m_painter.drawPolyline(points);
    }
    void fill(const QPainterPath& path)
    {
        m_painter.setRenderHint(QPainter::Antialiasing, m_style.smooth);
        m_painter.fillPath(path, m_color);
    }
    /// Neighbouring areas leave no seam: their borders are painted as well. An area that its ground would swallow may
    /// be there to mask what it covers: it keeps its colour, and its border shows it.
    void fillWithBorder(const QList<QPolygonF>& rings)
    {
        if (m_onPixels && fillIfCrowded(rings))
            return;
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const QPolygonF& ring : rings) {
            path.addPolygon(ring);
            path.closeSubpath();
        }
        m_painter.setRenderHint(QPainter::Antialiasing, m_style.smooth);
        m_painter.setPen(borderPen());
        m_painter.setBrush(m_area);
        m_painter.drawPath(path);
        m_painter.setBrush(Qt::NoBrush);
    }

    void flush()
    {
        if (!m_lines.isEmpty()) {
            usePen();
            m_painter.drawLines(m_lines);
            m_lines.clear();
        }
        if (!m_shortLines.isEmpty()) {
            usePen();
            m_painter.setRenderHint(QPainter::Antialiasing, m_style.smooth && !m_onPixels);
            m_painter.drawLines(m_shortLines);
            m_shortLines.clear();
        }
        if (!m_textLines.isEmpty()) {
            QPen pen = m_pen;
            QColor pale = m_color;
            pale.setAlphaF(textLineStrength);
            pen.setColor(pale);
            pen.setStyle(Qt::SolidLine);
            m_painter.setRenderHint(QPainter::Antialiasing, m_style.smooth);
            m_painter.setPen(pen);
            m_painter.drawLines(m_textLines);
            m_textLines.clear();
        }
        if (!m_dots.isEmpty()) {
            m_painter.setRenderHint(QPainter::Antialiasing, false);
            QPen pen = m_pen;
            pen.setStyle(Qt::SolidLine);
            m_painter.setPen(pen);
            m_painter.drawPoints(m_dots.constData(), static_cast<int>(m_dots.size()));
            m_dots.clear();
        }
    }

    /// As pictures of glyphs, where the device is one of pixels and the text small; false when it is not, or when the
    /// font lacks a character.
    bool drawGlyphs(std::wstring_view text, const QTransform& place, double tall)
    {
        if (!m_onPixels || tall > mostGlyph)
            return false;
        QList<quint32> glyphs;
        QList<QPointF> positions;
        double pen = 0.0;
        for (const wchar_t character : text) {
            const std::optional<quint32> glyph = GlyphShapes::instance().glyph(character);
            if (glyph) {
                glyphs.append(*glyph);
                positions.append(QPointF(pen * tall, 0.0));
            } else if (!GlyphShapes::instance().shape(character).isEmpty())
                return false;
            pen += characterWidth(character);
        }
        if (!glyphs.isEmpty())
            drawRun(glyphs, positions, place, tall);
        return true;
    }

    /// What is painted until `uncut` shows within these rings only.
    void cut(const std::vector<std::vector<AcGePoint3d>>& rings)
    {
        flush();
        m_painter.save();
        for (const std::vector<AcGePoint3d>& ring : rings) {
            QPolygonF polygon;
            for (const AcGePoint3d& point : ring)
                polygon.append(at(point));
            QPainterPath path;
            path.addPolygon(polygon);
            path.closeSubpath();
            m_painter.setClipPath(path, Qt::IntersectClip);
        }
    }
    void uncut()
    {
        flush();
        m_painter.restore();
    }

    QTransform glyphs(const TextItem& item) const
    {
        const QPointF origin = at(item.origin), along = vector(item.along), up = vector(item.up);
        return QTransform(along.x(), along.y(), up.x(), up.y(), origin.x(), origin.y());
    }
    double width() const { return 2.0 * m_halfWidth; }
    double height() const { return 2.0 * m_halfHeight; }

private:
    QPen borderPen() const
    {
        constexpr double border = 0.6;
        return m_area == m_color ? QPen(m_color, border) : m_pen;
    }

    /// Paints an area whose sides cross each other too often for a path, its sides one by one; false for others.
    bool fillIfCrowded(const QList<QPolygonF>& rings)
    {
        constexpr qsizetype mostSides = 20000; // whose border is painted too
        qsizetype sides = 0;
        for (const QPolygonF& ring : rings)
            sides += ring.size();
        if (sides <= CrowdedArea::mostLeftToQt)
            return false;
        const qreal ratio = m_painter.device()->devicePixelRatioF();
        const QRect picture(QPoint(), QSize(m_painter.device()->width(), m_painter.device()->height()) * ratio);
        QList<QPolygonF> placed;
        for (const QPolygonF& ring : rings)
            placed.append(m_painter.deviceTransform().map(ring));
        const CrowdedArea area(placed);
        if (!area.isOneOn(picture))
            return false;
        if (const QRect frame = area.frameOn(picture); !frame.isEmpty()) {
            QImage image = area.filled(frame, m_area, m_style.smooth);
            image.setDevicePixelRatio(ratio);
            const QTransform before = m_painter.transform();
            m_painter.resetTransform();
            m_painter.drawImage(QPointF(frame.topLeft()) / ratio, image);
            m_painter.setTransform(before);
        }
        if (sides <= mostSides)
            drawSides(rings);
        return true;
    }

    void drawSides(const QList<QPolygonF>& rings)
    {
        m_painter.setRenderHint(QPainter::Antialiasing, m_style.smooth);
        m_painter.setPen(borderPen());
        for (const QPolygonF& ring : rings)
            for (qsizetype i = 0; i < ring.size(); ++i)
                m_painter.drawLine(ring[i], ring[i + 1 < ring.size() ? i + 1 : 0]);
    }

    /// Upright texts need no transformation: glyphs of a size near theirs do, at places of their own.
    void drawRun(const QList<quint32>& glyphs, const QList<QPointF>& positions, const QTransform& place, double tall)
    {
        QGlyphRun run;
        run.setRawFont(GlyphShapes::instance().font(tall));
        run.setGlyphIndexes(glyphs);
        run.setPositions(positions);
        m_painter.setPen(m_color);
        const double slack = tall * 1e-3;
        const bool upright = std::fabs(place.m12()) < slack && std::fabs(place.m21()) < slack &&
                             std::fabs(place.m11() - tall) < slack && place.m22() < 0.0;
        if (upright)
            return m_painter.drawGlyphRun(QPointF(place.dx(), place.dy()), run);
        const QTransform before = m_painter.transform();
        m_painter.setTransform(QTransform::fromScale(1.0 / tall, -1.0 / tall) * place, true);
        m_painter.drawGlyphRun(QPointF(), run);
        m_painter.setTransform(before);
    }

    void usePen()
    {
        m_painter.setRenderHint(QPainter::Antialiasing, m_style.smooth);
        m_painter.setPen(m_pen);
    }

    QPainter& m_painter;
    PaintStyle m_style;
    double m_centerX, m_centerY, m_perUnit, m_halfWidth, m_halfHeight;
    bool m_onPixels;
    Appearance m_look;
    bool m_hasLook = false;
    QColor m_color, m_area; // of lines, and of areas where that differs
    QPen m_pen;
    QList<QLineF> m_lines, m_shortLines, m_textLines;
    QList<QPointF> m_dots;
};

ScenePainter::ScenePainter(QPainter& painter, const SceneView& view, const PaintStyle& style) :
    m_strokes(std::make_unique<Strokes>(painter, view, style))
{
}

ScenePainter::~ScenePainter() = default;

void ScenePainter::flush()
{
    m_strokes->flush();
}

void ScenePainter::polyline(Points points, const Appearance& look)
{
    m_strokes->take(look);
    if (points.size() == 2)
        return m_strokes->line(m_strokes->at(points[0]), m_strokes->at(points[1]));
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const AcGePoint3d& point : points)
        polygon.append(m_strokes->at(point));
    m_strokes->polyline(polygon);
}

void ScenePainter::polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance& look)
{
    if (m_strokes->leavesOut(look))
        return;
    m_strokes->take(look);
    QList<QPolygonF> placed;
    for (const std::vector<AcGePoint3d>& ring : rings) {
        QPolygonF polygon;
        polygon.reserve(static_cast<qsizetype>(ring.size()));
        for (const AcGePoint3d& point : ring)
            polygon.append(m_strokes->at(point));
        placed.append(std::move(polygon));
    }
    m_strokes->fillWithBorder(placed);
}

void ScenePainter::dot(const AcGePoint3d& point, const Appearance& look)
{
    m_strokes->take(look);
    m_strokes->dot(m_strokes->at(point));
}

void ScenePainter::text(const TextItem& item, const Appearance& look)
{
    m_strokes->take(look);
    if (item.clips.empty())
        return paint(item);
    m_strokes->cut(item.clips);
    paint(item);
    m_strokes->uncut();
}

void ScenePainter::paint(const TextItem& item)
{
    const QTransform place = m_strokes->glyphs(item);
    const double tall = std::hypot(place.m21(), place.m22());
    const QRectF frame = place.mapRect(QRectF(0.0, -0.5, item.width, 2.0));
    if (!frame.intersects(QRectF(0.0, 0.0, m_strokes->width(), m_strokes->height())))
        return;
    if (tall < leastText || tall > mostText)
        return m_strokes->textLine(place.map(QPointF(0.0, 0.5)), place.map(QPointF(item.width, 0.5)));
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const auto& [shown, rise] : {std::pair(item.underlined, underDrop), std::pair(item.overlined, overRise),
                                      std::pair(item.struck, strikeRise)})
        if (shown)
            path.addRect(0.0, rise, item.width, lineThickness);
    if (!m_strokes->drawGlyphs(item.text, place, tall))
        addShapes(path, item.text);
    if (!path.isEmpty())
        m_strokes->fill(place.map(path));
}

namespace {

void paintGround(QPainter& painter, const SceneView& view, const PaintStyle& style)
{
    painter.fillRect(QRectF(0.0, 0.0, view.width / view.pixel, view.height / view.pixel), style.ground);
}

} // namespace

void paintScene(QPainter& painter, Scene& scene, const SceneView& view, const PaintStyle& style)
{
    paintGround(painter, view, style);
    ScenePainter sink(painter, view, style);
    scene.draw(view, sink);
}

void paintLayout(QPainter& painter, Scene& paper, const SceneView& view, const PaintStyle& style)
{
    paintGround(painter, view, style);
    ScenePainter sink(painter, view, style);
    drawLayout(paper, view, sink);
}

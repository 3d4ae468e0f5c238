#include <algorithm>
#include <cmath>

#include "gi/DimensionStyle.h"
#include "gi/EntityGraphics.h"
#include "text/MTextLayout.h"

#include "dbdim.h"

/// Dimensions whose block is missing, drawn by what they measure: lines, arrows or ticks, text. The number is reckoned
/// from their points: the one that the file keeps does not follow them when they are scaled.

namespace {

constexpr double pi = 3.141592653589793;

/// Draws on the plane of a dimension; points are the world's.
class DimensionPlane {
public:
    DimensionPlane(const AcDbDimension& dimension, DisplayList& list) :
        m_dimension(dimension),
        m_list(list),
        m_style(dimensionStyleOf(dimension.objectId(), dimension.dimensionStyle())),
        m_toWorld(planeOf(dimension.normal()))
    {
    }

    const DimensionStyle& style() const { return m_style; }
    AcGeVector3d direction(double angle) const
    {
        return m_toWorld * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
    }
    /// A quarter turn to the left.
    AcGeVector3d across(const AcGeVector3d& way) const { return (m_toWorld * AcGeVector3d::kZAxis).crossProduct(way); }
    double angleOf(const AcGeVector3d& way) const
    {
        const AcGeVector3d flat = m_toWorld.inverse() * way;
        return std::atan2(flat.y, flat.x);
    }

    void line(const AcGePoint3d& from, const AcGePoint3d& to)
    {
        Path path;
        path.points = {from, to};
        m_list.add(std::move(path));
    }

    /// An arrow, or a tick, that points along `way` at `tip`.
    void arrow(const AcGePoint3d& tip, const AcGeVector3d& way)
    {
        const AcGeVector3d back = way * -m_style.arrow, side = across(way) * (m_style.arrow / 6.0);
        if (m_style.ticks) {
            const AcGeVector3d half = (way + across(way)) * (m_style.arrow / 2.0);
            return line(tip - half, tip + half);
        }
        Path ring;
        ring.points = {tip, tip + back + side, tip + back - side, tip};
        m_list.add(Area{{std::move(ring)}, false});
    }

    void arc(const AcGePoint3d& center, double radius, double from, double turn)
    {
        PathArc arc{0, center, direction(from) * radius, direction(from + pi / 2.0) * radius, turn};
        Path path;
        path.points = {arc.at(0.0), arc.at(turn)};
        path.arcs = {arc};
        m_list.add(std::move(path));
    }

    /// From what is measured to beyond the dimension line.
    void extension(const AcGePoint3d& from, const AcGePoint3d& to)
    {
        const AcGeVector3d way = to - from;
        const double length = way.length();
        if (length > m_style.offset)
            line(from + way * (m_style.offset / length), to + way * (m_style.beyond / length));
    }

    /// Where the drawing has its text, or at `usual`; along `way`, and never upside down. `measured` is what is shown
    /// in place of "<>", or of nothing.
    void text(const AcGePoint3d& usual, const AcGeVector3d& way, const std::wstring& measured)
    {
        std::wstring shown = m_dimension.dimensionText();
        if (shown == L" ")
            return; // on purpose without text
        if (shown.empty())
            shown = L"<>";
        if (const std::size_t at = shown.find(L"<>"); at != shown.npos)
            shown.replace(at, 2, measured);
        double angle = angleOf(way);
        if (std::cos(angle) < -1e-6 || (std::fabs(std::cos(angle)) <= 1e-6 && std::sin(angle) < 0.0))
            angle += pi;
        const AcGeVector3d along = direction(angle), up = direction(angle + pi / 2.0);
        const AcGePoint3d given = m_dimension.textPosition();
        const bool placed = given != AcGePoint3d::kOrigin;
        const AcGePoint3d at = placed ? given : usual + up * (m_style.gap + m_style.textHeight / 2.0);
        MTextLayout::Request request;
        request.height = m_style.textHeight;
        request.attachment = 5; // in the middle
        const MTextLayout layout(shown, request);
        for (const MTextLayout::Run& run : layout.runs) {
            Label label;
            label.text = run.text;
            label.origin = at + along * run.x + up * run.y;
            label.along = along * (run.look.height * run.look.widthFactor);
            label.up = up * run.look.height;
            m_list.add(std::move(label));
        }
    }

private:
    const AcDbDimension& m_dimension;
    DisplayList& m_list;
    DimensionStyle m_style;
    AcGeMatrix3d m_toWorld;
};

AcGePoint3d middle(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return a + (b - a) * 0.5;
}

void addLinear(const AcDbDimension& dimension, DimensionPlane& plane, const AcGePoint3d& first,
               const AcGePoint3d& second, const AcGeVector3d& way)
{
    if (!(way.length() > 0.0))
        return;
    const AcGeVector3d along = way.normal(), out = plane.across(along);
    const AcGePoint3d on = dimension.definitionPoint();
    const AcGePoint3d from = first + out * (on - first).dotProduct(out),
                      to = second + out * (on - second).dotProduct(out);
    const AcGeVector3d run = to - from;
    plane.extension(first, from);
    plane.extension(second, to);
    plane.line(from, to);
    if (run.length() > 0.0) {
        plane.arrow(from, run.normal() * -1.0);
        plane.arrow(to, run.normal());
    }
    plane.text(middle(from, to), along, plane.style().length(run.length()));
}

void addRound(DimensionPlane& plane, const AcGePoint3d& from, const AcGePoint3d& to, const wchar_t* sign, bool bothEnds)
{
    const AcGeVector3d way = to - from;
    if (!(way.length() > 0.0))
        return;
    plane.line(from, to);
    plane.arrow(to, way.normal());
    if (bothEnds)
        plane.arrow(from, way.normal() * -1.0);
    plane.text(middle(from, to), way, sign + plane.style().length(way.length()));
}

/// The arc about `center` from one leg to the other that holds the way to `through`.
void addAngle(DimensionPlane& plane, const AcGePoint3d& center, const AcGePoint3d& first, const AcGePoint3d& second,
              const AcGePoint3d& through)
{
    const double radius = (through - center).length();
    if (!(radius > 0.0))
        return;
    const auto turned = [](double angle) { return angle < 0.0 ? angle + 2.0 * pi : angle; };
    double from = plane.angleOf(first - center);
    double turn = turned(plane.angleOf(second - center) - from);
    if (turned(plane.angleOf(through - center) - from) > turn) {
        from += turn;
        turn = 2.0 * pi - turn;
    }
    const AcGePoint3d start = center + plane.direction(from) * radius;
    const AcGePoint3d end = center + plane.direction(from + turn) * radius;
    plane.arc(center, radius, from, turn);
    plane.arrow(start, plane.direction(from - pi / 2.0));
    plane.arrow(end, plane.direction(from + turn + pi / 2.0));
    for (const AcGePoint3d& leg : {first, second}) {
        const AcGeVector3d way = leg - center;
        if (way.length() > 0.0 && way.length() < radius)
            plane.extension(leg, center + way.normal() * radius);
    }
    const double half = from + turn / 2.0;
    plane.text(center + plane.direction(half) * radius, plane.direction(half - pi / 2.0), plane.style().angle(turn));
}

/// Where two lines of the plane meet; false when they are parallel.
bool crossing(const AcDb2LineAngularDimension& dimension, AcGePoint3d& at)
{
    const AcGeVector3d u = dimension.xLine1End() - dimension.xLine1Start();
    const AcGeVector3d v = dimension.xLine2End() - dimension.xLine2Start();
    const AcGeVector3d between = dimension.xLine2Start() - dimension.xLine1Start();
    const AcGeVector3d normal = u.crossProduct(v);
    const double size = normal.dotProduct(normal);
    if (!(size > 0.0))
        return false;
    at = dimension.xLine1Start() + u * (between.crossProduct(v).dotProduct(normal) / size);
    return true;
}

/// Of a line, the end that lies on the side of the arc.
AcGePoint3d legOf(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& center,
                  const AcGePoint3d& through)
{
    const AcGeVector3d way = through - center;
    const AcGePoint3d& further = (start - center).length() > (end - center).length() ? start : end;
    return (further - center).dotProduct(way) >= 0.0 ? further : center + (center - further);
}

void addOrdinate(const AcDbOrdinateDimension& dimension, DimensionPlane& plane)
{
    const AcGePoint3d from = dimension.definingPoint(), to = dimension.leaderEndPoint();
    const AcGeVector3d way = to - from, reach = from - dimension.origin();
    const bool ofX =
        std::fabs(way.dotProduct(plane.direction(0.0))) < std::fabs(way.dotProduct(plane.direction(pi / 2.0)));
    const double value = std::fabs(reach.dotProduct(plane.direction(ofX ? 0.0 : pi / 2.0)));
    const AcGeVector3d along = plane.direction(ofX ? pi / 2.0 : 0.0);
    plane.extension(from, from + along * way.dotProduct(along));
    plane.line(from + along * way.dotProduct(along), to);
    plane.text(to, along, plane.style().length(value));
}

} // namespace

void addBareDimension(const AcDbDimension& dimension, DisplayList& list)
{
    DimensionPlane plane(dimension, list);
    if (const auto* rotated = AcDbRotatedDimension::cast(&dimension))
        addLinear(dimension, plane, rotated->xLine1Point(), rotated->xLine2Point(),
                  plane.direction(rotated->rotation()));
    else if (const auto* aligned = AcDbAlignedDimension::cast(&dimension))
        addLinear(dimension, plane, aligned->xLine1Point(), aligned->xLine2Point(),
                  aligned->xLine2Point() - aligned->xLine1Point());
    else if (const auto* radial = AcDbRadialDimension::cast(&dimension))
        addRound(plane, radial->center(), radial->chordPoint(), L"R", false);
    else if (const auto* diameter = AcDbDiametricDimension::cast(&dimension))
        addRound(plane, diameter->farChordPoint(), diameter->chordPoint(), L"\u00D8", true);
    else if (const auto* three = AcDb3PointAngularDimension::cast(&dimension))
        addAngle(plane, three->centerPoint(), three->xLine1Point(), three->xLine2Point(), three->definitionPoint());
    else if (const auto* ordinate = AcDbOrdinateDimension::cast(&dimension))
        addOrdinate(*ordinate, plane);
    else if (const auto* two = AcDb2LineAngularDimension::cast(&dimension)) {
        AcGePoint3d center;
        const AcGePoint3d through = two->arcPoint();
        if (crossing(*two, center))
            addAngle(plane, center, legOf(two->xLine1Start(), two->xLine1End(), center, through),
                     legOf(two->xLine2Start(), two->xLine2End(), center, through), through);
    }
}

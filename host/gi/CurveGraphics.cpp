#include <algorithm>

#include "ge/Angles.h"
#include "gi/EntityGraphics.h"

#include "dbelipse.h"
#include "dbspline.h"

namespace {

constexpr int chordsOfSpan = 16; // of a spline, at first
constexpr int mostHalvings = 6;
constexpr std::size_t mostChords = 20000;
constexpr double relativeDeviation = 1e-4; // of the chords of a spline, to its size

/// Halves a stretch of a spline until its chord keeps within `deviation`.
class SplineChords {
public:
    SplineChords(const AcDbSpline& spline, double deviation, std::vector<AcGePoint3d>& points) :
        m_spline(spline),
        m_deviation(deviation),
        m_points(points)
    {
    }

    void follow(double from, const AcGePoint3d& start, double to, const AcGePoint3d& end, int halvings)
    {
        const double half = (from + to) / 2.0;
        AcGePoint3d middle;
        if (halvings > 0 && m_points.size() < mostChords && m_spline.getPointAtParam(half, middle) == Acad::eOk &&
            middle.distanceTo(AcGePoint3d() + (start.asVector() + end.asVector()) / 2.0) > m_deviation) {
            follow(from, start, half, middle, halvings - 1);
            follow(half, middle, to, end, halvings - 1);
            return;
        }
        m_points.push_back(end);
    }

private:
    const AcDbSpline& m_spline;
    double m_deviation;
    std::vector<AcGePoint3d>& m_points;
};

} // namespace

Path arcPath(const PathArc& arc)
{
    Path path;
    const AcGePoint3d start = arc.at(0.0);
    path.points = {start, arc.turn >= wholeTurn ? start : arc.at(arc.turn)};
    path.arcs = {arc};
    return path;
}

void addLine(const AcDbLine& line, DisplayList& list)
{
    Path path;
    path.points = {line.startPoint(), line.endPoint()};
    list.add(std::move(path));
}

void addCircular(const AcDbCircularCurve& curve, DisplayList& list)
{
    double from = 0.0, to = 0.0;
    if (curve.getStartParam(from) != Acad::eOk || curve.getEndParam(to) != Acad::eOk)
        return;
    AcGeVector3d along, across;
    const AcGeMatrix3d plane = planeOf(curve.normal());
    along = plane * AcGeVector3d(std::cos(from), std::sin(from), 0.0);
    across = plane * AcGeVector3d(-std::sin(from), std::cos(from), 0.0);
    list.add(arcPath({0, curve.center(), along * curve.radius(), across * curve.radius(), to - from}));
}

void addEllipse(const AcDbEllipse& ellipse, DisplayList& list)
{
    double from = 0.0, to = 0.0;
    if (ellipse.getStartParam(from) != Acad::eOk || ellipse.getEndParam(to) != Acad::eOk)
        return;
    const AcGeVector3d major = ellipse.majorAxis(), minor = ellipse.minorAxis();
    list.add(arcPath({0, ellipse.center(), major * std::cos(from) + minor * std::sin(from),
                      minor * std::cos(from) - major * std::sin(from), to - from}));
}

void addSpline(const AcDbSpline& spline, DisplayList& list)
{
    double from = 0.0, to = 0.0;
    Path path;
    AcGePoint3d point;
    if (spline.getStartParam(from) != Acad::eOk || spline.getEndParam(to) != Acad::eOk ||
        spline.getPointAtParam(from, point) != Acad::eOk)
        return;
    const int controls = spline.numControlPoints(), fits = spline.numFitPoints();
    AcDbExtents box;
    for (int i = 0; i < (controls > 0 ? controls : fits); ++i)
        if ((controls > 0 ? spline.getControlPointAt(i, point) : spline.getFitPointAt(i, point)) == Acad::eOk)
            box.addPoint(point);
    const double deviation = relativeDeviation * (box.maxPoint() - box.minPoint()).length();
    // Without control points, steps of its parameter meet all the points that it runs through.
    const int stretches = controls > 0 ? std::clamp(controls, 2, 1000) : static_cast<int>(to - from);
    const int spans = std::min(stretches * chordsOfSpan / 4, static_cast<int>(mostChords));
    path.smooth = true;
    spline.getPointAtParam(from, point);
    path.points.push_back(point);
    SplineChords chords(spline, deviation, path.points);
    for (int i = 0; i < spans; ++i) {
        const double start = from + (to - from) * i / spans;
        const double end = i + 1 == spans ? to : from + (to - from) * (i + 1) / spans;
        const AcGePoint3d reached = path.points.back();
        if (spline.getPointAtParam(end, point) == Acad::eOk)
            chords.follow(start, reached, end, point, mostHalvings);
    }
    list.add(std::move(path));
}

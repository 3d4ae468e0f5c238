#include "db/entities/FitCurve.h"
#include "db/entities/OnCurve.h"
#include "db/entities/SampledCurve.h"

#include "dbspline.h"
#include "gemat3d.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbSpline, AcDbCurve, SPLINE)

namespace {

constexpr double tolerance = 1e-9;
constexpr int mostDegree = 25; // what drawing files may hold
constexpr int panelsOfSpan = 4;

/// A control point times its weight, and the weight.
struct Weighted {
    AcGeVector3d point;
    double weight;
};

} // namespace

AcDbSpline::AcDbSpline(int degree, Adesk::Boolean rational, Adesk::Boolean closed, Adesk::Boolean periodic,
                       const AcGePoint3dArray& controlPoints, const AcGeDoubleArray& knots,
                       const AcGeDoubleArray& weights) :
    m_controlPoints(controlPoints.begin(), controlPoints.end()),
    m_knots(knots.begin(), knots.end()),
    m_flags(static_cast<Adesk::Int16>((closed ? 1 : 0) | (periodic ? 2 : 0) | (rational ? 4 : 0))),
    m_degree(static_cast<Adesk::Int16>(degree))
{
    if (rational)
        m_weights.assign(weights.begin(), weights.end());
}

/// Whether knots and control points belong together; a file may hold any numbers.
bool AcDbSpline::isNurbs() const
{
    const std::size_t count = m_controlPoints.size();
    return m_degree >= 1 && m_degree <= mostDegree && count > static_cast<std::size_t>(m_degree) &&
           m_knots.size() == count + static_cast<std::size_t>(m_degree) + 1 &&
           (m_weights.empty() || m_weights.size() == count) &&
           m_knots[static_cast<std::size_t>(m_degree)] < m_knots[count];
}

void AcDbSpline::domain(double& from, double& to) const
{
    const bool nurbs = isNurbs();
    from = nurbs ? m_knots[static_cast<std::size_t>(m_degree)] : 0.0;
    to = nurbs ? m_knots[m_controlPoints.size()]
               : FitCurve(m_fitPoints, isClosed(), m_startTangent, m_endTangent).spans();
}

/// The domain, when the numbers make a curve. Walks the knots: once a call, not once a point.
bool AcDbSpline::range(double& from, double& to) const
{
    domain(from, to);
    return isNurbs() ? std::is_sorted(m_knots.begin(), m_knots.end()) : m_fitPoints.size() >= 2;
}

int AcDbSpline::panels() const
{
    return panelsOfSpan * static_cast<int>(std::max(m_controlPoints.size(), m_fitPoints.size()));
}

AcGePoint3d AcDbSpline::at(double t) const
{
    if (!isNurbs())
        return FitCurve(m_fitPoints, isClosed(), m_startTangent, m_endTangent).at(t);
    // de Boor's algorithm, in homogeneous coordinates
    const auto degree = static_cast<std::size_t>(m_degree);
    const auto above = std::upper_bound(m_knots.begin() + m_degree, m_knots.begin() + numControlPoints(), t);
    const std::size_t span = static_cast<std::size_t>(above - m_knots.begin()) - 1;
    Weighted points[mostDegree + 1];
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t at = span - degree + i;
        const double weight = m_weights.empty() ? 1.0 : m_weights[at];
        points[i] = {m_controlPoints[at].asVector() * weight, weight};
    }
    for (std::size_t round = 1; round <= degree; ++round)
        for (std::size_t i = degree; i >= round; --i) {
            const double low = m_knots[span - degree + i], high = m_knots[span + 1 + i - round];
            const double share = high > low ? (t - low) / (high - low) : 0.0;
            points[i].point = points[i - 1].point * (1.0 - share) + points[i].point * share;
            points[i].weight = points[i - 1].weight * (1.0 - share) + points[i].weight * share;
        }
    return (points[degree].point / points[degree].weight).asPoint();
}

AcGeVector3d AcDbSpline::derivative(double t) const
{
    double from = 0.0, to = 0.0;
    domain(from, to);
    const double step = (to - from) * 1e-6;
    const double before = std::max(from, t - step), after = std::min(to, t + step);
    return (at(after) - at(before)) / (after - before);
}

Acad::ErrorStatus AcDbSpline::getControlPointAt(int index, AcGePoint3d& point) const
{
    assertReadEnabled();
    if (index < 0 || index >= numControlPoints())
        return Acad::eInvalidIndex;
    point = m_controlPoints[static_cast<std::size_t>(index)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setControlPointAt(int index, const AcGePoint3d& point)
{
    assertWriteEnabled();
    if (index < 0 || index >= numControlPoints())
        return Acad::eInvalidIndex;
    m_controlPoints[static_cast<std::size_t>(index)] = point;
    m_fitPoints.clear(); // the spline no longer runs through them
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getFitPointAt(int index, AcGePoint3d& point) const
{
    assertReadEnabled();
    if (index < 0 || index >= numFitPoints())
        return Acad::eInvalidIndex;
    point = m_fitPoints[static_cast<std::size_t>(index)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getStartParam(double& param) const
{
    assertReadEnabled();
    double to = 0.0;
    return range(param, to) ? Acad::eOk : Acad::eDegenerateGeometry;
}

Acad::ErrorStatus AcDbSpline::getEndParam(double& param) const
{
    assertReadEnabled();
    double from = 0.0;
    return range(from, param) ? Acad::eOk : Acad::eDegenerateGeometry;
}

Acad::ErrorStatus AcDbSpline::getPointAtParam(double param, AcGePoint3d& point) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    if (!range(from, to))
        return Acad::eDegenerateGeometry;
    const double slack = tolerance * std::max(1.0, to - from);
    if (!(param >= from - slack && param <= to + slack))
        return Acad::eInvalidInput;
    point = at(std::clamp(param, from, to));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getDistAtParam(double param, double& dist) const
{
    AcGePoint3d point;
    const Acad::ErrorStatus es = getPointAtParam(param, point);
    if (es != Acad::eOk)
        return es;
    double from = 0.0, to = 0.0;
    domain(from, to);
    dist =
        sampled_curve::length(from, std::clamp(param, from, to), panels(), [this](double t) { return derivative(t); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getParamAtDist(double dist, double& param) const
{
    double from = 0.0, to = 0.0, whole = 0.0;
    domain(from, to);
    const Acad::ErrorStatus es = getDistAtParam(to, whole);
    if (es != Acad::eOk)
        return es;
    if (!(dist >= 0.0 && dist <= whole * (1.0 + tolerance)))
        return Acad::eInvalidInput;
    param = sampled_curve::paramAtLength(dist, from, to, panels(), [this](double t) { return derivative(t); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getFirstDeriv(double param, AcGeVector3d& deriv) const
{
    AcGePoint3d point;
    const Acad::ErrorStatus es = getPointAtParam(param, point);
    if (es == Acad::eOk)
        deriv = derivative(param);
    return es;
}

Acad::ErrorStatus AcDbSpline::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    if (!range(from, to))
        return Acad::eDegenerateGeometry;
    const double nearest = sampled_curve::nearest(point, from, to, panels(), [this](double t) { return at(t); });
    if (!liesOn(point, at(nearest)))
        return Acad::eInvalidInput;
    param = nearest;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve, Adesk::Boolean) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    if (!range(from, to))
        return Acad::eDegenerateGeometry;
    onCurve = at(sampled_curve::nearest(point, from, to, panels(), [this](double t) { return at(t); }));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    if (!range(from, to))
        return Acad::eInvalidExtents;
    constexpr int finer = 8;
    AcDbExtents box;
    const int count = panels() * finer;
    for (int i = 0; i <= count; ++i)
        box.addPoint(at(i == count ? to : from + (to - from) * i / count));
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    for (auto* points : {&m_controlPoints, &m_fitPoints})
        for (AcGePoint3d& point : *points)
            point = matrix * point;
    m_startTangent = matrix * m_startTangent;
    m_endTangent = matrix * m_endTangent;
    if (const AcGeVector3d normal = matrix * m_normal; !normal.isZeroLength())
        m_normal = normal.normal();
    return Acad::eOk;
}

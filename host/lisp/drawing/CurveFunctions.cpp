// vlax-curve-...: what a curve, given by its entity name, tells of its points, parameters and lengths. nil for a point
// that is not on it and for a parameter or a length beyond its ends.

#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"

#include "dbcurve.h"

namespace {

using lisp_argument::number;
using lisp_argument::point;

LispValue valueOf(double number)
{
    return LispValue(number);
}

template <class Coordinates>
LispValue valueOf(const Coordinates& triple)
{
    const LispValue numbers[] = {LispValue(triple.x), LispValue(triple.y), LispValue(triple.z)};
    return listOf(numbers);
}

/// The curve of the first argument, open for reading.
class OpenCurve {
public:
    explicit OpenCurve(LispArguments arguments) : m_curve(objectArgument(arguments[0]), AcDb::kForRead)
    {
        if (m_curve.openStatus() != Acad::eOk)
            lisp_argument::refuse(L"courbe:", arguments[0]);
    }
    const AcDbCurve& operator*() const { return *m_curve.object(); }

    /// What `ask` writes into its argument; nil when it fails.
    template <class Result, class Ask>
    LispValue answer(Ask ask) const
    {
        Result result{};
        return ask(**this, result) == Acad::eOk ? valueOf(result) : LispValue();
    }

private:
    AcDbObjectPointer<AcDbCurve> m_curve;
};

template <class Result, Acad::ErrorStatus (AcDbCurve::*Ask)(Result&) const>
LispValue told(LispContext&, LispArguments arguments)
{
    return OpenCurve(arguments).answer<Result>([](const AcDbCurve& c, Result& r) { return (c.*Ask)(r); });
}

template <class Result, Acad::ErrorStatus (AcDbCurve::*Ask)(double, Result&) const>
LispValue ofNumber(LispContext&, LispArguments arguments)
{
    const double at = number(arguments[1]);
    return OpenCurve(arguments).answer<Result>([at](const AcDbCurve& c, Result& r) { return (c.*Ask)(at, r); });
}

template <class Result, Acad::ErrorStatus (AcDbCurve::*Ask)(const AcGePoint3d&, Result&) const>
LispValue ofPoint(LispContext&, LispArguments arguments)
{
    const AcGePoint3d at = point(arguments[1]);
    return OpenCurve(arguments).answer<Result>([&at](const AcDbCurve& c, Result& r) { return (c.*Ask)(at, r); });
}

template <Adesk::Boolean (AcDbCurve::*Ask)() const>
LispValue whether(LispContext& context, LispArguments arguments)
{
    const OpenCurve curve(arguments);
    return context.truth(((*curve).*Ask)());
}

LispValue closestPoint(LispContext&, LispArguments arguments)
{
    const AcGePoint3d from = point(arguments[1]);
    const bool extended = arguments.size() > 2 && !arguments[2].isNil();
    return OpenCurve(arguments).answer<AcGePoint3d>(
        [&](const AcDbCurve& curve, AcGePoint3d& onCurve) { return curve.getClosestPointTo(from, onCurve, extended); });
}

constexpr LispBuiltin kRows[] = {
    {L"VLAX-CURVE-GETAREA", 1, 1, told<double, &AcDbCurve::getArea>},
    {L"VLAX-CURVE-GETCLOSESTPOINTTO", 2, 3, closestPoint},
    {L"VLAX-CURVE-GETDISTATPARAM", 2, 2, ofNumber<double, &AcDbCurve::getDistAtParam>},
    {L"VLAX-CURVE-GETDISTATPOINT", 2, 2, ofPoint<double, &AcDbCurve::getDistAtPoint>},
    {L"VLAX-CURVE-GETENDPARAM", 1, 1, told<double, &AcDbCurve::getEndParam>},
    {L"VLAX-CURVE-GETENDPOINT", 1, 1, told<AcGePoint3d, &AcDbCurve::getEndPoint>},
    {L"VLAX-CURVE-GETFIRSTDERIV", 2, 2, ofNumber<AcGeVector3d, &AcDbCurve::getFirstDeriv>},
    {L"VLAX-CURVE-GETPARAMATDIST", 2, 2, ofNumber<double, &AcDbCurve::getParamAtDist>},
    {L"VLAX-CURVE-GETPARAMATPOINT", 2, 2, ofPoint<double, &AcDbCurve::getParamAtPoint>},
    {L"VLAX-CURVE-GETPOINTATDIST", 2, 2, ofNumber<AcGePoint3d, &AcDbCurve::getPointAtDist>},
    {L"VLAX-CURVE-GETPOINTATPARAM", 2, 2, ofNumber<AcGePoint3d, &AcDbCurve::getPointAtParam>},
    {L"VLAX-CURVE-GETSTARTPARAM", 1, 1, told<double, &AcDbCurve::getStartParam>},
    {L"VLAX-CURVE-GETSTARTPOINT", 1, 1, told<AcGePoint3d, &AcDbCurve::getStartPoint>},
    {L"VLAX-CURVE-ISCLOSED", 1, 1, whether<&AcDbCurve::isClosed>},
    {L"VLAX-CURVE-ISPERIODIC", 1, 1, whether<&AcDbCurve::isPeriodic>},
    {L"VLAX-CURVE-ISPLANAR", 1, 1, whether<&AcDbCurve::isPlanar>},
};

} // namespace

std::span<const LispBuiltin> curveBuiltins()
{
    return kRows;
}

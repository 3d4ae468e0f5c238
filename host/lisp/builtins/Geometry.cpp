#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispArgument.h"

#include "acutads.h"

namespace {

using lisp_argument::isPoint2d;
using lisp_argument::number;
using lisp_argument::point;

/// Of the arguments of a call, as the host's functions take them.
struct HostPoint {
    explicit HostPoint(const LispValue& value) : coordinates{point(value).x, point(value).y, point(value).z} {}
    ads_point coordinates;
};

LispValue pointValue(const ads_point at, bool inPlane)
{
    const LispValue coordinates[] = {LispValue(at[0]), LispValue(at[1]), LispValue(at[2])};
    return listOf(std::span(coordinates).first(inPlane ? 2 : 3));
}

/// In the plane as soon as one point has no altitude.
LispValue distance(LispContext&, LispArguments arguments)
{
    HostPoint from(arguments[0]), to(arguments[1]);
    if (isPoint2d(arguments[0]) || isPoint2d(arguments[1]))
        from.coordinates[2] = to.coordinates[2] = 0.0;
    return LispValue(acutDistance(from.coordinates, to.coordinates));
}

LispValue angle(LispContext&, LispArguments arguments)
{
    const HostPoint from(arguments[0]), to(arguments[1]);
    return LispValue(acutAngle(from.coordinates, to.coordinates));
}

LispValue polar(LispContext&, LispArguments arguments)
{
    const HostPoint from(arguments[0]);
    ads_point reached;
    acutPolar(from.coordinates, number(arguments[1]), number(arguments[2]), reached);
    return pointValue(reached, isPoint2d(arguments[0]));
}

/// On the segments, unless a fifth argument is nil.
LispValue intersection(LispContext&, LispArguments arguments)
{
    const HostPoint from1(arguments[0]), to1(arguments[1]), from2(arguments[2]), to2(arguments[3]);
    const bool onSegments = arguments.size() < 5 || !arguments[4].isNil();
    bool inPlane = false;
    for (const LispValue& one : arguments.first(4))
        inPlane = inPlane || isPoint2d(one);
    ads_point crossing;
    const int answer = acutInters(from1.coordinates, to1.coordinates, from2.coordinates, to2.coordinates,
                                  onSegments ? 1 : 0, crossing);
    return answer == RTNORM ? pointValue(crossing, inPlane) : LispValue();
}

constexpr LispBuiltin kRows[] = {
    {L"ANGLE", 2, 2, angle},
    {L"DISTANCE", 2, 2, distance},
    {L"INTERS", 4, 5, intersection},
    {L"POLAR", 3, 3, polar},
};

} // namespace

std::span<const LispBuiltin> geometryBuiltins()
{
    return kRows;
}

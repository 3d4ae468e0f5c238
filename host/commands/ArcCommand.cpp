#include <cmath>

#include "commands/ArcGeometry.h"
#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/Prompt.h"
#include "db/entities/PathSegment.h"

#include "dbents.h"

namespace {

AcGePoint2d plane(const AcGePoint3d& point)
{
    return {point.x, point.y};
}

void draw(const std::optional<PlaneArc>& arc, double elevation)
{
    if (!arc)
        throw CommandFailed(command_texts::noSuchArc);
    addToDrawing(std::make_unique<AcDbArc>(AcGePoint3d(arc->center.x, arc->center.y, elevation), arc->radius,
                                           inOneTurn(arc->start), inOneTurn(arc->end)));
}

/// Centre and start are known: the end by a direction, by an angle or by a chord.
std::optional<PlaneArc> arcAbout(const AcGePoint3d& center, const AcGePoint3d& start)
{
    const AcGeVector2d spoke = plane(start) - plane(center);
    const double from = spoke.angle();
    const auto end =
        Prompt(command_texts::arcEndOrMeasure).required().keywords(command_texts::measureKeywords).from(center).point();
    if (!(spoke.length() > 0.0))
        return std::nullopt;
    if (end.is(L"Angle")) {
        const double turned = *Prompt(command_texts::turnedAngle).required().nonZero().turn().value;
        return turned > 0.0 ? PlaneArc{plane(center), spoke.length(), from, from + turned}
                            : PlaneArc{plane(center), spoke.length(), from + turned, from};
    }
    if (end.is(L"Length")) {
        const double chord = *Prompt(command_texts::chordLength).required().nonZero().from(start).distance().value;
        const auto turned = angleOfChord(chord, spoke.length());
        return turned ? std::optional(PlaneArc{plane(center), spoke.length(), from, from + *turned}) : std::nullopt;
    }
    return PlaneArc{plane(center), spoke.length(), from, (plane(*end.value) - plane(center)).angle()};
}

/// Start and end are known.
std::optional<PlaneArc> arcBetween(const AcGePoint3d& start, const AcGePoint3d& end)
{
    const AcGePoint2d from = plane(start), to = plane(end);
    const auto how = Prompt(L"Spécifiez le centre de l'arc ou [Angle/Direction/Rayon] : ")
                         .required()
                         .keywords(L"Angle Direction Rayon _ Angle Direction Radius")
                         .from(start)
                         .point();
    std::optional<double> bulge;
    if (how.is(L"Angle"))
        bulge = bulgeByAngle(*Prompt(command_texts::turnedAngle).required().nonZero().turn().value);
    else if (how.is(L"Direction"))
        bulge = bulgeByTangent(from, *Prompt(command_texts::startTangent).required().from(start).direction().value, to);
    else if (how.is(L"Radius"))
        bulge = bulgeByRadius(from, to, *Prompt(command_texts::arcRadius).required().nonZero().distance().value);
    else {
        const AcGePoint2d center = plane(*how.value);
        const AcGeVector2d spoke = from - center;
        if (!(spoke.length() > 0.0))
            return std::nullopt;
        return PlaneArc{center, spoke.length(), spoke.angle(), (to - center).angle()};
    }
    return bulge ? arcOfBulge(from, to, *bulge) : std::nullopt;
}

void fromCenter()
{
    const AcGePoint3d center = askPoint(command_texts::arcCenter);
    draw(arcAbout(center, askPoint(L"Spécifiez le point de départ de l'arc : ", center)), center.z);
}

} // namespace

void commands::arc()
{
    const auto first =
        Prompt(L"Spécifiez le point de départ de l'arc ou [Centre] : ").required().keywords(L"Centre _ Center").point();
    if (first.is(L"Center"))
        return fromCenter();
    const AcGePoint3d start = *first.value;
    const auto second = Prompt(L"Spécifiez le deuxième point de l'arc ou [Centre/Fin] : ")
                            .required()
                            .keywords(L"Centre Fin _ Center End")
                            .from(start)
                            .point();
    if (second.is(L"Center"))
        return draw(arcAbout(askPoint(command_texts::arcCenter, start), start), start.z);
    if (second.is(L"End"))
        return draw(arcBetween(start, askPoint(command_texts::arcEnd, start)), start.z);
    const AcGePoint3d end = askPoint(command_texts::arcEnd, *second.value);
    draw(arcThrough(plane(start), plane(*second.value), plane(end)), start.z);
}

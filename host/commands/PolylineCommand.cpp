#include <cmath>
#include <optional>
#include <vector>

#include "commands/ArcGeometry.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"

#include "dbents.h"

namespace {

/// A polyline while it is drawn. The entity stands in the drawing from its first segment on, so that what is there when
/// the user cancels stays.
class PolylineRun {
public:
    explicit PolylineRun(const AcGePoint3d& start) : m_vertices{{AcGePoint2d(start.x, start.y)}}, m_elevation(start.z)
    {
    }

    bool arcs = false;                       ///< whether the next segment is an arc
    double startWidth = 0.0, endWidth = 0.0; ///< of the next segment

    const AcGePoint2d& last() const { return m_vertices.back().point; }
    const AcGePoint2d& first() const { return m_vertices.front().point; }
    AcGePoint3d inSpace() const { return {last().x, last().y, m_elevation}; }
    std::size_t segments() const { return m_vertices.size() - 1; }

    /// In which the last segment arrives; to the east before there is one.
    double direction() const
    {
        if (segments() == 0)
            return 0.0;
        const AcDbPolylineVertex& from = m_vertices[m_vertices.size() - 2];
        return directionAtEnd(from.point, last(), from.bulge);
    }

    void to(const AcGePoint2d& point, double bulge)
    {
        leaveWith(bulge);
        m_vertices.push_back({point, 0.0, endWidth, endWidth});
        startWidth = endWidth;
        draw();
    }

    void close(double bulge)
    {
        leaveWith(bulge);
        m_closed = true;
        draw();
    }

    void takeBack()
    {
        if (segments() == 0)
            return say(command_texts::nothingToUndo);
        m_vertices.pop_back();
        m_vertices.back().bulge = 0.0;
        draw();
    }

private:
    void leaveWith(double bulge)
    {
        m_vertices.back().bulge = bulge;
        m_vertices.back().startWidth = startWidth;
        m_vertices.back().endWidth = endWidth;
    }

    void draw()
    {
        if (m_id.isNull() && segments() > 0)
            m_id = addToDrawing(std::make_unique<AcDbPolyline>());
        change<AcDbPolyline>(m_id, [this](AcDbPolyline& polyline) {
            while (polyline.numVerts() > m_kept)
                polyline.removeVertexAt(polyline.numVerts() - 1);
            // What leaves a vertex is known with the next one: the last two are written anew.
            for (std::size_t i = polyline.numVerts(); i < m_vertices.size(); ++i) {
                const AcDbPolylineVertex& v = m_vertices[i];
                polyline.addVertexAt(static_cast<unsigned>(i), v.point, v.bulge, v.startWidth, v.endWidth);
            }
            polyline.setElevation(m_elevation);
            polyline.setClosed(m_closed);
            return segments() == 0 ? polyline.erase() : Acad::eOk;
        });
        m_kept = m_vertices.size() > 2 ? static_cast<unsigned>(m_vertices.size() - 2) : 0;
        if (segments() == 0)
            m_id.setNull();
    }

    std::vector<AcDbPolylineVertex> m_vertices;
    double m_elevation;
    bool m_closed = false;
    AcDbObjectId m_id;
    unsigned m_kept = 0; // vertices of the entity that are final
};

AcGePoint2d planePoint(const AcGePoint3d& point)
{
    return {point.x, point.y};
}

AcGePoint2d ask(PolylineRun& run, const wchar_t* prompt)
{
    return planePoint(askPoint(prompt, run.inSpace()));
}

void askWidth(PolylineRun& run, bool half)
{
    const double factor = half ? 2.0 : 1.0;
    const std::wstring what = half ? L"demi-largeur" : L"largeur";
    const auto start = Prompt(L"Spécifiez la " + what + L" de départ <" + lengthText(run.startWidth / factor) + L"> : ")
                           .notNegative()
                           .distance();
    const double from = start.value.value_or(run.startWidth / factor);
    const auto end =
        Prompt(L"Spécifiez la " + what + L" de fin <" + lengthText(from) + L"> : ").notNegative().distance();
    run.startWidth = from * factor;
    run.endWidth = end.value.value_or(from) * factor;
}

void goOn(PolylineRun& run)
{
    const double length = *Prompt(L"Spécifiez la longueur de la ligne : ").required().nonZero().distance().value;
    const double along = run.direction();
    run.to(run.last() + AcGeVector2d(std::cos(along), std::sin(along)) * length, 0.0);
}

// ---- arcs: each of these gives the end and the bulge of the next segment

using Segment = std::optional<std::pair<AcGePoint2d, double>>;

Segment segmentTo(const AcGePoint2d& end, const std::optional<double>& bulge)
{
    return bulge ? Segment({end, *bulge}) : std::nullopt;
}

/// About a centre, counter-clockwise from the last point, up to the direction of a point, by an angle, or by a chord.
Segment arcAbout(PolylineRun& run, const std::optional<double>& turned)
{
    const AcGePoint2d center = ask(run, command_texts::arcCenter);
    const AcGeVector2d spoke = run.last() - center;
    std::optional<double> angle = turned;
    if (!angle) {
        const auto end = Prompt(command_texts::arcEndOrMeasure)
                             .required()
                             .keywords(command_texts::measureKeywords)
                             .from(run.inSpace())
                             .point();
        if (end.is(L"Angle"))
            angle = *Prompt(command_texts::turnedAngle).required().nonZero().turn().value;
        else if (end.is(L"Length"))
            angle =
                angleOfChord(*Prompt(command_texts::chordLength).required().nonZero().distance().value, spoke.length());
        else
            angle = turnBetween(spoke.angle(), (planePoint(*end.value) - center).angle());
    }
    if (!angle)
        return std::nullopt;
    AcGeVector2d turnedSpoke = spoke;
    turnedSpoke.rotateBy(*angle);
    return segmentTo(center + turnedSpoke, bulgeByAngle(*angle));
}

Segment arcByAngle(PolylineRun& run)
{
    const double turned = *Prompt(command_texts::turnedAngle).required().nonZero().turn().value;
    const auto end = Prompt(L"Spécifiez l'extrémité de l'arc ou [CEntre] : ")
                         .required()
                         .keywords(L"CEntre _ CEnter")
                         .from(run.inSpace())
                         .point();
    if (end.is(L"CEnter"))
        return arcAbout(run, turned);
    return segmentTo(planePoint(*end.value), bulgeByAngle(turned));
}

Segment arcByDirection(PolylineRun& run)
{
    const double tangent = *Prompt(command_texts::startTangent).required().from(run.inSpace()).direction().value;
    const AcGePoint2d end = ask(run, command_texts::arcEnd);
    return segmentTo(end, bulgeByTangent(run.last(), tangent, end));
}

Segment arcByRadius(PolylineRun& run)
{
    const double radius = *Prompt(command_texts::arcRadius).required().nonZero().distance().value;
    const AcGePoint2d end = ask(run, command_texts::arcEnd);
    return segmentTo(end, bulgeByRadius(run.last(), end, radius));
}

Segment arcBySecond(PolylineRun& run)
{
    const AcGePoint2d second = ask(run, L"Spécifiez le deuxième point de l'arc : ");
    const AcGePoint2d end = ask(run, command_texts::arcEnd);
    return segmentTo(end, bulgeThrough(run.last(), second, end));
}

using ArcOption = Segment (*)(PolylineRun&);
constexpr std::pair<const wchar_t*, ArcOption> kArcOptions[] = {
    {L"Angle", arcByAngle},         {L"CEnter", [](PolylineRun& run) { return arcAbout(run, std::nullopt); }},
    {L"Direction", arcByDirection}, {L"Radius", arcByRadius},
    {L"Second", arcBySecond},
};

void drawArc(PolylineRun& run, const Segment& segment)
{
    if (segment)
        run.to(segment->first, segment->second);
    else
        say(command_texts::noSuchArc);
}

// ---- one step; false at the end

bool lineStep(PolylineRun& run)
{
    const bool canClose = run.segments() >= 2;
    Prompt prompt(canClose ? L"Spécifiez le point suivant ou [Arc/Clore/Demi-larg/LOngueur/annUler/LArgeur] : "
                           : L"Spécifiez le point suivant ou [Arc/Demi-larg/LOngueur/annUler/LArgeur] : ");
    prompt.from(run.inSpace());
    prompt.keywords(canClose ? L"Arc Clore Demi-larg LOngueur annUler LArgeur _ Arc Close Halfwidth Length Undo Width"
                             : L"Arc Demi-larg LOngueur annUler LArgeur _ Arc Halfwidth Length Undo Width");
    const auto next = prompt.point();
    if (next.isEmpty())
        return false;
    if (next.value)
        run.to(planePoint(*next.value), 0.0);
    else if (next.is(L"Arc"))
        run.arcs = true;
    else if (next.is(L"Length"))
        goOn(run);
    else if (next.is(L"Undo"))
        run.takeBack();
    else if (next.is(L"Close"))
        run.close(0.0);
    else
        askWidth(run, next.is(L"Halfwidth"));
    return !next.is(L"Close");
}

bool arcStep(PolylineRun& run)
{
    const auto next = Prompt(L"Spécifiez l'extrémité de l'arc ou "
                             L"[Angle/CEntre/CLore/DIrection/Demi-larg/LIgne/Rayon/Second/annUler/LArgeur] : ")
                          .from(run.inSpace())
                          .keywords(L"Angle CEntre CLore DIrection Demi-larg LIgne Rayon Second annUler LArgeur _ "
                                    L"Angle CEnter CLose Direction Halfwidth Line Radius Second Undo Width")
                          .point();
    if (next.isEmpty())
        return false;
    for (const auto& [word, option] : kArcOptions)
        if (next.is(word)) {
            drawArc(run, option(run));
            return true;
        }
    if (next.value) {
        const AcGePoint2d end = planePoint(*next.value);
        drawArc(run, segmentTo(end, bulgeByTangent(run.last(), run.direction(), end)));
    } else if (next.is(L"Line")) {
        run.arcs = false;
    } else if (next.is(L"Undo")) {
        run.takeBack();
    } else if (next.is(L"CLose")) {
        const auto bulge = bulgeByTangent(run.last(), run.direction(), run.first());
        if (bulge && run.segments() > 0) {
            run.close(*bulge);
            return false;
        }
        say(command_texts::noSuchArc);
    } else {
        askWidth(run, next.is(L"Halfwidth"));
    }
    return true;
}

} // namespace

void commands::polyline()
{
    PolylineRun run(askPoint(L"Spécifiez le point de départ : "));
    while (run.arcs ? arcStep(run) : lineStep(run)) {
    }
}

#include <algorithm>
#include <array>
#include <cmath>

#include "db/entities/GradientColor.h"
#include "db/entities/HatchStretch.h"
#include "db/entities/OcsTransform.h"
#include "ge/Angles.h"

#include "dbhatch.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbHatch, AcDbEntity, HATCH)

namespace {

using Tags = std::vector<AcDbHatchTag>;

/// Position of the first group with a code, from `at` on; the number of groups when there is none.
std::size_t find(const Tags& tags, int code, std::size_t at = 0)
{
    while (at < tags.size() && tags[at].code != code)
        ++at;
    return at;
}

/// Takes a number and the next one of code + 10 for a point of the plane, or for a direction in it.
void movePair(Tags& tags, std::size_t at, const OcsTransform& moved, bool isVector)
{
    const std::size_t other = find(tags, tags[at].code + 10, at);
    if (other == tags.size())
        return;
    const AcGePoint3d old(tags[at].number, tags[other].number, 0.0);
    const AcGePoint3d now = isVector ? moved.vector(old.asVector()).asPoint() : moved.point(old);
    tags[at].number = now.x;
    tags[other].number = now.y;
}

void moveEdge(Tags& tags, const HatchEdge& edge, const OcsTransform& moved)
{
    const double scale = moved.scaleAlong(0.0);
    const bool clockwise = hatchNumber(tags, edge.first, edge.last, 73, 1.0) == 0.0;
    const bool becomesClockwise = clockwise != moved.mirrors();
    double angles[2] = {};
    for (std::size_t i = edge.first; i < edge.last; ++i) {
        AcDbHatchTag& tag = tags[i];
        const bool isArc = edge.kind == HatchEdgeKind::arc;
        if (tag.code == 10 || (tag.code == 11 && edge.kind != HatchEdgeKind::ellipse))
            movePair(tags, i, moved, false);
        else if ((tag.code == 11 || tag.code == 12 || tag.code == 13) && edge.kind != HatchEdgeKind::polyline)
            movePair(tags, i, moved, true);
        else if (tag.code == 40 && isArc)
            tag.number *= scale;
        else if (tag.code == 42 && edge.kind == HatchEdgeKind::polyline && moved.mirrors())
            tag.number = -tag.number;
        else if ((tag.code == 50 || tag.code == 51) && isArc) {
            const double old = (clockwise ? -tag.number : tag.number) * oneDegree;
            double& angle = angles[tag.code - 50];
            angle = moved.angle(old) * (becomesClockwise ? -1.0 : 1.0);
            if (tag.code == 51 && angle <= angles[0])
                angle += 360.0 * oneDegree;
            tag.number = angle / oneDegree;
        } else if (tag.code == 73 && moved.mirrors() && (isArc || edge.kind == HatchEdgeKind::ellipse))
            tag.number = becomesClockwise ? 0.0 : 1.0;
    }
}

/// Angle, base point, offset and dashes of the lines of a pattern, then the seed points, which go with the outlines.
void movePattern(Tags& tags, std::size_t first, const OcsTransform& moved, const OcsTransform& outlines)
{
    const double scale = moved.scaleAlong(0.0);
    std::size_t seeds = tags.size();
    for (std::size_t i = first; i < tags.size(); ++i) {
        AcDbHatchTag& tag = tags[i];
        switch (tag.code) {
        case 98:
            seeds = i;
            break;
        case 52:
        case 53:
            tag.number = moved.angle(tag.number * oneDegree) / oneDegree;
            break;
        case 41:
        case 49:
        case 47:
            tag.number *= scale;
            break;
        case 10:
            if (i > seeds)
                movePair(tags, i, outlines, false);
            break;
        case 43: // 43 and 44 are a point, 45 and 46 a direction
        case 45: {
            if (i + 1 >= tags.size() || tags[i + 1].code != tag.code + 1)
                break;
            const AcGePoint3d old(tag.number, tags[i + 1].number, 0.0);
            const AcGePoint3d now = tag.code == 45 ? moved.vector(old.asVector()).asPoint() : moved.point(old);
            tag.number = now.x;
            tags[i + 1].number = now.y;
            break;
        }
        default:
            break;
        }
    }
}

/// Where a pattern that cannot follow everywhere keeps to its outline.
AcGePoint3d firstCorner(const Tags& tags, const std::vector<HatchOutline>& outlines)
{
    for (const HatchOutline& outline : outlines)
        if (const auto vertices = hatchPolyline(tags, outline); !vertices.empty())
            return vertices.front().point;
    return AcGePoint3d::kOrigin;
}

} // namespace

double AcDbHatch::number(int code, double otherwise) const
{
    assertReadEnabled();
    return hatchNumber(m_tags, 0, m_tags.size(), code, otherwise);
}

const ACHAR* AcDbHatch::patternName() const
{
    assertReadEnabled();
    const std::size_t at = find(m_tags, 2);
    return at < m_tags.size() ? m_tags[at].text.c_str() : L"";
}

bool AcDbHatch::isSolidFill() const
{
    return number(70, 0.0) != 0.0;
}

bool AcDbHatch::isGradient() const
{
    return number(450, 0.0) != 0.0;
}

std::int32_t middleOfGradient(const AcDbHatch& hatch)
{
    hatch.assertReadEnabled();
    constexpr int rgbOfEnd = 421;
    std::array<double, 3> sum{};
    int ends = 0;
    for (const AcDbHatchTag& tag : hatch.m_tags) {
        if (tag.code != rgbOfEnd || !(tag.number >= 0.0) || tag.number > 0xFFFFFF)
            continue;
        const auto rgb = static_cast<std::uint32_t>(tag.number);
        for (std::size_t channel = 0; channel < sum.size(); ++channel)
            sum[channel] += (rgb >> (16U - 8U * channel)) & 0xFFU;
        ++ends;
    }
    std::int32_t middle = 0;
    for (const double channel : sum)
        middle = middle * 256 + (ends > 0 ? static_cast<std::int32_t>(channel / ends) : 0);
    return ends > 0 ? middle : -1;
}

double AcDbHatch::patternScale() const
{
    return hatchNumber(m_tags, find(m_tags, 75), m_tags.size(), 41, 1.0);
}
double AcDbHatch::patternAngle() const
{
    return hatchNumber(m_tags, find(m_tags, 75), m_tags.size(), 52, 0.0) * oneDegree;
}
double AcDbHatch::elevation() const
{
    return number(30, 0.0);
}
AcGeVector3d AcDbHatch::normal() const
{
    return {number(210, 0.0), number(220, 0.0), number(230, 1.0)};
}

int AcDbHatch::numLoops() const
{
    assertReadEnabled();
    return static_cast<int>(hatchOutlines(m_tags).size());
}

Acad::ErrorStatus AcDbHatch::getLoopAt(int index, Adesk::Int32& loopType, AcGePoint2dArray& vertices,
                                       AcGeDoubleArray& bulges) const
{
    assertReadEnabled();
    const std::vector<HatchOutline> outlines = hatchOutlines(m_tags);
    if (index < 0 || static_cast<std::size_t>(index) >= outlines.size())
        return Acad::eInvalidIndex;
    const HatchOutline& outline = outlines[static_cast<std::size_t>(index)];
    loopType = outline.type;
    vertices.removeAll();
    bulges.removeAll();
    for (const VertexPath::Vertex& vertex : hatchPolyline(m_tags, outline)) {
        vertices.append(AcGePoint2d(vertex.point.x, vertex.point.y));
        bulges.append(vertex.bulge);
    }
    return Acad::eOk;
}

// Families stand behind the outlines, each from its group 53 on; seed points follow them.
int AcDbHatch::numPatternDefinitions() const
{
    assertReadEnabled();
    const std::size_t start = find(m_tags, 75), end = find(m_tags, 98, start);
    int families = 0;
    for (std::size_t at = start; at < end; ++at)
        families += m_tags[at].code == 53;
    return families;
}

Acad::ErrorStatus AcDbHatch::getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY,
                                                    double& offsetX, double& offsetY, AcGeDoubleArray& dashes) const
{
    if (index < 0 || index >= numPatternDefinitions())
        return Acad::eInvalidIndex;
    std::size_t at = find(m_tags, 53, find(m_tags, 75));
    for (; index > 0; --index)
        at = find(m_tags, 53, at + 1);
    const std::size_t end = std::min(find(m_tags, 53, at + 1), find(m_tags, 98, at));
    angle = m_tags[at].number * oneDegree;
    baseX = hatchNumber(m_tags, at, end, 43);
    baseY = hatchNumber(m_tags, at, end, 44);
    offsetX = hatchNumber(m_tags, at, end, 45);
    offsetY = hatchNumber(m_tags, at, end, 46);
    dashes.removeAll();
    for (; at < end; ++at)
        if (m_tags[at].code == 49)
            dashes.append(m_tags[at].number);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    const double height = elevation();
    AcDbExtents box;
    for (const HatchOutline& outline : hatchOutlines(m_tags)) {
        std::vector<VertexPath::Vertex> vertices = hatchPolyline(m_tags, outline);
        for (VertexPath::Vertex& vertex : vertices)
            vertex.point.z = height;
        VertexPath(std::move(vertices), normal(), true).addExtents(box);
    }
    if (box.isEmpty())
        return Acad::eInvalidExtents;
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const OcsTransform moved(normal(), matrix);
    if (!moved.isValid())
        return Acad::eInvalidInput;
    const bool stretches = !moved.keepsShapes();
    if (stretches)
        roundEdgesToEllipses(m_tags);
    const std::vector<HatchOutline> outlines = hatchOutlines(m_tags);
    const AcGePoint3d corner = firstCorner(m_tags, outlines);
    for (const HatchOutline& outline : outlines)
        for (const HatchEdge& edge : outline.edges)
            if (stretches && edge.kind == HatchEdgeKind::ellipse)
                stretchEllipse(m_tags, edge, moved);
            else
                moveEdge(m_tags, edge, moved);
    movePattern(m_tags, find(m_tags, 75), stretches ? moved.nearestSimilarity(corner) : moved, moved);
    if (const std::size_t at = find(m_tags, 30); at < m_tags.size())
        m_tags[at].number = moved.point(AcGePoint3d(0.0, 0.0, m_tags[at].number)).z;
    const AcGeVector3d up = moved.normal();
    for (unsigned int axis = 0; axis < 3; ++axis)
        if (const std::size_t at = find(m_tags, 210 + 10 * static_cast<int>(axis)); at < m_tags.size())
            m_tags[at].number = up[axis];
    return Acad::eOk;
}

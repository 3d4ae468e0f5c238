#include <algorithm>

#include "db/fields/EntityFields.h"

#include "dbpl.h"

namespace {

constexpr int xCode = 10, yCode = 20, startWidthCode = 40, endWidthCode = 41, bulgeCode = 42, identifierCode = 91;

/// The vertex that a tag belongs to: group 10 opens one.
bool readVertexTag(const DxfForm& form, std::vector<AcDbPolylineVertex>& vertices, const DxfTag& tag)
{
    if (tag.code == xCode)
        vertices.emplace_back();
    if (vertices.empty())
        return true; // stray tags before the first vertex mean nothing
    AcDbPolylineVertex& vertex = vertices.back();
    switch (tag.code) {
    case xCode:
        return dxfReal(form, tag, vertex.point.x);
    case yCode:
        return dxfReal(form, tag, vertex.point.y);
    case startWidthCode:
        return dxfReal(form, tag, vertex.startWidth);
    case endWidthCode:
        return dxfReal(form, tag, vertex.endWidth);
    case bulgeCode:
        return dxfReal(form, tag, vertex.bulge);
    default:
        std::int64_t identifier = 0;
        if (!dxfInteger(form, tag, identifier))
            return false;
        vertex.identifier = static_cast<Adesk::Int32>(identifier);
        return true;
    }
}

void writeVertex(DxfTagWriter& out, const AcDbPolylineVertex& vertex, bool complete)
{
    out.real(xCode, vertex.point.x);
    out.real(yCode, vertex.point.y);
    if (complete || vertex.startWidth != 0.0 || vertex.endWidth != 0.0) {
        out.real(startWidthCode, vertex.startWidth);
        out.real(endWidthCode, vertex.endWidth);
    }
    if (complete || vertex.bulge != 0.0)
        out.real(bulgeCode, vertex.bulge);
    if (vertex.identifier != 0)
        out.integer(identifierCode, vertex.identifier);
}

bool sameVertex(const AcDbPolylineVertex& a, const AcDbPolylineVertex& b)
{
    return a.point.x == b.point.x && a.point.y == b.point.y && a.bulge == b.bulge && a.startWidth == b.startWidth &&
           a.endWidth == b.endWidth && a.identifier == b.identifier;
}

} // namespace

void DxfFieldsOfPolylines::add(DxfClasses& classes)
{
    /// How many vertices follow: written, never trusted.
    const DxfField count{90,
                         1,
                         true,
                         [](const DxfReadContext&, AcDbObject&, const DxfTag&, int) { return true; },
                         [](DxfWriteContext& context, const AcDbObject& object, int code, int) {
                             const auto& vertices = static_cast<const AcDbPolyline&>(object).m_vertices;
                             context.out.integer(code, static_cast<std::int64_t>(vertices.size()));
                         },
                         [](const AcDbObject& a, const AcDbObject& b, int) {
                             return static_cast<const AcDbPolyline&>(a).m_vertices.size() ==
                                    static_cast<const AcDbPolyline&>(b).m_vertices.size();
                         },
                         {}};
    const DxfField vertices = listField(
        {xCode, yCode, startWidthCode, endWidthCode, bulgeCode, identifierCode},
        [](const DxfReadContext& context, AcDbObject& object, const DxfTag& tag, int) {
            return readVertexTag(context.form, static_cast<AcDbPolyline&>(object).m_vertices, tag);
        },
        [](DxfWriteContext& context, const AcDbObject& object, int, int) {
            for (const AcDbPolylineVertex& vertex : static_cast<const AcDbPolyline&>(object).m_vertices)
                writeVertex(context.out, vertex, context.complete);
        },
        [](const AcDbObject& a, const AcDbObject& b, int) {
            return std::ranges::equal(static_cast<const AcDbPolyline&>(a).m_vertices,
                                      static_cast<const AcDbPolyline&>(b).m_vertices, sameVertex);
        },
        [](AcDbObject& object) { static_cast<AcDbPolyline&>(object).m_vertices.clear(); });
    static const DxfSubclass polyline("AcDbPolyline", {count, integerField<&AcDbPolyline::m_flags>(70, DxfWhen::always),
                                                       realField<&AcDbPolyline::m_constantWidth>(43),
                                                       realField<&AcDbPolyline::m_elevation>(38),
                                                       realField<&AcDbPolyline::m_thickness>(39), vertices,
                                                       pointField<&AcDbPolyline::m_normal>(210)});
    addEntityClass<AcDbPolyline>(classes, "LWPOLYLINE", {&polyline});
}

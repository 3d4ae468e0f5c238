#include "dxf/R12Subclasses.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {

using Subclasses = std::vector<R12Subclass>;

constexpr std::int64_t flag3d = 8;
constexpr std::int64_t flagMesh = 16;
constexpr std::int64_t flagPolyface = 64;
constexpr std::int64_t flagFaceRecord = 128; // of a vertex; a polyface's corner has flagPolyface as well

Subclasses only(const char* marker)
{
    return {{marker, true, {}}};
}

Subclasses vertexOf(const char* marker)
{
    return {{"AcDbVertex", false, {}}, {marker, true, {}}};
}

/// A dimension's points and angles below its own class; its text, style and flags below AcDbDimension.
Subclasses dimensionOf(const char* marker)
{
    return {{"AcDbDimension", true, {}},
            {marker, false, {12, 22, 32, 13, 23, 33, 14, 24, 34, 15, 25, 35, 16, 26, 36, 40, 50, 52}}};
}

const Subclasses& polyline(std::int64_t flags)
{
    static const Subclasses flat = only("AcDb2dPolyline");
    static const Subclasses spatial = only("AcDb3dPolyline");
    static const Subclasses mesh = only("AcDbPolygonMesh");
    static const Subclasses polyface = only("AcDbPolyFaceMesh");
    return flags & flagPolyface ? polyface : flags & flagMesh ? mesh : flags & flag3d ? spatial : flat;
}

const Subclasses& vertex(std::int64_t flags, std::int64_t polylineFlags)
{
    static const Subclasses flat = vertexOf("AcDb2dVertex");
    static const Subclasses spatial = vertexOf("AcDb3dPolylineVertex");
    static const Subclasses mesh = vertexOf("AcDbPolygonMeshVertex");
    static const Subclasses corner = vertexOf("AcDbPolyFaceMeshVertex");
    static const Subclasses face = only("AcDbFaceRecord");
    if (polylineFlags & flagPolyface)
        return (flags & flagFaceRecord) && !(flags & flagPolyface) ? face : corner;
    return polylineFlags & flagMesh ? mesh : polylineFlags & flag3d ? spatial : flat;
}

const Subclasses& dimension(std::int64_t flags)
{
    constexpr std::int64_t typeMask = 7; // the higher bits tell about ordinates and text places
    static const std::vector<Subclasses> types = [] {
        std::vector<Subclasses> list;
        for (const char* marker :
             {"AcDbAlignedDimension", "AcDbAlignedDimension", "AcDb2LineAngularDimension", "AcDbDiametricDimension",
              "AcDbRadialDimension", "AcDb3PointAngularDimension", "AcDbOrdinateDimension"})
            list.push_back(dimensionOf(marker));
        list.front().push_back({"AcDbRotatedDimension", false, {}});
        return list;
    }();
    static const Subclasses unknown = only("AcDbDimension");
    const auto type = static_cast<std::size_t>(flags & typeMask);
    return type < types.size() ? types[type] : unknown;
}

} // namespace

const std::vector<R12Subclass>& r12Subclasses(std::string_view entity, std::int64_t flags, std::int64_t polylineFlags)
{
    static const std::map<std::string_view, Subclasses> plain = {
        {"LINE", only("AcDbLine")},
        {"POINT", only("AcDbPoint")},
        {"CIRCLE", only("AcDbCircle")},
        {"ARC", {{"AcDbCircle", true, {}}, {"AcDbArc", false, {50, 51}}}},
        {"TRACE", only("AcDbTrace")},
        {"SOLID", only("AcDbTrace")},
        {"3DFACE", only("AcDbFace")},
        {"SHAPE", only("AcDbShape")},
        {"VIEWPORT", only("AcDbViewport")},
        {"INSERT", only("AcDbBlockReference")},
        {"TEXT", {{"AcDbText", true, {}}, {"AcDbText", false, {73}}}},
        {"ATTRIB", {{"AcDbText", true, {}}, {"AcDbAttribute", false, {2, 70, 73, 74}}}},
        {"ATTDEF", {{"AcDbText", true, {}}, {"AcDbAttributeDefinition", false, {3, 2, 70, 73, 74}}}},
        {"BLOCK", only("AcDbBlockBegin")},
        {"ENDBLK", only("AcDbBlockEnd")},
        // Not of R12, yet found in files that say so.
        {"LWPOLYLINE", only("AcDbPolyline")},
        {"ELLIPSE", only("AcDbEllipse")},
        {"SPLINE", only("AcDbSpline")},
        {"MTEXT", only("AcDbMText")},
        {"HATCH", only("AcDbHatch")},
        {"LEADER", only("AcDbLeader")},
        {"MLINE", only("AcDbMline")},
        {"RAY", only("AcDbRay")},
        {"XLINE", only("AcDbXline")},
        {"TOLERANCE", only("AcDbFcf")},
    };
    static const Subclasses none;
    if (entity == "POLYLINE")
        return polyline(flags);
    if (entity == "VERTEX")
        return vertex(flags, polylineFlags);
    if (entity == "DIMENSION")
        return dimension(flags);
    const auto found = plain.find(entity);
    return found == plain.end() ? none : found->second;
}

std::vector<std::vector<DxfTag>> sortedBelowMarkers(const std::vector<DxfTag>& tags,
                                                    const std::vector<R12Subclass>& subclasses)
{
    constexpr int firstExtendedData = 1000, lineWeight = 370, trueColor = 420;
    std::size_t rest = 0; // where tags go that are listed nowhere
    for (std::size_t i = 0; i < subclasses.size(); ++i)
        if (subclasses[i].takesRest)
            rest = i + 1;
    bool hasWeight = false, hasColor = false; // later than R12: an entity's own stand first
    const auto placeOf = [&](int code) {
        if (code >= firstExtendedData)
            return subclasses.size() + 1;
        if (isCommonEntityCode(code) || (code == lineWeight && !std::exchange(hasWeight, true)) ||
            (code == trueColor && !std::exchange(hasColor, true)))
            return std::size_t{0};
        for (std::size_t i = 0; i < subclasses.size(); ++i)
            if (std::ranges::find(subclasses[i].codes, code) != subclasses[i].codes.end())
                return i + 1;
        return rest;
    };
    std::vector<std::vector<DxfTag>> sorted(subclasses.size() + 2);
    for (const DxfTag& tag : tags)
        sorted[placeOf(tag.code)].push_back(tag);
    return sorted;
}

std::int64_t polylineFlagsOf(std::int64_t vertexFlags)
{
    constexpr std::int64_t vertexOf3d = 32, vertexOfMesh = 64;
    if (vertexFlags & flagFaceRecord)
        return flagPolyface;
    return vertexFlags & vertexOfMesh ? flagMesh : vertexFlags & vertexOf3d ? flag3d : 0;
}

bool isCommonEntityCode(int code)
{
    constexpr int codes[] = {6, 8, 48, 60, 62, 67};
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

std::string_view symbolMarker(std::string_view table)
{
    static const std::map<std::string_view, std::string_view> markers = {
        {"VPORT", "AcDbViewportTableRecord"},     {"LTYPE", "AcDbLinetypeTableRecord"},
        {"LAYER", "AcDbLayerTableRecord"},        {"STYLE", "AcDbTextStyleTableRecord"},
        {"VIEW", "AcDbViewTableRecord"},          {"UCS", "AcDbUCSTableRecord"},
        {"APPID", "AcDbRegAppTableRecord"},       {"DIMSTYLE", "AcDbDimStyleTableRecord"},
        {"BLOCK_RECORD", "AcDbBlockTableRecord"},
    };
    const auto found = markers.find(table);
    return found == markers.end() ? std::string_view() : found->second;
}

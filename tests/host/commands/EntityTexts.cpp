#include "EntityTexts.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <numbers>

#include "commands/Drawing.h"
#include "platform/CodePage.h"

#include "dbdim.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbmtext.h"

namespace {

std::string number(double value)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.4f", std::fabs(value) < 5e-5 ? 0.0 : value);
    std::string shown = text.data();
    shown.erase(shown.find_last_not_of('0') + 1);
    if (shown.ends_with('.'))
        shown.pop_back();
    return shown;
}

std::string degrees(double radians)
{
    return number(radians * 180.0 / std::numbers::pi);
}

std::string point(const AcGePoint3d& p)
{
    return number(p.x) + "," + number(p.y) + (p.z == 0.0 ? "" : "," + number(p.z));
}

std::string utf8(const std::wstring& text)
{
    return platform::utf8FromWide(text);
}

std::string polylineText(const AcDbPolyline& polyline)
{
    std::string text = polyline.isClosed() ? "PLINE fermée" : "PLINE";
    for (unsigned i = 0; i < polyline.numVerts(); ++i) {
        AcGePoint3d vertex;
        double bulge = 0.0, from = 0.0, to = 0.0;
        polyline.getPointAt(i, vertex);
        polyline.getBulgeAt(i, bulge);
        polyline.getWidthsAt(i, from, to);
        text += " " + point(vertex);
        text += bulge == 0.0 ? "" : " b" + number(bulge);
        text += from == 0.0 && to == 0.0 ? "" : " l" + number(from) + "-" + number(to);
    }
    return text;
}

std::string textText(const AcDbText& text)
{
    std::string shown = "TEXT " + utf8(text.textStringConst()) + " " +
                        point(text.isDefaultAlignment() ? text.position() : text.alignmentPoint()) + " h" +
                        number(text.height());
    if (text.rotation() != 0.0)
        shown += " r" + degrees(text.rotation());
    if (!text.isDefaultAlignment())
        shown += " " + std::to_string(text.horizontalMode()) + "/" + std::to_string(text.verticalMode());
    return shown + (text.visibility() == AcDb::kInvisible ? " invisible" : "");
}

std::string referenceText(const AcDbBlockReference& reference)
{
    std::string text = "INSERT " + utf8(recordName(reference.blockTableRecord())) + " " + point(reference.position());
    const AcGeScale3d scale = reference.scaleFactors();
    if (scale.sx != 1.0 || scale.sy != 1.0)
        text += " e" + number(scale.sx) + ";" + number(scale.sy);
    if (reference.rotation() != 0.0)
        text += " r" + degrees(reference.rotation());
    const std::unique_ptr<AcDbObjectIterator> each(reference.attributeIterator());
    for (; !each->done(); each->step()) {
        const AcDbObjectPointer<AcDbAttribute> attribute(each->objectId());
        text += " " + utf8(attribute->tagConst()) + "=" + utf8(attribute->textStringConst()) + "@" +
                point(attribute->position());
    }
    return text;
}

} // namespace

std::string entityText(const AcDbEntity& entity)
{
    if (const auto* line = AcDbLine::cast(&entity))
        return "LINE " + point(line->startPoint()) + " " + point(line->endPoint());
    if (const auto* circle = AcDbCircle::cast(&entity))
        return "CIRCLE " + point(circle->center()) + " r" + number(circle->radius());
    if (const auto* arc = AcDbArc::cast(&entity))
        return "ARC " + point(arc->center()) + " r" + number(arc->radius()) + " " + degrees(arc->startAngle()) + ">" +
               degrees(arc->endAngle());
    if (const auto* ellipse = AcDbEllipse::cast(&entity))
        return "ELLIPSE " + point(ellipse->center());
    if (const auto* spot = AcDbPoint::cast(&entity))
        return "POINT " + point(spot->position());
    if (const auto* polyline = AcDbPolyline::cast(&entity))
        return polylineText(*polyline);
    if (const auto* text = AcDbText::cast(&entity))
        return textText(*text);
    if (const auto* reference = AcDbBlockReference::cast(&entity))
        return referenceText(*reference);
    if (const auto* dimension = AcDbDimension::cast(&entity)) {
        AcDbExtents box;
        dimension->getGeomExtents(box);
        return utf8(entity.isA()->name()) + " " + point(box.minPoint()) + ".." + point(box.maxPoint());
    }
    return utf8(entity.isA()->name());
}

#include <cmath>

#include "gi/EntityGraphics.h"
#include "gi/MTextLayout.h"
#include "gi/ShownText.h"
#include "gi/TextMetrics.h"

#include "acutmem.h"
#include "dbmtext.h"
#include "dbsymtb.h"

namespace {

constexpr double descender = 0.32; // how far letters reach below the baseline, in heights of a capital

/// Which point of a text its anchor is: shares of its width, heights above its baseline.
struct Alignment {
    double across = 0.0, up = 0.0;
};

Alignment alignmentOf(const AcDbText& text)
{
    Alignment alignment;
    switch (text.horizontalMode()) {
    case AcDb::kTextCenter:
        alignment.across = 0.5;
        break;
    case AcDb::kTextRight:
        alignment.across = 1.0;
        break;
    case AcDb::kTextMid:
        return {0.5, 0.5};
    default:
        break;
    }
    switch (text.verticalMode()) {
    case AcDb::kTextBottom:
        alignment.up = -descender;
        break;
    case AcDb::kTextVertMid:
        alignment.up = 0.5;
        break;
    case AcDb::kTextTop:
        alignment.up = 1.0;
        break;
    default:
        break;
    }
    return alignment;
}

/// Directions of a text in its plane; lengths are those of a capital letter.
struct TextAxes {
    AcGeVector3d along, up;
};

TextAxes axesOf(const AcDbText& text, double rotation, double height, double widthFactor)
{
    const AcGeVector3d along(std::cos(rotation), std::sin(rotation), 0.0);
    const AcGeVector3d up(-along.y, along.x, 0.0);
    const double lean = std::tan(text.oblique());
    TextAxes axes{along * (height * widthFactor), (up + along * (std::isfinite(lean) ? lean : 0.0)) * height};
    if (text.isMirroredInX())
        axes.along = -axes.along;
    if (text.isMirroredInY())
        axes.up = -axes.up;
    const AcGeMatrix3d plane = planeOf(text.normal());
    return {plane * axes.along, plane * axes.up};
}

/// Aligned and fitted texts fill the way between their two points: the former grow as a whole, the latter in width.
TextAxes stretchedAxes(const AcDbText& text, double width)
{
    const AcGeMatrix3d toPlane = planeOf(text.normal()).inverse();
    const AcGeVector3d way = toPlane * (text.alignmentPoint() - text.position());
    const double length = std::hypot(way.x, way.y), natural = width * text.height() * text.widthFactor();
    if (!(length > 0.0) || !(natural > 0.0))
        return axesOf(text, text.rotation(), text.height(), text.widthFactor());
    const double factor = length / natural, rotation = std::atan2(way.y, way.x);
    return text.horizontalMode() == AcDb::kTextFit ? axesOf(text, rotation, text.height(), text.widthFactor() * factor)
                                                   : axesOf(text, rotation, text.height() * factor, text.widthFactor());
}

} // namespace

void addText(const AcDbText& text, std::wstring_view shown, DisplayList& list)
{
    const std::vector<ShownRun> runs = shownText(shown);
    double width = 0.0;
    for (const ShownRun& run : runs)
        width += textWidth(run.text);
    const bool stretched = text.horizontalMode() == AcDb::kTextAlign || text.horizontalMode() == AcDb::kTextFit;
    const TextAxes axes =
        stretched ? stretchedAxes(text, width) : axesOf(text, text.rotation(), text.height(), text.widthFactor());
    const AcGePoint3d anchor = stretched || text.isDefaultAlignment() ? text.position() : text.alignmentPoint();
    const Alignment alignment = stretched ? Alignment() : alignmentOf(text);
    Label label;
    label.along = axes.along;
    label.up = axes.up;
    label.origin = anchor - axes.along * (width * alignment.across) - axes.up * alignment.up;
    label.style = text.textStyle().stub();
    list.add(Anchor{anchor});
    for (const ShownRun& run : runs) {
        label.text = run.text;
        label.underlined = run.underlined;
        label.overlined = run.overlined;
        label.struck = run.struck;
        list.add(label);
        label.origin += axes.along * textWidth(run.text);
    }
}

void addMText(const AcDbMText& text, DisplayList& list)
{
    AcDbObjectPointer<AcDbTextStyleTableRecord> style(text.textStyle());
    MTextLayout::Request request;
    request.height = text.textHeight();
    request.widthFactor = style.object() ? style->xScale() : 1.0;
    request.oblique = style.object() ? style->obliquingAngle() : 0.0;
    request.lineWidth = text.width();
    request.spacingFactor = text.lineSpacingFactor();
    request.attachment = static_cast<int>(text.attachment());
    ACHAR* contents = text.contents();
    const std::vector<MTextLayout::Run> runs = MTextLayout(request).lay(contents ? contents : L"");
    acutDelString(contents);

    const AcGeVector3d along = text.direction().normal();
    const AcGeVector3d up = text.normal().crossProduct(along).normal();
    list.add(Anchor{text.location()});
    for (const MTextLayout::Run& run : runs) {
        Label label;
        label.text = run.text;
        label.origin = text.location() + along * run.x + up * run.y;
        label.along = along * (run.height * run.widthFactor);
        label.up = (up + along * std::tan(run.oblique)) * run.height;
        label.style = text.textStyle().stub();
        label.color = run.color;
        label.trueColor = run.trueColor;
        label.underlined = run.underlined;
        label.overlined = run.overlined;
        label.struck = run.struck;
        list.add(std::move(label));
    }
}

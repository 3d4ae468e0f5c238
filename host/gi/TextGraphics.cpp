#include <cmath>

#include "db/entities/MTextShown.h"
#include "db/entities/TextBox.h"
#include "gi/EntityGraphics.h"
#include "text/ShownText.h"
#include "text/TextMetrics.h"

#include "dbmtext.h"
#include "dbsymtb.h"

void addText(const AcDbText& text, std::wstring_view shown, DisplayList& list)
{
    const std::vector<ShownRun> runs = shownText(shown);
    const double width = shownWidth(shown);
    const TextBox box = boxOf(text, width);
    const AcGeMatrix3d plane = planeOf(text.normal());
    list.add(Anchor{plane * box.anchor});
    if (!(width > 0.0))
        return;
    Label label;
    label.along = plane * (box.along() * ((box.right - box.left) / width));
    label.up = plane * (box.up() * (box.top - box.bottom));
    label.origin = plane * box.corner(box.left, box.bottom);
    label.style = text.textStyle().stub();
    addRuns(runs, std::move(label), list);
}

void addRuns(const std::vector<ShownRun>& runs, Label label, DisplayList& list)
{
    for (const ShownRun& run : runs) {
        label.text = run.text;
        label.underlined = run.underlined;
        label.overlined = run.overlined;
        label.struck = run.struck;
        list.add(label);
        label.origin += label.along * textWidth(run.text);
    }
}

namespace {

/// What lies behind a text: it hides what was drawn before.
void addBackground(const AcDbMText& text, const MTextLayout& layout, const AcGeVector3d& along, const AcGeVector3d& up,
                   DisplayList& list)
{
    double factor = 1.0;
    AcCmColor color;
    if (!text.backgroundFillOn() || layout.isEmpty() || text.getBackgroundScaleFactor(factor) != Acad::eOk ||
        text.getBackgroundFillColor(color) != Acad::eOk)
        return;
    const double air = text.textHeight() * (factor - 1.0);
    const auto corner = [&](double x, double y) { return text.location() + along * x + up * y; };
    const double left = layout.left - air, right = layout.right + air;
    const double bottom = layout.bottom - air, top = layout.top + air;
    Path ring;
    ring.points = {corner(left, bottom), corner(right, bottom), corner(right, top), corner(left, top),
                   corner(left, bottom)};
    Area area;
    area.rings = {std::move(ring)};
    area.hides = text.useBackgroundColorOn();
    if (color.isByColor())
        area.trueColor = color.red() << 16 | color.green() << 8 | color.blue();
    else
        area.color = static_cast<std::int16_t>(color.colorIndex());
    list.add(std::move(area));
}

} // namespace

void addMText(const AcDbMText& text, DisplayList& list)
{
    const AcGeVector3d along = text.direction().normal();
    const AcGeVector3d up = text.normal().crossProduct(along).normal();
    list.add(Anchor{text.location()});
    const MTextLayout layout = layoutOf(text);
    addBackground(text, layout, along, up, list);
    for (const MTextLayout::Run& run : layout.runs) {
        Label label;
        label.text = run.text;
        label.origin = text.location() + along * run.x + up * run.y;
        label.along = along * (run.look.height * run.look.widthFactor);
        label.up = (up + along * std::tan(run.look.oblique)) * run.look.height;
        label.style = text.textStyle().stub();
        label.color = run.look.color;
        label.trueColor = run.look.trueColor;
        label.underlined = run.look.underlined;
        label.overlined = run.look.overlined;
        label.struck = run.look.struck;
        list.add(std::move(label));
    }
}

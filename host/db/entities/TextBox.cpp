#include "db/entities/TextBox.h"

#include <cmath>

#include "db/entities/OcsTransform.h"

#include "dbents.h"

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

bool fillsWay(const AcDbText& text)
{
    return text.horizontalMode() == AcDb::kTextAlign || text.horizontalMode() == AcDb::kTextFit;
}

double slantOf(const AcDbText& text)
{
    const double slant = std::tan(text.oblique());
    return std::isfinite(slant) ? slant : 0.0;
}

} // namespace

AcGeVector3d TextBox::along() const
{
    return {std::cos(rotation), std::sin(rotation), 0.0};
}

AcGeVector3d TextBox::up() const
{
    const AcGeVector3d ahead = along();
    return AcGeVector3d(-ahead.y, ahead.x, 0.0) + ahead * slant;
}

void TextBox::addTo(AcDbExtents& extents, const AcGeVector3d& normal) const
{
    for (const double above : {bottom, top})
        for (const double away : {left, right})
            extents.addPoint(ocsToWorld(corner(away, above), normal));
}

TextBox boxOf(const AcDbText& text, double width)
{
    TextBox box;
    box.rotation = text.rotation();
    box.slant = slantOf(text);
    const bool atPosition = fillsWay(text) || text.isDefaultAlignment();
    box.anchor = worldToOcs(atPosition ? text.position() : text.alignmentPoint(), text.normal());
    double high = text.height(), wide = width * text.height() * text.widthFactor();
    Alignment alignment;
    if (fillsWay(text)) {
        const AcGeVector3d way = worldToOcs(text.alignmentPoint(), text.normal()) - box.anchor;
        const double length = std::hypot(way.x, way.y);
        if (length > 0.0 && wide > 0.0) {
            box.rotation = std::atan2(way.y, way.x);
            high *= text.horizontalMode() == AcDb::kTextAlign ? length / wide : 1.0;
            wide = length;
        }
    } else
        alignment = alignmentOf(text);
    const double forward = text.isMirroredInX() ? -wide : wide, upward = text.isMirroredInY() ? -high : high;
    box.left = -forward * alignment.across;
    box.right = box.left + forward;
    box.bottom = -upward * alignment.up;
    box.top = box.bottom + upward;
    return box;
}

#include <cmath>

#include "db/DatabaseImpl.h"
#include "db/entities/EntityText.h"
#include "db/entities/MTextShown.h"
#include "db/entities/OcsTransform.h"

#include "dbents.h"
#include "dbmtext.h"
#include "dbsymtb.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbMText, AcDbEntity, MTEXT)

MTextLayout layoutOf(const AcDbMText& text)
{
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(text.textStyle());
    MTextLayout::Request request;
    request.height = text.textHeight();
    request.widthFactor = style.object() ? style->xScale() : 1.0;
    request.oblique = style.object() ? style->obliquingAngle() : 0.0;
    request.lineWidth = text.width();
    request.spacingFactor = text.lineSpacingFactor();
    request.attachment = static_cast<int>(text.attachment());
    return {text.m_contents, request};
}

namespace {

/// Lines under, over and through a run, as single-line texts write them.
std::wstring withLines(const MTextLayout::Run& run)
{
    return (run.look.underlined ? L"%%u" : L"") + std::wstring(run.look.overlined ? L"%%o" : L"") +
           (run.look.struck ? L"%%k" : L"") + run.text;
}

void giveColor(AcDbText& line, const MTextLook& look)
{
    const auto part = [&](int shift) { return static_cast<Adesk::UInt8>(look.trueColor >> shift & 0xFF); };
    AcCmColor color;
    if (look.trueColor >= 0)
        color.setRGB(part(16), part(8), part(0));
    else if (look.color >= 0)
        color.setColorIndex(static_cast<Adesk::UInt16>(look.color));
    else
        return;
    line.setColor(color);
}

} // namespace

// ---- contents

ACHAR* AcDbMText::contents() const
{
    assertReadEnabled();
    return newText(m_contents);
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text)
{
    assertWriteEnabled();
    m_contents = givenText(text);
    forgetExtents();
    return Acad::eOk;
}

ACHAR* AcDbMText::text() const
{
    assertReadEnabled();
    return newText(shownContents(m_contents));
}

void AcDbMText::explodeFragments(AcDbMTextEnum show, void* param) const
{
    assertReadEnabled();
    const AcGeVector3d along = direction().normal(), up = m_normal.crossProduct(along);
    for (const MTextLayout::Run& run : layoutOf(*this).runs) {
        AcDbMTextFragment fragment;
        fragment.location = m_location + along * run.x + up * run.y;
        fragment.normal = m_normal;
        fragment.direction = along;
        fragment.text = run.text.c_str();
        fragment.extents = AcGePoint2d(run.width, run.look.height);
        fragment.capsHeight = run.look.height;
        fragment.widthFactor = run.look.widthFactor;
        fragment.obliqueAngle = run.look.oblique;
        fragment.underlined = run.look.underlined;
        fragment.overlined = run.look.overlined;
        if (show(&fragment, param) == 0)
            return;
    }
}

// ---- place and look

Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& location)
{
    assertWriteEnabled();
    m_location = location;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = normal.normal();
    return Acad::eOk;
}

AcGeVector3d AcDbMText::direction() const
{
    assertReadEnabled();
    if (m_rotation == 0.0 || m_direction.x != 1.0 || m_direction.y != 0.0 || m_direction.z != 0.0)
        return m_direction;
    return ocsToWorld(AcGePoint3d(std::cos(m_rotation), std::sin(m_rotation), 0.0), m_normal).asVector();
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction)
{
    assertWriteEnabled();
    if (direction.isZeroLength())
        return Acad::eInvalidInput;
    m_direction = direction.normal();
    m_rotation = 0.0; // so that the new direction counts for the next line
    m_rotation = rotation();
    return Acad::eOk;
}

double AcDbMText::rotation() const
{
    assertReadEnabled();
    const AcGePoint3d flat = worldToOcs(AcGePoint3d() + direction(), m_normal);
    return AcGeVector2d(flat.x, flat.y).angle();
}

Acad::ErrorStatus AcDbMText::setRotation(double angle)
{
    assertWriteEnabled();
    m_direction = ocsToWorld(AcGePoint3d(std::cos(angle), std::sin(angle), 0.0), m_normal).asVector();
    m_rotation = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height)
{
    assertWriteEnabled();
    if (!(height > 0.0))
        return Acad::eInvalidInput;
    m_height = height;
    forgetExtents();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setWidth(double width)
{
    assertWriteEnabled();
    if (!(width >= 0.0))
        return Acad::eInvalidInput;
    m_width = width;
    forgetExtents();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment)
{
    assertWriteEnabled();
    if (attachment < kTopLeft || attachment > kBottomRight)
        return Acad::eInvalidInput;
    m_attachment = static_cast<Adesk::Int16>(attachment);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::getBackgroundFillColor(AcCmColor& color) const
{
    assertReadEnabled();
    if (m_fillTrueColor < 0)
        return color.setColorIndex(static_cast<Adesk::UInt16>(m_fillColor));
    const auto rgb = static_cast<std::uint32_t>(m_fillTrueColor);
    return color.setRGB(static_cast<Adesk::UInt8>(rgb >> 16U), static_cast<Adesk::UInt8>(rgb >> 8U),
                        static_cast<Adesk::UInt8>(rgb));
}

Acad::ErrorStatus AcDbMText::getBackgroundScaleFactor(double& factor) const
{
    assertReadEnabled();
    factor = m_fillScale;
    return Acad::eOk;
}

AcDbObjectId AcDbMText::textStyle() const
{
    assertReadEnabled();
    if (m_style || !database())
        return AcDbObjectId(m_style);
    return AcDbObjectId(database()->impl().named(NameKind::textStyle, L"Standard"));
}

Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style)
{
    assertWriteEnabled();
    m_style = style.stub();
    forgetExtents();
    return Acad::eOk;
}

// ---- extents

void AcDbMText::forgetExtents()
{
    m_actualWidth = m_actualHeight = 0.0;
}

double AcDbMText::actualWidth() const
{
    assertReadEnabled();
    const MTextLayout layout = layoutOf(*this);
    return layout.right - layout.left;
}

double AcDbMText::actualHeight() const
{
    assertReadEnabled();
    const MTextLayout layout = layoutOf(*this);
    return layout.top - layout.bottom;
}

Acad::ErrorStatus AcDbMText::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    const MTextLayout layout = layoutOf(*this);
    if (layout.isEmpty())
        return Acad::eInvalidExtents;
    const AcGeVector3d along = direction().normal(), up = m_normal.crossProduct(along);
    AcDbExtents found;
    for (const double x : {layout.left, layout.right})
        for (const double y : {layout.bottom, layout.top})
            found.addPoint(m_location + along * x + up * y);
    extents = found;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const OcsTransform moved(m_normal, matrix);
    if (!moved.isValid() || !moved.keepsShapes())
        return Acad::eInvalidInput;
    const double scale = moved.scaleAlong(0.0);
    const AcGeVector3d along = (matrix * direction()).normal();
    m_location = matrix * m_location;
    m_normal = moved.normal();
    m_direction = along;
    m_rotation = 0.0; // so that the new direction counts for the next line
    m_rotation = rotation();
    for (double* length : {&m_height, &m_width, &m_actualWidth, &m_actualHeight})
        *length *= scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::explode(AcDbVoidPtrArray& entities) const
{
    assertReadEnabled();
    const AcGeVector3d along = direction().normal(), up = m_normal.crossProduct(along);
    for (const MTextLayout::Run& run : layoutOf(*this).runs) {
        if (run.text.find_first_not_of(L" \u00A0") == std::wstring::npos)
            continue;
        const AcGePoint3d start = m_location + along * run.x + up * run.y;
        auto line = std::make_unique<AcDbText>(start, withLines(run).c_str(), textStyle(), run.look.height);
        line->setPropertiesFrom(this);
        giveColor(*line, run.look);
        line->setNormal(m_normal);
        line->setPosition(start);
        line->setRotation(rotation());
        line->setWidthFactor(run.look.widthFactor);
        line->setOblique(run.look.oblique);
        entities.append(static_cast<AcDbEntity*>(line.release()));
    }
    return Acad::eOk;
}

#include "db/DatabaseImpl.h"
#include "db/entities/EntityText.h"
#include "db/entities/OcsTransform.h"
#include "db/entities/TextBox.h"
#include "ge/Angles.h"
#include "text/ShownText.h"

#include "dbapserv.h"
#include "dbents.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, TEXT)

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation) :
    m_position(position),
    m_height(height),
    m_rotation(rotation),
    m_text(givenText(text)),
    m_style(style.stub())
{
    if (height > 0.0)
        return;
    const AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
    const double usual = working ? working->textsize() : 0.0;
    m_height = usual > 0.0 ? usual : 1.0;
}

// ---- place

AcGePoint3d AcDbText::position() const
{
    assertReadEnabled();
    return ocsToWorld(m_position, m_normal);
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& position)
{
    assertWriteEnabled();
    m_position = worldToOcs(position, m_normal);
    return Acad::eOk;
}

AcGePoint3d AcDbText::alignmentPoint() const
{
    assertReadEnabled();
    return ocsToWorld(m_alignment, m_normal);
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point)
{
    assertWriteEnabled();
    m_alignment = worldToOcs(point, m_normal);
    placeByAlignment();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode)
{
    assertWriteEnabled();
    m_horizontal = static_cast<Adesk::Int16>(mode);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode)
{
    assertWriteEnabled();
    m_vertical = static_cast<Adesk::Int16>(mode);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase*)
{
    assertWriteEnabled();
    placeByAlignment();
    return Acad::eOk;
}

void AcDbText::placeByAlignment()
{
    if (isDefaultAlignment() || m_horizontal == AcDb::kTextAlign || m_horizontal == AcDb::kTextFit)
        return;
    const TextBox box = boxOf(*this, shownWidth(m_text));
    m_position = box.corner(box.left, box.bottom);
}

// ---- text and look

ACHAR* AcDbText::textString() const
{
    assertReadEnabled();
    return newText(m_text);
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text)
{
    assertWriteEnabled();
    m_text = givenText(text);
    placeByAlignment();
    return Acad::eOk;
}

/// A text without a style of its own has the standard one.
AcDbObjectId AcDbText::textStyle() const
{
    assertReadEnabled();
    if (m_style || !database())
        return AcDbObjectId(m_style);
    return AcDbObjectId(database()->impl().named(NameKind::textStyle, L"Standard"));
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style)
{
    assertWriteEnabled();
    m_style = style.stub();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setHeight(double height)
{
    assertWriteEnabled();
    if (!(height > 0.0))
        return Acad::eInvalidInput;
    m_height = height;
    placeByAlignment();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor)
{
    assertWriteEnabled();
    if (!(factor > 0.0))
        return Acad::eInvalidInput;
    m_widthFactor = factor;
    placeByAlignment();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setRotation(double angle)
{
    assertWriteEnabled();
    m_rotation = angle;
    placeByAlignment();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setOblique(double angle)
{
    assertWriteEnabled();
    m_oblique = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGePoint3d place = position(), aligned = alignmentPoint();
    m_normal = normal.normal();
    m_position = worldToOcs(place, m_normal);
    m_alignment = worldToOcs(aligned, m_normal);
    return Acad::eOk;
}

void AcDbText::takeTextFrom(const AcDbText& other)
{
    m_position = other.m_position;
    m_alignment = other.m_alignment;
    m_normal = other.m_normal;
    m_height = other.m_height;
    m_widthFactor = other.m_widthFactor;
    m_rotation = other.m_rotation;
    m_oblique = other.m_oblique;
    m_thickness = other.m_thickness;
    m_text = other.m_text;
    m_style = other.m_style;
    m_horizontal = other.m_horizontal;
    m_vertical = other.m_vertical;
    m_generation = other.m_generation;
    m_attributeFlags = other.m_attributeFlags;
    m_fieldLength = other.m_fieldLength;
    m_tag = other.m_tag;
}

// ---- geometry

Acad::ErrorStatus AcDbText::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    const double width = shownWidth(m_text);
    if (width == 0.0)
        return Acad::eInvalidExtents;
    AcDbExtents found;
    boxOf(*this, width).addTo(found, m_normal);
    extents = found;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const OcsTransform moved(m_normal, matrix);
    if (!moved.isValid() || !moved.keepsRightAngle(m_rotation))
        return Acad::eInvalidInput;
    const double along = moved.scaleAlong(m_rotation), up = moved.scaleAlong(m_rotation + quarterTurn);
    m_position = moved.point(m_position);
    m_alignment = isDefaultAlignment() ? m_alignment : moved.point(m_alignment);
    m_height *= up;
    if (!moved.keepsShapes())
        m_widthFactor *= along / up;
    m_rotation = moved.angle(m_rotation);
    m_thickness *= moved.normalScale();
    m_normal = moved.normal();
    return Acad::eOk;
}

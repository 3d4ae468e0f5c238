#include <algorithm>
#include <cmath>

#include "db/DatabaseImpl.h"
#include "db/entities/EntityText.h"
#include "db/entities/MTextLines.h"
#include "db/entities/OcsTransform.h"
#include "db/entities/TextBox.h"

#include "dbents.h"
#include "dbmtext.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbMText, AcDbEntity, MTEXT)

namespace {
constexpr double lineDistance = 5.0 / 3.0; // of baselines, in text heights, at a spacing factor of 1
}

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
    std::wstring whole;
    for (const std::wstring& line : visibleLines(m_contents))
        whole += line + L'\n';
    whole.pop_back();
    return newText(whole);
}

void AcDbMText::explodeFragments(AcDbMTextEnum show, void* param) const
{
    assertReadEnabled();
    const TextBox about = box();
    const AcGeVector3d along = direction().normal(), up = m_normal.crossProduct(along);
    double baseline = about.top - m_height;
    for (const std::wstring& line : visibleLines(m_contents)) {
        AcDbMTextFragment fragment;
        fragment.location = m_location + along * about.left + up * baseline;
        fragment.normal = m_normal;
        fragment.direction = along;
        fragment.text = line.c_str();
        fragment.extents = AcGePoint2d(m_height * static_cast<double>(line.size()), m_height);
        fragment.capsHeight = m_height;
        baseline -= m_height * lineDistance * m_lineSpacing;
        if (!line.empty() && show(&fragment, param) == 0)
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
    if (m_actualWidth > 0.0)
        return m_actualWidth;
    std::size_t longest = 0;
    for (const std::wstring& line : visibleLines(m_contents))
        longest = std::max(longest, line.size());
    const double unbroken = m_height * static_cast<double>(longest);
    return m_width > 0.0 ? std::min(unbroken, m_width) : unbroken;
}

double AcDbMText::actualHeight() const
{
    assertReadEnabled();
    if (m_actualHeight > 0.0)
        return m_actualHeight;
    double lines = 0.0;
    for (const std::wstring& line : visibleLines(m_contents)) {
        const double fits = m_width > 0.0 ? std::max(1.0, std::floor(m_width / m_height)) : 1e9;
        lines += std::max(1.0, std::ceil(static_cast<double>(line.size()) / fits));
    }
    return m_height * (1.0 + (lines - 1.0) * lineDistance * m_lineSpacing);
}

TextBox AcDbMText::box() const
{
    const int column = std::clamp<int>(m_attachment - 1, 0, 8) % 3, row = std::clamp<int>(m_attachment - 1, 0, 8) / 3;
    TextBox box;
    box.anchor = worldToOcs(m_location, m_normal);
    box.rotation = rotation();
    box.left = -actualWidth() * column / 2.0;
    box.right = box.left + actualWidth();
    box.top = actualHeight() * row / 2.0;
    box.bottom = box.top - actualHeight();
    return box;
}

Acad::ErrorStatus AcDbMText::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    if (actualWidth() == 0.0)
        return Acad::eInvalidExtents;
    AcDbExtents found;
    box().addTo(found, m_normal);
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
    struct Target {
        const AcDbMText& text;
        AcDbVoidPtrArray& entities;
    } target{*this, entities};
    explodeFragments(
        [](AcDbMTextFragment* fragment, void* param) {
            auto& [text, made] = *static_cast<Target*>(param);
            auto* line = new AcDbText(AcGePoint3d(), fragment->text, text.textStyle(), fragment->capsHeight);
            line->setPropertiesFrom(&text);
            line->setNormal(fragment->normal);
            line->setPosition(fragment->location);
            line->setRotation(text.rotation());
            made.append(static_cast<AcDbEntity*>(line));
            return 1;
        },
        &target);
    return Acad::eOk;
}

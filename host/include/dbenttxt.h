#pragma once

#include <string>

#include "dbmain.h"

/// Single-line texts: plain ones, attributes and their definitions. Part of dbents.h.

/// One line of text.
class AcDbText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText() = default;
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull,
             double height = 0.0, double rotation = 0.0);
    AcRxObject* clone() const override { return new AcDbText(*this); }

    /// Left end of the baseline.
    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    /// The point that the alignment modes place; that of a left-aligned text means nothing.
    AcGePoint3d alignmentPoint() const;
    /// Also moves the position to where a text of this length begins.
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    bool isDefaultAlignment() const { return m_horizontal == AcDb::kTextLeft && m_vertical == AcDb::kTextBase; }
    AcDb::TextHorzMode horizontalMode() const { return static_cast<AcDb::TextHorzMode>(m_horizontal); }
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    AcDb::TextVertMode verticalMode() const { return static_cast<AcDb::TextVertMode>(m_vertical); }
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
    Acad::ErrorStatus adjustAlignment(const AcDbDatabase* database = nullptr);

    /// A new text for the caller (acutDelString).
    ACHAR* textString() const;
    const ACHAR* textStringConst() const { return m_text.c_str(); }
    Acad::ErrorStatus setTextString(const ACHAR* text);
    AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    double height() const { return m_height; }
    /// eInvalidInput unless positive.
    Acad::ErrorStatus setHeight(double height);
    double widthFactor() const { return m_widthFactor; }
    Acad::ErrorStatus setWidthFactor(double factor);
    double rotation() const { return m_rotation; }
    Acad::ErrorStatus setRotation(double angle);
    double oblique() const { return m_oblique; }
    Acad::ErrorStatus setOblique(double angle);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    bool isMirroredInX() const { return (m_generation & 2) != 0; }
    bool isMirroredInY() const { return (m_generation & 4) != 0; }

    /// By the widths of the one font that texts are shown in.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    /// Height and width follow the axes of the text; slanting changes of shape give eInvalidInput.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbText(const AcDbText&) = default;
    /// Text, tag, place and look of another; what an entity has by its layer or block stays.
    void takeTextFrom(const AcDbText& other);

private:
    friend struct DxfFieldsOfTexts;
    void placeByAlignment();

    AcGePoint3d m_position, m_alignment; // in the coordinates of its plane
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_height = 1.0, m_widthFactor = 1.0, m_rotation = 0.0, m_oblique = 0.0, m_thickness = 0.0;
    std::wstring m_text;
    AcDbStub* m_style = nullptr;
    Adesk::Int16 m_horizontal = 0, m_vertical = 0, m_generation = 0;

protected:
    Adesk::Int16 m_attributeFlags = 0, m_fieldLength = 0; // of attributes and their definitions
    std::wstring m_tag;
};

/// In a block definition: what attribute its references are to have.
class AcDbAttributeDefinition : public AcDbText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);
    AcDbAttributeDefinition() = default;
    AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, const ACHAR* prompt,
                            AcDbObjectId style = AcDbObjectId::kNull);
    AcRxObject* clone() const override { return new AcDbAttributeDefinition(*this); }

    /// New texts for the caller (acutDelString).
    ACHAR* tag() const;
    ACHAR* prompt() const;
    const ACHAR* tagConst() const { return m_tag.c_str(); }
    const ACHAR* promptConst() const { return m_prompt.c_str(); }
    Acad::ErrorStatus setTag(const ACHAR* tag);
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    Adesk::Boolean isInvisible() const { return (m_attributeFlags & 1) != 0; }
    Acad::ErrorStatus setInvisible(Adesk::Boolean invisible);
    Adesk::Boolean isConstant() const { return (m_attributeFlags & 2) != 0; }
    Acad::ErrorStatus setConstant(Adesk::Boolean constant);
    Adesk::Boolean isVerifiable() const { return (m_attributeFlags & 4) != 0; }
    Adesk::Boolean isPreset() const { return (m_attributeFlags & 8) != 0; }

protected:
    AcDbAttributeDefinition(const AcDbAttributeDefinition&) = default;

private:
    friend struct DxfFieldsOfTexts;
    std::wstring m_prompt;
};

/// Text that belongs to a block reference, found by its tag.
class AcDbAttribute : public AcDbText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute);
    AcDbAttribute() = default;
    AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                  AcDbObjectId style = AcDbObjectId::kNull);
    AcRxObject* clone() const override { return new AcDbAttribute(*this); }

    /// A new text for the caller (acutDelString).
    ACHAR* tag() const;
    const ACHAR* tagConst() const { return m_tag.c_str(); }
    Acad::ErrorStatus setTag(const ACHAR* tag);
    Adesk::Boolean isInvisible() const { return (m_attributeFlags & 1) != 0; }
    Acad::ErrorStatus setInvisible(Adesk::Boolean invisible);
    Adesk::Boolean isConstant() const { return (m_attributeFlags & 2) != 0; }
    int fieldLength() const { return m_fieldLength; }
    /// Takes text, tag, look and place from a definition; `blockTransform` is that of the reference.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                            const AcGeMatrix3d& blockTransform);

protected:
    AcDbAttribute(const AcDbAttribute&) = default;

private:
    friend struct DxfFieldsOfTexts;
};

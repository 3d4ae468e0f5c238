#pragma once

#include <string>

#include "dbmain.h"
#include "gepnt2d.h"

struct MTextLayout;

/// A run of visible text of one look that AcDbMText::explodeFragments shows to its caller; valid during the call.
struct AcDbMTextFragment {
    AcGePoint3d location; ///< left end of its baseline
    AcGeVector3d normal, direction;
    const ACHAR* text;
    AcGePoint2d extents; ///< its width and its height
    double capsHeight, widthFactor, obliqueAngle;
    bool underlined, overlined;
};

/// Called with each fragment; 0 stops.
using AcDbMTextEnum = int (*)(AcDbMTextFragment*, void*);

/// Text of several lines. Its contents hold codes: \P a new line, {\C1;...} a stretch with another look.
class AcDbMText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbMText);
    enum AttachmentPoint {
        kTopLeft = 1,
        kTopCenter,
        kTopRight,
        kMiddleLeft,
        kMiddleCenter,
        kMiddleRight,
        kBottomLeft,
        kBottomCenter,
        kBottomRight
    };

    AcDbMText() = default;
    AcRxObject* clone() const override { return new AcDbMText(*this); }

    /// With its codes; a new text for the caller (acutDelString).
    ACHAR* contents() const;
    Acad::ErrorStatus setContents(const ACHAR* text);
    /// What is visible, lines parted by line feeds; a new text for the caller (acutDelString).
    ACHAR* text() const;
    /// Shows the visible text run by run, lines broken at the width.
    void explodeFragments(AcDbMTextEnum show, void* param) const;

    AcGePoint3d location() const { return m_location; }
    Acad::ErrorStatus setLocation(const AcGePoint3d& location);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    AcGeVector3d direction() const;
    Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
    /// From the X axis of its plane.
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    double textHeight() const { return m_height; }
    Acad::ErrorStatus setTextHeight(double height);
    /// Width at which lines are broken; 0 for none.
    double width() const { return m_width; }
    Acad::ErrorStatus setWidth(double width);
    AttachmentPoint attachment() const { return static_cast<AttachmentPoint>(m_attachment); }
    Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
    AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    double lineSpacingFactor() const { return m_lineSpacing; }
    /// A rectangle behind the text: of a colour, or of that of the ground, which hides what lies behind.
    bool backgroundFillOn() const { return (m_fill & 1) != 0; }
    bool useBackgroundColorOn() const { return (m_fill & 2) != 0; }
    Acad::ErrorStatus getBackgroundFillColor(AcCmColor& color) const;
    /// How far it stands out from the text, in heights of the text; 1 for not at all.
    Acad::ErrorStatus getBackgroundScaleFactor(double& factor) const;
    /// Of the visible text, by the widths of the one font that texts are shown in.
    double actualWidth() const;
    double actualHeight() const;

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
    /// Into one text a run.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const override;

protected:
    AcDbMText(const AcDbMText&) = default;

private:
    friend struct DxfFieldsOfMText;
    friend MTextLayout layoutOf(const AcDbMText& text);
    void forgetExtents();

    AcGePoint3d m_location;
    AcGeVector3d m_normal{0.0, 0.0, 1.0}, m_direction{1.0, 0.0, 0.0};
    double m_rotation = 0.0; // counts where the direction is the X axis
    double m_height = 1.0, m_width = 0.0, m_lineSpacing = 1.0;
    double m_actualWidth = 0.0, m_actualHeight = 0.0; // as the file tells; 0 once they no longer hold
    std::wstring m_contents;
    AcDbStub* m_style = nullptr;
    Adesk::Int16 m_attachment = kTopLeft, m_flow = 1;
    Adesk::Int32 m_fill = 0, m_fillTrueColor = -1;
    Adesk::Int16 m_fillColor = 7;
    double m_fillScale = 1.5;
};

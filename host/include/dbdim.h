#pragma once

#include <string>

#include "dbmain.h"

/// A dimension: the points that it measures, and the anonymous block that shows it.
class AcDbDimension : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimension);

    /// The block that shows the dimension; null when the drawing has none.
    AcDbObjectId dimBlockId() const { return AcDbObjectId(m_block); }
    /// Where the origin of that block stands: its entities are in world coordinates until the dimension is moved.
    AcGePoint3d dimBlockPosition() const;
    AcGePoint3d textPosition() const;
    /// Text in place of the measurement; "" or "<>" for the measurement itself. Valid while open.
    const ACHAR* dimensionText() const { return m_text.c_str(); }
    Acad::ErrorStatus setDimensionText(const ACHAR* text);
    AcDbObjectId dimensionStyle() const { return AcDbObjectId(m_style); }
    /// As the drawing file tells.
    double measurement() const { return m_measurement; }
    AcGeVector3d normal() const { return m_normal; }
    /// The definition point that all kinds have: where the dimension line stands.
    AcGePoint3d definitionPoint() const { return m_definition; }

    /// What its block shows; without one, what it measures.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    /// What is more than a move gives it a block of its own, which shows the former one turned or scaled; a dimension
    /// in no drawing keeps its block as it is. The text that the block shows stays what it says. What stretches leaves
    /// the points alone to tell: without a block, it shows what they measure now.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
    /// Copies of what its block shows.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const override;

protected:
    AcDbDimension() = default;
    AcDbDimension(const AcDbDimension&) = default;
    AcGePoint3d m_point13, m_point14, m_point15, m_point16; // by their group codes, in the world
    double m_angle = 0.0, m_leader = 0.0;

private:
    friend struct DxfFieldsOfDimensions;
    AcDbStub* m_block = nullptr;
    AcDbStub* m_style = nullptr;
    AcGePoint3d m_definition;                // in the world
    AcGePoint3d m_textPosition, m_insertion; // in the coordinates of its plane
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    std::wstring m_text;
    double m_measurement = 0.0, m_textRotation = 0.0;
    Adesk::Int16 m_type = 0;
};

/// Along the line between its two points.
class AcDbAlignedDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbAlignedDimension);
    AcDbAlignedDimension() = default;
    AcRxObject* clone() const override { return new AcDbAlignedDimension(*this); }
    AcGePoint3d xLine1Point() const { return m_point13; }
    AcGePoint3d xLine2Point() const { return m_point14; }
    AcGePoint3d dimLinePoint() const { return definitionPoint(); }
};

/// Between its two points along a direction.
class AcDbRotatedDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbRotatedDimension);
    AcDbRotatedDimension() = default;
    AcRxObject* clone() const override { return new AcDbRotatedDimension(*this); }
    AcGePoint3d xLine1Point() const { return m_point13; }
    AcGePoint3d xLine2Point() const { return m_point14; }
    AcGePoint3d dimLinePoint() const { return definitionPoint(); }
    double rotation() const { return m_angle; }
};

class AcDbRadialDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbRadialDimension);
    AcDbRadialDimension() = default;
    AcRxObject* clone() const override { return new AcDbRadialDimension(*this); }
    AcGePoint3d center() const { return definitionPoint(); }
    AcGePoint3d chordPoint() const { return m_point15; }
    double leaderLength() const { return m_leader; }
};

class AcDbDiametricDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbDiametricDimension);
    AcDbDiametricDimension() = default;
    AcRxObject* clone() const override { return new AcDbDiametricDimension(*this); }
    AcGePoint3d chordPoint() const { return m_point15; }
    AcGePoint3d farChordPoint() const { return definitionPoint(); }
    double leaderLength() const { return m_leader; }
};

class AcDb2LineAngularDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDb2LineAngularDimension);
    AcDb2LineAngularDimension() = default;
    AcRxObject* clone() const override { return new AcDb2LineAngularDimension(*this); }
    AcGePoint3d xLine1Start() const { return m_point13; }
    AcGePoint3d xLine1End() const { return m_point14; }
    AcGePoint3d xLine2Start() const { return m_point15; }
    AcGePoint3d xLine2End() const { return definitionPoint(); }
    AcGePoint3d arcPoint() const { return m_point16; }
};

class AcDb3PointAngularDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDb3PointAngularDimension);
    AcDb3PointAngularDimension() = default;
    AcRxObject* clone() const override { return new AcDb3PointAngularDimension(*this); }
    AcGePoint3d xLine1Point() const { return m_point13; }
    AcGePoint3d xLine2Point() const { return m_point14; }
    AcGePoint3d centerPoint() const { return m_point15; }
};

/// X or Y of a point.
class AcDbOrdinateDimension : public AcDbDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbOrdinateDimension);
    AcDbOrdinateDimension() = default;
    AcRxObject* clone() const override { return new AcDbOrdinateDimension(*this); }
    AcGePoint3d origin() const { return definitionPoint(); }
    AcGePoint3d definingPoint() const { return m_point13; }
    AcGePoint3d leaderEndPoint() const { return m_point14; }
};

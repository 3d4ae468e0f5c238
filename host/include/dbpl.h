#pragma once

#include <vector>

#include "dbcurve.h"
#include "gecarc2d.h"
#include "gelnsg2d.h"
#include "gelnsg3d.h"
#include "gepnt2d.h"

/// One vertex of a lightweight polyline, in the polyline's plane, with the segment that leaves it.
struct AcDbPolylineVertex {
    AcGePoint2d point;
    /// Tangent of a quarter of the angle that the segment turns; positive counter-clockwise, 0 for a straight one.
    double bulge = 0.0;
    double startWidth = 0.0, endWidth = 0.0;
    Adesk::Int32 identifier = 0;
};

/// Lightweight polyline: straight and circular segments in one plane.
/// Vertices are in the coordinates of that plane (the arbitrary axes of its normal) unless a function gives points of
/// space. Vertex indices are 0-based; one out of range gives eInvalidIndex.
class AcDbPolyline : public AcDbPathCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyline);
    enum SegType { kLine, kArc, kCoincident, kPoint, kEmpty };

    AcDbPolyline() = default;
    explicit AcDbPolyline(unsigned int numVerts);
    AcRxObject* clone() const override { return new AcDbPolyline(*this); }

    unsigned int numVerts() const { return static_cast<unsigned int>(m_vertices.size()); }
    /// Inserts before `index`, which may be the number of vertices. Negative widths count as 0.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0, Adesk::Int32 identifier = 0);
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    /// In space.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& point) const;
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& point);
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
    /// eInvalidInput when the widths differ.
    Acad::ErrorStatus getConstantWidth(double& width) const;
    Acad::ErrorStatus setConstantWidth(double width);
    Acad::ErrorStatus getVertexIdentifierAt(unsigned int index, Adesk::Int32& identifier) const;
    Acad::ErrorStatus setVertexIdentifierAt(unsigned int index, Adesk::Int32 identifier);

    /// Kind of the segment that leaves a vertex; kPoint for the last vertex of an open polyline.
    SegType segType(unsigned int index) const;
    Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg2d& line) const;
    Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const;
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const;
    bool isOnlyLines() const { return !hasBulges(); }
    bool hasBulges() const;
    bool hasWidth() const;

    Adesk::Boolean isClosed() const override { return (m_flags & 1) != 0; }
    void setClosed(Adesk::Boolean closed);
    bool hasPlinegen() const { return (m_flags & 128) != 0; }
    void setPlinegen(bool plinegen);
    double elevation() const { return m_elevation; }
    Acad::ErrorStatus setElevation(double elevation);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    Acad::ErrorStatus reverseCurve() override;
    /// eInvalidInput when an arc segment would not stay circular.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbPolyline(const AcDbPolyline&) = default;
    VertexPath path() const override;

private:
    friend struct DxfFieldsOfPolylines;
    void spreadConstantWidth();

    std::vector<AcDbPolylineVertex> m_vertices;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_elevation = 0.0, m_thickness = 0.0;
    double m_constantWidth = 0.0; // counts where a vertex has no widths of its own
    Adesk::Int16 m_flags = 0;
};

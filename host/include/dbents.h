#pragma once

#include <string>
#include <vector>

#include "dbcurve.h"
#include "dbenttxt.h"
#include "dbentvrt.h"
#include "dbpl.h"
#include "gedblar.h"
#include "gemat3d.h"
#include "gept3dar.h"
#include "gescl3d.h"

/// The plain entity kinds; texts stand in dbenttxt.h, those made of vertices in dbentvrt.h. Positions given and taken
/// are world coordinates, unless a member says otherwise; angles are radians. Setters need the object open for write.

/// Walks the entities that an entity owns (attributes, vertices), in order. Made by their owner; the caller deletes it.
class AcDbObjectIterator {
public:
    AcDbObjectIterator(AcDbObjectIdArray ids, std::vector<AcDbEntity*> pending) :
        m_ids(std::move(ids)),
        m_pending(std::move(pending))
    {
    }
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool backwards = false, bool skipDeleted = true);
    /// Null while the owner is in no database.
    AcDbObjectId objectId() const;
    /// The entity itself while the owner is in no database; else null: open it by its id.
    AcDbEntity* entity() const;

private:
    int count() const { return m_ids.length() + static_cast<int>(m_pending.size()); }
    AcDbObjectIdArray m_ids;
    std::vector<AcDbEntity*> m_pending;
    int m_at = 0;
};

class AcDbPoint : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbPoint);
    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& position) : m_position(position) {}
    AcRxObject* clone() const override { return new AcDbPoint(*this); }

    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double ecsRotation() const { return m_rotation; }
    Acad::ErrorStatus setEcsRotation(double angle);

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbPoint(const AcDbPoint&) = default;

private:
    friend struct DxfFieldsOfCurves;
    AcGePoint3d m_position;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_thickness = 0.0, m_rotation = 0.0;
};

class AcDbLine : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbLine);
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : m_start(start), m_end(end) {}
    AcRxObject* clone() const override { return new AcDbLine(*this); }

    AcGePoint3d startPoint() const { return m_start; }
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    AcGePoint3d endPoint() const { return m_end; }
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
    using AcDbCurve::getFirstDeriv;
    Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& deriv) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                        Adesk::Boolean extend = Adesk::kFalse) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    Acad::ErrorStatus reverseCurve() override;
    Acad::ErrorStatus getOrthoProjectedCurve(const AcGePlane& plane, AcDbCurve*& projected) const override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbLine(const AcDbLine&) = default;

private:
    friend struct DxfFieldsOfCurves;
    AcGePoint3d m_start, m_end;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_thickness = 0.0;
};

/// What circles and arcs share: a centre, a radius and a stretch of angles from the X axis of their plane.
class AcDbCircularCurve : public AcDbCurve {
public:
    AcGePoint3d center() const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    double radius() const { return m_radius; }
    /// eInvalidInput unless positive.
    Acad::ErrorStatus setRadius(double radius);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
    using AcDbCurve::getFirstDeriv;
    Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& deriv) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                        Adesk::Boolean extend = Adesk::kFalse) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    /// eInvalidInput when it would not stay circular; getTransformedCopy then gives an ellipse.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
    Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& matrix, AcDbEntity*& copy) const override;
    Acad::ErrorStatus getOrthoProjectedCurve(const AcGePlane& plane, AcDbCurve*& projected) const override;

protected:
    AcDbCircularCurve() = default;
    AcDbCircularCurve(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);
    AcDbCircularCurve(const AcDbCircularCurve&) = default;
    /// From the first angle to the second, which is above it by at most a whole turn.
    virtual void angles(double& from, double& to) const = 0;
    virtual void setAngles(double from, double to) = 0;

    AcGePoint3d m_center; // in the coordinates of its plane
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_radius = 1.0, m_thickness = 0.0;

private:
    friend struct DxfFieldsOfCurves;
    double nearestAngle(const AcGePoint3d& point, bool extend) const;
};

class AcDbCircle : public AcDbCircularCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbCircle);
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius) :
        AcDbCircularCurve(center, normal, radius)
    {
    }
    AcRxObject* clone() const override { return new AcDbCircle(*this); }
    Adesk::Boolean isClosed() const override { return Adesk::kTrue; }
    Adesk::Boolean isPeriodic() const override { return Adesk::kTrue; }

protected:
    AcDbCircle(const AcDbCircle&) = default;
    void angles(double& from, double& to) const override;
    void setAngles(double, double) override {}
};

/// Counter-clockwise from its start angle to its end angle.
class AcDbArc : public AcDbCircularCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbArc);
    AcDbArc() = default;
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);
    AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle, double endAngle);
    AcRxObject* clone() const override { return new AcDbArc(*this); }

    double startAngle() const { return m_startAngle; }
    Acad::ErrorStatus setStartAngle(double angle);
    double endAngle() const { return m_endAngle; }
    Acad::ErrorStatus setEndAngle(double angle);
    double totalAngle() const;
    double length() const { return totalAngle() * radius(); }

protected:
    AcDbArc(const AcDbArc&) = default;
    void angles(double& from, double& to) const override;
    void setAngles(double from, double to) override;

private:
    friend struct DxfFieldsOfCurves;
    double m_startAngle = 0.0, m_endAngle = 6.283185307179586;
};

/// A block shown at a place, scaled and turned, with its attributes.
class AcDbBlockReference : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block);
    AcRxObject* clone() const override { return new AcDbBlockReference(*this); }

    AcDbObjectId blockTableRecord() const { return AcDbObjectId(m_block); }
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);
    AcGePoint3d position() const;
    /// Attributes stay where they are.
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    AcGeScale3d scaleFactors() const { return AcGeScale3d(m_scaleX, m_scaleY, m_scaleZ); }
    /// eInvalidInput for a zero factor.
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    double rotation() const { return m_rotation; }
    Acad::ErrorStatus setRotation(double angle);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// From the block's coordinates to the world: its base point goes to the position.
    AcGeMatrix3d blockTransform() const;
    Acad::ErrorStatus setBlockTransform(const AcGeMatrix3d& transform);

    /// The attribute belongs to the reference from now on; in a database it stays open for write.
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                    bool openErased = false) const;
    AcDbObjectIterator* attributeIterator() const;

    /// What the block shows, its attributes included, nested references and all. eInvalidExtents when empty.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    /// Attributes go along. Changes of shape that no scale factors express give eInvalidInput.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
    /// One level: copies of the block's entities; an attribute definition that is not constant is left out. What scale
    /// factors that differ would bend out of its kind comes as its own parts. eOutOfRange when there are too many.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const override;

protected:
    AcDbBlockReference(const AcDbBlockReference&) = default;
    AcGeMatrix3d cellTransform(int row, int column) const;

    Adesk::Int16 m_rows = 1, m_columns = 1;
    double m_rowSpacing = 0.0, m_columnSpacing = 0.0;

private:
    friend struct DxfFieldsOfReferences;
    friend class BlockExtents;
    friend class BlockParts;
    AcGeMatrix3d placement() const;

    AcDbStub* m_block = nullptr;
    AcGePoint3d m_position; // in the coordinates of its plane
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_scaleX = 1.0, m_scaleY = 1.0, m_scaleZ = 1.0, m_rotation = 0.0;
    bool m_attributesFollow = false;
};

/// The same block in rows and columns.
class AcDbMInsertBlock : public AcDbBlockReference {
public:
    ACRX_DECLARE_MEMBERS(AcDbMInsertBlock);
    AcDbMInsertBlock() = default;
    AcRxObject* clone() const override { return new AcDbMInsertBlock(*this); }
    Adesk::Int16 rows() const { return m_rows; }
    Adesk::Int16 columns() const { return m_columns; }
    double rowSpacing() const { return m_rowSpacing; }
    double columnSpacing() const { return m_columnSpacing; }
    Acad::ErrorStatus setRows(Adesk::Int16 rows);
    Acad::ErrorStatus setColumns(Adesk::Int16 columns);
    Acad::ErrorStatus setRowSpacing(double spacing);
    Acad::ErrorStatus setColumnSpacing(double spacing);

protected:
    AcDbMInsertBlock(const AcDbMInsertBlock&) = default;
};

/// Three or four corners in space.
class AcDbFace : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbFace);
    AcDbFace() = default;
    AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
             Adesk::Boolean e0vis = Adesk::kTrue, Adesk::Boolean e1vis = Adesk::kTrue,
             Adesk::Boolean e2vis = Adesk::kTrue, Adesk::Boolean e3vis = Adesk::kTrue);
    /// A triangle: its fourth corner is the third.
    AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, Adesk::Boolean e0vis = Adesk::kTrue,
             Adesk::Boolean e1vis = Adesk::kTrue, Adesk::Boolean e2vis = Adesk::kTrue,
             Adesk::Boolean e3vis = Adesk::kTrue);
    AcRxObject* clone() const override { return new AcDbFace(*this); }

    Acad::ErrorStatus getVertexAt(Adesk::UInt16 corner, AcGePoint3d& point) const;
    Acad::ErrorStatus setVertexAt(Adesk::UInt16 corner, const AcGePoint3d& point);
    Acad::ErrorStatus isEdgeVisibleAt(Adesk::UInt16 edge, Adesk::Boolean& visible) const;
    Acad::ErrorStatus makeEdgeVisibleAt(Adesk::UInt16 edge);
    Acad::ErrorStatus makeEdgeInvisibleAt(Adesk::UInt16 edge);

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
    /// Into lines along its visible edges.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const override;

protected:
    AcDbFace(const AcDbFace&) = default;

private:
    friend struct DxfFieldsOfFaces;
    AcGePoint3d* cornerAt(Adesk::UInt16 corner);
    const AcGePoint3d* cornerAt(Adesk::UInt16 corner) const;
    AcGePoint3d m_corner0, m_corner1, m_corner2, m_corner3;
    Adesk::Int16 m_invisibleEdges = 0; // bit n: the edge that leaves corner n
};

/// What solids and traces share: a filled quadrilateral of a plane. Its outline runs 0, 1, 3, 2.
class AcDbFilledQuad : public AcDbEntity {
public:
    Acad::ErrorStatus getPointAt(Adesk::UInt16 corner, AcGePoint3d& point) const;
    Acad::ErrorStatus setPointAt(Adesk::UInt16 corner, const AcGePoint3d& point);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbFilledQuad() = default;
    AcDbFilledQuad(const AcDbFilledQuad&) = default;
    void setCorners(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3);

private:
    friend struct DxfFieldsOfFaces;
    AcGePoint3d* cornerAt(Adesk::UInt16 corner);
    const AcGePoint3d* cornerAt(Adesk::UInt16 corner) const;
    AcGePoint3d m_corner0, m_corner1, m_corner2, m_corner3; // in the coordinates of its plane
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_thickness = 0.0;
};

class AcDbSolid : public AcDbFilledQuad {
public:
    ACRX_DECLARE_MEMBERS(AcDbSolid);
    AcDbSolid() = default;
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
    {
        setCorners(p0, p1, p2, p3);
    }
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2) { setCorners(p0, p1, p2, p2); }
    AcRxObject* clone() const override { return new AcDbSolid(*this); }

protected:
    AcDbSolid(const AcDbSolid&) = default;
};

class AcDbTrace : public AcDbFilledQuad {
public:
    ACRX_DECLARE_MEMBERS(AcDbTrace);
    AcDbTrace() = default;
    AcDbTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
    {
        setCorners(p0, p1, p2, p3);
    }
    AcRxObject* clone() const override { return new AcDbTrace(*this); }

protected:
    AcDbTrace(const AcDbTrace&) = default;
};

/// Opens a block definition in the drawing file. Its base point is in the block's own coordinates.
class AcDbBlockBegin : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockBegin);
    AcDbBlockBegin() = default;
    AcRxObject* clone() const override { return new AcDbBlockBegin(*this); }

    const ACHAR* name() const { return m_name.c_str(); }
    Acad::ErrorStatus setName(const ACHAR* name);
    /// 1 anonymous, 2 has attribute definitions, 4 external reference, 8 overlay, 16 dependent.
    Adesk::Int16 flags() const { return m_flags; }
    Acad::ErrorStatus setFlags(Adesk::Int16 flags);
    AcGePoint3d basePoint() const { return m_basePoint; }
    Acad::ErrorStatus setBasePoint(const AcGePoint3d& point);
    const ACHAR* pathName() const { return m_path.c_str(); }
    Acad::ErrorStatus setPathName(const ACHAR* path);
    const ACHAR* description() const { return m_description.c_str(); }
    Acad::ErrorStatus setDescription(const ACHAR* description);

protected:
    AcDbBlockBegin(const AcDbBlockBegin&) = default;

private:
    friend struct DxfFieldsOfReferences;
    std::wstring m_name, m_secondName, m_path, m_description;
    AcGePoint3d m_basePoint;
    Adesk::Int16 m_flags = 0;
};

/// Closes a block definition in the drawing file.
class AcDbBlockEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockEnd);
    AcDbBlockEnd() = default;
    AcRxObject* clone() const override { return new AcDbBlockEnd(*this); }

protected:
    AcDbBlockEnd(const AcDbBlockEnd&) = default;
};

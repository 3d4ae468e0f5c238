#pragma once

#include <vector>

#include "db/entities/PathSegment.h"

#include "dbpl.h"

/// The vertices of a polyline as a curve. Its parameter is that of polylines: i + t on segment i.
/// Points are in the world; vertices are along the axes of the plane of `normal`.
/// Built for the length of a call: it may borrow the vertices of a lightweight polyline.
class VertexPath {
public:
    struct Vertex {
        AcGePoint3d point;
        double bulge = 0.0;
    };

    VertexPath(const std::vector<AcDbPolylineVertex>& borrowed, double elevation, const AcGeVector3d& normal,
               bool closed, double thickness) :
        m_borrowed(&borrowed),
        m_elevation(elevation),
        m_normal(normal),
        m_thickness(thickness),
        m_closed(closed)
    {
    }
    VertexPath(std::vector<Vertex> vertices, const AcGeVector3d& normal, bool closed, double thickness = 0.0) :
        m_own(std::move(vertices)),
        m_normal(normal),
        m_thickness(thickness),
        m_closed(closed)
    {
    }

    std::size_t vertexCount() const { return m_borrowed ? m_borrowed->size() : m_own.size(); }
    Vertex vertex(std::size_t i) const;
    std::size_t segmentCount() const;
    PathSegment segment(std::size_t i) const;
    const AcGeVector3d& normal() const { return m_normal; }
    /// From the path to the other edge of the strip that a thickness makes of it.
    AcGeVector3d extrusion() const { return m_normal * m_thickness; }
    bool isClosed() const { return m_closed; }

    double endParam() const { return static_cast<double>(segmentCount()); }
    /// False outside the path; a path of one vertex has its parameter 0.
    bool pointAt(double param, AcGePoint3d& point) const;
    bool derivativeAt(double param, AcGeVector3d& derivative) const;
    bool lengthTo(double param, double& length) const;
    bool paramAtLength(double length, double& param) const;
    /// False when there is no vertex.
    bool nearest(const AcGePoint3d& point, double& param, AcGePoint3d& onPath) const;
    /// Of a closed outline, or one closed by a straight line; projected on the plane of the normal.
    double area() const;
    /// Of the path alone, without its extrusion.
    void addExtents(AcDbExtents& extents) const;
    bool liesInOnePlane() const;
    /// Appends a line or an arc for each segment, looking like `origin`; the caller's to delete.
    void explode(const AcDbEntity& origin, AcDbVoidPtrArray& entities) const;

private:
    bool locate(double param, std::size_t& segment, double& t) const;

    const std::vector<AcDbPolylineVertex>* m_borrowed = nullptr;
    std::vector<Vertex> m_own;
    double m_elevation = 0.0;
    AcGeVector3d m_normal;
    double m_thickness;
    bool m_closed;
};

#pragma once

#include <map>
#include <string>

#include "gi/DisplayList.h"

#include "dbents.h"

/// Turns entities into primitives. An entity must be open for read, or be in no drawing; what it owns is opened here.

/// Where an entity stands: definitions of attributes show their tag in the open, and within a shown block only when
/// they are the same for all references, as the text they are.
enum class Standing { open, withinBlock };

/// Appends one part for the entity, and one for each attribute of a reference and each piece of a picture that the
/// entity brings along. Nothing for an invisible entity or one of a class that shows nothing.
void addEntity(const AcDbEntity& entity, Standing standing, DisplayList& list);

// The kinds, by their files. Each adds to the part that was begun.

// CurveGraphics.cpp
/// A path that is one arc.
Path arcPath(const PathArc& arc);
void addLine(const AcDbLine& line, DisplayList& list);
void addCircular(const AcDbCircularCurve& curve, DisplayList& list);
void addEllipse(const class AcDbEllipse& ellipse, DisplayList& list);
void addSpline(const class AcDbSpline& spline, DisplayList& list);
// PolylineGraphics.cpp
void addPolyline(const AcDbPolyline& polyline, DisplayList& list);
void add2dPolyline(const AcDb2dPolyline& polyline, DisplayList& list);
void add3dPolyline(const AcDb3dPolyline& polyline, DisplayList& list);
// TextGraphics.cpp
void addText(const AcDbText& text, std::wstring_view shown, DisplayList& list);
/// Runs one after the other, from where the label stands.
void addRuns(const std::vector<struct ShownRun>& runs, Label label, DisplayList& list);
void addMText(const class AcDbMText& text, DisplayList& list);
// FaceGraphics.cpp
void addFace(const AcDbFace& face, DisplayList& list);
void addQuad(const AcDbFilledQuad& quad, DisplayList& list);
void addMesh(const AcDbVertexMesh& mesh, DisplayList& list);
// HatchGraphics.cpp
void addHatch(const class AcDbHatch& hatch, DisplayList& list);
// DimensionGraphics.cpp: by its own data, where no block shows it
void addBareDimension(const class AcDbDimension& dimension, DisplayList& list);
// ForeignGraphics.cpp: of classes that are not modelled, by the tags of their file
bool isShownByTags(const AcDbEntity& entity);
void addByTags(const AcDbEntity& entity, DisplayList& list);
/// How many entities of the file no picture shows, by the name of their class in DXF. Nothing is decoded.
std::map<std::string, std::size_t> entitiesNotDrawn(const AcDbDatabase& database);
/// The same as a sentence for the user, in French and UTF-8; empty when all of it is drawn.
std::string notDrawnSentence(const AcDbDatabase& database);

/// A plane path of vertices with bulges, shown through `toOwner`.
struct BulgedVertex {
    AcGePoint3d point;
    double bulge = 0.0;
};
Path bulgedPath(const std::vector<BulgedVertex>& vertices, bool closed, const AcGeMatrix3d& toOwner);
/// What a polyline of a plane is made of, in the coordinates of its plane.
struct PlanePolyline {
    std::vector<BulgedVertex> vertices;
    std::vector<std::pair<double, double>> widths; ///< of the segment that leaves each; none: lines
    bool closed = false, unbroken = false, smooth = false;
    AcGeVector3d normal;
};
/// `place` takes the world of the polyline to that of the list.
void addPlanePolyline(PlanePolyline plane, DisplayList& list, const AcGeMatrix3d& place = AcGeMatrix3d());
/// Coordinates along the arbitrary axes of a normal to the world; the identity for the world's own plane and for a
/// normal without length.
AcGeMatrix3d planeOf(const AcGeVector3d& normal);

#pragma once

#include <string>
#include <vector>

#include "dbmain.h"
#include "gedblar.h"
#include "gept2dar.h"

/// One group of a hatch in its drawing file: a code with a number, a text or a reference.
struct AcDbHatchTag {
    Adesk::Int16 code;
    double number = 0.0;
    AcDbStub* object = nullptr;
    std::wstring text;
};

/// An area filled with a colour or a pattern. Its outlines can be read, not changed; it moves with transformBy.
class AcDbHatch : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbHatch);
    enum HatchLoopType { kDefault = 0, kExternal = 1, kPolyline = 2, kDerived = 4, kTextbox = 8, kOutermost = 16 };

    AcDbHatch() = default;
    AcRxObject* clone() const override { return new AcDbHatch(*this); }

    /// Valid while the hatch is open.
    const ACHAR* patternName() const;
    bool isSolidFill() const;
    /// Filled from one colour to another, or to a tint of it: a solid fill as well.
    bool isGradient() const;
    double patternAngle() const;
    double patternScale() const;
    double elevation() const;
    AcGeVector3d normal() const;

    int numLoops() const;
    /// Outline as a closed polyline, in the coordinates of the hatch's plane: elliptic and spline edges are followed by
    /// short chords. The arrays are replaced.
    Acad::ErrorStatus getLoopAt(int index, Adesk::Int32& loopType, AcGePoint2dArray& vertices,
                                AcGeDoubleArray& bulges) const;

    /// The families of parallel lines that the pattern is made of, as they lie in the hatch: scaled and turned already.
    int numPatternDefinitions() const;
    /// One family: its direction (radians), a point of its first line, the way from one line to the next, and dashes as
    /// in linetypes; none of them for a whole line. Coordinates are those of the hatch's plane.
    Acad::ErrorStatus getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY, double& offsetX,
                                             double& offsetY, AcGeDoubleArray& dashes) const;

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    /// Through one that stretches, arcs of outlines become elliptic, and the pattern goes through the similarity that
    /// is closest to it, so that its angle and scale still say what it is.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbHatch(const AcDbHatch&) = default;

private:
    friend struct DxfFieldsOfHatch;
    friend std::int32_t middleOfGradient(const AcDbHatch& hatch);
    double number(int code, double otherwise) const;

    std::vector<AcDbHatchTag> m_tags; // all of it, in the order of the file
};

#include "db/entities/GradientColor.h"
#include "gi/EntityGraphics.h"

#include "dbhatch.h"

namespace {

std::vector<Path> ringsOf(const AcDbHatch& hatch, const AcGeMatrix3d& toOwner)
{
    std::vector<Path> rings;
    AcGePoint2dArray vertices;
    AcGeDoubleArray bulges;
    for (int i = 0; i < hatch.numLoops(); ++i) {
        Adesk::Int32 type = 0;
        if (hatch.getLoopAt(i, type, vertices, bulges) != Acad::eOk || vertices.length() < 2)
            continue;
        std::vector<BulgedVertex> outline;
        for (int k = 0; k < vertices.length(); ++k)
            outline.push_back({AcGePoint3d(vertices[k].x, vertices[k].y, hatch.elevation()), bulges[k]});
        rings.push_back(bulgedPath(outline, true, toOwner));
    }
    return rings;
}

} // namespace

void addHatch(const AcDbHatch& hatch, DisplayList& list)
{
    const AcGeMatrix3d plane = planeOf(hatch.normal());
    if (hatch.isSolidFill()) {
        Area area{ringsOf(hatch, plane)};
        if (hatch.isGradient())
            area.trueColor = middleOfGradient(hatch);
        return list.add(std::move(area));
    }
    Pattern pattern;
    pattern.rings = ringsOf(hatch, plane);
    for (int i = 0; i < hatch.numPatternDefinitions(); ++i) {
        double angle = 0.0, baseX = 0.0, baseY = 0.0, offsetX = 0.0, offsetY = 0.0;
        AcGeDoubleArray dashes;
        if (hatch.getPatternDefinitionAt(i, angle, baseX, baseY, offsetX, offsetY, dashes) != Acad::eOk)
            continue;
        pattern.families.push_back({plane * AcGePoint3d(baseX, baseY, hatch.elevation()),
                                    plane * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0),
                                    plane * AcGeVector3d(offsetX, offsetY, 0.0),
                                    std::vector<double>(dashes.begin(), dashes.end())});
    }
    list.add(std::move(pattern));
}

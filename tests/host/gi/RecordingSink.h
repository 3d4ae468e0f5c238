#pragma once

#include <string>
#include <vector>

#include "gi/GraphicsSink.h"

/// Writes down what it is given, a line each:
///     "line FF0000: 0,0 10,5"    "area 7: 0,0 10,0 10,10"    "dot 7: 1,2"
///     "text 7: <Borne> at 0,0 along 2.5,0 up 0,2.5"
/// Colours are 0xRRGGBB, or 7 for the one that turns with the ground; numbers have at most three decimals. A second
/// ring of an area stands behind a stroke "|".
class RecordingSink : public GraphicsSink {
public:
    std::vector<std::string> lines;
    std::vector<std::vector<AcGePoint3d>> polylines;
    std::vector<AcDbObjectId> entered;
    int lastWeight = 0;

    void polyline(Points points, const Appearance& look) override;
    void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance& look) override;
    void dot(const AcGePoint3d& point, const Appearance& look) override;
    void text(const TextItem& item, const Appearance& look) override;
    bool enter(AcDbObjectId entity, const AcGeMatrix3d& toWorld) override;
};

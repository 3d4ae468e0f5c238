#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "dbid.h"
#include "gemat3d.h"

/// How a primitive looks once layers and blocks have been asked.
struct Appearance {
    std::uint32_t rgb = 0xFFFFFF; ///< 0xRRGGBB
    bool contrasting = true;      ///< colour 7: white on a dark ground, black on a light one; `rgb` does not count
    bool ground = false;          ///< the colour of the ground, whatever else: hides what was drawn before
    int lineWeight = -3;          ///< hundredths of a millimetre; -3 for the usual one
    bool operator==(const Appearance&) const = default;
};

/// A run of text on one line. A point of a character at (x, y), in heights of a capital letter, is shown at
/// origin + along · x + up · y: that says height, rotation, width factor, slant and mirroring at once.
/// Characters follow each other at the distances that `textWidth` (TextMetrics.h) counts.
struct TextItem {
    std::wstring_view text; ///< as it shows: control codes are replaced
    AcGePoint3d origin;     ///< left end of the baseline
    AcGeVector3d along, up;
    double width = 0.0;     ///< of all of it, in heights of a capital letter
    std::wstring_view font; ///< font file of its text style
    bool underlined = false, overlined = false, struck = false;
    std::vector<std::vector<AcGePoint3d>> clips; ///< rings that cut it: it shows where all of them lie
};

/// Takes the primitives that a scene is drawn with. Coordinates are the world's, all of them finite.
class GraphicsSink {
public:
    using Points = std::span<const AcGePoint3d>;

    virtual ~GraphicsSink() = default;

    /// Two points at least.
    virtual void polyline(Points points, const Appearance& look) = 0;
    /// Filled by the rule of odd and even; rings are not closed by repeating their first point.
    virtual void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance& look) = 0;
    /// One pixel.
    virtual void dot(const AcGePoint3d& point, const Appearance& look) = 0;
    virtual void text(const TextItem& item, const Appearance& look) = 0;

    /// What follows up to `leave` is shown by this entity: an entity of the drawing, then those within the blocks that
    /// it shows, and its attributes. `toWorld` takes the coordinates that the entity itself is given in to the world.
    /// False leaves the entity out, and `leave` is not called for it.
    virtual bool enter(AcDbObjectId /*entity*/, const AcGeMatrix3d& /*toWorld*/) { return true; }
    virtual void leave() {}
    /// Asked now and then: true ends the drawing early.
    virtual bool stopped() { return false; }
};

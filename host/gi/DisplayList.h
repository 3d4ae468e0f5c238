#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "dbmain.h"
#include "gemat3d.h"

/// What entities are made of, in the coordinates of the block that holds them: nothing is cut, scaled or followed by
/// chords yet. A list is read from the drawing once and shown in many views and, for a block, by many references.

/// What an entity says of its look; layers and blocks are asked when it is shown.
struct EntityLook {
    AcDbStub* layer = nullptr;
    AcDbStub* linetype = nullptr; ///< null: by layer
    double linetypeScale = 1.0;
    std::int32_t trueColor = -1;
    std::int16_t color = 256, lineWeight = -1;
    bool operator==(const EntityLook&) const = default;
};

/// A stretch of an ellipse, most often of a circle: center + toStart · cos t + across · sin t, t from 0 to `turn` > 0.
struct PathArc {
    std::uint32_t segment; ///< of the path that it is
    AcGePoint3d center;
    AcGeVector3d toStart, across;
    double turn;

    AcGePoint3d at(double t) const { return center + toStart * std::cos(t) + across * std::sin(t); }
};

/// Lines and arcs from point to point; one that is closed ends where it begins.
struct Path {
    std::vector<AcGePoint3d> points;
    std::vector<PathArc> arcs; ///< by segment, in order; the other segments are straight
    bool smooth = false;       ///< its inner points only follow a curve: they are no corners
    bool unbroken = false;     ///< dashes run on over corners

    bool isClosed() const;
    /// The arc that a segment is, or null.
    const PathArc* arcOf(std::size_t segment) const;
};

/// A path of a plane with a width at both ends of each segment.
struct WidePath {
    Path path;
    std::vector<std::pair<double, double>> widths;
    AcGeVector3d normal;
};

/// Filled by the rule of odd and even.
struct Area {
    std::vector<Path> rings;
    bool hasCorners = false; ///< object snaps find its corners: a solid's, not a hatch's
    bool hides = false;      ///< filled in the colour of the ground: what was drawn before is not seen
    std::int32_t trueColor = -1;
    std::int16_t color = -1; ///< of this area alone; -1: that of its entity
};

/// Parallel lines: all that lie k steps of `offset` from `base`, along `direction`, with dashes as in linetypes.
struct PatternFamily {
    AcGePoint3d base;
    AcGeVector3d direction, offset;
    std::vector<double> dashes;
};

/// An area with lines in it.
struct Pattern {
    std::vector<Path> rings;
    std::vector<PatternFamily> families;
};

/// A point entity: shown by the figure that the drawing has set.
struct PointMark {
    AcGePoint3d position;
    double rotation = 0.0;
};

/// A run of text: see TextItem.
struct Label {
    std::wstring text;
    AcGePoint3d origin;
    AcGeVector3d along, up;
    double width = 0.0; ///< told by the list
    AcDbStub* style = nullptr;
    std::int32_t trueColor = -1;
    std::int16_t color = -1; ///< of this run alone; -1: that of its entity
    bool underlined = false, overlined = false, struck = false;
};

/// Where a text or a reference is inserted; nothing is shown.
struct Anchor {
    AcGePoint3d point;
};

/// A block shown in rows and columns; most often in one of each.
struct BlockUse {
    AcDbStub* block = nullptr;
    AcGeMatrix3d toOwner; ///< of the first cell
    int rows = 1, columns = 1;
    AcGeVector3d rowStep, columnStep;
    std::vector<AcGePoint3d> clip; ///< ring outside of which nothing shows, in the block; empty for none
};

using Primitive = std::variant<Path, Area, PointMark, Label, Anchor, std::unique_ptr<WidePath>,
                               std::unique_ptr<Pattern>, std::unique_ptr<BlockUse>>;

/// A ring outside of which a part does not show, and the one that this is within.
struct PartClip {
    std::vector<AcGePoint3d> ring;
    std::shared_ptr<const PartClip> outer;
};

/// The primitives of one entity or of one piece of its picture, a run of those in a list.
struct DisplayPart {
    AcDbObjectId entity;
    EntityLook look;
    std::shared_ptr<const PartClip> clip; ///< null for none
    AcDbExtents box;                      ///< without the blocks it shows, and not cut yet
    std::uint32_t first = 0, last = 0;
    bool isAttribute = false; ///< of the reference before it
    bool isPiece = false;     ///< of the entity of the part before it, in a look of its own
    bool isHidden = false;    ///< an invisible attribute
    bool isEndless = false;   ///< a line that goes on beyond any view: it says nothing of the drawing's size
};

class DisplayList {
public:
    const std::vector<DisplayPart>& parts() const { return m_parts; }
    const Primitive& primitive(std::uint32_t i) const { return m_primitives[i]; }
    bool showsBlocks() const { return m_showsBlocks; }
    /// About what it takes of memory.
    std::size_t bytes() const { return m_bytes; }
    /// Adds what is held beside the primitives.
    void count(std::size_t bytes) { m_bytes += bytes; }

    /// What is added from now on belongs to this entity.
    DisplayPart& begin(const AcDbEntity& entity);
    DisplayPart& current() { return m_parts.back(); }
    /// What has a coordinate that is no number, or none to reckon with, is left out.
    void add(Path path);
    void add(Area area);
    void add(PointMark mark);
    void add(Label label);
    void add(Anchor anchor);
    void add(WidePath path);
    void add(Pattern pattern);
    void add(BlockUse use);

private:
    void append(Primitive primitive, std::size_t bytes);

    std::vector<DisplayPart> m_parts;
    std::vector<Primitive> m_primitives;
    std::size_t m_bytes = sizeof(DisplayList);
    bool m_showsBlocks = false;
};

/// The four corners of a text, its descenders left out: first the left end of the baseline, then round.
std::array<AcGePoint3d, 4> cornersOf(const Label& label);

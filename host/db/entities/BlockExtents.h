#pragma once

#include <array>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "dbmain.h"
#include "gemat3d.h"

class AcDbBlockReference;

/// Box of what a block reference shows, nested ones and all.
///
/// Blocks are walked with the turn and the slant that show them, so that the box is the smallest one; a block that is
/// only scaled or moved is walked once and its box kept, and so is one that is turned alike within one reference:
/// blocks that hold each other twice would double from level to level. A block within itself shows nothing. Past a
/// limit of entities walked the boxes of blocks stand for what is in them. The blocks being walked stand in a list, not
/// in calls within calls: a drawing may nest them without end.
class BlockExtents {
public:
    /// Empty when the reference shows nothing.
    AcDbExtents of(const AcDbBlockReference& reference);
    /// A box around that one, larger where blocks are turned: no entity is walked more than once for all references.
    AcDbExtents around(const AcDbBlockReference& reference);

private:
    using Turn = std::array<double, 9>; ///< a transformation without its shift

    /// A block that is shown somewhere.
    struct Use {
        AcDbStub* block;
        AcGeMatrix3d matrix;
    };
    /// A block being walked.
    struct Walk {
        AcDbStub* block = nullptr; ///< null: the reference that is asked about
        AcGeMatrix3d matrix;       ///< from the block to where its box is reckoned: a turn, or nothing
        AcGeMatrix3d toOuter;      ///< from there to where that of the walk before this one is
        bool isTurned = false;
        AcDbExtents box;
        std::vector<AcDbStub*> entities;
        std::size_t next = 0;
        std::vector<Use> uses; ///< found, and not entered yet
    };

    AcDbExtents walked(const AcDbBlockReference& reference);
    const AcDbExtents* known(const Walk& walk) const;
    void addReference(const AcDbBlockReference& reference, Walk& walk);
    void addEntity(const AcDbEntity& entity, Walk& walk);
    void enter(const Use& use);
    void step();
    void leave();

    std::vector<Walk> m_walks; ///< each within the one before it
    std::unordered_set<AcDbStub*> m_entered;
    std::unordered_map<AcDbStub*, AcDbExtents> m_boxes;         // as the blocks stand
    std::map<std::pair<AcDbStub*, Turn>, AcDbExtents> m_turned; // of the reference being walked
    static constexpr int mostWalked = 25000;                    // entities of a reference, turned
    int m_left = mostWalked;
};

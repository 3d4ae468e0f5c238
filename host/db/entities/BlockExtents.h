#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "dbmain.h"
#include "gemat3d.h"

class AcDbBlockReference;

/// Box of what a block reference shows, nested ones and all.
///
/// Blocks are walked with the whole transformation that shows them, so that the box is the smallest one; a block that
/// is only scaled or moved is walked once and its box kept. A block within itself shows nothing. Past a limit of
/// entities walked (blocks that nest by the dozen multiply fast) the kept boxes stand for what is in them. The blocks
/// being walked stand in a list, not in calls within calls: a drawing may nest them without end.
class BlockExtents {
public:
    /// Empty when the reference shows nothing.
    AcDbExtents of(const AcDbBlockReference& reference);

private:
    /// A block that is shown somewhere.
    struct Use {
        AcDbStub* block;
        AcGeMatrix3d matrix;
    };
    /// A block being walked.
    struct Walk {
        AcDbStub* block = nullptr; ///< null: the reference that is asked about
        AcGeMatrix3d matrix;       ///< from the block to where its box is reckoned
        AcGeMatrix3d toOuter;      ///< from there to where that of the walk before this one is
        bool keeps = false;        ///< the box is the block's own
        AcDbExtents box;
        std::vector<AcDbStub*> entities;
        std::size_t next = 0;
        std::vector<Use> uses; ///< found, and not entered yet
    };

    void addReference(const AcDbBlockReference& reference, Walk& walk);
    void addEntity(const AcDbEntity& entity, Walk& walk);
    void enter(const Use& use);
    void step();
    void leave();

    std::vector<Walk> m_walks; ///< each within the one before it
    std::unordered_set<AcDbStub*> m_entered;
    std::unordered_map<AcDbStub*, AcDbExtents> m_boxes;
    static constexpr int mostWalked = 100000; // entities of a reference, turned
    int m_left = mostWalked;
};

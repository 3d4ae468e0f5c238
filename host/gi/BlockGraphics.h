#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "gi/DisplayList.h"

/// What the blocks of a drawing show, each read once, when it is first asked for.
class BlockGraphics {
public:
    struct Block {
        DisplayList list;
        AcDbExtents box; ///< nested blocks included; empty when it shows nothing
    };

    /// Nothing shows of a block that is none.
    const Block& of(AcDbStub* block);
    bool knows(AcDbStub* block) const { return m_blocks.contains(block); }
    void forget() { m_blocks.clear(); }

    /// The box of a list, with the blocks it shows. Hidden attributes count when `withHidden`.
    AcDbExtents boxOf(const DisplayList& list, bool withHidden);
    /// That of one part of it.
    AcDbExtents boxOf(const DisplayList& list, const DisplayPart& part);
    /// That of all cells of a reference.
    AcDbExtents boxOf(const BlockUse& use);

private:
    /// A block whose box waits for those of the blocks that it shows.
    struct Reading {
        Block* block;
        std::vector<AcDbStub*> nested;
    };
    Reading read(AcDbStub* block);

    // One that is being read is there already, empty: a block within itself shows nothing of itself.
    std::unordered_map<AcDbStub*, std::unique_ptr<Block>> m_blocks;
};

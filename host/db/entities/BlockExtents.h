#pragma once

#include <unordered_map>
#include <vector>

#include "dbmain.h"
#include "gemat3d.h"

class AcDbBlockReference;

/// Box of what block references show, nested ones and all.
///
/// Blocks are walked with the whole transformation that shows them, so that the box is the smallest one; a block that
/// is only scaled or moved is walked once and its box kept. A block within itself shows nothing. Past a limit of
/// entities walked (blocks that nest by the dozen multiply fast) the kept boxes stand for what is in them.
class BlockExtents {
public:
    /// What a reference shows under a further transformation.
    void add(const AcDbBlockReference& reference, const AcGeMatrix3d& matrix, AcDbExtents& extents);

private:
    void addBlock(AcDbStub* block, const AcGeMatrix3d& matrix, AcDbExtents& extents);
    void addEntity(const AcDbEntity& entity, const AcGeMatrix3d& matrix, AcDbExtents& extents);
    void walk(AcDbStub* block, const AcGeMatrix3d& matrix, AcDbExtents& extents);
    const AcDbExtents& ownBox(AcDbStub* block);

    std::unordered_map<AcDbStub*, AcDbExtents> m_boxes;
    std::vector<AcDbStub*> m_entered;
    static constexpr int mostWalked = 100000; // entities of a reference, turned
    int m_left = mostWalked;
};

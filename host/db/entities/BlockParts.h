#pragma once

#include <memory>
#include <vector>

#include "dbmain.h"
#include "gemat3d.h"

class AcDbBlockReference;

/// What a block reference explodes into: copies of the entities of its block, moved. One that scale factors which
/// differ would bend out of its kind comes as its parts; a reference among those as the entities of its block, and so
/// on down, by a list: a drawing may nest its blocks without end.
class BlockParts {
public:
    /// Adds those of one reference, in drawing order. After another status than eOk they are not all there: eOutOfRange
    /// where they are too many, which is known before the first one is made.
    Acad::ErrorStatus add(const AcDbBlockReference& reference);
    /// From now on the caller's.
    void giveTo(AcDbVoidPtrArray& entities);

private:
    class Count;

    /// The cells of a reference, gone through one after the other.
    struct Walk {
        AcDbStub* block;
        std::vector<AcGeMatrix3d> cells;
        std::vector<AcDbStub*> entities;
        std::size_t cell = 0, next = 0;
    };

    Acad::ErrorStatus enter(const AcDbBlockReference& reference, const AcGeMatrix3d& matrix);
    Acad::ErrorStatus step();
    Acad::ErrorStatus addEntity(const AcDbEntity& entity, const AcGeMatrix3d& matrix);
    Acad::ErrorStatus addMoved(const AcDbEntity& entity, const AcGeMatrix3d& matrix);

    std::vector<Walk> m_walks; // each within the one before it
    std::vector<std::unique_ptr<AcDbEntity>> m_made;
    int m_steps = 0;
};

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lisp/drawing/EntityLists.h"

#include "dbents.h"

/// Entities that entmake makes from several lists: POLYLINE with its VERTEX, INSERT with its ATTRIB, up to SEQEND; a
/// BLOCK with its entities, up to ENDBLK. Nothing is in the drawing before the last list; a list that does not belong
/// there gives up what was begun.
class EntitySequence {
public:
    static EntitySequence& ofCurrentDocument();

    /// What became of a list.
    struct Made {
        AcDbObjectId id;    ///< null while parts are still to come
        bool taken = false; ///< false when a layer is not known, or a value does not fit
    };
    /// @throws LispError for a kind that cannot be made.
    Made take(const std::wstring& kind, const std::vector<GroupPair>& pairs);

private:
    Made begin(const std::wstring& kind, const std::vector<GroupPair>& pairs);
    Made takePart(const std::wstring& kind, const std::vector<GroupPair>& pairs);
    Made beginBlock(const std::vector<GroupPair>& pairs);
    Made endBlock();
    /// An entity that is whole joins the block being made, or the current space.
    Made finish(std::unique_ptr<AcDbEntity> entity);
    void giveUp();

    std::unique_ptr<AcDbEntity> m_parent; ///< whose parts are coming
    bool m_inBlock = false;
    std::wstring m_blockName;
    AcGePoint3d m_blockOrigin;
    std::vector<std::unique_ptr<AcDbEntity>> m_blockEntities;
};

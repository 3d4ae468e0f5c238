#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "dbmain.h"

/// Where (entnext), (tblnext) and (dictnext) stand in the drawing, so that a loop over everything stays linear.

/// Entities in drawing order; those of a polyline or a block reference follow it.
class EntityWalk {
public:
    /// The one behind an entity in its block; null at the end. Erased ones are passed.
    AcDbObjectId after(AcDbObjectId entity);
    /// The first and the last one of a block; the last one is not a sub-entity.
    static AcDbObjectId first(AcDbObjectId block);
    static AcDbObjectId last(AcDbObjectId block);

private:
    std::size_t placeOf(AcDbObjectId entity, AcDbObjectId block);
    void takeSubentities(AcDbObjectId parent);
    AcDbObjectId subentityFrom(std::size_t at);
    AcDbObjectId mainAfter(AcDbObjectId entity);

    AcDbObjectId m_block;
    std::unordered_map<AcDbStub*, std::size_t> m_places; // of the entities of m_block known so far
    AcDbObjectId m_parent;
    std::vector<AcDbStub*> m_subentities; // of m_parent, with what ends them
    std::size_t m_subentity = 0;          // the one answered last
};

/// Names and objects of tables and dictionaries, each at its own place.
class NamedWalk {
public:
    /// The next one that is not erased; null at the end. `restart` begins again. `list` gives all of them.
    template <class List>
    AcDbObjectId next(AcDbObjectId container, bool restart, List list)
    {
        auto [place, isNew] = m_walks.try_emplace(container.stub());
        Walk& walk = place->second;
        if (isNew || restart)
            walk = {list(), 0};
        while (walk.at < walk.ids.size())
            if (const AcDbObjectId id = walk.ids[walk.at++]; id.isValid() && !id.isErased())
                return id;
        return {};
    }

private:
    struct Walk {
        std::vector<AcDbObjectId> ids;
        std::size_t at = 0;
    };
    std::map<AcDbStub*, Walk> m_walks;
};

/// The walks of one document.
struct DrawingWalks {
    EntityWalk entities;
    NamedWalk containers;
    static DrawingWalks& ofCurrentDocument(); ///< @throws LispError when there is none
};

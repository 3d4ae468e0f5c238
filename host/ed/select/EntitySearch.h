#pragma once

#include <unordered_map>
#include <vector>

#include "db/DatabaseImpl.h"
#include "ed/select/EntityFilter.h"

#include "dbmain.h"

/// Looks through the entities of a drawing: which pass a filter, and what their layers allow. Entities come the
/// youngest first, as selection sets hold them.
class EntitySearch {
public:
    EntitySearch(AcDbDatabase& database, const EntityFilter& filter) :
        m_database(database),
        m_filter(filter),
        m_tags(database.impl())
    {
    }

    /// Which layers count.
    enum class Layers { all, unlocked, editable };
    /// Those of one block: a space.
    std::vector<AcDbObjectId> inBlock(AcDbObjectId block, Layers layers = Layers::all);
    /// Those of all layouts.
    std::vector<AcDbObjectId> everywhere();
    /// The youngest one that shows: its layer is on and thawed.
    AcDbObjectId lastVisible(AcDbObjectId block);
    /// Those that pass, in their order.
    std::vector<AcDbObjectId> passing(const std::vector<AcDbObjectId>& entities, Layers layers = Layers::all);

private:
    struct LayerState {
        bool shows = true, locked = false, frozen = false;
    };
    bool passes(AcDbObjectId entity, Layers layers);
    const LayerState& layerOf(DxfRecord& record);
    static LayerState stateOf(AcDbStub* layer);

    AcDbDatabase& m_database;
    const EntityFilter& m_filter;
    EntityTags m_tags;
    std::unordered_map<std::string, LayerState> m_layers; // by the bytes of their names
    std::unordered_map<AcDbStub*, LayerState> m_layersOfObjects;
};

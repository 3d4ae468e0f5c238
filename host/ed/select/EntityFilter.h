#pragma once

#include <memory>
#include <optional>
#include <unordered_map>

#include "ed/select/EntityTags.h"

#include "adsdef.h"
#include "dbid.h"

/// Which entities a selection set takes: the filter of acedSSGet, ready to be asked of many entities.
/// See acedSSGet for what its items mean. Where an entity leaves a value out, the value that this means counts (layer
/// colour, no thickness...). Of values that an entity has several times, one that matches suffices. Reals and
/// coordinates are equal within 1e-8.
class EntityFilter {
public:
    /// Nothing for a filter that is wrong: operators that do not pair, that are not known, or do not fit their value.
    /// Null takes every entity.
    static std::optional<EntityFilter> of(const resbuf* chain);
    EntityFilter(EntityFilter&&) noexcept;
    EntityFilter& operator=(EntityFilter&&) noexcept;
    ~EntityFilter();

    /// `tags` are those of the entity. Where its class alone is asked for, they are not read.
    bool takes(DxfRecord& record, const EntityTags& tags) const;

    struct Node;
    struct Test;

private:
    EntityFilter();
    std::unique_ptr<Node> m_root;
    bool m_asksClassOnly = false;
    mutable std::unordered_map<const AcRxClass*, bool> m_knownClasses; // of kinds that the kernel models
};

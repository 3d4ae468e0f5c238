#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "ed/select/StubPlaces.h"

#include "adsdef.h"
#include "dbid.h"

/// Entities, each once, in the order of joining. Joining, leaving and asking take constant time.
class SelectionSet {
public:
    /// Makes room for as many more.
    void reserve(std::size_t more);
    /// False when it is in already.
    bool add(AcDbObjectId entity);
    /// False when it is not in.
    bool remove(AcDbObjectId entity);
    bool has(AcDbObjectId entity) const { return m_places.contains(entity.stub()); }
    std::size_t size() const { return m_places.size(); }
    bool empty() const { return m_places.size() == 0; }
    /// Null beyond the end.
    AcDbObjectId at(std::size_t place) const;
    std::vector<AcDbObjectId> objects() const;

private:
    void closeUp() const;

    mutable std::vector<AcDbStub*> m_objects; // null where one has left, until closed up
    mutable StubPlaces m_places;
    mutable std::size_t m_begin = 0; // of what is in the set: loops that take out the first one are usual
    mutable std::size_t m_holes = 0; // behind m_begin
};

/// The selection sets that are alive, by their names.
class SelectionSets {
public:
    static SelectionSets& instance();

    static constexpr std::size_t kMost = 512;

    /// A new set; null when there are too many. Its name goes to `name`.
    SelectionSet* make(ads_name name);
    /// Null when the name is none's.
    SelectionSet* find(const std::int64_t* name);
    bool free(const std::int64_t* name);
    std::size_t count() const { return m_sets.size(); }

private:
    std::unordered_map<std::int64_t, std::unique_ptr<SelectionSet>> m_sets;
    std::int64_t m_lastName = 0; // names are never used again
};

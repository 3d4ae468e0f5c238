#pragma once

#include <cstdint>
#include <vector>

#include "dbid.h"

/// Where entities stand in a list, by the addresses of their records: one flat table, half empty at least. Lists of
/// whole drawings are made and thrown away at each selection.
class StubPlaces {
public:
    /// Makes room for as many entities in all.
    void reserve(std::size_t count);
    /// Enters one. @return false, and nothing entered, when it is there already
    bool insert(AcDbStub* stub, std::size_t place);
    /// Null for one that is not there. Valid until one is entered or taken out.
    std::size_t* find(const AcDbStub* stub);
    bool contains(const AcDbStub* stub) const { return !m_slots.empty() && m_slots[slotOf(stub)].stub; }
    /// Takes out one that is there.
    void erase(const AcDbStub* stub);
    std::size_t size() const { return m_count; }

private:
    struct Slot {
        AcDbStub* stub = nullptr; ///< null: free
        std::size_t place = 0;
    };

    std::size_t homeOf(const AcDbStub* stub) const;
    std::size_t slotOf(const AcDbStub* stub) const;
    void rehash(std::size_t slots);

    std::vector<Slot> m_slots; // a power of two of them
    std::size_t m_count = 0;
};

#pragma once

#include <cstdint>
#include <vector>

#include "dxf/DxfRecord.h"

/// Finds records by handle: open addressing over positions in an array of records that it does not own.
/// The array may grow; handles already inserted must not change (call `clear` and insert anew if they do).
class HandleTable {
public:
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    explicit HandleTable(const std::vector<DxfRecord>& records);

    /// Makes room for `count` handles, so that no insertion up to there moves the table.
    void reserve(std::size_t count);
    void clear();

    /// Position of the record with this handle, or `none`; the null handle has none.
    std::uint32_t find(std::uint64_t handle) const;

    /// Enters the record at `position` under its handle, which must not be 0.
    /// @return false, and nothing entered, if another record has that handle.
    bool insert(std::uint32_t position);

    std::size_t size() const { return m_count; }
    /// A handle above the highest one (the lowest free one where there is nothing above).
    std::uint64_t freeHandle() const;

private:
    std::uint64_t stepOf(std::uint64_t handle) const;
    void rehash(std::size_t slots);

    const std::vector<DxfRecord>& m_records;
    std::vector<std::uint32_t> m_slots; // position + 1; 0 is free; a power of two of them, at most half taken
    std::size_t m_count = 0;
    std::uint64_t m_highest = 0;            // ever inserted, 0 for none
    mutable std::uint64_t m_lowestFree = 1; // none below it is free; looked at only once the highest one is taken
    std::uint64_t m_seed;
};

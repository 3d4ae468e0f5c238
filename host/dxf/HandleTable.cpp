#include "dxf/HandleTable.h"

#include <algorithm>
#include <bit>
#include <random>

#include "dxf/LargePages.h"

namespace {

constexpr std::size_t fewestSlots = 16;

std::uint64_t randomSeed()
{
    std::random_device device;
    return static_cast<std::uint64_t>(device()) << 32 | device();
}

} // namespace

HandleTable::HandleTable(const std::vector<DxfRecord>& records) : m_records(records), m_seed(randomSeed())
{
    rehash(fewestSlots);
}

void HandleTable::reserve(std::size_t count)
{
    if (count * 2 > m_slots.size())
        rehash(std::bit_ceil(count * 2));
}

void HandleTable::clear()
{
    m_count = 0;
    m_highest = 0;
    m_lowestFree = 1;
    m_slots.assign(fewestSlots, 0);
}

// The first slot is the handle itself: handles mostly come in runs, so neighbours share cache lines. From there the
// steps depend on a random seed, so that no file can be made to collide on purpose.
std::uint64_t HandleTable::stepOf(std::uint64_t handle) const
{
    std::uint64_t mixed = (handle ^ m_seed) * 0x9E3779B97F4A7C15u;
    mixed = (mixed ^ mixed >> 29) * 0xBF58476D1CE4E5B9u;
    return mixed >> 20 | 1; // odd: every slot of a power of two is met
}

std::uint32_t HandleTable::find(std::uint64_t handle) const
{
    const std::uint64_t mask = m_slots.size() - 1;
    std::uint64_t slot = handle & mask;
    if (handle == 0 || m_slots[slot] == 0)
        return none;
    const std::uint64_t step = stepOf(handle);
    for (; m_slots[slot] != 0; slot = (slot + step) & mask) {
        if (m_records[m_slots[slot] - 1].handle == handle)
            return m_slots[slot] - 1;
    }
    return none;
}

bool HandleTable::insert(std::uint32_t position)
{
    if ((m_count + 1) * 2 > m_slots.size())
        rehash(m_slots.size() * 2);
    const std::uint64_t handle = m_records[position].handle;
    const std::uint64_t mask = m_slots.size() - 1;
    std::uint64_t slot = handle & mask;
    if (m_slots[slot] != 0) {
        const std::uint64_t step = stepOf(handle);
        for (; m_slots[slot] != 0; slot = (slot + step) & mask) {
            if (m_records[m_slots[slot] - 1].handle == handle)
                return false;
        }
    }
    m_slots[slot] = position + 1;
    ++m_count;
    m_highest = std::max(m_highest, handle);
    return true;
}

std::uint64_t HandleTable::freeHandle() const
{
    if (m_highest != ~std::uint64_t{0})
        return m_highest + 1;
    while (find(m_lowestFree) != none)
        ++m_lowestFree;
    return m_lowestFree;
}

void HandleTable::rehash(std::size_t slots)
{
    const std::vector<std::uint32_t> old = std::move(m_slots);
    m_slots.reserve(slots);
    preferLargePages(m_slots.data(), slots * sizeof(std::uint32_t));
    m_slots.assign(slots, 0);
    m_count = 0;
    for (const std::uint32_t taken : old) {
        if (taken != 0)
            insert(taken - 1);
    }
}

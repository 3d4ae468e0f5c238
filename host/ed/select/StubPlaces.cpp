#include "ed/select/StubPlaces.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t kLeastSlots = 16;

} // namespace

void StubPlaces::reserve(std::size_t count)
{
    const std::size_t slots = std::max(kLeastSlots, std::bit_ceil(2 * count));
    if (slots > m_slots.size())
        rehash(slots);
}

bool StubPlaces::insert(AcDbStub* stub, std::size_t place)
{
    reserve(m_count + 1);
    Slot& slot = m_slots[slotOf(stub)];
    if (slot.stub)
        return false;
    slot = {stub, place};
    ++m_count;
    return true;
}

std::size_t* StubPlaces::find(const AcDbStub* stub)
{
    if (!contains(stub))
        return nullptr;
    return &m_slots[slotOf(stub)].place;
}

/// Whoever was pushed past the gap by a collision moves back into it.
void StubPlaces::erase(const AcDbStub* stub)
{
    std::size_t gap = slotOf(stub);
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t i = (gap + 1) & mask; m_slots[i].stub; i = (i + 1) & mask)
        if (((i - homeOf(m_slots[i].stub)) & mask) >= ((i - gap) & mask)) {
            m_slots[gap] = m_slots[i];
            gap = i;
        }
    m_slots[gap] = {};
    --m_count;
}

/// Records stand side by side: a product spreads their addresses over its upper bits.
std::size_t StubPlaces::homeOf(const AcDbStub* stub) const
{
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
    const std::uint64_t product = reinterpret_cast<std::uintptr_t>(stub) * factor;
    return static_cast<std::size_t>(product >> (64 - std::countr_zero(m_slots.size())));
}

/// Where it is, or the free slot where it would go.
std::size_t StubPlaces::slotOf(const AcDbStub* stub) const
{
    std::size_t i = homeOf(stub);
    while (m_slots[i].stub && m_slots[i].stub != stub)
        i = (i + 1) & (m_slots.size() - 1);
    return i;
}

void StubPlaces::rehash(std::size_t slots)
{
    std::vector<Slot> old(slots);
    old.swap(m_slots);
    for (const Slot& slot : old)
        if (slot.stub)
            m_slots[slotOf(slot.stub)] = slot;
}

#include "rx/ResbufPool.h"

#include <new>

// A buffer used after its release is caught by the sanitizer although its memory stays ours.
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) (static_cast<void>(address), static_cast<void>(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) (static_cast<void>(address), static_cast<void>(size))
#endif

ResbufPool& ResbufPool::instance()
{
    // Never destroyed: a module's own statics may release their chains at the very end.
    alignas(ResbufPool) static std::byte storage[sizeof(ResbufPool)];
    static ResbufPool* const pool = new (storage) ResbufPool;
    return *pool;
}

ResbufPool::~ResbufPool()
{
    for (const auto& slab : m_slabs)
        ASAN_UNPOISON_MEMORY_REGION(slab.get(), kSlabSize * sizeof(resbuf));
}

resbuf* ResbufPool::take(short type)
{
    void* place = m_free;
    if (m_free != nullptr) {
        ASAN_UNPOISON_MEMORY_REGION(m_free, sizeof(resbuf));
        m_free = m_free->rbnext;
    } else {
        if (m_slab == m_slabs.size() || m_used == kSlabSize)
            addSlab();
        place = m_slabs[m_slab].get() + m_used++ * sizeof(resbuf);
        ASAN_UNPOISON_MEMORY_REGION(place, sizeof(resbuf));
    }
    ++m_live;
    resbuf* buffer = new (place) resbuf{};
    buffer->restype = type;
    return buffer;
}

void ResbufPool::giveBack(resbuf* first, resbuf* last, std::size_t count)
{
    last->rbnext = m_free;
    m_free = first;
#if defined(__SANITIZE_ADDRESS__)
    for (std::size_t i = 0; i < count; ++i) {
        resbuf* next = first->rbnext;
        ASAN_POISON_MEMORY_REGION(first, sizeof(resbuf));
        first = next;
    }
#endif
    m_live -= count;
    if (m_live == 0)
        rewind();
}

void ResbufPool::addSlab()
{
    if (m_slab + 1 < m_slabs.size()) {
        ++m_slab;
    } else {
        m_slabs.push_back(std::make_unique_for_overwrite<std::byte[]>(kSlabSize * sizeof(resbuf)));
        m_slab = m_slabs.size() - 1;
        ASAN_POISON_MEMORY_REGION(m_slabs.back().get(), kSlabSize * sizeof(resbuf));
    }
    m_used = 0;
}

/// With nothing alive, buffers are taken in memory order again, which a chain's walk likes.
void ResbufPool::rewind()
{
    for (std::size_t i = kSlabsKept; i < m_slabs.size(); ++i)
        ASAN_UNPOISON_MEMORY_REGION(m_slabs[i].get(), kSlabSize * sizeof(resbuf));
    if (m_slabs.size() > kSlabsKept)
        m_slabs.resize(kSlabsKept);
    m_free = nullptr;
    m_slab = 0;
    m_used = 0;
}

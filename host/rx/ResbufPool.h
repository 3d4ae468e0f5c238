#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "adsdef.h"

/// Where result buffers come from: slabs, so that the million items of a survey's record cost no allocation each.
/// Counts what is alive, so that tests and commands notice a chain or a text that nobody released.
/// For the main thread only, as everything that modules call.
class ResbufPool {
public:
    static ResbufPool& instance();

    ResbufPool() = default;
    ~ResbufPool();
    ResbufPool(const ResbufPool&) = delete;
    ResbufPool& operator=(const ResbufPool&) = delete;

    /// A buffer of that type, its value zero.
    resbuf* take(short type);
    /// Takes back `count` linked buffers from `first` to `last`, whose texts and blocks are released already.
    void giveBack(resbuf* first, resbuf* last, std::size_t count);

    std::size_t liveBuffers() const { return m_live; }
    /// Texts and blocks of bytes that were handed out and not released, in chains or outside.
    std::size_t liveTexts() const { return m_liveTexts; }
    void textTaken() { ++m_liveTexts; }
    void textGivenBack() { --m_liveTexts; }

private:
    static constexpr std::size_t kSlabSize = 4096; // buffers: 160 KB
    static constexpr std::size_t kSlabsKept = 256; // while nothing is alive: 40 MB, a million buffers

    void addSlab();
    void rewind();

    std::vector<std::unique_ptr<std::byte[]>> m_slabs;
    std::size_t m_slab = 0;   // the one that fresh buffers come from
    std::size_t m_used = 0;   // of it
    resbuf* m_free = nullptr; // given back, linked by rbnext
    std::size_t m_live = 0;
    std::size_t m_liveTexts = 0;
};

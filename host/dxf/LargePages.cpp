#include "dxf/LargePages.h"

#include <cstdint>

#include <sys/mman.h>

void preferLargePages(const void* memory, std::size_t bytes)
{
    constexpr std::uintptr_t page = 4096;
    constexpr std::size_t worthIt = std::size_t{4} << 20;
    if (bytes < worthIt)
        return;
    const auto begin = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (begin + page - 1) / page * page;
    const std::uintptr_t last = (begin + bytes) / page * page;
    madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
}

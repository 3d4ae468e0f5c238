#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "db/Record.h"

/// Records of the objects that are not in the file, in the order they were made. They never move.
class NewRecords {
public:
    NewRecord& add()
    {
        if (m_count == m_chunks.size() * chunkSize) {
            m_chunks.push_back(std::make_unique<NewRecord[]>(chunkSize));
            m_byAddress.emplace(m_chunks.back().get(), m_chunks.size() - 1);
        }
        return (*this)[m_count++];
    }
    std::size_t size() const { return m_count; }
    NewRecord& operator[](std::size_t i) const { return m_chunks[i / chunkSize][i % chunkSize]; }

    /// Whether an address, which may be anything, is that of one of the records.
    bool holds(const void* address) const
    {
        auto after = m_byAddress.upper_bound(static_cast<const NewRecord*>(address));
        if (after == m_byAddress.begin())
            return false;
        const auto& [base, chunk] = *--after;
        const auto offset = static_cast<const char*>(address) - reinterpret_cast<const char*>(base);
        const auto i = static_cast<std::size_t>(offset) / sizeof(NewRecord);
        return static_cast<std::size_t>(offset) % sizeof(NewRecord) == 0 && i < chunkSize &&
               chunk * chunkSize + i < m_count;
    }

private:
    static constexpr std::size_t chunkSize = 1024;
    std::vector<std::unique_ptr<NewRecord[]>> m_chunks;
    std::map<const NewRecord*, std::size_t, std::less<>> m_byAddress;
    std::size_t m_count = 0;
};

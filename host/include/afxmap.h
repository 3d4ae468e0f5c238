#pragma once

#include <cstring>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

#include "afx.h"

/// The hash of a map key. Specialise it for a key type that is neither a number, a pointer nor text.
template <class ARG_KEY>
UINT HashKey(ARG_KEY key)
{
    using Key = std::remove_cv_t<std::remove_reference_t<ARG_KEY>>;
    std::uint64_t bits = 0;
    if constexpr (std::is_pointer_v<Key>)
        bits = reinterpret_cast<std::uintptr_t>(key);
    else if constexpr (std::is_floating_point_v<Key>) {
        const double value = key == 0 ? 0.0 : static_cast<double>(key); // both zeros are one key
        std::memcpy(&bits, &value, sizeof bits);
    } else
        bits = static_cast<std::uint64_t>(key);
    bits *= 0x9E3779B97F4A7C15U; // 2^64 / golden ratio: spreads neighbouring numbers
    return static_cast<UINT>(bits >> 32U);
}
inline UINT HashText(std::wstring_view text)
{
    std::uint64_t hash = 0xCBF29CE484222325U; // FNV-1a, a whole character at a time
    for (const wchar_t c : text)
        hash = (hash ^ static_cast<std::uint32_t>(c)) * 0x100000001B3U;
    return static_cast<UINT>(hash ^ hash >> 32U);
}
template <>
inline UINT HashKey<const wchar_t*>(const wchar_t* key)
{
    return HashText(key);
}
template <>
inline UINT HashKey<const CString&>(const CString& key)
{
    return HashText({key.GetString(), static_cast<std::size_t>(key.GetLength())});
}

/// Hash table from keys to values. KEY is stored, ARG_KEY is what callers pass: CMap<CString, const wchar_t*, ...>
/// looks a text up without copying it. Operations take constant time however many keys there are: the table grows
/// once it holds as many keys as buckets, the bucket count asked for being only where it starts.
/// Values stay at their address until they are removed. The order of the walk is not defined.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap {
public:
    struct CPair {
        KEY key{};
        VALUE value{};
    };

    /// `blockSize`: the least number of entries to make room for at a time.
    explicit CMap(INT_PTR blockSize = 10) : m_blockSize(blockSize > 0 ? static_cast<std::size_t>(blockSize) : 1) {}
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_count); }
    INT_PTR GetSize() const { return GetCount(); }
    BOOL IsEmpty() const { return m_count == 0; }
    UINT GetHashTableSize() const { return m_buckets.empty() ? m_startSize : static_cast<UINT>(m_buckets.size()); }
    /// Sets the number of buckets to start with, also after RemoveAll.
    void InitHashTable(UINT size, BOOL allocateNow = TRUE)
    {
        m_startSize = size > 0 ? size : 1;
        if (m_count > 0 || allocateNow)
            rehash(m_startSize);
    }

    /// @return FALSE, `value` untouched, when the key is not there.
    BOOL Lookup(ARG_KEY key, VALUE& value) const
    {
        const Entry* const entry = find(key, HashKey<ARG_KEY>(key));
        if (entry == nullptr)
            return FALSE;
        value = entry->value;
        return TRUE;
    }
    const CPair* PLookup(ARG_KEY key) const { return find(key, HashKey<ARG_KEY>(key)); }
    CPair* PLookup(ARG_KEY key) { return find(key, HashKey<ARG_KEY>(key)); }
    /// The value of the key, which is added with a default-made value when it is not there.
    VALUE& operator[](ARG_KEY key)
    {
        const UINT hash = HashKey<ARG_KEY>(key);
        Entry* entry = find(key, hash);
        if (entry == nullptr)
            entry = add(key, hash);
        return entry->value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }

    /// @return FALSE when the key was not there. Removing the last key releases the memory.
    BOOL RemoveKey(ARG_KEY key)
    {
        if (m_count == 0)
            return FALSE;
        const UINT hash = HashKey<ARG_KEY>(key);
        for (Entry** link = &bucket(hash); *link != nullptr; link = &(*link)->next) {
            Entry* const entry = *link;
            if (entry->hash != hash || !(entry->key == key))
                continue;
            *link = entry->next;
            release(entry);
            return TRUE;
        }
        return FALSE;
    }
    void RemoveAll()
    {
        m_buckets = {};
        m_blocks.clear();
        m_free = nullptr;
        m_count = 0;
        m_room = 0;
    }

    POSITION GetStartPosition() const { return position(firstFrom(0)); }
    /// Hands over the entry at `place` and moves on; `place` is null after the last one.
    void GetNextAssoc(POSITION& place, KEY& key, VALUE& value) const
    {
        const Entry* const entry = reinterpret_cast<const Entry*>(place);
        if (entry == nullptr)
            AfxThrowInvalidArgException();
        key = entry->key;
        value = entry->value;
        place = position(entry->next != nullptr ? entry->next : firstFrom(entry->hash % m_buckets.size() + 1));
    }

private:
    struct Entry : CPair {
        Entry* next = nullptr; // in its bucket, or in the free list
        UINT hash = 0;
    };

    Entry*& bucket(UINT hash) { return m_buckets[hash % m_buckets.size()]; }
    static POSITION position(const Entry* entry) { return reinterpret_cast<POSITION>(const_cast<Entry*>(entry)); }

    Entry* find(ARG_KEY key, UINT hash) const
    {
        if (m_count == 0)
            return nullptr;
        Entry* entry = m_buckets[hash % m_buckets.size()];
        while (entry != nullptr && !(entry->hash == hash && entry->key == key))
            entry = entry->next;
        return entry;
    }
    const Entry* firstFrom(std::size_t index) const
    {
        while (index < m_buckets.size() && m_buckets[index] == nullptr)
            ++index;
        return index < m_buckets.size() ? m_buckets[index] : nullptr;
    }
    Entry* add(ARG_KEY key, UINT hash)
    {
        if (m_buckets.empty())
            rehash(m_startSize);
        else if (m_count >= m_buckets.size())
            rehash(m_buckets.size() * 2 + 1);
        if (m_free == nullptr)
            addBlock();
        Entry* const entry = m_free;
        entry->key = key;
        entry->hash = hash;
        m_free = entry->next;
        entry->next = bucket(hash);
        bucket(hash) = entry;
        ++m_count;
        return entry;
    }
    /// Blocks grow with the map, so that a small block size does not make many of them.
    void addBlock()
    {
        const std::size_t size = std::max(m_blockSize, m_room / 2);
        m_blocks.push_back(std::make_unique<Entry[]>(size));
        m_room += size;
        for (std::size_t i = size; i-- > 0;) {
            Entry& entry = m_blocks.back()[i];
            entry.next = m_free;
            m_free = &entry;
        }
    }
    void release(Entry* entry)
    {
        if (--m_count == 0)
            return RemoveAll();
        static_cast<CPair&>(*entry) = CPair{};
        entry->next = m_free;
        m_free = entry;
    }
    void rehash(std::size_t size)
    {
        std::vector<Entry*> old(size, nullptr);
        old.swap(m_buckets);
        for (Entry* entry : old)
            while (entry != nullptr) {
                Entry* const next = entry->next;
                entry->next = bucket(entry->hash);
                bucket(entry->hash) = entry;
                entry = next;
            }
    }

    std::vector<Entry*> m_buckets;
    std::vector<std::unique_ptr<Entry[]>> m_blocks;
    Entry* m_free = nullptr;
    std::size_t m_count = 0;
    std::size_t m_room = 0;
    std::size_t m_blockSize;
    UINT m_startSize = 17;
};

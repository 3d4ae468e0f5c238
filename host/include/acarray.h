#pragma once

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

#include "adesk.h"

/// Growable array of values, as the host interface hands them over.
/// Indices are 0-based ints. Reading or writing outside the array throws std::out_of_range.
/// Appending takes amortised constant time, whatever the grow length.
template <typename T>
class AcArray {
public:
    using const_iterator = typename std::vector<T>::const_iterator;
    using iterator = typename std::vector<T>::iterator;

    /// An empty array with room for `physicalLength` elements. `growLength` is kept for callers who ask it back.
    explicit AcArray(int physicalLength = 0, int growLength = 8) : m_growLength(growLength)
    {
        setPhysicalLength(physicalLength);
    }

    T& operator[](int index) { return m_items.at(static_cast<std::size_t>(index)); }
    const T& operator[](int index) const { return m_items.at(static_cast<std::size_t>(index)); }
    T& at(int index) { return (*this)[index]; }
    const T& at(int index) const { return (*this)[index]; }
    const T& getAt(int index) const { return (*this)[index]; }
    AcArray& setAt(int index, const T& value)
    {
        (*this)[index] = value;
        return *this;
    }
    AcArray& setAll(const T& value)
    {
        std::fill(m_items.begin(), m_items.end(), T(value));
        return *this;
    }
    T& first() { return m_items.at(0); }
    const T& first() const { return m_items.at(0); }
    T& last() { return at(length() - 1); }
    const T& last() const { return at(length() - 1); }

    /// @return the index of the element appended.
    int append(const T& value)
    {
        m_items.push_back(value);
        return length() - 1;
    }
    AcArray& append(const AcArray& other)
    {
        const std::size_t count = other.m_items.size(); // as it stood, should `other` be this array
        m_items.reserve(std::max(m_items.size() + count, std::min(m_items.capacity() * 2, m_items.max_size())));
        for (std::size_t i = 0; i < count; ++i)
            m_items.push_back(other.m_items[i]);
        return *this;
    }
    /// Inserts before `index`, which may be the length.
    AcArray& insertAt(int index, const T& value)
    {
        if (index != length())
            static_cast<void>(at(index));
        m_items.insert(m_items.begin() + index, value);
        return *this;
    }
    AcArray& removeAt(int index)
    {
        static_cast<void>(at(index));
        m_items.erase(m_items.begin() + index);
        return *this;
    }
    /// Removes the elements from `startIndex` to `endIndex`, both included.
    AcArray& removeSubArray(int startIndex, int endIndex)
    {
        static_cast<void>(at(startIndex));
        static_cast<void>(at(endIndex));
        if (startIndex <= endIndex)
            m_items.erase(m_items.begin() + startIndex, m_items.begin() + endIndex + 1);
        return *this;
    }
    /// Removes the first element equal to `value`, from `start` on. @return kTrue when there was one.
    Adesk::Boolean remove(const T& value, int start = 0)
    {
        const int index = findFrom(value, start);
        if (index < 0)
            return Adesk::kFalse;
        removeAt(index);
        return Adesk::kTrue;
    }
    AcArray& removeFirst() { return removeAt(0); }
    AcArray& removeLast() { return removeAt(length() - 1); }
    AcArray& removeAll()
    {
        m_items.clear();
        return *this;
    }

    Adesk::Boolean contains(const T& value, int start = 0) const { return findFrom(value, start) >= 0; }
    /// @return the index of the first element equal to `value` from `start` on, or -1.
    int findFrom(const T& value, int start) const
    {
        for (int i = std::max(start, 0); i < length(); ++i)
            if (m_items[static_cast<std::size_t>(i)] == value)
                return i;
        return -1;
    }
    int find(const T& value) const { return findFrom(value, 0); }
    Adesk::Boolean find(const T& value, int& foundAt, int start = 0) const
    {
        const int index = findFrom(value, start);
        if (index < 0)
            return Adesk::kFalse;
        foundAt = index;
        return Adesk::kTrue;
    }

    int length() const { return static_cast<int>(m_items.size()); }
    Adesk::Boolean isEmpty() const { return m_items.empty(); }
    /// Sets the number of elements; new ones are value-initialised.
    AcArray& setLogicalLength(int count)
    {
        m_items.resize(static_cast<std::size_t>(std::max(count, 0)));
        return *this;
    }
    int physicalLength() const { return static_cast<int>(m_items.capacity()); }
    /// Makes room for `count` elements; a smaller count cuts the array.
    AcArray& setPhysicalLength(int count)
    {
        const auto wanted = static_cast<std::size_t>(std::max(count, 0));
        if (wanted < m_items.size())
            m_items.resize(wanted);
        m_items.reserve(wanted);
        return *this;
    }
    int growLength() const { return m_growLength; }

    AcArray& reverse()
    {
        std::reverse(m_items.begin(), m_items.end());
        return *this;
    }
    AcArray& swap(int index1, int index2)
    {
        std::swap(at(index1), at(index2));
        return *this;
    }

    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }
    iterator begin() { return m_items.begin(); }
    iterator end() { return m_items.end(); }

    bool operator==(const AcArray& other) const { return m_items == other.m_items; }

private:
    static_assert(!std::is_same_v<T, bool>, "bits have no address: use Adesk::Boolean");
    std::vector<T> m_items;
    int m_growLength;
};

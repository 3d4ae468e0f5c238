#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "afx.h"

/// Growable array. Indices are 0-based; one outside the array raises the invalid-argument exception.
/// The grow step is the least growth: adding stays amortised constant time however small it is.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
public:
    CArray() = default;
    CArray(const CArray&) = delete;
    CArray& operator=(const CArray&) = delete;

    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_items.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return m_items.empty(); }
    INT_PTR GetUpperBound() const { return GetSize() - 1; }

    /// Sets the number of elements (new ones are default-made) and, when `growBy` is not negative, the grow step.
    /// Size 0 releases the memory.
    void SetSize(INT_PTR size, INT_PTR growBy = -1)
    {
        if (size < 0)
            AfxThrowInvalidArgException();
        if (growBy >= 0)
            m_growBy = static_cast<std::size_t>(growBy);
        if (size == 0)
            return RemoveAll();
        grow(static_cast<std::size_t>(size));
        m_items.resize(static_cast<std::size_t>(size));
    }
    void RemoveAll() { std::vector<TYPE>().swap(m_items); }

    const TYPE& GetAt(INT_PTR index) const { return m_items[checked(index)]; }
    TYPE& GetAt(INT_PTR index) { return m_items[checked(index)]; }
    TYPE& ElementAt(INT_PTR index) { return m_items[checked(index)]; }
    const TYPE& ElementAt(INT_PTR index) const { return m_items[checked(index)]; }
    TYPE& operator[](INT_PTR index) { return m_items[checked(index)]; }
    const TYPE& operator[](INT_PTR index) const { return m_items[checked(index)]; }
    void SetAt(INT_PTR index, ARG_TYPE element) { m_items[checked(index)] = element; }
    /// The elements side by side; null when there is none. Valid until the array grows.
    TYPE* GetData() { return m_items.empty() ? nullptr : m_items.data(); }
    const TYPE* GetData() const { return m_items.empty() ? nullptr : m_items.data(); }

    /// As SetAt, growing the array with default-made elements up to `index`.
    void SetAtGrow(INT_PTR index, ARG_TYPE element)
    {
        if (index < 0)
            AfxThrowInvalidArgException();
        TYPE copy(element); // `element` may be in this array
        if (index >= GetSize())
            SetSize(index + 1);
        m_items[static_cast<std::size_t>(index)] = std::move(copy);
    }
    /// @return the index of the element added.
    INT_PTR Add(ARG_TYPE element)
    {
        if (m_items.size() == m_items.capacity()) {
            TYPE copy(element); // `element` may be in this array
            grow(m_items.size() + 1);
            m_items.push_back(std::move(copy));
        } else
            m_items.push_back(element);
        return GetUpperBound();
    }
    /// Adds the elements of `other`. @return the index of the first one added.
    INT_PTR Append(const CArray& other)
    {
        const INT_PTR first = GetSize();
        const std::size_t count = other.m_items.size(); // as it stood, should `other` be this array
        grow(m_items.size() + count);
        for (std::size_t i = 0; i < count; ++i)
            m_items.push_back(other.m_items[i]);
        return first;
    }
    void Copy(const CArray& other)
    {
        if (this != &other)
            m_items = other.m_items;
    }
    /// Inserts `count` copies before `index`; beyond the end the array grows up to it first.
    void InsertAt(INT_PTR index, ARG_TYPE element, INT_PTR count = 1)
    {
        if (index < 0 || count <= 0)
            AfxThrowInvalidArgException();
        const TYPE copy(element);
        if (index > GetSize())
            SetSize(index);
        grow(m_items.size() + static_cast<std::size_t>(count));
        m_items.insert(m_items.begin() + index, static_cast<std::size_t>(count), copy);
    }
    void RemoveAt(INT_PTR index, INT_PTR count = 1)
    {
        if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index)
            AfxThrowInvalidArgException();
        m_items.erase(m_items.begin() + index, m_items.begin() + index + count);
    }

private:
    static_assert(!std::is_same_v<TYPE, bool>, "bits have no address: use BOOL");

    std::size_t checked(INT_PTR index) const
    {
        if (index < 0 || index >= GetSize())
            AfxThrowInvalidArgException();
        return static_cast<std::size_t>(index);
    }
    void grow(std::size_t size)
    {
        const std::size_t capacity = m_items.capacity();
        if (size > capacity)
            m_items.reserve(std::max(size, capacity + std::max(m_growBy, capacity / 2)));
    }

    std::vector<TYPE> m_items;
    std::size_t m_growBy = 0;
};

#pragma once

#include <cstdint>

#include "adesk.h"

/// Number that names an object for the whole life of its drawing, across sessions. 0 is no handle.
class AcDbHandle {
public:
    AcDbHandle() = default;
    AcDbHandle(std::uint64_t value) : m_value(value) {}
    /// From hexadecimal text; anything unreadable gives 0.
    AcDbHandle(const ACHAR* hexadecimal);

    bool isNull() const { return m_value == 0; }
    /// Writes upper-case hexadecimal without leading zeros; `text` holds at least 17 characters.
    bool getIntoAsciiBuffer(ACHAR* text, std::size_t size) const;

    operator Adesk::UInt64() const { return m_value; }
    bool operator==(const AcDbHandle& other) const { return m_value == other.m_value; }
    bool operator!=(const AcDbHandle& other) const { return m_value != other.m_value; }

private:
    std::uint64_t m_value = 0;
};

#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

/// The bits of DWG files of the R2000 version, written one after the other, most significant first. Functions bear
/// the names that the format's published description gives to its kinds of values.
class DwgBits {
public:
    void B(bool bit)
    {
        if (m_count % 8 == 0)
            m_bytes += '\0';
        if (bit)
            m_bytes.back() = static_cast<char>(m_bytes.back() | (0x80 >> (m_count % 8)));
        ++m_count;
    }
    void BB(unsigned value)
    {
        B((value & 2) != 0);
        B((value & 1) != 0);
    }

    // Raw: little-endian, at full length.
    void RC(unsigned value)
    {
        for (int bit = 7; bit >= 0; --bit)
            B(((value >> bit) & 1) != 0);
    }
    void RS(unsigned value) { raw(value, 2); }
    void RL(std::uint32_t value) { raw(value, 4); }
    void RD(double value) { raw(std::bit_cast<std::uint64_t>(value), 8); }

    // Packed: two bits say how much follows.
    void BS(unsigned value)
    {
        BB(value == 0 ? 2 : 0);
        if (value != 0)
            RS(value);
    }
    void BL(std::uint32_t value)
    {
        BB(value == 0 ? 2 : 0);
        if (value != 0)
            RL(value);
    }
    void BD(double value)
    {
        BB(value == 0.0 ? 2 : value == 1.0 ? 1 : 0);
        if (value != 0.0 && value != 1.0)
            RD(value);
    }
    void BD3(double x, double y, double z)
    {
        BD(x);
        BD(y);
        BD(z);
    }
    /// With a default value, which is never used here.
    void DD(double value)
    {
        BB(3);
        RD(value);
    }
    /// Text in the drawing's code page.
    void TV(std::string_view text)
    {
        BS(static_cast<unsigned>(text.size()));
        bytes(text);
    }
    /// A handle, as 4 bits that say what it is to its holder and 4 bits of length.
    void H(unsigned code, std::uint64_t handle)
    {
        const unsigned length = (static_cast<unsigned>(std::bit_width(handle)) + 7) / 8;
        RC(code << 4 | length);
        for (unsigned i = length; i-- > 0;)
            RC(static_cast<unsigned>(handle >> (8 * i)) & 0xFF);
    }

    void bytes(std::string_view text)
    {
        for (const char c : text)
            RC(static_cast<unsigned char>(c));
    }
    void append(const DwgBits& other)
    {
        for (std::size_t i = 0; i < other.m_count; ++i)
            B(((other.m_bytes[i / 8] >> (7 - i % 8)) & 1) != 0);
    }

    std::size_t count() const { return m_count; }
    /// The last byte filled with zeros.
    const std::string& bytes() const { return m_bytes; }

private:
    void raw(std::uint64_t value, int length)
    {
        for (int i = 0; i < length; ++i)
            RC(static_cast<unsigned>(value >> (8 * i)) & 0xFF);
    }

    std::string m_bytes;
    std::size_t m_count = 0;
};

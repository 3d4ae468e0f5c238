#include "gi/BitPolyline.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace {

/// Values in bits, the highest of a byte first. Most begin with a code of two bits, which may say all of them.
class BitReader {
public:
    explicit BitReader(std::string_view bytes) : m_bytes(bytes) {}

    /// Whether all that was asked for was there, and had a code that means something.
    bool isSound() const { return m_isSound; }
    std::size_t left() const { return 8 * m_bytes.size() - m_at; }

    int shortInteger()
    {
        switch (bits(2)) {
        case 0:
            return raw<std::int16_t>();
        case 1:
            return raw<std::uint8_t>();
        case 2:
            return 0;
        default:
            return 256;
        }
    }
    std::int32_t longInteger()
    {
        switch (bits(2)) {
        case 0:
            return raw<std::int32_t>();
        case 1:
            return raw<std::uint8_t>();
        case 2:
            return 0;
        default:
            return fail();
        }
    }
    double real()
    {
        switch (bits(2)) {
        case 0:
            return rawReal();
        case 1:
            return 1.0;
        case 2:
            return 0.0;
        default:
            return fail();
        }
    }
    double rawReal() { return raw<double>(); }
    /// One that may have bytes of another.
    double realLike(double other)
    {
        const unsigned code = bits(2);
        if (code == 3)
            return rawReal();
        char bytes[sizeof other];
        std::memcpy(bytes, &other, sizeof other);
        if (code == 2)
            take(bytes + 4, 2);
        if (code != 0)
            take(bytes, 4);
        std::memcpy(&other, bytes, sizeof other);
        return other;
    }

private:
    int fail()
    {
        m_isSound = false;
        return 0;
    }

    unsigned bits(std::size_t count)
    {
        if (left() < count)
            return static_cast<unsigned>(fail());
        unsigned value = 0;
        for (; count > 0; --count, ++m_at)
            value = value << 1 | (static_cast<unsigned char>(m_bytes[m_at / 8]) >> (7 - m_at % 8) & 1U);
        return value;
    }

    void take(char* to, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            to[i] = static_cast<char>(bits(8));
    }

    template <class Value>
    Value raw()
    {
        char bytes[sizeof(Value)];
        take(bytes, sizeof bytes);
        Value value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
    bool m_isSound = true;
};

enum class Has {
    normal = 1,
    thickness = 2,
    oneWidth = 4,
    elevation = 8,
    bulges = 16,
    widths = 32,
    unbroken = 128,
    closed = 512,
    identifiers = 1024
};

/// @param wholePoints each is written in full, as before 2000; else each is like the one before it
PlanePolyline polylineOf(BitReader& bits, bool wholePoints)
{
    PlanePolyline line;
    const int flags = bits.shortInteger();
    const auto has = [&](Has what) { return (flags & static_cast<int>(what)) != 0; };
    line.closed = has(Has::closed);
    line.unbroken = has(Has::unbroken);
    const double width = has(Has::oneWidth) ? bits.real() : 0.0;
    AcGePoint3d at(0.0, 0.0, has(Has::elevation) ? bits.real() : 0.0);
    if (has(Has::thickness))
        bits.real();
    for (unsigned int axis = 0; axis < 3 && has(Has::normal); ++axis)
        line.normal[axis] = bits.real();

    const std::int32_t pointCount = bits.longInteger();
    const std::int32_t bulgeCount = has(Has::bulges) ? bits.longInteger() : 0;
    const std::int32_t identifierCount = has(Has::identifiers) ? bits.longInteger() : 0;
    const std::int32_t widthCount = has(Has::widths) ? bits.longInteger() : 0;
    for (std::int32_t i = 0; i < pointCount && bits.isSound(); ++i) {
        const bool whole = i == 0 || wholePoints;
        at.x = whole ? bits.rawReal() : bits.realLike(at.x);
        at.y = whole ? bits.rawReal() : bits.realLike(at.y);
        line.vertices.push_back({at, 0.0});
    }
    const std::size_t count = line.vertices.size();
    for (std::size_t i = 0; std::cmp_less(i, bulgeCount) && bits.isSound(); ++i) {
        const double bulge = bits.real();
        if (i < count)
            line.vertices[i].bulge = bulge;
    }
    for (std::int32_t i = 0; i < identifierCount && bits.isSound(); ++i)
        bits.longInteger();
    if (width != 0.0 || widthCount > 0)
        line.widths.assign(count, {width, width});
    for (std::size_t i = 0; std::cmp_less(i, widthCount) && bits.isSound(); ++i) {
        const double start = bits.real(), end = bits.real();
        if (i < count)
            line.widths[i] = {start, end};
    }
    return line;
}

/// What follows a count of its bytes; nothing where they do not begin with one.
std::string_view counted(std::string_view bytes)
{
    std::uint32_t size = 0;
    if (bytes.size() < sizeof size)
        return {};
    std::memcpy(&size, bytes.data(), sizeof size);
    bytes.remove_prefix(sizeof size);
    return size <= bytes.size() ? bytes.substr(0, size) : std::string_view();
}

} // namespace

std::optional<PlanePolyline> planePolylineIn(std::string_view bytes)
{
    std::optional<PlanePolyline> best;
    std::size_t left = 64; // bits: as much as fills bytes up to eights
    for (const std::string_view stream : {counted(bytes), bytes})
        for (const bool wholePoints : {false, true}) {
            BitReader bits(stream);
            PlanePolyline line = polylineOf(bits, wholePoints);
            if (!bits.isSound() || bits.left() >= left)
                continue;
            left = bits.left();
            best = std::move(line);
        }
    return best;
}

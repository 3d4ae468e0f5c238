#include "DwgFileWriter.h"

#include <string_view>

namespace {

constexpr std::size_t headerLength = 25 + 3 * 9 + 2 + 16; // with the places of three sections, checksum, mark

unsigned crcOf(std::string_view bytes, unsigned crc = 0xC0C1)
{
    for (const char c : bytes) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xA001 : 0);
    }
    return crc;
}

/// 15 bits at a time, the lowest first; the top bit says that more follow.
std::string modularShort(std::size_t value)
{
    DwgBits bits;
    for (; value > 0x7FFF; value >>= 15)
        bits.RS(static_cast<unsigned>(value & 0x7FFF) | 0x8000);
    bits.RS(static_cast<unsigned>(value));
    return bits.bytes();
}

/// 7 bits at a time, the lowest first; the top bit says that more follow.
std::string modularChar(std::size_t value)
{
    std::string bytes;
    for (; value > 0x7F; value >>= 7)
        bytes += static_cast<char>((value & 0x7F) | 0x80);
    return bytes + static_cast<char>(value);
}

/// The same; the last byte's second bit is the sign.
std::string signedModularChar(long long value)
{
    std::size_t rest = static_cast<std::size_t>(value < 0 ? -value : value);
    std::string bytes;
    for (; rest > 0x3F; rest >>= 7)
        bytes += static_cast<char>((rest & 0x7F) | 0x80);
    return bytes + static_cast<char>(rest | (value < 0 ? 0x40 : 0));
}

std::string rawLong(std::size_t value)
{
    DwgBits bits;
    bits.RL(static_cast<std::uint32_t>(value));
    return bits.bytes();
}

std::string rawShort(unsigned value)
{
    DwgBits bits;
    bits.RS(value);
    return bits.bytes();
}

/// A section between its two marks; the second is the first, each bit turned over.
std::string section(std::string mark, const std::string& data)
{
    const std::string inside = rawLong(data.size()) + data;
    std::string bytes = mark + inside + rawShort(crcOf(inside));
    for (char& c : mark)
        c = static_cast<char>(~c);
    return bytes + mark;
}

} // namespace

void DwgFileWriter::add(const DwgObject& object)
{
    DwgBits start;
    start.H(0, object.handle);
    start.append(object.extended);
    start.BS(0); // end of the extended data
    start.append(object.common);
    start.append(object.data);

    DwgBits bits;
    bits.BS(object.type);
    bits.RL(static_cast<std::uint32_t>(bits.count() + 32 + start.count()));
    bits.append(start);
    bits.append(object.handles);
    const std::string record = modularShort(bits.bytes().size()) + bits.bytes();
    m_places[object.handle] = m_objects.size();
    m_objects += record + rawShort(crcOf(record));
}

/// Differences from one object to the next, in handle and in place.
std::string DwgFileWriter::objectMap(std::size_t start) const
{
    std::string pairs;
    std::size_t lastHandle = 0;
    long long lastPlace = 0;
    for (const auto& [handle, place] : m_places) {
        const long long absolute = static_cast<long long>(start + place);
        pairs += modularChar(handle - lastHandle) + signedModularChar(absolute - lastPlace);
        lastHandle = handle;
        lastPlace = absolute;
    }
    const auto part = [](const std::string& content) {
        const std::size_t size = content.size() + 2;
        std::string bytes{static_cast<char>(size >> 8), static_cast<char>(size & 0xFF)}; // here high byte first
        bytes += content;
        const unsigned crc = crcOf(bytes);
        bytes += static_cast<char>(crc >> 8);
        return bytes + static_cast<char>(crc & 0xFF);
    };
    return part(pairs) + part("");
}

std::string DwgFileWriter::bytes(const DwgBits& headerVariables) const
{
    const std::string variablesSection =
        section("\xCF\x7B\x1F\x23\xFD\xDE\x38\xA9\x5F\x7C\x68\xB8\x4E\x6D\x33\x5F", headerVariables.bytes());
    const std::string classes = section("\x8D\xA1\xC4\xB8\xC4\xA9\xF8\xC5\xC0\xDC\xF4\x5F\xE7\xCF\xB6\x8A", "");
    const std::size_t objectsAt = headerLength + variablesSection.size() + classes.size();
    const std::string map = objectMap(objectsAt);

    std::string file("AC1015\0\0\0\0\0\x06\x01\0\0\0\0\x1B\x19\x1E\0\x03\0\0\0", 25); // no preview, page 1252
    std::size_t place = headerLength;
    char number = 0;
    for (const std::size_t size : {variablesSection.size(), classes.size()}) {
        file += number++ + rawLong(place) + rawLong(size);
        place += size;
    }
    file += number + rawLong(objectsAt + m_objects.size()) + rawLong(map.size());
    file += rawShort(crcOf(file, 0) ^ 0xA598); // the mask for three sections
    file += "\x95\xA0\x4E\x28\x99\x82\x1A\xE5\x5E\x41\xE0\x5F\x9D\x3A\x4D";
    file += '\0';
    return file + variablesSection + classes + m_objects + map;
}

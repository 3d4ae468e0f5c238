#include "DxfTags.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>

#include "dxf/DxfTag.h"

namespace {

void eachTag(std::string_view tags, const std::function<void(std::string_view code, std::string_view value)>& use)
{
    while (!tags.empty()) {
        const auto end = tags.find('\n');
        const std::string_view line = tags.substr(0, end);
        tags.remove_prefix(end == tags.npos ? tags.size() : end + 1);
        const auto blank = line.find(' ');
        if (!line.empty())
            use(line.substr(0, blank), blank == line.npos ? std::string_view() : line.substr(blank + 1));
    }
}

void putLittleEndian(std::string& out, std::uint64_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

} // namespace

std::string asciiDxf(std::string_view tags, std::string_view eol)
{
    std::string out;
    eachTag(tags, [&](std::string_view code, std::string_view value) {
        out.append(code.size() < 3 ? 3 - code.size() : 0, ' ').append(code).append(eol);
        out.append(value).append(eol);
    });
    return out;
}

std::string binaryDxf(std::string_view tags, bool oneByteCodes)
{
    std::string out("AutoCAD Binary DXF\r\n\x1A\0", 22);
    eachTag(tags, [&](std::string_view digits, std::string_view value) {
        const int code = std::atoi(std::string(digits).c_str());
        if (oneByteCodes && code > 254)
            out.push_back('\xFF');
        putLittleEndian(out, static_cast<std::uint64_t>(code), oneByteCodes && code <= 254 ? 1 : 2);
        const std::string text(value);
        const auto integer = static_cast<std::uint64_t>(std::atoll(text.c_str()));
        switch (dxfKind(code)) {
        case DxfKind::real: {
            const double real = std::strtod(text.c_str(), nullptr);
            std::uint64_t bits = 0;
            std::memcpy(&bits, &real, 8);
            putLittleEndian(out, bits, 8);
            break;
        }
        case DxfKind::boolean:
            putLittleEndian(out, integer, 1);
            break;
        case DxfKind::int16:
            putLittleEndian(out, integer, 2);
            break;
        case DxfKind::int32:
            putLittleEndian(out, integer, 4);
            break;
        case DxfKind::int64:
            putLittleEndian(out, integer, 8);
            break;
        case DxfKind::bytes:
            out.push_back(static_cast<char>(text.size() / 2));
            for (std::size_t i = 0; i + 1 < text.size(); i += 2)
                out.push_back(static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16)));
            break;
        default:
            out.append(text).push_back('\0');
        }
    });
    return out;
}

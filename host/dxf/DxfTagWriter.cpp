#include "dxf/DxfTagWriter.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "dxf/DxfEncoding.h"
#include "dxf/DxfError.h"

namespace {

constexpr std::size_t longestCode = 16;  // alignment included
constexpr std::size_t longestValue = 40; // shortest form of a double, or an integer
constexpr std::size_t chunk = 127;       // bytes a tag of binary data holds

[[noreturn]] void refuseValue(int code, const char* why)
{
    throw DxfError("DXF", 0, "groupe " + std::to_string(code) + " : " + why);
}

/// Shortest digits of `value`, with a point: "1e+38" becomes "1.0E+38".
char* putReal(char* at, double value)
{
    char* end = std::to_chars(at, at + longestValue, value).ptr;
    char* exponent = static_cast<char*>(std::memchr(at, 'e', static_cast<std::size_t>(end - at)));
    const bool point = std::memchr(at, '.', static_cast<std::size_t>(end - at)) != nullptr;
    if (exponent)
        *exponent = 'E';
    if (point)
        return end;
    char* const mantissaEnd = exponent ? exponent : end;
    std::memmove(mantissaEnd + 2, mantissaEnd, static_cast<std::size_t>(end - mantissaEnd));
    std::memcpy(mantissaEnd, ".0", 2);
    return end + 2;
}

template <class Integer>
char* putBinary(char* at, Integer value)
{
    std::memcpy(at, &value, sizeof value);
    return at + sizeof value;
}

} // namespace

DxfTagWriter::DxfTagWriter(const DxfForm& form, std::string& out) :
    m_form(form),
    m_out(out),
    m_binary(form.binary),
    m_codeWidth(std::min(form.codeWidth, static_cast<int>(longestCode) - 8)),
    m_eolSize(form.eol.size()),
    m_eol{form.eol.empty() ? '\n' : form.eol[0], '\n'}
{
}

char* DxfTagWriter::putEol(char* at) const
{
    *at++ = m_eol[0];
    if (m_eolSize > 1)
        *at++ = m_eol[1];
    return at;
}

char* DxfTagWriter::putCode(char* at, int code) const
{
    if (!m_binary) {
        char digits[8];
        const char* end = std::to_chars(digits, digits + sizeof digits, code).ptr;
        for (auto width = end - digits; width < m_codeWidth; ++width)
            *at++ = ' ';
        for (const char* p = digits; p < end; ++p)
            *at++ = *p;
        return putEol(at);
    }
    if (m_form.oneByteCodes) {
        if (code < 255) {
            *at++ = static_cast<char>(code);
            return at;
        }
        *at++ = '\xFF';
    }
    return putBinary(at, static_cast<std::uint16_t>(code));
}

void DxfTagWriter::real(int code, double value)
{
    if (!std::isfinite(value))
        refuseValue(code, "nombre non fini");
    char buffer[longestCode + longestValue + 4];
    char* end = putCode(buffer, code);
    end = m_binary ? putBinary(end, value) : putEol(putReal(end, value));
    m_out.append(buffer, end);
}

void DxfTagWriter::point(int code, double x, double y, double z)
{
    real(code, x);
    real(code + 10, y);
    real(code + 20, z);
}

void DxfTagWriter::integer(int code, std::int64_t value)
{
    if (m_binary)
        return integerBinary(code, value);
    char buffer[longestCode + longestValue];
    char* end = putCode(buffer, code);
    end = putEol(std::to_chars(end, end + longestValue / 2, value).ptr);
    m_out.append(buffer, end);
}

void DxfTagWriter::integerBinary(int code, std::int64_t value)
{
    char buffer[longestCode + longestValue];
    char* end = putCode(buffer, code);
    // An unsigned value that fits the width is taken: flags and colours are written either way.
    const auto fits = [value](int bits) { return value >= -(1LL << (bits - 1)) && value < (1LL << bits); };
    bool held = true;
    switch (dxfKind(code)) {
    case DxfKind::boolean:
        held = fits(8);
        end = putBinary(end, static_cast<std::uint8_t>(value));
        break;
    case DxfKind::int16:
        held = fits(16);
        end = putBinary(end, static_cast<std::int16_t>(value));
        break;
    case DxfKind::int32:
        held = fits(32);
        end = putBinary(end, static_cast<std::int32_t>(value));
        break;
    case DxfKind::int64:
        end = putBinary(end, value);
        break;
    default:
        held = false;
    }
    if (!held)
        refuseValue(code, "entier hors limites");
    m_out.append(buffer, end);
}

void DxfTagWriter::handle(int code, std::uint64_t value)
{
    char buffer[longestCode + longestValue];
    char* end = putCode(buffer, code);
    char* const digits = end;
    end = std::to_chars(end, end + 16, value, 16).ptr;
    for (char* p = digits; p < end; ++p) {
        if (*p >= 'a')
            *p = static_cast<char>(*p - ('a' - 'A'));
    }
    end = m_binary ? putBinary(end, '\0') : putEol(end);
    m_out.append(buffer, end);
}

void DxfTagWriter::text(int code, std::wstring_view value)
{
    char buffer[longestCode];
    m_out.append(buffer, putCode(buffer, code));
    m_form.encoding->encode(value, m_out);
    if (m_binary)
        m_out.push_back('\0');
    else
        m_out.append(m_eol, m_eolSize);
}

void DxfTagWriter::rawText(int code, std::string_view value)
{
    char buffer[longestCode];
    m_out.append(buffer, putCode(buffer, code));
    m_out.append(value);
    if (m_binary)
        m_out.push_back('\0');
    else
        m_out.append(m_eol, m_eolSize);
}

void DxfTagWriter::bytes(int code, std::string_view value)
{
    constexpr char digits[] = "0123456789ABCDEF";
    do {
        const std::string_view part = value.substr(0, chunk);
        value.remove_prefix(part.size());
        char buffer[longestCode + 2 * chunk + 2];
        char* end = putCode(buffer, code);
        if (m_binary)
            *end++ = static_cast<char>(part.size());
        for (const char c : part) {
            const auto byte = static_cast<unsigned char>(c);
            if (m_binary) {
                *end++ = c;
            } else {
                *end++ = digits[byte >> 4];
                *end++ = digits[byte & 15];
            }
        }
        m_out.append(buffer, m_binary ? end : putEol(end));
    } while (!value.empty());
}

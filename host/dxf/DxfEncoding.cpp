#include "dxf/DxfEncoding.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

#include <iconv.h>

#include "platform/CodePage.h"
#include "platform/LetterCase.h"

namespace {

bool isHighSurrogate(std::uint32_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}

bool isLowSurrogate(std::uint32_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

unsigned char byteAt(const char* p)
{
    return static_cast<unsigned char>(*p);
}

bool isPlain(unsigned char c)
{
    return c < 0x80 && c != '\\' && c != '^';
}

/// As the tables below have it: capitals without blanks.
std::string pageName(std::string_view text)
{
    std::string upper;
    for (const char c : text)
        if (c != ' ')
            upper.push_back(static_cast<char>(platform::upperCase(static_cast<wchar_t>(c))));
    return upper;
}

/// iconv's name of the page that a drawing calls `name`; nothing for one that drawings do not use.
std::optional<std::string> iconvName(std::string_view name)
{
    static const std::map<std::string, std::string> special = {
        {"UTF-8", "UTF-8"},     {"UTF8", "UTF-8"},   {"ANSI_65001", "UTF-8"},    {"ASCII", "CP1252"},
        {"GB2312", "CP936"},    {"GBK", "CP936"},    {"KSC5601", "CP949"},       {"BIG5", "CP950"},
        {"SHIFT_JIS", "CP932"}, {"JOHAB", "CP1361"}, {"MAC-ROMAN", "MACINTOSH"}, {"MACINTOSH", "MACINTOSH"},
    };
    static constexpr int pages[] = {437,  720,  737,  775,  850,  852,  855,  857,  858,  860, 861,
                                    862,  863,  864,  865,  866,  869,  874,  932,  936,  949, 950,
                                    1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 1361};
    const std::string upper = pageName(name);
    if (const auto found = special.find(upper); found != special.end())
        return found->second;
    const auto digits = std::find_if(upper.begin(), upper.end(), [](char c) { return c >= '0' && c <= '9'; });
    const std::string number(digits, upper.end());
    if (upper.starts_with("ISO8859"))
        return "ISO-8859-" + upper.substr(upper.find_last_not_of("0123456789") + 1);
    for (const int page : pages) {
        if (number == std::to_string(page))
            return "CP" + number;
    }
    return std::nullopt;
}

/// Value of the four hexadecimal digits at p; nothing if they are not.
std::optional<std::uint32_t> fourDigits(const char* p, const char* end)
{
    if (end - p < 4)
        return std::nullopt;
    std::uint32_t value = 0;
    const auto [stop, error] = std::from_chars(p, p + 4, value, 16);
    return error == std::errc() && stop == p + 4 ? std::optional(value) : std::nullopt;
}

/// Undoes "\U+XXXX" or a pair of them at p. @return after it, or p if there is none to undo.
const char* unescapeUnicode(const char* p, const char* end, std::wstring& out)
{
    constexpr std::string_view mark = "\\U+";
    const auto escape = [&](const char* at) -> std::optional<std::uint32_t> {
        if (end - at < 7 || std::string_view(at, 3) != mark)
            return std::nullopt;
        return fourDigits(at + 3, end);
    };
    const auto first = escape(p);
    if (!first || *first == 0 || isLowSurrogate(*first))
        return p;
    if (!isHighSurrogate(*first)) {
        out.push_back(static_cast<wchar_t>(*first));
        return p + 7;
    }
    const auto second = escape(p + 7);
    if (!second || !isLowSurrogate(*second))
        return p;
    out.push_back(static_cast<wchar_t>(0x10000 + ((*first - 0xD800) << 10) + (*second - 0xDC00)));
    return p + 14;
}

/// Undoes "\M+nXXXX", a character of one of the five East Asian pages, at p. @return after it, or p.
const char* unescapeMultibyte(const char* p, const char* end, std::wstring& out)
{
    static constexpr const char* pages[] = {"ANSI_932", "ANSI_950", "ANSI_949", "ANSI_1361", "ANSI_936"};
    if (end - p < 8 || std::string_view(p, 3) != "\\M+" || p[3] < '1' || p[3] > '5')
        return p;
    const auto value = fourDigits(p + 4, end);
    if (!value || *value < 0x80)
        return p;
    const char bytes[] = {static_cast<char>(*value >> 8), static_cast<char>(*value & 0xFF)};
    const std::string_view text(*value > 0xFF ? bytes : bytes + 1, *value > 0xFF ? 2 : 1);
    const std::wstring read = DxfEncoding::forCodePage(pages[p[3] - '1']).decode(text);
    if (read.size() != 1 || isLowSurrogate(static_cast<std::uint32_t>(read[0])))
        return p;
    out += read;
    return p + 8;
}

void putUnicodeEscape(std::uint32_t unit, std::string& out)
{
    constexpr char digits[] = "0123456789ABCDEF";
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        out.push_back(digits[unit >> shift & 15]);
}

void escapeUnicode(std::uint32_t c, std::string& out)
{
    if (c > 0x10FFFF)
        c = 0xFFFD;
    if (c < 0x10000)
        return putUnicodeEscape(c, out);
    putUnicodeEscape(0xD800 + ((c - 0x10000) >> 10), out);
    putUnicodeEscape(0xDC00 + ((c - 0x10000) & 0x3FF), out);
}

/// Whether a text begins with what reading would take for one of the form's own escapes.
bool wouldBeUnescaped(std::wstring_view text)
{
    constexpr std::size_t longest = 14; // a pair of \U+XXXX
    std::array<char, longest> bytes{};
    std::size_t length = 0;
    for (; length < std::min(longest, text.size()) && text[length] < 0x80; ++length)
        bytes[length] = static_cast<char>(text[length]);
    const char* const end = bytes.data() + length;
    std::wstring ignored;
    return unescapeUnicode(bytes.data(), end, ignored) != bytes.data() ||
           unescapeMultibyte(bytes.data(), end, ignored) != bytes.data();
}

enum class Converted { character, incomplete, nothing };

/// What one or two bytes stand for by themselves.
Converted convert(iconv_t converter, std::string_view bytes, wchar_t& character)
{
    std::array<char, 2> in{};
    std::copy(bytes.begin(), bytes.end(), in.begin());
    std::array<wchar_t, 4> out{};
    char* from = in.data();
    char* to = reinterpret_cast<char*>(out.data());
    std::size_t fromLeft = bytes.size();
    std::size_t toLeft = sizeof out;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1))
        return errno == EINVAL ? Converted::incomplete : Converted::nothing;
    iconv(converter, nullptr, nullptr, &to, &toLeft); // some pages hold a letter back for an accent to come
    if (sizeof out - toLeft != sizeof(wchar_t) || static_cast<std::uint32_t>(out[0]) < 0x80)
        return Converted::nothing;
    character = out[0];
    return Converted::character;
}

} // namespace

const DxfEncoding& DxfEncoding::utf8()
{
    static const DxfEncoding encoding("UTF-8");
    return encoding;
}

const DxfEncoding& DxfEncoding::forCodePage(std::string_view name, bool* known)
{
    static std::mutex guard;
    static std::map<std::string, std::unique_ptr<const DxfEncoding>> pages;
    const std::string usual = "CP1252";
    std::string wanted = iconvName(name).value_or("");
    if (wanted == "UTF-8") {
        if (known)
            *known = true;
        return utf8();
    }
    const std::lock_guard lock(guard);
    const auto open = [&](const std::string& page) -> const DxfEncoding& {
        auto& entry = pages[page];
        if (!entry)
            entry.reset(new DxfEncoding(page));
        return *entry;
    };
    const bool usable = !wanted.empty() && !open(wanted).m_bytes.empty();
    if (known)
        *known = usable;
    return open(usable ? wanted : usual);
}

DxfEncoding::DxfEncoding(std::string iconvName) : m_name(std::move(iconvName)), m_utf8(m_name == "UTF-8")
{
    if (!m_utf8)
        fillTables();
}

// Both ways go through tables: iconv itself would cost a call a character, and none of the pages in use has more than
// two bytes to one.
void DxfEncoding::fillTables()
{
    const iconv_t converter = iconv_open("WCHAR_T", m_name.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1))
        return;
    m_single.resize(128);
    m_pairs.resize(128);
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        const char c = static_cast<char>(byte);
        wchar_t character = 0;
        const Converted found = convert(converter, {&c, 1}, character);
        if (found == Converted::character) {
            m_single[byte - 0x80] = character;
            m_bytes.emplace_back(character, static_cast<std::uint16_t>(byte));
        } else if (found == Converted::incomplete) {
            fillPairs(static_cast<std::uint8_t>(byte), converter);
        }
    }
    iconv_close(converter);
    // Of two codes for one character the first is written.
    std::stable_sort(m_bytes.begin(), m_bytes.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    m_bytes.erase(
        std::unique(m_bytes.begin(), m_bytes.end(), [](const auto& a, const auto& b) { return a.first == b.first; }),
        m_bytes.end());
}

void DxfEncoding::fillPairs(std::uint8_t lead, void* converter)
{
    auto& pairs = m_pairs[lead - 0x80u];
    pairs.resize(256);
    for (unsigned second = 0x30; second <= 0xFF; ++second) {
        const char bytes[] = {static_cast<char>(lead), static_cast<char>(second)};
        wchar_t character = 0;
        if (convert(converter, {bytes, 2}, character) != Converted::character)
            continue;
        pairs[second] = character;
        m_bytes.emplace_back(character, static_cast<std::uint16_t>(unsigned{lead} << 8 | second));
    }
}

std::wstring DxfEncoding::decode(std::string_view bytes) const
{
    std::wstring out;
    decode(bytes, out);
    return out;
}

void DxfEncoding::decode(std::string_view bytes, std::wstring& out) const
{
    const char* p = bytes.data();
    const char* const end = p + bytes.size();
    while (p < end) {
        const char* const run = p;
        while (p < end && isPlain(byteAt(p)))
            ++p;
        out.append(run, p);
        if (p == end)
            return;
        const char* const before = p;
        if (*p == '^' && end - p > 1 && (p[1] == ' ' || (p[1] > '@' && p[1] <= '_'))) {
            out.push_back(p[1] == ' ' ? L'^' : static_cast<wchar_t>(p[1] - '@'));
            p += 2;
        } else if (*p == '\\') {
            p = unescapeUnicode(p, end, out);
            if (p == before)
                p = unescapeMultibyte(p, end, out);
        } else if (byteAt(p) >= 0x80) {
            p = decodeCharacter(p, end, out);
        }
        if (p == before) {
            const unsigned char c = byteAt(p++);
            out.push_back(c < 0x80 ? static_cast<wchar_t>(c) : platform::strayByte + c);
        }
    }
}

// @return after the character at p, or p if the bytes there are none.
const char* DxfEncoding::decodeCharacter(const char* p, const char* end, std::wstring& out) const
{
    if (m_utf8) {
        const platform::Utf8Character first =
            platform::firstOfUtf8(std::string_view(p, static_cast<std::size_t>(end - p)));
        if (first.length > 0)
            out.push_back(first.character);
        return p + first.length;
    }
    const std::size_t lead = byteAt(p) - 0x80u;
    if (lead >= m_single.size())
        return p;
    wchar_t character = m_single[lead];
    std::ptrdiff_t length = 1;
    if (character == 0 && end - p > 1 && !m_pairs[lead].empty()) {
        character = m_pairs[lead][byteAt(p + 1)];
        length = 2;
    }
    if (character == 0)
        return p;
    out.push_back(character);
    return p + length;
}

std::string DxfEncoding::encode(std::wstring_view text) const
{
    std::string out;
    encode(text, out);
    return out;
}

void DxfEncoding::encode(std::wstring_view text, std::string& out) const
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t wide = text[i];
        const auto c = static_cast<std::uint32_t>(wide);
        if (c == '\\' && wouldBeUnescaped(text.substr(i))) {
            putUnicodeEscape(c, out);
        } else if (c < 0x20) {
            out.push_back('^');
            out.push_back(static_cast<char>(c + '@'));
        } else if (c == '^') {
            out += "^ ";
        } else if (c < 0x80) {
            out.push_back(static_cast<char>(c));
        } else if (platform::isStrayByte(wide)) {
            out.push_back(static_cast<char>(wide - platform::strayByte));
        } else if (!encodeCharacter(wide, out)) {
            escapeUnicode(c, out);
        }
    }
}

bool DxfEncoding::encodeCharacter(wchar_t wide, std::string& out) const
{
    const auto c = static_cast<std::uint32_t>(wide);
    if (m_utf8) {
        if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
            return false;
        platform::appendUtf8(out, c);
        return true;
    }
    const auto found = std::lower_bound(m_bytes.begin(), m_bytes.end(), wide,
                                        [](const auto& entry, wchar_t wanted) { return entry.first < wanted; });
    if (found == m_bytes.end() || found->first != wide)
        return false;
    if (found->second > 0xFF)
        out.push_back(static_cast<char>(found->second >> 8));
    out.push_back(static_cast<char>(found->second & 0xFF));
    return true;
}

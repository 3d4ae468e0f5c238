#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <emmintrin.h>

#include "dxf/DxfForm.h"
#include "dxf/DxfTag.h"

namespace dxf_detail {

/// Bit i set where byte i of the 64 at p is that of `wanted`, which holds sixteen times the same.
inline std::uint64_t bytesEqual(const char* p, __m128i wanted)
{
    const auto part = [&](int at) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + at));
        const int mask = _mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted));
        return static_cast<std::uint64_t>(static_cast<unsigned>(mask)) << at;
    };
    return part(0) | part(16) | part(32) | part(48);
}

/// What a character in each of the three places of a group code adds to it. Signs of a line to be read more slowly
/// are bits above: two of blankAfterDigit for a blank between digits, one of notDigit for anything else.
struct GroupCodeDigits {
    static constexpr int blankAfterDigit = 0x1000;
    static constexpr int notDigit = 0x4000;
    static constexpr int slow = 0xE000;

    std::array<std::uint16_t, 256> hundreds{}, tens{}, ones{};

    constexpr GroupCodeDigits()
    {
        hundreds.fill(notDigit);
        tens.fill(notDigit);
        ones.fill(notDigit);
        for (std::size_t digit = 0; digit <= 9; ++digit) {
            hundreds['0' + digit] = static_cast<std::uint16_t>(digit * 100 + blankAfterDigit);
            tens['0' + digit] = static_cast<std::uint16_t>(digit * 10);
            ones['0' + digit] = static_cast<std::uint16_t>(digit);
        }
        hundreds[' '] = 0;
        tens[' '] = blankAfterDigit;
    }
};

inline constexpr GroupCodeDigits groupCodeDigits;

/// Any line: blanks, digits, blanks.
inline int groupCodeSlow(const char* p, const char* end)
{
    while (p < end && (*p == ' ' || *p == '\t'))
        ++p;
    const char* digits = p;
    int code = 0;
    for (; p < end && static_cast<unsigned char>(*p - '0') <= 9 && code <= dxfLastCode; ++p)
        code = code * 10 + (*p - '0');
    if (p == digits || code > dxfLastCode)
        return dxfBadCode;
    while (p < end && (*p == ' ' || *p == '\t' || *p == '\r'))
        ++p;
    return p == end ? code : dxfBadCode;
}

} // namespace dxf_detail

/// Group code on the line [p, end), which may end with a CR: blanks, digits, blanks.
/// @return 0..dxfLastCode, or dxfBadCode.
inline int dxfGroupCode(const char* p, const char* end)
{
    const char* const digitsEnd = end > p && end[-1] == '\r' ? end - 1 : end;
    if (digitsEnd - p != 3) // the usual width, read without a branch a digit
        return dxf_detail::groupCodeSlow(p, end);
    const auto at = [p](int i) { return static_cast<unsigned char>(p[i]); };
    const auto& table = dxf_detail::groupCodeDigits;
    const int code = table.hundreds[at(0)] + table.tens[at(1)] + table.ones[at(2)];
    if (code & table.slow)
        return dxf_detail::groupCodeSlow(p, end);
    return code & (dxf_detail::GroupCodeDigits::blankAfterDigit - 1);
}

/// Walks the tags of a range of bytes that starts at a group code; knows nothing of what they mean.
///
/// A group code line that cannot be read gives a tag whose code is dxfBadCode, and the walk goes on two lines further:
/// only records flagged as spoiled hold such tags. Bytes at the end that make no whole tag are left: see `cut`.
/// The bytes must outlive the cursor and its tags. Nothing outside [begin, end) is read.
class DxfCursor {
public:
    DxfCursor(const DxfForm& form, const char* begin, const char* end) :
        m_begin(begin),
        m_end(end),
        m_at(begin),
        m_block(begin),
        m_base(begin),
        m_lineEnds(_mm_set1_epi8(form.lineEnd())),
        m_lineEnd(form.lineEnd()),
        m_binary(form.binary),
        m_oneByteCodes(form.oneByteCodes)
    {
    }
    DxfCursor(const DxfForm& form, std::string_view bytes) : DxfCursor(form, bytes.data(), bytes.data() + bytes.size())
    {
    }

    /// The next tag; false, and `tag` undefined, at the end.
    [[gnu::always_inline]] bool next(DxfTag& tag) { return m_binary ? nextBinary(tag) : nextAscii(tag); }

    /// `next` where the form is known: for the loop that walks a whole file.
    template <bool Binary>
    [[gnu::always_inline]] bool nextIn(DxfTag& tag)
    {
        return Binary ? nextBinary(tag) : nextAscii(tag);
    }

    /// Where the next tag starts.
    const char* position() const { return m_at; }

    /// After `next` gave false: whether bytes are left that make no tag.
    bool cut() const { return m_at < m_end; }

private:
    [[gnu::always_inline]] bool nextAscii(DxfTag& tag)
    {
        if (m_mask == 0 && !findLineEnds())
            return false;
        const char* codeEnd = takeLineEnd();
        if (codeEnd + 1 == m_end)
            return false;
        const char* valueEnd = m_mask != 0 || findLineEnds() ? takeLineEnd() : nullptr;
        tag.start = m_at;
        tag.code = dxfGroupCode(m_at, codeEnd);
        tag.begin = codeEnd + 1;
        tag.next = valueEnd ? valueEnd + 1 : m_end;
        tag.end = valueEnd ? valueEnd : m_end;
        if (m_lineEnd == '\n' && tag.end > tag.begin && tag.end[-1] == '\r')
            --tag.end;
        m_at = tag.next;
        return true;
    }

    // Line ends are looked for 64 bytes at a time; m_mask holds those not yet taken.
    [[gnu::always_inline]] bool findLineEnds()
    {
        while (m_end - m_block >= 64) {
            m_base = m_block;
            m_mask = dxf_detail::bytesEqual(m_base, m_lineEnds);
            m_block += 64;
            if (m_mask != 0)
                return true;
        }
        if (m_block >= m_end)
            return false;
        m_base = m_end - m_begin >= 64 ? m_end - 64 : m_begin;
        m_mask = lastLineEnds(m_base, m_block, m_end, m_lineEnd);
        m_block = m_end;
        return m_mask != 0;
    }

    [[gnu::always_inline]] const char* takeLineEnd()
    {
        const char* const at = m_base + std::countr_zero(m_mask);
        m_mask &= m_mask - 1;
        return at;
    }

    // Line ends in [from, end), counted from base: the last 64 bytes looked at once more, or fewer where there are
    // not 64.
    [[gnu::noinline]] static std::uint64_t lastLineEnds(const char* base, const char* from, const char* end,
                                                        char lineEnd)
    {
        if (end - base == 64)
            return dxf_detail::bytesEqual(base, _mm_set1_epi8(lineEnd)) & (~std::uint64_t{0} << (from - base));
        std::uint64_t mask = 0;
        for (const char* p = from; p < end; ++p)
            mask |= static_cast<std::uint64_t>(*p == lineEnd) << (p - base);
        return mask;
    }

    bool nextBinary(DxfTag& tag)
    {
        const char* p = m_at;
        const auto left = [&] { return m_end - p; };
        const auto byte = [](const char* at) { return static_cast<int>(static_cast<unsigned char>(*at)); };
        if (left() < 2)
            return false;
        tag.start = p;
        if (m_oneByteCodes && byte(p) != 255) {
            tag.code = byte(p++);
        } else {
            p += m_oneByteCodes;
            if (left() < 2)
                return false;
            tag.code = byte(p) | byte(p + 1) << 8;
            p += 2;
        }
        if (tag.code > dxfLastCode)
            return false; // of unknown length: the walk cannot go on
        std::ptrdiff_t size = 0;
        switch (dxfKind(tag.code)) {
        case DxfKind::real:
        case DxfKind::int64:
            size = 8;
            break;
        case DxfKind::int32:
            size = 4;
            break;
        case DxfKind::int16:
            size = 2;
            break;
        case DxfKind::boolean:
            size = 1;
            break;
        case DxfKind::bytes:
            if (left() < 1)
                return false;
            size = byte(p++);
            break;
        case DxfKind::text:
        case DxfKind::handle: {
            const void* zero = left() > 0 ? std::memchr(p, 0, static_cast<std::size_t>(left())) : nullptr;
            if (!zero)
                return false;
            tag.begin = p;
            tag.end = static_cast<const char*>(zero);
            tag.next = m_at = tag.end + 1;
            return true;
        }
        }
        if (left() < size)
            return false;
        tag.begin = p;
        tag.next = m_at = tag.end = p + size;
        return true;
    }

    const char* m_begin;
    const char* m_end;
    const char* m_at;
    const char* m_block; // first byte whose line end was not looked for
    const char* m_base;  // what bit 0 of m_mask stands for
    std::uint64_t m_mask = 0;
    __m128i m_lineEnds; // m_lineEnd sixteen times
    char m_lineEnd;
    bool m_binary;
    bool m_oneByteCodes;
};

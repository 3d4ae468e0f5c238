#include "platform/WideFormat.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <string_view>

#include <locale.h>

#include "platform/CodePage.h"

namespace platform {

namespace {

/// No double has more than 1074 decimals, and no line is wider: larger figures come from broken formats.
constexpr int greatestField = 4096;

enum class Size { none, hh, h, l, ll, pointer, longDouble };

/// One conversion of the format, such as "%-8.3f".
struct Conversion {
    std::string flags;
    int width = 0;
    int precision = -1; // none given
    Size size = Size::none;
    wchar_t type = L'\0';
};

/// Numbers take the full stop whatever the process's locale.
class CLocale {
public:
    CLocale() : m_previous(uselocale(c())) {}
    ~CLocale() { uselocale(m_previous); }
    CLocale(const CLocale&) = delete;
    CLocale& operator=(const CLocale&) = delete;

private:
    static locale_t c()
    {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }
    locale_t m_previous;
};

/// What printf of the C library makes of one number.
template <class Number>
std::string printed(const Conversion& conversion, const char* size, char type, Number number)
{
    std::string pattern = "%" + conversion.flags + "*";
    if (conversion.precision >= 0)
        pattern += ".*";
    pattern += size;
    pattern += type;
    const auto print = [&](char* buffer, std::size_t room) {
        const CLocale c;
        const int written =
            conversion.precision >= 0
                ? std::snprintf(buffer, room, pattern.c_str(), conversion.width, conversion.precision, number)
                : std::snprintf(buffer, room, pattern.c_str(), conversion.width, number);
        return static_cast<std::size_t>(std::max(written, 0));
    };
    std::array<char, 64> brief{};
    const std::size_t length = print(brief.data(), brief.size());
    if (length < brief.size())
        return {brief.data(), length};
    std::string full(length + 1, '\0');
    print(full.data(), full.size());
    full.pop_back();
    return full;
}

class Formatter {
public:
    Formatter(const wchar_t* format, std::va_list arguments) : m_next(format) { va_copy(m_arguments, arguments); }
    ~Formatter() { va_end(m_arguments); }
    Formatter(const Formatter&) = delete;
    Formatter& operator=(const Formatter&) = delete;

    std::wstring run()
    {
        while (*m_next != L'\0') {
            const wchar_t* const start = m_next;
            if (*m_next++ != L'%') {
                m_next += std::wcscspn(m_next, L"%");
                m_out.append(start, m_next);
            } else if (!convert(readConversion())) {
                m_next = start + 1; // no conversion: the rest of it is plain text
                m_out += L'%';
            }
        }
        return std::move(m_out);
    }

private:
    Conversion readConversion()
    {
        Conversion c;
        for (; *m_next != L'\0' && std::wcschr(L"-+ #0", *m_next) != nullptr; ++m_next)
            if (c.flags.find(static_cast<char>(*m_next)) == std::string::npos)
                c.flags += static_cast<char>(*m_next);
        const int width = readFigure();
        if (width < 0)
            c.flags += '-';
        c.width = std::min(std::abs(width), greatestField);
        if (*m_next == L'.') {
            ++m_next;
            c.precision = std::min(readFigure(), greatestField);
        }
        c.size = readSize();
        c.type = *m_next;
        if (c.type != L'\0')
            ++m_next;
        return c;
    }

    /// A width or precision: digits, the next argument for "*", or 0.
    int readFigure()
    {
        if (*m_next == L'*') {
            ++m_next;
            return std::max(va_arg(m_arguments, int), -greatestField);
        }
        int figure = 0;
        for (; *m_next >= L'0' && *m_next <= L'9'; ++m_next)
            figure = std::min(figure * 10 + static_cast<int>(*m_next - L'0'), greatestField);
        return figure;
    }

    Size readSize()
    {
        struct Prefix {
            std::wstring_view text;
            Size size;
        };
        static constexpr Prefix prefixes[] = {
            {L"hh", Size::hh},     {L"h", Size::h},       {L"ll", Size::ll},    {L"l", Size::l},
            {L"w", Size::l},       {L"I64", Size::ll},    {L"I32", Size::none}, {L"I", Size::pointer},
            {L"z", Size::pointer}, {L"t", Size::pointer}, {L"j", Size::ll},     {L"L", Size::longDouble},
        };
        for (const Prefix& prefix : prefixes)
            if (std::wcsncmp(m_next, prefix.text.data(), prefix.text.size()) == 0) {
                m_next += prefix.text.size();
                return prefix.size;
            }
        return Size::none;
    }

    /// Writes the next argument. @return false when this is no conversion.
    bool convert(const Conversion& c)
    {
        switch (c.type) {
        case L'%':
            m_out += L'%';
            return true;
        case L'd':
        case L'i':
            putNumber(printed(c, "j", 'd', readSigned(c.size)));
            return true;
        case L'u':
        case L'o':
        case L'x':
        case L'X':
            putNumber(printed(c, "j", static_cast<char>(c.type), readUnsigned(c.size)));
            return true;
        case L'f':
        case L'F':
        case L'e':
        case L'E':
        case L'g':
        case L'G':
        case L'a':
        case L'A':
            putReal(c);
            return true;
        case L'p':
            putNumber(printed(Conversion{"0", 16}, "j", 'X',
                              reinterpret_cast<std::uintmax_t>(va_arg(m_arguments, const void*))));
            return true;
        case L's':
        case L'S':
            putText(c);
            return true;
        case L'c':
        case L'C':
            putCharacter(c);
            return true;
        default:
            return false;
        }
    }

    std::intmax_t readSigned(Size size)
    {
        switch (size) {
        case Size::hh:
            return static_cast<signed char>(va_arg(m_arguments, int));
        case Size::h:
            return static_cast<short>(va_arg(m_arguments, int));
        case Size::l:
            return va_arg(m_arguments, long);
        case Size::ll:
            return va_arg(m_arguments, long long);
        case Size::pointer:
            return va_arg(m_arguments, std::ptrdiff_t);
        default:
            return va_arg(m_arguments, int);
        }
    }

    std::uintmax_t readUnsigned(Size size)
    {
        const auto value = static_cast<std::uintmax_t>(readSigned(size));
        switch (size) {
        case Size::hh:
            return static_cast<unsigned char>(value);
        case Size::h:
            return static_cast<unsigned short>(value);
        case Size::none:
        case Size::longDouble:
            return static_cast<unsigned int>(value);
        default:
            return value;
        }
    }

    void putReal(const Conversion& c)
    {
        const char type = static_cast<char>(c.type);
        putNumber(c.size == Size::longDouble ? printed(c, "L", type, va_arg(m_arguments, long double))
                                             : printed(c, "", type, va_arg(m_arguments, double)));
    }

    void putNumber(const std::string& digits) { m_out.append(digits.begin(), digits.end()); }

    /// In a wide format the plain letter is wide and the capital narrow; a size overrules both.
    static bool isNarrow(const Conversion& c)
    {
        if (c.size == Size::h || c.size == Size::hh)
            return true;
        return c.size != Size::l && (c.type == L'S' || c.type == L'C');
    }

    void putText(const Conversion& c)
    {
        // A text cut by a precision need not end in a zero.
        const std::size_t limit = c.precision >= 0 ? static_cast<std::size_t>(c.precision) : SIZE_MAX / sizeof(wchar_t);
        if (isNarrow(c)) {
            const char* const text = va_arg(m_arguments, const char*);
            return putPadded(c, text == nullptr ? L"(null)" : wideFromAnsi(untilZero(text, limit)));
        }
        const wchar_t* const text = va_arg(m_arguments, const wchar_t*);
        putPadded(c, text == nullptr ? std::wstring_view(L"(null)") : untilZero(text, limit));
    }

    void putCharacter(const Conversion& c)
    {
        const int code = va_arg(m_arguments, int);
        const wchar_t character = isNarrow(c) ? wideFromAnsi(static_cast<char>(code)) : static_cast<wchar_t>(code);
        putPadded(c, std::wstring_view(&character, 1));
    }

    template <class Character>
    static std::basic_string_view<Character> untilZero(const Character* text, std::size_t limit)
    {
        std::size_t length = 0;
        while (length < limit && text[length] != Character(0))
            ++length;
        return {text, length};
    }

    void putPadded(const Conversion& c, std::wstring_view text)
    {
        const std::size_t padding =
            static_cast<std::size_t>(c.width) - std::min(text.size(), static_cast<std::size_t>(c.width));
        const bool left = c.flags.find('-') != std::string::npos;
        m_out.append(left ? 0 : padding, L' ').append(text).append(left ? padding : 0, L' ');
    }

    const wchar_t* m_next;
    std::va_list m_arguments;
    std::wstring m_out;
};

} // namespace

std::wstring formatWide(const wchar_t* format, std::va_list arguments)
{
    return format == nullptr ? std::wstring() : Formatter(format, arguments).run();
}

} // namespace platform

// Any text as a format. Every argument can be read as any that a format asks for: pointers to a text that ends in zeros
// for narrow and wide characters alike, and numbers, each in registers of their own.

#include <cstdarg>
#include <cstdlib>

#include "platform/CodePage.h"
#include "platform/WideFormat.h"

namespace {

constexpr std::size_t mostArguments = 16;

std::wstring formatted(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::wstring text = platform::formatWide(format, arguments);
    va_end(arguments);
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    std::wstring format = platform::wideFromUtf8({reinterpret_cast<const char*>(data), size});
    std::size_t asked = 0;
    for (wchar_t& c : format) {
        asked += c == L'%' || c == L'*' ? 1 : 0;
        if (c == L'L') // no pointer is a sound long double
            c = L'l';
    }
    if (asked > mostArguments)
        return 0;
    const wchar_t* const t = L"été €";
    const std::wstring text = formatted(format.c_str(), t, t, t, t, t, t, t, t, t, t, t, t, t, t, t, t, t, t, t, t, 1.5,
                                        -1e38, 0.0, 1e308, -0.0, 1e-308, 12.0, 0.5);
    // A broken format costs no memory: a conversion is no wider than a field, the digits of a double and its decimals.
    if (text.size() > format.size() + asked * 5000)
        std::abort();
    return 0;
}

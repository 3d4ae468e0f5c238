#include "rx/Console.h"

#include <cstdarg>

#include "platform/WideFormat.h"
#include "rx/HostSession.h"

#include "acutads.h"

namespace {

bool isBlank(const std::wstring& line)
{
    return line.find_first_not_of(L" \t\r") == std::wstring::npos;
}

} // namespace

Console& Console::instance()
{
    return HostSession::part<Console>();
}

void Console::print(const std::wstring& text)
{
    std::size_t from = 0;
    for (std::size_t end; (end = text.find(L'\n', from)) != std::wstring::npos; from = end + 1) {
        m_line.append(text, from, end - from);
        if (!isBlank(m_line))
            m_lastFull = m_line;
        m_line.clear();
    }
    m_line.append(text, from);
    if (m_sink)
        m_sink(text);
}

const std::wstring& Console::lastLine() const
{
    return isBlank(m_line) ? m_lastFull : m_line;
}

int acutPrintf(const ACHAR* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::wstring text = platform::formatWide(format, arguments);
    va_end(arguments);
    Console::instance().print(text);
    return RTNORM;
}

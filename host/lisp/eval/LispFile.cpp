#include "lisp/eval/LispFile.h"

#include "platform/CodePage.h"
#include "platform/Paths.h"

namespace {

std::ios::openmode streamMode(LispFile::Mode mode)
{
    switch (mode) {
    case LispFile::Mode::read:
        return std::ios::in | std::ios::binary;
    case LispFile::Mode::write:
        return std::ios::out | std::ios::trunc | std::ios::binary;
    case LispFile::Mode::append:
        break;
    }
    return std::ios::out | std::ios::app | std::ios::binary;
}

} // namespace

LispFile::LispFile(const std::wstring& name, Mode mode) : m_name(name), m_mode(mode)
{
    const std::filesystem::path path = platform::nativePath(name);
    std::error_code noMatter; // what cannot be looked at, such as too long a name, cannot be opened either
    if (!std::filesystem::is_directory(path, noMatter))
        m_stream.open(path, streamMode(mode));
}

bool LispFile::readLine(std::wstring& line)
{
    std::string bytes;
    if (m_mode != Mode::read || !std::getline(m_stream, bytes))
        return false;
    if (bytes.ends_with('\r'))
        bytes.pop_back();
    line = platform::wideFromAnsi(bytes);
    return true;
}

int LispFile::readCharacter()
{
    if (m_mode != Mode::read)
        return -1;
    int byte = m_stream.get();
    if (byte == '\r' && m_stream.peek() == '\n')
        byte = m_stream.get();
    return byte == std::char_traits<char>::eof() ? -1 : platform::wideFromAnsi(static_cast<char>(byte));
}

void LispFile::write(std::wstring_view text)
{
    if (m_mode == Mode::read)
        return;
    std::string bytes;
    for (const char c : platform::ansiFromWide(text))
        bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
    m_stream << bytes;
}

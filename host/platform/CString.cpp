#include <algorithm>
#include <cwchar>

#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "platform/WideFormat.h"

#include "afx.h"

namespace {

constexpr const wchar_t* blanks = L" \t\n\v\f\r";

const wchar_t* orEmpty(const wchar_t* text)
{
    return text == nullptr ? L"" : text;
}

std::wstring widened(const char* text)
{
    return text == nullptr ? std::wstring() : platform::wideFromAnsi(text);
}

std::size_t atLeastZero(int n)
{
    return static_cast<std::size_t>(std::max(n, 0));
}

/// A position as CString gives it: -1 when nothing was found.
int position(std::size_t found)
{
    return found == std::wstring::npos ? -1 : static_cast<int>(found);
}

} // namespace

CString::CString(const wchar_t* text) : m_text(orEmpty(text)) {}
CString::CString(const wchar_t* text, int length) : m_text(orEmpty(text), text == nullptr ? 0 : atLeastZero(length)) {}
CString::CString(const char* text) : m_text(widened(text)) {}
CString::CString(wchar_t c, int count) : m_text(atLeastZero(count), c) {}

CString& CString::operator=(const wchar_t* text)
{
    m_text = orEmpty(text);
    return *this;
}

CString& CString::operator=(const char* text)
{
    m_text = widened(text);
    return *this;
}

CString& CString::operator=(wchar_t c)
{
    m_text.assign(1, c);
    return *this;
}

wchar_t CString::GetAt(int index) const
{
    if (index < 0 || index > GetLength())
        AfxThrowInvalidArgException();
    return m_text[static_cast<std::size_t>(index)];
}

void CString::SetAt(int index, wchar_t c)
{
    if (index < 0 || index >= GetLength())
        AfxThrowInvalidArgException();
    m_text[static_cast<std::size_t>(index)] = c;
}

wchar_t* CString::GetBuffer(int length)
{
    m_text.resize(std::max(m_text.size(), atLeastZero(length)));
    return m_text.data();
}

void CString::ReleaseBuffer(int length)
{
    if (length > GetLength())
        AfxThrowInvalidArgException();
    m_text.resize(length >= 0 ? static_cast<std::size_t>(length) : std::wcslen(m_text.c_str()));
}

CString& CString::operator+=(const CString& text)
{
    m_text += text.m_text;
    return *this;
}

CString& CString::operator+=(const wchar_t* text)
{
    m_text += orEmpty(text);
    return *this;
}

CString& CString::operator+=(const char* text)
{
    m_text += widened(text);
    return *this;
}

CString& CString::operator+=(wchar_t c)
{
    m_text += c;
    return *this;
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    return Mid(GetLength() - std::min(std::max(count, 0), GetLength()));
}

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const
{
    const std::size_t start = std::min(atLeastZero(first), m_text.size());
    CString result;
    result.m_text = m_text.substr(start, atLeastZero(count));
    return result;
}

CString CString::SpanIncluding(const wchar_t* set) const
{
    CString result;
    result.m_text = m_text.substr(0, m_text.find_first_not_of(orEmpty(set)));
    return result;
}

CString CString::SpanExcluding(const wchar_t* set) const
{
    CString result;
    result.m_text = m_text.substr(0, m_text.find_first_of(orEmpty(set)));
    return result;
}

CString CString::Tokenize(const wchar_t* separators, int& start) const
{
    if (start < 0)
        AfxThrowInvalidArgException();
    const std::size_t first = m_text.find_first_not_of(orEmpty(separators), static_cast<std::size_t>(start));
    if (first == std::wstring::npos) {
        start = -1;
        return {};
    }
    const std::size_t end = std::min(m_text.find_first_of(orEmpty(separators), first), m_text.size());
    start = static_cast<int>(end) + 1;
    CString result;
    result.m_text = m_text.substr(first, end - first);
    return result;
}

CString& CString::Trim()
{
    return Trim(blanks);
}
CString& CString::Trim(wchar_t c)
{
    return TrimRight(c).TrimLeft(c);
}
CString& CString::Trim(const wchar_t* set)
{
    return TrimRight(set).TrimLeft(set);
}
CString& CString::TrimLeft()
{
    return TrimLeft(blanks);
}
CString& CString::TrimRight()
{
    return TrimRight(blanks);
}

CString& CString::TrimLeft(wchar_t c)
{
    m_text.erase(0, m_text.find_first_not_of(c));
    return *this;
}

CString& CString::TrimLeft(const wchar_t* set)
{
    m_text.erase(0, m_text.find_first_not_of(orEmpty(set)));
    return *this;
}

CString& CString::TrimRight(wchar_t c)
{
    m_text.erase(m_text.find_last_not_of(c) + 1);
    return *this;
}

CString& CString::TrimRight(const wchar_t* set)
{
    m_text.erase(m_text.find_last_not_of(orEmpty(set)) + 1);
    return *this;
}

CString& CString::MakeUpper()
{
    m_text = platform::upperCase(m_text);
    return *this;
}

CString& CString::MakeLower()
{
    m_text = platform::lowerCase(m_text);
    return *this;
}

int CString::Find(wchar_t c, int start) const
{
    return position(m_text.find(c, atLeastZero(start)));
}

int CString::Find(const wchar_t* text, int start) const
{
    return position(m_text.find(orEmpty(text), atLeastZero(start)));
}

int CString::ReverseFind(wchar_t c) const
{
    return position(m_text.rfind(c));
}

int CString::FindOneOf(const wchar_t* set) const
{
    return position(m_text.find_first_of(orEmpty(set)));
}

int CString::Replace(wchar_t old, wchar_t replacement)
{
    const auto count = std::count(m_text.begin(), m_text.end(), old);
    std::replace(m_text.begin(), m_text.end(), old, replacement);
    return old == replacement ? 0 : static_cast<int>(count);
}

int CString::Replace(const wchar_t* old, const wchar_t* replacement)
{
    const std::wstring sought = orEmpty(old);
    if (sought.empty())
        return 0;
    const std::wstring put = orEmpty(replacement);
    std::wstring result;
    int count = 0;
    std::size_t done = 0;
    for (std::size_t found = m_text.find(sought); found != std::wstring::npos; found = m_text.find(sought, done)) {
        result.append(m_text, done, found - done).append(put);
        done = found + sought.size();
        ++count;
    }
    m_text = result.append(m_text, done);
    return count;
}

int CString::Remove(wchar_t c)
{
    return static_cast<int>(std::erase(m_text, c));
}

int CString::Insert(int index, wchar_t c)
{
    m_text.insert(std::min(atLeastZero(index), m_text.size()), 1, c);
    return GetLength();
}

int CString::Insert(int index, const wchar_t* text)
{
    m_text.insert(std::min(atLeastZero(index), m_text.size()), orEmpty(text));
    return GetLength();
}

int CString::Delete(int index, int count)
{
    m_text.erase(std::min(atLeastZero(index), m_text.size()), atLeastZero(count));
    return GetLength();
}

void CString::Format(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::AppendFormat(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    m_text += platform::formatWide(format, arguments);
    va_end(arguments);
}

void CString::FormatV(const wchar_t* format, std::va_list arguments)
{
    m_text = platform::formatWide(format, arguments);
}

int CString::Compare(const wchar_t* text) const
{
    return m_text.compare(orEmpty(text));
}

int CString::CompareNoCase(const wchar_t* text) const
{
    return platform::compareNoCase(m_text, orEmpty(text));
}

CStringA::CStringA(const wchar_t* text) : m_text(platform::ansiFromWide(orEmpty(text))) {}

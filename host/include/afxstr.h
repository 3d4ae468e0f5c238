#pragma once

#include <cstdarg>
#include <string>

/// Wide text of any length. Positions and lengths are in characters, 0-based; a null pointer is the empty text.
/// Letter case covers accented letters and does not depend on the user's locale.
/// Narrow text is Windows-1252. In a Format call, pass `text.GetString()`, not the object.
class CString {
public:
    CString() = default;
    CString(const wchar_t* text);
    CString(const wchar_t* text, int length);
    CString(const char* text);
    CString(wchar_t c, int count = 1);

    CString& operator=(const wchar_t* text);
    CString& operator=(const char* text);
    CString& operator=(wchar_t c);

    const wchar_t* GetString() const { return m_text.c_str(); }
    operator const wchar_t*() const { return m_text.c_str(); }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }

    /// The length itself may be given, and gives the terminating zero; beyond raises the invalid-argument exception.
    wchar_t operator[](int index) const { return GetAt(index); }
    wchar_t GetAt(int index) const;
    /// `index` below the length.
    void SetAt(int index, wchar_t c);

    /// The characters for direct writing, with room for `length` of them and a zero; then call ReleaseBuffer.
    wchar_t* GetBuffer(int length = 0);
    /// Ends direct writing: keeps `length` characters, or those before the first zero.
    void ReleaseBuffer(int length = -1);

    CString& operator+=(const CString& text);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(const char* text);
    CString& operator+=(wchar_t c);
    void Append(const wchar_t* text) { *this += text; }

    /// Parts of the text. What lies outside it is left out; negative counts and positions are 0.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    /// The leading characters that are (or are not) in `set`.
    CString SpanIncluding(const wchar_t* set) const;
    CString SpanExcluding(const wchar_t* set) const;
    /// The next part between characters of `separators`, from `start` on, which moves behind it; empty parts are
    /// skipped. After the last one the result is empty and `start` is -1.
    CString Tokenize(const wchar_t* separators, int& start) const;

    /// Removes at the ends blanks (space, tab, line breaks), one character, or any character of a set.
    CString& Trim();
    CString& Trim(wchar_t c);
    CString& Trim(const wchar_t* set);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t c);
    CString& TrimLeft(const wchar_t* set);
    CString& TrimRight();
    CString& TrimRight(wchar_t c);
    CString& TrimRight(const wchar_t* set);

    CString& MakeUpper();
    CString& MakeLower();

    /// @return the position found, or -1.
    int Find(wchar_t c, int start = 0) const;
    int Find(const wchar_t* text, int start = 0) const;
    int ReverseFind(wchar_t c) const;
    int FindOneOf(const wchar_t* set) const;

    /// @return how many were replaced, or removed.
    int Replace(wchar_t old, wchar_t replacement);
    int Replace(const wchar_t* old, const wchar_t* replacement);
    int Remove(wchar_t c);
    /// @return the new length. A position beyond the end counts as the end.
    int Insert(int index, wchar_t c);
    int Insert(int index, const wchar_t* text);
    int Delete(int index, int count = 1);

    /// printf with the wide conventions: %s and %c take wide text, %S, %hs and %C, %hc narrow (Windows-1252),
    /// %ls wide; d i u o x X c f F e E g G a A p %%; flags, width and precision (also *); sizes hh h l ll I64 I32 I z
    /// j t L, a `long` being this platform's. Numbers have a full stop whatever the locale; a double that is not
    /// finite prints inf or nan. What is no conversion is written as it stands. The arguments may be parts of this
    /// text.
    void Format(const wchar_t* format, ...);
    void AppendFormat(const wchar_t* format, ...);
    void FormatV(const wchar_t* format, std::va_list arguments);

    /// Negative, zero or positive, by character code.
    int Compare(const wchar_t* text) const;
    int CompareNoCase(const wchar_t* text) const;

    friend CString operator+(CString a, const CString& b) { return a += b; }
    friend CString operator+(CString a, const wchar_t* b) { return a += b; }
    friend CString operator+(const wchar_t* a, const CString& b) { return CString(a) += b; }
    friend CString operator+(CString a, wchar_t b) { return a += b; }
    friend CString operator+(wchar_t a, const CString& b) { return CString(a) += b; }

    friend bool operator==(const CString& a, const CString& b) { return a.m_text == b.m_text; }
    friend bool operator==(const CString& a, const wchar_t* b) { return a.m_text.compare(b == nullptr ? L"" : b) == 0; }
    friend bool operator<(const CString& a, const CString& b) { return a.Compare(b) < 0; }
    friend bool operator<(const CString& a, const wchar_t* b) { return a.Compare(b) < 0; }
    friend bool operator<(const wchar_t* a, const CString& b) { return b.Compare(a) > 0; }
    friend bool operator>(const CString& a, const CString& b) { return b < a; }
    friend bool operator>(const CString& a, const wchar_t* b) { return b < a; }
    friend bool operator>(const wchar_t* a, const CString& b) { return b < a; }
    friend bool operator<=(const CString& a, const CString& b) { return !(b < a); }
    friend bool operator<=(const CString& a, const wchar_t* b) { return !(b < a); }
    friend bool operator<=(const wchar_t* a, const CString& b) { return !(b < a); }
    friend bool operator>=(const CString& a, const CString& b) { return !(a < b); }
    friend bool operator>=(const CString& a, const wchar_t* b) { return !(a < b); }
    friend bool operator>=(const wchar_t* a, const CString& b) { return !(a < b); }

private:
    std::wstring m_text;
};

/// Narrow text in the 8-bit code page (Windows-1252), made from wide text.
class CStringA {
public:
    CStringA() = default;
    CStringA(const char* text) : m_text(text == nullptr ? "" : text) {}
    CStringA(const wchar_t* text);

    const char* GetString() const { return m_text.c_str(); }
    operator const char*() const { return m_text.c_str(); }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }

private:
    std::string m_text;
};

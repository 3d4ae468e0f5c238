#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// How the bytes of a text in a drawing stand for characters: UTF-8 or one code page.
///
/// Reading undoes what the DXF form adds to a text: \U+XXXX (pairs of surrogates joined), \M+nXXXX, "^J" and its like
/// for control characters, "^ " for a caret. Writing does it: a control character becomes a caret and a letter, a
/// character that the page lacks \U+XXXX (two of them beyond U+FFFF), and so does a backslash that would be read as the
/// beginning of an escape; nothing ever becomes a question mark.
///
/// A byte that stands for no character is read as U+DC00 + byte and written as that byte again; hence an escape that
/// names half a pair of surrogates is not undone.
///
/// Objects live for the whole run and are compared by address.
class DxfEncoding {
public:
    static const DxfEncoding& utf8();
    /// The page that $DWGCODEPAGE names, in any case: "ANSI_1252", "ansi_936", "GB2312", "dos850", "UTF-8".
    /// An unknown name gives Windows-1252, and *known = false.
    static const DxfEncoding& forCodePage(std::string_view name, bool* known = nullptr);

    /// Name known to iconv: "CP1252", "UTF-8".
    const std::string& name() const { return m_name; }

    std::wstring decode(std::string_view bytes) const;
    /// The same, appended to `out`.
    void decode(std::string_view bytes, std::wstring& out) const;

    std::string encode(std::wstring_view text) const;
    /// The same, appended to `out`.
    void encode(std::wstring_view text, std::string& out) const;

    DxfEncoding(const DxfEncoding&) = delete;
    DxfEncoding& operator=(const DxfEncoding&) = delete;

private:
    explicit DxfEncoding(std::string iconvName);
    void fillTables();
    void fillPairs(std::uint8_t lead, void* converter);
    const char* decodeCharacter(const char* p, const char* end, std::wstring& out) const;
    bool encodeCharacter(wchar_t c, std::string& out) const;

    std::string m_name;
    bool m_utf8;
    std::vector<wchar_t> m_single;                          // by byte - 0x80; 0: opens a pair or stands for nothing
    std::vector<std::vector<wchar_t>> m_pairs;              // by first byte - 0x80, then second byte; most are empty
    std::vector<std::pair<wchar_t, std::uint16_t>> m_bytes; // character to one byte, or two (first one high); sorted
};

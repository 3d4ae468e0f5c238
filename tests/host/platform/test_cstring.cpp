#include <gtest/gtest.h>

#include "afxwin.h"

namespace {

struct Row {
    const char* name;
    CString result;
    const wchar_t* expected;
};

TEST(CString, GivesPartsAndTrims)
{
    const CString s(L"bonjour");
    const Row rows[] = {
        {"left", s.Left(3), L"bon"},
        {"left beyond", s.Left(30), L"bonjour"},
        {"left negative", s.Left(-1), L""},
        {"right", s.Right(4), L"jour"},
        {"right beyond", s.Right(30), L"bonjour"},
        {"mid to the end", s.Mid(3), L"jour"},
        {"mid part", s.Mid(1, 2), L"on"},
        {"mid beyond", s.Mid(9, 2), L""},
        {"mid negative start", s.Mid(-2, 2), L"bo"},
        {"span of a set", CString(L"12a3").SpanIncluding(L"0123456789"), L"12"},
        {"span outside a set", CString(L"nom=x=y").SpanExcluding(L"="), L"nom"},
        {"trim blanks", CString(L" \t\r\n a b \n").Trim(), L"a b"},
        {"trim a set", CString(L" ,;P1.,\t").Trim(L" \t,;."), L"P1"},
        {"trim all away", CString(L" .;").Trim(L" \t,;."), L""},
        {"trim one character", CString(L"**a*b*").Trim(L'*'), L"a*b"},
        {"trim left only", CString(L"  a ").TrimLeft(), L"a "},
        {"trim right of a set only", CString(L"C:\\a\\\\").TrimRight(L"\\"), L"C:\\a"},
        {"upper case with accents", CString(L"éàçœÿ1ß").MakeUpper(), L"ÉÀÇŒŸ1ß"},
        {"lower case with accents", CString(L"ÉÀÇŒŸI").MakeLower(), L"éàçœÿi"},
        {"from Windows-1252", CString("\x80\xE9"), L"€é"},
        {"from a null pointer", CString(static_cast<const wchar_t*>(nullptr)), L""},
        {"sum", L"a" + CString(L"b") + L'c' + L"d", L"abcd"},
    };
    for (const Row& row : rows)
        EXPECT_STREQ(row.result, row.expected) << row.name;
}

TEST(CString, FindsAndReplaces)
{
    CString s(L"a,b,,c");
    EXPECT_EQ(s.Find(L','), 1);
    EXPECT_EQ(s.Find(L',', 2), 3);
    EXPECT_EQ(s.Find(L",,"), 3);
    EXPECT_EQ(s.Find(L"x"), -1);
    EXPECT_EQ(s.Find(L'a', 99), -1);
    EXPECT_EQ(s.ReverseFind(L','), 4);
    EXPECT_EQ(s.FindOneOf(L"cb"), 2);
    EXPECT_EQ(s.Replace(L",", L", "), 3);
    EXPECT_STREQ(s, L"a, b, , c");
    EXPECT_EQ(s.Replace(L' ', L'_'), 3);
    EXPECT_EQ(s.Remove(L'_'), 3);
    EXPECT_EQ(s.Replace(L"", L"x"), 0);
    EXPECT_EQ(s.Insert(1, L"--"), 8);
    EXPECT_EQ(s.Delete(1, 2), 6);
    EXPECT_EQ(s.Insert(99, L'!'), 7);
    EXPECT_STREQ(s, L"a,b,,c!");
}

TEST(CString, TokenizesSkippingEmptyParts)
{
    const CString s(L",,a,b,,c,");
    std::wstring seen;
    int at = 0;
    for (CString part = s.Tokenize(L",", at); at != -1; part = s.Tokenize(L",", at))
        seen += std::wstring(part) + L"|";
    EXPECT_EQ(seen, L"a|b|c|");
}

TEST(CString, ComparesByCodeOrWithoutCase)
{
    EXPECT_LT(CString(L"A").Compare(L"a"), 0);
    EXPECT_EQ(CString(L"CÔTÉ").CompareNoCase(L"côté"), 0);
    EXPECT_NE(CString(L"cote").CompareNoCase(L"côté"), 0);
    EXPECT_LT(CString(L"ab").CompareNoCase(L"ABC"), 0);
    EXPECT_TRUE(CString(L"a") == L"a" && L"b" > CString(L"a") && CString(L"a") != CString(L"b"));
}

TEST(CString, LendsItsBuffer)
{
    CString s(L"ab");
    wchar_t* const buffer = s.GetBuffer(10);
    std::wcscpy(buffer, L"longer");
    s.ReleaseBuffer();
    EXPECT_EQ(s.GetLength(), 6);
    s.ReleaseBuffer(2);
    EXPECT_STREQ(s, L"lo");
    s.SetAt(0, L'g');
    EXPECT_STREQ(s, L"go");
    EXPECT_EQ(s[2], L'\0'); // the length itself is readable
    EXPECT_THROW(s[3], CInvalidArgException*);
    EXPECT_THROW(s.SetAt(2, L'x'), CInvalidArgException*);
}

} // namespace

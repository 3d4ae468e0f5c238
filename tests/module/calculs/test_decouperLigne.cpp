// Lines to tokens.

#include <gtest/gtest.h>

#include "calculs/decouperLigne.h"

namespace {

TEST(DecouperLigne, Tokens)
{
    using elements = std::vector<std::wstring>;
    struct ligne {
        const char* nom;
        const wchar_t* texte;
        elements attendus;
    };
    const ligne lignes[] = {
        {"empty", L"", {}},
        {"comment", L"* un = deux", {}},
        {"star only in the first column", L" * un", {L"*", L"un"}},
        {"separators in runs", L"\tX = :1.5  ", {L"X", L"1.5"}},
        {"equals, colon or blank alike", L"a=b c:d e f", {L"a", L"b", L"c", L"d", L"e", L"f"}},
        {"quoted separators", L"Nom=\"S 1:=\" X=1", {L"Nom", L"S 1:=", L"X", L"1"}},
        {"empty quotes vanish", L"Nom=\"\" X=1", {L"Nom", L"X", L"1"}},
        {"a quote inside a bare token is plain", L"ab\"c d\"", {L"ab\"c", L"d\""}},
        {"text right after a closing quote is another token", L"\"a\"b \"c\"\"d\"", {L"a", L"b", L"c", L"d"}},
        {"an open quote runs to the end", L"x \"a b", {L"x", L"a b"}},
        {"a lone quote", L"x \"", {L"x"}},
        {"a star inside quotes", L"\"*\"", {L"*"}},
    };
    elements obtenus = {L"old"};
    for (const ligne& l : lignes) {
        decouperLigne(l.texte, separateursPolygonale, obtenus);
        EXPECT_EQ(obtenus, l.attendus) << l.nom;
    }
}

} // namespace

// Keywords of acedInitGet: which typed text means which.

#include <gtest/gtest.h>

#include "ed/input/CommandLine.h"
#include "ed/input/Keywords.h"
#include "ed/input/SnapWords.h"

namespace {

struct Row {
    const char* name;
    const wchar_t* list;
    const wchar_t* typed;
    const wchar_t* answer; ///< null: no keyword
};

constexpr Row kRows[] = {
    {"whole word", L"Origine Rotation", L"Origine", L"Origine"},
    {"in any case", L"Origine Rotation", L"oRiGiNe", L"Origine"},
    {"capital alone", L"Origine Rotation", L"r", L"Rotation"},
    {"part of the word", L"Origine Rotation", L"rota", L"Rotation"},
    {"more than the word", L"Origine Rotation", L"rotations", nullptr},
    {"other letters", L"Origine Rotation", L"rx", nullptr},
    {"nothing", L"Origine Rotation", L"", nullptr},
    {"two capitals ask for two letters", L"LType LAyer", L"l", nullptr},
    {"two capitals", L"LType LAyer", L"la", L"LAyer"},
    {"capitals inside the word", L"aNnuler", L"n", L"aNnuler"},
    {"from the capitals on", L"aNnuler", L"nnul", L"aNnuler"},
    {"from the beginning", L"aNnuler", L"annu", L"aNnuler"},
    {"from the beginning, without the capital", L"aNnuler", L"a", nullptr},
    {"abbreviation behind a comma", L"LTYPE,LT LAYER,LA", L"lt", L"LTYPE"},
    {"longer than the abbreviation", L"LTYPE,LT", L"LTYP", L"LTYPE"},
    {"shorter than the abbreviation", L"LTYPE,LT", L"l", nullptr},
    {"accents may be left out", L"Pr\u00E9c\u00E9dent \u00C9tendue", L"prec", L"Pr\u00E9c\u00E9dent"},
    {"an accented capital too", L"Pr\u00E9c\u00E9dent \u00C9tendue", L"e", L"\u00C9tendue"},
    {"the word as it is spelled comes first", L"\u00C9tat Entier", L"e", L"Entier"},
    {"no capital: the whole word", L"fin", L"f", nullptr},
    {"digits count as capitals", L"2P 3P", L"3p", L"3P"},
    {"accents", L"Fenêtre TOUt", L"FENÊ", L"Fenêtre"},
    {"local word gives the common one", L"Oui Non _ Yes No", L"o", L"Yes"},
    {"common word behind an underscore", L"Oui Non _ Yes No", L"_y", L"Yes"},
    {"common word without it", L"Oui Non _ Yes No", L"y", nullptr},
    {"local word behind an underscore", L"Oui Non _ Yes No", L"_o", nullptr},
    {"underscore where both are the same", L"Origine", L"_o", L"Origine"},
    {"the first one that fits", L"Abc ABd", L"ab", L"Abc"},
    {"closing underscore: not to be abbreviated", L"Fin_", L"f", nullptr},
    {"closing underscore: whole", L"Fin_", L"fin", L"Fin"},
};

TEST(Keywords, areFoundByWhatIsTyped)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto keywords = keywordsOf(row.list);
        ASSERT_TRUE(keywords);
        const InputKeyword* const found = matchingKeyword(*keywords, row.typed);
        ASSERT_EQ(found != nullptr, row.answer != nullptr);
        if (found) {
            EXPECT_EQ(keywordAnswer(*found), row.answer);
        }
    }
}

TEST(Keywords, halvesMustBeOfTheSameLength)
{
    EXPECT_FALSE(keywordsOf(L"Oui Non _ Yes"));
    EXPECT_FALSE(keywordsOf(L"Oui _ Yes No"));
    EXPECT_EQ(keywordsOf(L"  ")->size(), 0U);
    EXPECT_EQ(keywordsOf(L" Oui  Non ")->size(), 2U);
}

TEST(SnapWords, nameOsmodeBits)
{
    EXPECT_EQ(snapModesOf(L"_end"), 1);
    EXPECT_EQ(snapModesOf(L"FIN"), 1);
    EXPECT_EQ(snapModesOf(L"mil"), 2);
    EXPECT_EQ(snapModesOf(L"_cen,_mid"), 6);
    EXPECT_EQ(snapModesOf(L"_int"), 32);
    EXPECT_EQ(snapModesOf(L"_en"), 0) << "three letters at least";
    EXPECT_EQ(snapModesOf(L"_end,abc"), 0);
    EXPECT_EQ(snapModesOf(L"12,5"), 0);
}

TEST(OpenExpression, lacksItsEnd)
{
    EXPECT_TRUE(isOpenExpression(L"(foo"));
    EXPECT_FALSE(isOpenExpression(L"(foo)"));
    EXPECT_TRUE(isOpenExpression(L"(foo \")\""));
    EXPECT_TRUE(isOpenExpression(L"(foo \"a"));
    EXPECT_FALSE(isOpenExpression(L"(foo \"\\\")\")"));
    EXPECT_TRUE(isOpenExpression(L"(foo ; )"));
    EXPECT_FALSE(isOpenExpression(L"(foo ; (\n)"));
    EXPECT_TRUE(isOpenExpression(L"(foo) ;| ("));
    EXPECT_FALSE(isOpenExpression(L"(foo ;| ( |; )"));
}

} // namespace

#include <gtest/gtest.h>

#include "ui/script/Caption.h"
#include "ui/script/ScriptCheck.h"
#include "ui/script/ScriptError.h"
#include "ui/script/ScriptText.h"

TEST(ScriptText, GivesTheLinesThatCount)
{
    struct Row {
        const char* name;
        const char* content;
        std::vector<std::pair<int, const char*>> lines;
    };
    const Row rows[] = {
        {"nothing", "", {}},
        {"an empty line is Enter", "A\n\nB", {{1, "A"}, {2, ""}, {3, "B"}}},
        {"the end of the last line is no line", "A\n", {{1, "A"}}},
        {"blanks before a line do not count, those behind do", "  A \n\t[B]", {{1, "A "}, {2, "[B]"}}},
        {"comments", "; a\n  ; b\nC ; d", {{3, "C ; d"}}},
        {"ends of lines of other systems, and a mark",
         "\xEF\xBB\xBF"
         "A\r\nB\rC",
         {{1, "A"}, {2, "B"}, {3, "C"}}},
        {"an expression over lines", "(a\n ; )\n \"(\" b)\nC", {{1, "(a\n ; )\n \"(\" b)"}, {4, "C"}}},
        {"a text over lines", "(a \"b\nc)\")\nD", {{1, "(a \"b\nc)\")"}, {3, "D"}}},
        {"an expression that is never closed", "(a\nB", {{1, "(a\nB"}}},
        {"the check of an expression", "? (a\n b) = 1\nC", {{1, "? (a\n b) = 1"}, {3, "C"}}},
        {"UTF-8", "Numéro = é", {{1, "Numéro = é"}}},
        {"not UTF-8: Windows-1252", "Num\xE9ro = \x80", {{1, "Numéro = €"}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto lines = scriptLines(row.content);
        ASSERT_EQ(lines.size(), row.lines.size());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_EQ(lines[i].number, row.lines[i].first);
            EXPECT_EQ(lines[i].text.toStdString(), row.lines[i].second);
        }
    }
}

TEST(ScriptText, FindsTheEndOfAnExpression)
{
    EXPECT_EQ(expressionEnd("(a (b)) c"), 7);
    EXPECT_EQ(expressionEnd("(a \")\" \"\\\")\") = 1"), 13);
    EXPECT_EQ(expressionEnd("(a"), -1);
}

TEST(Captions, AreComparedAsTyped)
{
    EXPECT_EQ(captionText("&Numéro :"), "Numéro");
    EXPECT_EQ(captionText("Numéro\u00A0:"), "Numéro");
    EXPECT_EQ(captionText("Points && codes"), "Points & codes");
    EXPECT_EQ(captionText("Placer\u202F!!!"), "Placer !!!");
    EXPECT_EQ(captionText("L\u2019angle"), "L'angle");
    EXPECT_NE(captionText("Numero"), captionText("Numéro"));
}

TEST(ScriptChecks, CompareTextsAndNumbers)
{
    struct Row {
        const char* check;
        const char* actual;
        bool met;
    };
    constexpr Row rows[] = {
        {"X = S1", "S1", true},
        {"X=S1", " S1 ", true},
        {"X = S1", "s1", false},
        {"X = 12", "12.000", true},
        {"X = 12", "12.0001", false},
        {"X = 12 ± 0.001", "12.0009", true},
        {"X = 12 ± 0.001", "12.0011", false},
        {"X = -12 ±1e-3", "-11.9995", true},
        {"X = 012", "12", true},
        {"X = 12", "12 m", false},
        {"X = (1 2 3) ± 0.01", "(1.001 2.0 2.995)", true},
        {"X = (1 2 3) ± 0.01", "(1.0 2.0 3.1)", false},
        {"X = (1 2) ± 0.01", "(1 2 3)", false},
        {"X = a 1 ± 0.01", "b 1", false},
        {"X = \" S1 \"", "S1", true},
        {"X = \"\"", "", true},
        {"X =", "", true},
        {"X =", "a", false},
        {"X = \"a\\nb\"", "a\nb", true},
        {"X = \"dit \\\"a\\\"\"", "dit \"a\"", true},
        {"X ≠ S1", "S2", true},
        {"X ≠ S1", "S1", false},
        {"X != 2", "2.0", false},
        {"X contient bor", "le bord", true},
        {"X contient bord", "le bar", false},
        {"(= 1 1) = T", "T", true},
        {"X = a = b", "a = b", true},
        {"X = Placer !", "Placer\u00A0!", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.check);
        EXPECT_EQ(ScriptCheck::parse(row.check).isMetBy(row.actual), row.met);
    }
}

TEST(ScriptChecks, SayWhatStoodThere)
{
    struct Row {
        const char* check;
        const char* actual;
        const char* message;
    };
    constexpr Row rows[] = {
        {"Numéro = S1", "S2", "Numéro vaut « S2 » (attendu « S1 »)."},
        {"X = 1 ± 0.01", "2", "X vaut « 2 » (attendu « 1 » ± 0.01)."},
        {"X ≠ 1", "1", "X vaut « 1 » (attendu : autre chose que « 1 »)."},
        {"X contient z", "a\nb", "X vaut « a\\nb » (attendu : un texte qui contient « z »)."},
    };
    for (const Row& row : rows) {
        try {
            ScriptCheck::parse(row.check).verify(row.actual);
            ADD_FAILURE() << row.check;
        } catch (const ScriptError& error) {
            EXPECT_STREQ(error.what(), row.message);
        }
    }
    EXPECT_THROW(ScriptCheck::parse("Numéro"), ScriptError);
    EXPECT_THROW(ScriptCheck::parse("= 3"), ScriptError);
    EXPECT_FALSE(ScriptCheck::looksLikeOne(""));
    EXPECT_TRUE(ScriptCheck::looksLikeOne(" entités = 3"));
}

#include <limits>

#include <gtest/gtest.h>

#include "points/numeroteurEntier.h"

namespace {

TEST(numeroteurs, countLetters)
{
    struct Row {
        const wchar_t* text;
        const wchar_t* next;
    };
    const Row rows[] = {
        {L"", L"A"},    {L"A", L"B"}, {L"Y", L"Z"},   {L"Z", L"AA"},    {L"AZ", L"BA"}, {L"ZZ", L"AAA"},
        {L"A9", L"A:"}, {L"z", L"{"}, {L"1Z", L"2A"}, {L"bZZ", L"cAA"}, {L"ZB", L"ZC"},
    };
    for (const Row& r : rows)
        EXPECT_EQ(lettresSuivantes(r.text), r.next);
}

TEST(numeroteurs, nameBySteps)
{
    numeroteurEntier n(L"S", 1, L"", 2);
    EXPECT_TRUE(n.nomSuivant() == L"S1");
    EXPECT_TRUE(n.nomSuivant() == L"S3");
    EXPECT_EQ(n.prendreNumero(0), 5);
    EXPECT_EQ(n.prendreNumero(1), 5) << "taking adds 1, not the increment";
    n.avancer();
    EXPECT_TRUE(n.nomSuivant() == L"S7");

    EXPECT_EQ(n.serieSuffixeSuivante(), 1);
    EXPECT_TRUE(n.nomSuivant() == L"S1A");
    EXPECT_EQ(n.seriePrefixeSuivante(), 1);
    EXPECT_TRUE(n.nomSuivant() == L"T1A");
}

TEST(numeroteurs, stayAtTheLimit)
{
    numeroteurEntier n(L"", std::numeric_limits<int>::max(), L"", 10);
    EXPECT_TRUE(n.nomSuivant() == L"2147483647");
    EXPECT_TRUE(n.nomSuivant() == L"2147483647");
}

/// Other modules call these by their place in the table of virtual operations.
TEST(numeroteurs, keepTheirSlots)
{
struct slots : numeroteur {
        slots() : numeroteur(L"", L"") {}
        std::wstring nomSuivant() override { return L"0"; }
        int serieSuffixeSuivante() override { return 1; }
        int seriePrefixeSuivante() override { return 2; }
        void avancer() override { avance = true; }
        bool avance = false;
    } s;
    void** const table = *reinterpret_cast<void***>(&s);
    EXPECT_EQ(reinterpret_cast<int (*)(void*)>(table[1])(&s), 1);
    EXPECT_EQ(reinterpret_cast<int (*)(void*)>(table[2])(&s), 2);
    reinterpret_cast<void (*)(void*)>(table[3])(&s);
    EXPECT_TRUE(s.avance);

    numeroteurEntier n(L"", 42, L"", 1);
    void** const entier = *reinterpret_cast<void***>(&n);
    EXPECT_EQ(reinterpret_cast<int (*)(void*, int)>(entier[4])(&n, 0), 42);
}

} // namespace

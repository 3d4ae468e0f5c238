// Texts to bytes and to numbers.

#include <limits>

#include <gtest/gtest.h>

#include "services/codages.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

namespace {

TEST(Textes, PlainNumbers)
{
    constexpr double infini = std::numeric_limits<double>::infinity();
    struct ligne {
        const wchar_t* texte;
        double valeur;
        bool entierement;
    };
    const ligne lignes[] = {
        {L"12", 12, true},          {L" \t-3.5 ", -3.5, true}, {L"+1.50", 1.5, true},     {L".5", 0.5, true},
        {L"12.", 12, true},         {L"1e3", 1000, true},      {L"2.5E-3", 0.0025, true}, {L"217,63", 217, false},
        {L"12abc", 12, false},      {L"1e", 1, false},         {L"", 0, false},           {L"abc", 0, false},
        {L"-", 0, false},           {L".", 0, false},          {L"+-1", 0, false},        {L"--1", 0, false},
        {L"inf", 0, false},         {L"-nan", 0, false},       {L"0x10", 0, false},       {L"1e999", infini, true},
        {L"-1e999", -infini, true}, {L"1e-999", 0, true},      {L"12\u00A0", 12, false},  {L"\u0661", 0, false},
        {L"1e38", 1e38, true},      {L"5 6", 5, false},
    };
    for (const ligne& l : lignes) {
        bool entierement = false;
        EXPECT_EQ(reelDeTexte(l.texte, &entierement), l.valeur) << versAnsi(l.texte);
        EXPECT_EQ(entierement, l.entierement) << versAnsi(l.texte);
    }
}

TEST(Textes, CodePage)
{
    EXPECT_EQ(versAnsi(L"Unités €œŸ"), "Unit\xE9s \x80\x9C\x9F");
    EXPECT_EQ(versAnsi(L"\u0391\u0301"), "??") << "outside the code page, no look-alikes";
    EXPECT_EQ(versAnsi(std::wstring(1, static_cast<wchar_t>(0x1F600))), "?");
    std::string tous;
    for (int octet = 0; octet < 256; ++octet)
        tous += static_cast<char>(octet);
    EXPECT_EQ(versAnsi(depuisAnsi(tous)), tous) << "every byte survives";
    EXPECT_EQ(enMinuscules(L"ÉTÉ×ŒŸŠŽ.OBS ß"), L"été×œÿšž.obs ß");
}

} // namespace

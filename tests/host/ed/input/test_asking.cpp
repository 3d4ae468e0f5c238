// The functions that ask: which answers they take, and what they give.

#include <cmath>
#include <functional>

#include "ed/input/CommandLine.h"
#include "platform/CodePage.h"
#include "rx/Console.h"

#include "aced.h"
#include "Drawing.h"
#include "InputTest.h"

using platform::utf8FromWide;

namespace {

/// Which function is called, and how its value is written for comparison.
struct Function {
    const char* name;
    int (*call)(std::wstring& value);
};

std::wstring text(double number)
{
    wchar_t buffer[64];
    std::swprintf(buffer, 64, L"%.6g", number);
    return buffer;
}

constexpr ads_point kBase = {10.0, 0.0, 0.0};

const Function kPoint{"point", [](std::wstring& value) {
                          ads_point p = {};
                          const int status = acedGetPoint(nullptr, L"\nPoint : ", p);
                          value = text(p[0]) + L" " + text(p[1]) + L" " + text(p[2]);
                          return status;
                      }};
const Function kCorner{"corner", [](std::wstring& value) {
                           ads_point p = {};
                           const int status = acedGetCorner(kBase, L"Coin : ", p);
                           value = text(p[0]) + L" " + text(p[1]);
                           return status;
                       }};
const Function kDistance{"distance", [](std::wstring& value) {
                             ads_real d = 0.0;
                             const int status = acedGetDist(nullptr, L"Distance : ", &d);
                             value = text(d);
                             return status;
                         }};
const Function kDistanceFromBase{"distance from a base", [](std::wstring& value) {
                                     ads_real d = 0.0;
                                     const int status = acedGetDist(kBase, L"Distance : ", &d);
                                     value = text(d);
                                     return status;
                                 }};
const Function kAngle{"angle", [](std::wstring& value) {
                          ads_real a = 0.0;
                          const int status = acedGetAngle(nullptr, L"Angle : ", &a);
                          value = text(a * 180.0 / std::acos(-1.0));
                          return status;
                      }};
const Function kReal{"real", [](std::wstring& value) {
                         ads_real r = 0.0;
                         const int status = acedGetReal(L"Réel : ", &r);
                         value = text(r);
                         return status;
                     }};
const Function kInteger{"integer", [](std::wstring& value) {
                            int i = 0;
                            const int status = acedGetInt(L"Entier : ", &i);
                            value = std::to_wstring(i);
                            return status;
                        }};
const Function kWord{"word", [](std::wstring& value) {
                         ACHAR buffer[133] = L"";
                         const int status = acedGetString(0, L"Nom : ", buffer);
                         value = buffer;
                         return status;
                     }};
const Function kKeyword{"keyword", [](std::wstring& value) {
                            ACHAR buffer[133] = L"";
                            const int status = acedGetKword(L"Choix [Oui/Non] : ", buffer);
                            value = buffer;
                            return status;
                        }};

struct Row {
    const char* name;
    const Function* function;
    int bits;
    const wchar_t* keywords;
    std::vector<std::wstring> answers;
    int status;
    const wchar_t* value;    ///< of RTNORM; the keyword of RTKWORD
    std::size_t refused = 0; ///< answers that did not do
};

const Row kRows[] = {
    {"typed point", &kPoint, 0, L"", {L"1,2"}, RTNORM, L"1 2 0"},
    {"picked point", &kPoint, 0, L"", {L"<3,4>"}, RTNORM, L"3 4 0"},
    {"point asked again", &kPoint, 0, L"", {L"abc", L"1", L"5,6"}, RTNORM, L"5 6 0", 2},
    {"Enter alone", &kPoint, 0, L"", {L""}, RTNONE, L""},
    {"Enter alone refused", &kPoint, RSG_NONULL, L"", {L"", L"1,1"}, RTNORM, L"1 1 0", 1},
    {"Escape", &kPoint, 0, L"", {L"<Esc>"}, RTCAN, L""},
    {"nobody answers any more", &kPoint, 0, L"", {}, RTCAN, L""},
    {"keyword", &kPoint, 0, L"Origine Rotation", {L"r"}, RTKWORD, L"Rotation"},
    {"international keyword", &kPoint, 0, L"Oui Non _ Yes No", {L"_n"}, RTKWORD, L"No"},
    {"keyword of the user's language", &kPoint, 0, L"Oui Non _ Yes No", {L"non"}, RTKWORD, L"No"},
    {"any text", &kPoint, RSG_OTHER, L"", {L"abc"}, RTKWORD, L"abc"},
    {"any text, a point all the same", &kPoint, RSG_OTHER, L"", {L"1,2"}, RTNORM, L"1 2 0"},
    {"AutoLISP point", &kPoint, 0, L"", {L"(list 7 8)"}, RTNORM, L"7 8 0"},
    {"AutoLISP text", &kPoint, 0, L"", {L"(strcat \"1,\" \"9\")"}, RTNORM, L"1 9 0"},
    {"AutoLISP nil asks again", &kPoint, 0, L"", {L"(car nil)", L"1,9"}, RTNORM, L"1 9 0", 1},
    {"AutoLISP error asks again", &kPoint, 0, L"", {L"(car 1)", L"1,9"}, RTNORM, L"1 9 0", 1},
    {"AutoLISP variable", &kPoint, 0, L"", {L"(progn (setq p '(4 5)) nil)", L"!p"}, RTNORM, L"4 5 0", 1},
    {"corner", &kCorner, 0, L"", {L"<3,4>"}, RTNORM, L"3 4"},
    {"length", &kDistance, 0, L"", {L"12.5"}, RTNORM, L"12.5"},
    {"length by two points", &kDistance, 0, L"", {L"1,1", L"<4,5>"}, RTNORM, L"5"},
    {"length, second point relative", &kDistance, 0, L"", {L"1,1", L"@3,4"}, RTNORM, L"5"},
    {"length by two points, Escape", &kDistance, 0, L"", {L"1,1", L"<Esc>"}, RTCAN, L""},
    {"length from the base", &kDistanceFromBase, 0, L"", {L"<13,4>"}, RTNORM, L"5"},
    {"negative length", &kDistance, RSG_NONEG, L"", {L"-1", L"1"}, RTNORM, L"1", 1},
    {"zero", &kDistance, RSG_NOZERO, L"", {L"0", L"-2"}, RTNORM, L"-2", 1},
    {"neither", &kDistance, RSG_NOZERO | RSG_NONEG, L"", {L"0", L"-2", L"3"}, RTNORM, L"3", 2},
    {"zero by points", &kDistanceFromBase, RSG_NOZERO, L"", {L"<10,0>", L"2"}, RTNORM, L"2", 1},
    {"angle", &kAngle, 0, L"", {L"100g"}, RTNORM, L"90"},
    {"angle by two points", &kAngle, 0, L"", {L"0,0", L"0,5"}, RTNORM, L"90"},
    {"negative angle is brought within a turn", &kAngle, 0, L"", {L"-100g"}, RTNORM, L"270"},
    {"real", &kReal, 0, L"", {L"abc", L"1.5"}, RTNORM, L"1.5", 1},
    {"a point is no real", &kReal, 0, L"", {L"<1,2>", L"2"}, RTNORM, L"2", 1},
    {"real, Enter alone", &kReal, 0, L"", {L""}, RTNONE, L""},
    {"real, AutoLISP", &kReal, 0, L"", {L"(/ 1.0 4)"}, RTNORM, L"0.25"},
    {"integer", &kInteger, 0, L"", {L"12.5", L"1e3", L"-7"}, RTNORM, L"-7", 2},
    {"integer beyond 16 bits", &kInteger, 0, L"", {L"32768", L"32767"}, RTNORM, L"32767", 1},
    {"integer, positive asked for", &kInteger, 6, L"", {L"0", L"-1", L"1"}, RTNORM, L"1", 2},
    {"text", &kWord, 0, L"", {L"S1"}, RTNORM, L"S1"},
    {"empty text", &kWord, RSG_NONULL, L"", {L""}, RTNORM, L""},
    {"text takes no keyword", &kWord, 0, L"Oui", {L"o"}, RTNORM, L"o"},
    {"text, AutoLISP", &kWord, 0, L"", {L"(strcat \"a\" \"b\")"}, RTNORM, L"ab"},
    {"text with an apostrophe", &kWord, 0, L"", {L"'abc"}, RTNORM, L"'abc"},
    {"keyword asked for", &kKeyword, 0, L"Oui Non", {L"x", L"n"}, RTNORM, L"Non", 1},
    {"keyword, Enter alone", &kKeyword, 0, L"Oui Non", {L""}, RTNONE, L""},
    {"keyword, Enter refused", &kKeyword, 1, L"Oui Non", {L"", L"o"}, RTNORM, L"Oui", 1},
    {"keyword without a list", &kKeyword, 0, L"", {}, RTERROR, L""},
};

class Asking : public InputTest {};

TEST_F(Asking, givesWhatItsAnswersSay)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        answers.clear();
        answers.refusals.clear();
        answers.give(row.answers);
        acedInitGet(row.bits, row.keywords);
        std::wstring value;
        ASSERT_EQ(row.function->call(value), row.status);
        EXPECT_EQ(answers.refusals.size(), row.refused);
        EXPECT_TRUE(answers.areUsedUp());
        if (row.status == RTKWORD) {
            ACHAR word[133] = L"";
            EXPECT_EQ(acedGetInput(word), RTNORM);
            value = word;
        }
        if (row.status == RTNORM || row.status == RTKWORD) {
            EXPECT_EQ(utf8FromWide(value), utf8FromWide(row.value));
        }
    }
}

TEST_F(Asking, initGetHoldsForOneQuestion)
{
    acedInitGet(RSG_NONULL, L"Oui");
    answers.give({L"1,1", L""});
    std::wstring value;
    EXPECT_EQ(kPoint.call(value), RTNORM);
    EXPECT_EQ(kPoint.call(value), RTNONE);
    EXPECT_TRUE(answers.asked.back().keywords.empty());
    EXPECT_EQ(acedInitGet(0, L"Oui Non _ Yes"), RTERROR);
}

TEST_F(Asking, lastPointIsTheOneGivenBefore)
{
    answers.give({L"100,200", L"@1,2", L"@"});
    std::wstring value;
    kPoint.call(value);
    kPoint.call(value);
    EXPECT_EQ(value, L"101 202 0");
    kPoint.call(value);
    EXPECT_EQ(value, L"101 202 0");
    resbuf variable{};
    ASSERT_EQ(acedGetVar(L"LASTPOINT", &variable), RTNORM);
    EXPECT_EQ(variable.resval.rpoint[0], 101.0);
}

TEST_F(Asking, lengthTypedAloneGoesTowardsTheCursor)
{
    answers.cursor = AcGePoint3d(10.0, 100.0, 0.0);
    answers.give({L"5"});
    ads_point point = {};
    EXPECT_EQ(acedGetPoint(kBase, L"", point), RTNORM);
    EXPECT_DOUBLE_EQ(point[0], 10.0);
    EXPECT_DOUBLE_EQ(point[1], 5.0);
}

TEST_F(Asking, promptsAreTheirLastLineAndAreEchoed)
{
    answers.give({L"1,2"});
    std::wstring value;
    acedGetPoint(nullptr, L"\nPremière ligne\nPoint : ", std::array<ads_real, 3>{}.data());
    EXPECT_EQ(answers.asked.back().prompt, L"Point : ");
    EXPECT_EQ(Console::instance().lastLine(), L"Point : 1,2");
    answers.give({L"<Esc>"});
    kPoint.call(value);
    EXPECT_EQ(Console::instance().lastLine(), L"Point : *Cancel*");
}

TEST_F(Asking, longTextIsCut)
{
    answers.give({std::wstring(200, L'x'), std::wstring(200, L'x')});
    ACHAR text[133] = {};
    EXPECT_EQ(acedGetString(0, L"", text), RTINPUTTRUNCATED);
    EXPECT_EQ(std::wstring(text).size(), 132U);
    ACHAR* whole = nullptr;
    EXPECT_EQ(acedGetFullString(0, L"", whole), RTNORM);
    EXPECT_EQ(std::wstring(whole).size(), 200U);
    acutDelString(whole);
}

TEST_F(Asking, snapWordsHoldForOnePoint)
{
    addEntity(*curDoc()->database(), new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(100, 0, 0)));
    answers.give({L"_mid", L"50.2,0.1", L"99.9,0"});
    std::wstring value;
    kPoint.call(value);
    EXPECT_EQ(value, L"50 0 0");
    EXPECT_EQ(answers.asked.back().snapModes, 2);
    kPoint.call(value);
    EXPECT_EQ(value, L"99.9 0 0") << "typed coordinates are taken as they stand";
}

} // namespace

// Points, numbers and angles as a user types them.

#include <numbers>

#include <gtest/gtest.h>

#include "ed/input/TypedPoint.h"
#include "ge/Angles.h"
#include "rx/TypedAngle.h"
#include "rx/TypedNumber.h"

namespace {

constexpr double pi = std::numbers::pi;

struct NumberRow {
    const wchar_t* text;
    std::optional<double> value;
};
constexpr NumberRow kNumbers[] = {
    {L"12", 12.0}, {L"+1.50", 1.5}, {L"-.5", -0.5}, {L"12.", 12.0}, {L"2.5E-3", 0.0025}, {L"1e400", {}},
    {L"nan", {}},  {L"inf", {}},    {L"", {}},      {L"+", {}},     {L"+-1", {}},        {L"1,5", {}},
    {L"1 2", {}},  {L"0x10", {}},   {L"１", {}},    {L"12m", {}},
};

TEST(TypedNumber, isTheWholeText)
{
    for (const NumberRow& row : kNumbers)
        EXPECT_EQ(typedNumber(row.text), row.value) << std::string(row.text, row.text + std::wcslen(row.text));
    EXPECT_EQ(fullNumberText(0.1), L"0.1");
    EXPECT_EQ(typedNumber(fullNumberText(1.0 / 3.0)), 1.0 / 3.0);
}

enum Unit { degrees, minutes, grads, radians, surveyor };

struct AngleRow {
    const char* name;
    const wchar_t* text;
    int unit;
    std::optional<double> degrees;
};
constexpr AngleRow kAngles[] = {
    {"degrees", L"45", degrees, 45.0},
    {"negative", L"-45", degrees, -45.0},
    {"minutes and seconds", L"12d30'36\"", minutes, 12.51},
    {"degrees sign", L"12°30'", minutes, 12.5},
    {"minutes in any unit", L"12d30'", grads, 12.5},
    {"grads", L"100", grads, 90.0},
    {"mark of grads", L"100g", degrees, 90.0},
    {"radians", L"3.141592653589793", radians, 180.0},
    {"mark of radians", L"1r", degrees, 180.0 / pi},
    {"bearing", L"N45d30'E", surveyor, 44.5},
    {"bearing to the west", L"S10W", surveyor, 260.0},
    {"bearing, French west", L"N10O", surveyor, 100.0},
    {"south east", L"S30d0'0\"E", degrees, 300.0},
    {"north", L"N", degrees, 90.0},
    {"west", L"w", surveyor, 180.0},
    {"bearing beyond a quarter", L"N91E", surveyor, {}},
    {"bearing below nothing", L"N-5E", surveyor, {}},
    {"minutes without their mark", L"12d30", minutes, {}},
    {"nothing", L"", degrees, {}},
    {"mark alone", L"g", degrees, {}},
    {"letters", L"abc", degrees, {}},
    {"too much", L"12d30'15\"x", minutes, {}},
};

TEST(TypedAngle, isReadInItsUnit)
{
    for (const AngleRow& row : kAngles) {
        SCOPED_TRACE(row.name);
        const auto angle = typedAngle(row.text, row.unit);
        ASSERT_EQ(angle.has_value(), row.degrees.has_value());
        if (angle) {
            EXPECT_NEAR(*angle * 180.0 / pi, *row.degrees, 1e-12 * 360.0);
        }
    }
}

// North up, clockwise: what surveyors set. Worked out by hand.
TEST(AngleUnits, turnByBaseAndDirection)
{
    const AngleUnits compass{degrees, pi / 2.0, true};
    struct Row {
        const wchar_t* typed;
        double fromBase, fromEast; ///< degrees
    };
    constexpr Row rows[] = {{L"0", 0.0, 90.0}, {L"-90", 90.0, 180.0}, {L"180", 180.0, 270.0}, {L"90", 270.0, 0.0}};
    for (const Row& row : rows) {
        EXPECT_NEAR(*compass.fromBase(row.typed) * 180.0 / pi, row.fromBase, 1e-9);
        EXPECT_NEAR(*compass.fromEast(row.typed) * 180.0 / pi, row.fromEast, 1e-9);
    }
    EXPECT_EQ(inOneTurn(-1e-20), 0.0) << "never a whole turn";
}

struct PointRow {
    const char* name;
    const wchar_t* text;
    std::optional<AcGePoint3d> point;
};
const PointRow kPoints[] = {
    {"plane", L"1,2", AcGePoint3d(1, 2, 7)},
    {"space", L"1,2,3", AcGePoint3d(1, 2, 3)},
    {"negative and signed", L"-1.5,+2e1", AcGePoint3d(-1.5, 20, 7)},
    {"blanks around", L" 1 , 2 ", AcGePoint3d(1, 2, 7)},
    {"from the last point", L"@3,4", AcGePoint3d(103, 204, 5)},
    {"from the last point, in space", L"@3,4,1", AcGePoint3d(103, 204, 6)},
    {"the last point", L"@", AcGePoint3d(100, 200, 5)},
    {"polar", L"10<90", AcGePoint3d(0, 10, 7)},
    {"polar from the last point", L"@10<180", AcGePoint3d(90, 200, 5)},
    {"polar in grads", L"@10<100g", AcGePoint3d(100, 210, 5)},
    {"cylindrical", L"@10<0,2", AcGePoint3d(110, 200, 7)},
    {"spherical", L"@10<0<90", AcGePoint3d(100, 200, 15)},
    {"world", L"*1,2", AcGePoint3d(1, 2, 7)},
    {"relative in the world", L"@*1,2", AcGePoint3d(101, 202, 5)},
    {"absolute", L"#1,2", AcGePoint3d(1, 2, 7)},
    {"towards the cursor", L"5", AcGePoint3d(3, 4, 0)},
    {"away from the cursor", L"-5", AcGePoint3d(-3, -4, 0)},
    {"nothing", L"", {}},
    {"one coordinate missing", L"1,", {}},
    {"four coordinates", L"1,2,3,4", {}},
    {"letters", L"a,b", {}},
    {"star alone", L"*", {}},
    {"polar without an angle", L"10<", {}},
    {"polar with too much", L"1<2<3<4", {}},
    {"spherical with a height", L"1<2<3,4", {}},
    {"relative length alone", L"@5", {}},
    {"decimal comma is none", L"1,5,2,5", {}},
};

TEST(TypedPoint, isMeasuredFromItsFrame)
{
    const PointFrame frame{AcGePoint3d(100, 200, 5), 7.0, {}, AcGePoint3d(0, 0, 0), AcGePoint3d(6, 8, 0)};
    for (const PointRow& row : kPoints) {
        SCOPED_TRACE(row.name);
        const auto point = typedPoint(row.text, frame);
        ASSERT_EQ(point.has_value(), row.point.has_value());
        if (point) {
            EXPECT_LT(point->distanceTo(*row.point), 1e-12 * 300.0);
        }
    }
    EXPECT_FALSE(typedPoint(L"5", PointFrame())) << "no cursor";
}

} // namespace

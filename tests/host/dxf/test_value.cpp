#include <limits>
#include <numbers>
#include <optional>

#include <gtest/gtest.h>

#include "dxf/DxfAngle.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfEncoding.h"
#include "dxf/DxfError.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfValue.h"

namespace {

DxfTag tagOf(int code, std::string_view value)
{
    return {code, value.data(), value.data() + value.size(), value.data(), value.data() + value.size()};
}

DxfForm form(bool binary)
{
    DxfForm made;
    made.binary = binary;
    made.encoding = &DxfEncoding::forCodePage("ANSI_1252");
    return made;
}

} // namespace

TEST(DxfValueTest, KindsFollowTheGroupCode)
{
    struct Row {
        int code;
        DxfKind kind;
    };
    constexpr Row rows[] = {
        {0, DxfKind::text},     {5, DxfKind::handle},    {9, DxfKind::text},     {10, DxfKind::real},
        {59, DxfKind::real},    {60, DxfKind::int16},    {79, DxfKind::int16},   {90, DxfKind::int32},
        {100, DxfKind::text},   {105, DxfKind::handle},  {149, DxfKind::real},   {160, DxfKind::int64},
        {179, DxfKind::int16},  {239, DxfKind::real},    {280, DxfKind::int16},  {290, DxfKind::boolean},
        {300, DxfKind::text},   {310, DxfKind::bytes},   {320, DxfKind::handle}, {369, DxfKind::handle},
        {370, DxfKind::int16},  {390, DxfKind::handle},  {400, DxfKind::int16},  {410, DxfKind::text},
        {420, DxfKind::int32},  {430, DxfKind::text},    {440, DxfKind::int32},  {460, DxfKind::real},
        {470, DxfKind::text},   {480, DxfKind::handle},  {999, DxfKind::text},   {1000, DxfKind::text},
        {1004, DxfKind::bytes}, {1005, DxfKind::handle}, {1010, DxfKind::real},  {1070, DxfKind::int16},
        {1071, DxfKind::int32}, {-1, DxfKind::text},     {5000, DxfKind::text}};
    for (const Row& row : rows)
        EXPECT_EQ(dxfKind(row.code), row.kind) << row.code;
}

TEST(DxfValueTest, Reals)
{
    struct Row {
        const char* text;
        std::optional<double> value;
    };
    const Row rows[] = {{"1.5", 1.5},          {"  +1.5 ", 1.5},        {"-.5", -0.5},         {"1e38", 1e38},
                        {"12", 12.0},          {"1E-400", 0.0},         {"", std::nullopt},    {"nan", std::nullopt},
                        {"inf", std::nullopt}, {"1e999", std::nullopt}, {"1,5", std::nullopt}, {"12x", std::nullopt},
                        {"+-1", std::nullopt}};
    for (const Row& row : rows) {
        double value = 7.0;
        EXPECT_EQ(dxfReal(form(false), tagOf(40, row.text), value), row.value.has_value()) << row.text;
        EXPECT_EQ(value, row.value.value_or(7.0)) << row.text;
    }
    double value = 7.0;
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(dxfReal(form(true), tagOf(40, {reinterpret_cast<const char*>(&infinite), 8}), value));
}

/// Users saw 12 come back as 12.000000000000002 from a drawing in which nothing had turned.
TEST(DxfValueTest, DegreesComeBackAsTheyWereWritten)
{
    for (const double degrees :
         {0.0, 12.0, 30.0, 45.0, 359.9999, 370.0, -0.1, 123.456789012345, 1e-17, 33.333333333333})
        EXPECT_EQ(dxfDegrees(dxfRadians(degrees)), degrees);
    for (int tenths = 0; tenths < 3600; ++tenths)
        EXPECT_EQ(dxfDegrees(dxfRadians(tenths / 10.0)), tenths / 10.0);
    EXPECT_EQ(dxfDegrees(std::numbers::pi / 6), 30.0);
    EXPECT_NEAR(dxfRadians(dxfDegrees(0.1234567890123456)), 0.1234567890123456, 2e-17); // all digits where needed
}

TEST(DxfValueTest, IntegersAndHandles)
{
    struct Row {
        const char* text;
        std::optional<std::int64_t> integer;
        std::optional<std::uint64_t> handle;
    };
    const Row rows[] = {{"  12", 12, 0x12},
                        {"-5", -5, std::nullopt},
                        {"1.0", 1, std::nullopt},
                        {"1.5", std::nullopt, std::nullopt},
                        {"9223372036854775807", 9223372036854775807, std::nullopt},
                        {"9223372036854775808", std::nullopt, std::nullopt},
                        {"fF", std::nullopt, 0xFF},
                        {"FFFFFFFFFFFFFFFF", std::nullopt, 0xFFFFFFFFFFFFFFFF},
                        {"00000000000000001A", std::nullopt, 0x1A},
                        {"", std::nullopt, 0},
                        {"G", std::nullopt, std::nullopt}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        std::int64_t integer = 0;
        std::uint64_t handle = 0;
        EXPECT_EQ(dxfInteger(form(false), tagOf(70, row.text), integer), row.integer.has_value());
        EXPECT_EQ(integer, row.integer.value_or(0));
        EXPECT_EQ(dxfHandle(tagOf(5, row.text), handle), row.handle.has_value());
        EXPECT_EQ(handle, row.handle.value_or(0));
    }
}

TEST(DxfTagWriterTest, AsciiForm)
{
    const DxfForm ascii = form(false);
    std::string out;
    DxfTagWriter writer(ascii, out);
    writer.real(40, 652000.0);
    writer.real(40, 1e38);
    writer.real(40, -1.5e-7);
    writer.real(40, 0.1);
    writer.integer(1071, -3);
    writer.handle(5, 0x1AF);
    writer.text(1, L"é\nЖ");
    writer.bytes(310, std::string(128, '\x7F'));
    writer.bytes(310, "");
    EXPECT_EQ(
        out, " 40\r\n652000.0\r\n 40\r\n1.0E+38\r\n 40\r\n-1.5E-07\r\n 40\r\n0.1\r\n1071\r\n-3\r\n"
             "  5\r\n1AF\r\n  1\r\n\xE9^J\\U+0416\r\n310\r\n" +
                 [] {
                     std::string hex;
                     for (int i = 0; i < 127; ++i)
                         hex += "7F";
                     return hex;
                 }() +
                 "\r\n310\r\n7F\r\n310\r\n\r\n");
}

TEST(DxfTagWriterTest, RefusesWhatTheFormCannotHold)
{
    const DxfForm ascii = form(false);
    const DxfForm binary = form(true);
    std::string out;
    EXPECT_THROW(DxfTagWriter(ascii, out).real(40, std::numeric_limits<double>::quiet_NaN()), DxfError);
    EXPECT_THROW(DxfTagWriter(binary, out).integer(70, 70000), DxfError);
    EXPECT_THROW(DxfTagWriter(binary, out).integer(290, 256), DxfError);
    EXPECT_THROW(DxfTagWriter(binary, out).integer(90, -5000000000), DxfError);
    EXPECT_EQ(out, "");
}

TEST(DxfCursorTest, FindsLineEndsAtEveryPlaceOfABlock)
{
    const DxfForm ascii = form(false);
    for (std::size_t length = 0; length < 200; ++length) {
        const std::string bytes = "  1\r\n" + std::string(length, 'x') + "\r\n  8\r\nlast";
        DxfCursor cursor(ascii, bytes);
        DxfTag tag;
        ASSERT_TRUE(cursor.next(tag)) << length;
        EXPECT_EQ(dxfText(tag).size(), length);
        ASSERT_TRUE(cursor.next(tag)) << length;
        EXPECT_EQ(tag.code, 8);
        EXPECT_EQ(dxfText(tag), "last");
        EXPECT_FALSE(cursor.next(tag));
        EXPECT_FALSE(cursor.cut());
    }
}

TEST(DxfCursorTest, GroupCodeLines)
{
    struct Row {
        const char* line;
        int code;
    };
    constexpr Row rows[] = {{"  0", 0},   {"0", 0},    {" 40", 40}, {"1071", 1071}, {"  5\r", 5},       {"    5  ", 5},
                            {"1072", -1}, {"1 0", -1}, {"", -1},    {"   ", -1},    {"-1", -1},         {"0x", -1},
                            {"1.0", -1},  {" 1 ", 1},  {"005", 5},  {"\t5", 5},     {"99999999999", -1}};
    for (const Row& row : rows)
        EXPECT_EQ(dxfGroupCode(row.line, row.line + std::strlen(row.line)), row.code) << '"' << row.line << '"';
}

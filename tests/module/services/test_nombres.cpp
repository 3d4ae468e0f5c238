#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "services/etendueVue.h"
#include "services/formatNombres.h"
#include "services/lireNombre.h"

namespace {

constexpr double infini = std::numeric_limits<double>::infinity();

TEST(lireNombre, isStrict)
{
    struct Row {
        const char* name;
        const char* text;
        std::optional<double> value;
    };
    const Row rows[] = {
        {"whole", "12", 12.0},
        {"leading zeros", "007", 7.0},
        {"negative", "-3", -3.0},
        {"signed with decimals", "+1.50", 1.5},
        {"zero", "0", 0.0},
        {"exponent after a decimal", "2.5E-3", 0.0025},
        {"signed exponent", "2.5E+3", 2500.0},
        {"exponent of a negative zero", "-0.0E0", -0.0},
        {"exponent right after the point", "12.E5", 1200000.0},
        {"spaces around", "  7  ", 7.0},
        {"seventeen digits", "0.10000000000000001", 0.1},
        {"beyond a double", "1.0E999", std::nullopt},
        {"below a double", "1.0E-999", 0.0},
        {"long whole", "123456789012345678901234567890", 123456789012345678901234567890.0},
        {"empty", "", std::nullopt},
        {"spaces only", "   ", std::nullopt},
        {"leading point", ".5", std::nullopt},
        {"signed leading point", "-.5", std::nullopt},
        {"trailing point", "12.", std::nullopt},
        {"point alone", ".", std::nullopt},
        {"sign alone", "-", std::nullopt},
        {"two signs", "--3", std::nullopt},
        {"exponent without a point", "1E3", std::nullopt},
        {"small exponent mark", "1.5e3", std::nullopt},
        {"exponent without digits", "1.5E", std::nullopt},
        {"exponent sign alone", "1.5E+", std::nullopt},
        {"two points", "1.2.3", std::nullopt},
        {"comma", "12,5", std::nullopt},
        {"two numbers", "12 34", std::nullopt},
        {"trailing tab", "12\t", std::nullopt},
        {"space then tab", "12 \t", std::nullopt},
        {"leading tab", "\t12", std::nullopt},
        {"line end", "12\r\n", std::nullopt},
        {"letters after", "12m", std::nullopt},
        {"infinity by name", "inf", std::nullopt},
        {"hexadecimal", "0x10", std::nullopt},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        double value = 77.0;
        EXPECT_EQ(lireNombre(r.text, value), r.value.has_value());
        EXPECT_EQ(value, r.value.value_or(77.0));
        if (r.value) {
            EXPECT_EQ(std::signbit(value), std::signbit(*r.value));
        }
        const std::wstring wide(r.text, r.text + std::char_traits<char>::length(r.text));
        EXPECT_EQ(lireNombre(wide.c_str(), value), r.value.has_value());
    }
    double value = 77.0;
    EXPECT_EQ(lireNombre(static_cast<const wchar_t*>(nullptr), value), 0);
    EXPECT_EQ(lireNombre(L"\u0661\u0662", value), 0) << "digits outside the code page become question marks";
}

TEST(formatNombres, writesChainages)
{
    struct Row {
        const char* name;
        double value;
        int decimals, mode;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"fixed", -1234.5, 2, 0, L"-1234.50"},
        {"fixed, none", 2.5, 0, 0, L"2"},
        {"fixed, negative count", 2.6, -1, 0, L"3"},
        {"unknown in full", 1e38, 0, 0, L"99999999999999997748809823456034029568"},
        {"PK without sign", -1234.5, 2, 1, L"PK 1+234.50"},
        {"exact thousands", 2000.0, 0, 2, L"2+0"},
        {"below a thousand", 999.25, 1, 2, L"0+999.2"},
        {"any other mode", 1234.5, 1, 3, L"1 234.5"},
        {"negative mode", 1234.5, 1, -1, L"1 234.5"},
        {"the remainder is rounded by itself", 1999.999, 2, 2, L"1+1000.00"},
        {"negative zero", -0.0, 1, 1, L"PK 0+0.0"},
        {"thousands beyond 32 bits", 5e12 + 7, 0, 2, L"5000000000+7"},
        {"not a number", infini, 1, 0, L"inf"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        EXPECT_EQ(formaterAbscisse(r.value, r.decimals, r.mode), r.text);
        if (r.mode == 0) {
            EXPECT_EQ(formaterFixe(r.value, r.decimals), r.text);
        }
    }
    formaterAbscisse(infini, 1, 1); // no meaning, but no harm either
}

TEST(etendueVue, givesTheSmallerDimensionTheSize)
{
    struct Row {
        const char* name;
        double width, height;
        etendueVue expected;
    };
    // Centre (10, 20), size 100.
    const Row rows[] = {
        {"wide screen", 800, 400, {-90, -30, 110, 70}},
        {"tall screen", 400, 800, {-40, -80, 60, 120}},
        {"square", 500, 500, {-40, -30, 60, 70}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        const etendueVue e = etendueDeVue(10, 20, 100, r.width, r.height);
        EXPECT_DOUBLE_EQ(e.xMin, r.expected.xMin);
        EXPECT_DOUBLE_EQ(e.yMin, r.expected.yMin);
        EXPECT_DOUBLE_EQ(e.xMax, r.expected.xMax);
        EXPECT_DOUBLE_EQ(e.yMax, r.expected.yMax);
    }
}

} // namespace

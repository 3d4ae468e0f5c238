#include <cmath>

#include <gtest/gtest.h>

#include "codification/codificationDuModule.h"
#include "points/pointDuDessin.h"
#include "points/pointXYZ.h"

namespace {

pointDuDessin point(double x, double y, double z, int code, const wchar_t* nom)
{
    pointDuDessin p;
    p.setParams(nom, AcGePoint3d(x, y, z), code);
    return p;
}

TEST(pointDuDessin, isNewAndUnknown)
{
    const pointDuDessin p;
    double x = 0.0, y = 0.0;
    p.getXY(x, y);
    EXPECT_EQ(x, 1e38);
    EXPECT_EQ(y, 1e38);
    EXPECT_EQ(p.getZ(), 1e38);
    EXPECT_EQ(p.getCode(), 1);
    EXPECT_STREQ(p.getNomPoint(), "");
    EXPECT_TRUE(p.getId().isNull());
    CString texte(L"avant");
    p.getZAsString(texte);
    EXPECT_TRUE(texte == L"");
}

TEST(pointDuDessin, keepsNineCharactersOfTheCodePage)
{
    struct Row {
        const char* name;
        const wchar_t* given;
        const char* kept;
    };
    const Row rows[] = {
        {"nine fit", L"123456789", "123456789"},
        {"twelve are cut", L"123456789ABC", "123456789"},
        {"accents take one byte each", L"\u00e9\u00c9\u00e0\u00e7\u00f9\u00ea\u00ee\u00f4\u00fb\u00eb",
         "\xe9\xc9\xe0\xe7\xf9\xea\xee\xf4\xfb"},
        {"the euro sign is in the page", L"1\u20ac", "1\x80"},
        {"outside the page", L"\u4e2d1", "?1"},
        {"beyond the basic plane, one mark a character", L"\U0001F600x", "?x"},
        {"null", nullptr, ""},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        pointDuDessin p = point(0, 0, 0, 1, L"longer one");
        p.setNomPoint(r.given);
        EXPECT_STREQ(p.getNomPoint(), r.kept);
    }
    pointDuDessin p;
    p.setNomPoint("0123456789");
    EXPECT_STREQ(p.getNomPoint(), "012345678");
    p.setNomPoint(p.getNomPoint() + 5);
    EXPECT_STREQ(p.getNomPoint(), "5678");
    p.setNomPoint(static_cast<const char*>(nullptr));
    EXPECT_STREQ(p.getNomPoint(), "");
}

TEST(pointDuDessin, comparesWithinATenthOfAMillimetre)
{
    struct Row {
        const char* name;
        pointDuDessin a, b;
        bool equal;
    };
    const Row rows[] = {
        {"0.00009 apart, letter case", point(0, 0, 0, 3, L"p1"), point(0.00009, 0, -0.00009, 3, L"P1"), true},
        {"0.0001 apart in X", point(0, 0, 0, 3, L"p1"), point(0.0001, 0, 0, 3, L"p1"), false},
        {"0.0001 apart in Y", point(0, 0, 0, 3, L"p1"), point(0, -0.0001, 0, 3, L"p1"), false},
        {"0.0001 apart in Z", point(0, 0, 0, 3, L"p1"), point(0, 0, 0.0001, 3, L"p1"), false},
        // 1.0001 - 1.0 is 0.00009999999999998899 in binary.
        {"binary difference just below", point(1.0, 0, 0, 1, L""), point(1.0001, 0, 0, 1, L""), true},
        {"both unknown", point(1, 1, 1e38, 1, L"a"), point(1, 1, 1e38, 1, L"a"), true},
        {"codes differ", point(0, 0, 0, 3, L"p1"), point(0, 0, 0, 4, L"p1"), false},
        {"accented letter case", point(0, 0, 0, 1, L"\u00e9t\u00e9"), point(0, 0, 0, 1, L"\u00c9T\u00c9"), true},
        {"multiplication and division signs are no letters", point(0, 0, 0, 1, L"\u00d7"), point(0, 0, 0, 1, L"\u00f7"),
         false},
        {"one name begins the other", point(0, 0, 0, 1, L"p"), point(0, 0, 0, 1, L"p1"), false},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        EXPECT_EQ(r.a == r.b, r.equal);
        EXPECT_EQ(r.b == r.a, r.equal);
    }
}

TEST(pointDuDessin, ignoresTheEntityInComparisonsOnly)
{
    pointDuDessin drawn = point(1, 2, 3, 4, L"n");
    drawn.setId(AcDbObjectId().setFromOldId(77));
    const pointDuDessin copy = drawn;
    EXPECT_EQ(copy.getId().asOldId(), 77);
    EXPECT_TRUE(copy == point(1, 2, 3, 4, L"n"));

    pointXYZ record;
    record.nom = "abcdefghijk";
    record.x = 10;
    record.y = 20;
    record.code = 9;
    drawn = record;
    EXPECT_EQ(drawn.getId().asOldId(), 77) << "a plain record does not touch the entity";
    EXPECT_STREQ(drawn.getNomPoint(), "abcdefghi");
    EXPECT_EQ(drawn.getAs3dPnt().z, 1e38);
    EXPECT_EQ(drawn.getCode(), 9);
}

TEST(pointDuDessin, measuresHorizontally)
{
    EXPECT_DOUBLE_EQ(point(1, 1, 0, 1, L"").distanceTo(point(4, 5, 1000, 1, L"")), 5.0);
}

TEST(pointDuDessin, writesAltitudesAsItsCodeAsks)
{
    struct Row {
        const char* name;
        int decimales;
        double z;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"as a new code", 2, 102.345678, L"102.35"},
        {"by code", 4, 102.345678, L"102.3457"},
        {"none", 0, 102.345678, L"102"},
        {"a negative count is taken as none", -3, 12.7, L"13"},
        {"an absurd count is held", 1000000, 0.5, L"0.500000000000000000000000000000"},
        {"zero is a known altitude", 2, 0.0, L"0.00"},
        {"unknown", 2, 1e38, L""},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        codificationDuModule().getCodif(7).precisionAltitudes = r.decimales;
        CString texte;
        point(0, 0, r.z, 7, L"").getZAsString(texte);
        EXPECT_STREQ(texte.GetString(), r.text);
    }
}

} // namespace

// The report of a closed traverse, byte for byte. Numbers were worked out apart from the program.

#include <limits>

#include <gtest/gtest.h>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/uniteAngulaire.h"
#include "reports/htmlDocument.h"

#include "comparaisons.h"

namespace {

// Bearings 50, 149.98, 300.03 gr; closure 0.1143, 0.0182 over 341.50; heights closing on +0.03.
const stationPolygonale depart{L"S1", 1000.0, 2000.0, 50.0, 50.0};
const std::vector<observationPolygonale> triangle = {
    {L"A", 349.98, 100.00, 1.50}, {L"B&\u00C9", 299.99, 100.10, -0.70}, {L"S1", 350.06, 141.40, -0.77}};

std::string rapport(int mode)
{
    htmlDocument document;
    rapporterPolygonale(compenserPolygonaleFermee(depart, mode, uniteGrades, triangle), document);
    return document.text();
}

TEST(RapportFermee, Bytes)
{
    attendreRapports("rapport-ferme", rapport);
}

TEST(RapportFermee, UnknownAndNonFiniteNumbersAreWritten)
{
    htmlDocument document;
    stationPolygonale sansAltitude = depart;
    sansAltitude.z = 1e38;
    rapporterPolygonale(compenserPolygonaleFermee(sansAltitude, 1, uniteGrades, triangle), document);
    const std::string texte = document.text();
    EXPECT_NE(texte.find("\tZ=99999999999999997748809823456034029568.000000\t"), std::string::npos);
    EXPECT_NE(texte.find("<td class=celnorm align=right>99999999999999997748809823456034029568.0000</td>"),
              std::string::npos);

    htmlDocument nul;
    std::vector<double> x, y, z;
    calculPolygonaleFermee(L"A", std::numeric_limits<double>::infinity(), 0, 0, 0, 3, 0,
                           {{L"B", 300, 0, 0}, {L"A", 300, 0, 0}}, x, y, z, &nul);
    EXPECT_NE(nul.text().find("X=inf"), std::string::npos);
    EXPECT_NE(nul.text().find("nan</td>"), std::string::npos);
}

} // namespace

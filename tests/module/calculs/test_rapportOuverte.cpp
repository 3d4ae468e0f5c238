// The report of an open traverse, byte for byte. Numbers were worked out apart from the program.

#include <gtest/gtest.h>

#include "calculs/calculPolygonaleOuverte.h"
#include "calculs/rapportPolygonaleOuverte.h"
#include "calculs/uniteAngulaire.h"
#include "reports/htmlDocument.h"

#include "comparaisons.h"

namespace {

// Carried bearings 450, 949.98, 1300.01 gr: three turns and 100.04 are missed by 0.03. Closure −0.0245, 0.0032 over
// 400.10; heights closing on +0.03.
const stationPolygonale depart{L"S1", 1000.0, 2000.0, 50.0, 0.0};
const stationPolygonale arrivee{L"S2", 1282.90, 1858.50, 50.80, 100.04};
constexpr double dernierAngle = 150.03;
const std::vector<observationPolygonale> lignes = {{L"B&\u00C9", 250.00, 100.00, 1.50}, {L"S2", 299.98, 300.10, -0.67}};

std::string rapport(int mode)
{
    htmlDocument document;
    rapporterPolygonale(compenserPolygonaleOuverte(depart, arrivee, dernierAngle, mode, uniteGrades, lignes), document);
    return document.text();
}

TEST(RapportOuverte, Bytes)
{
    attendreRapports("rapport-ouvert", rapport);
}

} // namespace

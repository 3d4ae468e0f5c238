// A network as rows of texts: what is pasted and typed, and what is refused.

#include <gtest/gtest.h>

#include "calculs/reseau/editionReseau.h"

TEST(EditionReseau, RowsArePastedFromAFrenchSpreadsheet)
{
    reseau r;
    EXPECT_EQ(collerPoints(r, L"Point\tX\tY\tZ\nA\t1 652\u202F310,42\t8184205,17\t212,35\tfixe\r\nB\t10\t\t\n"
                              L"C\t1652310,5\t8184300\t\n"),
              L"2 ligne(s) coll\u00e9e(s), 2 laiss\u00e9e(s). Ligne 1 : \u00ab X \u00bb n'est pas un nombre.");
    ASSERT_EQ(r.points.size(), 2u);
    EXPECT_DOUBLE_EQ(r.points[0].x, 1652310.42);
    EXPECT_DOUBLE_EQ(r.points[0].z, 212.35);
    EXPECT_EQ(collerObservations(r, L"distance;A;C;;94,830;3,5\n\n;;;;\nangle;A;C;D;100,5\n"),
              L"2 ligne(s) coll\u00e9e(s).");
    EXPECT_DOUBLE_EQ(r.observations[0].mesure, 94.83);
    EXPECT_DOUBLE_EQ(r.observations[0].ecart, 0.0035);
    // New coordinates of a point that is held do not let it go, nor lose its height.
    EXPECT_EQ(collerPoints(r, L"A;1652310,43;8184205,17"), L"1 ligne(s) coll\u00e9e(s).");
    EXPECT_EQ(r.points[0].plan, tenue::fixe);
    EXPECT_DOUBLE_EQ(r.points[0].x, 1652310.43);
    EXPECT_DOUBLE_EQ(r.points[0].z, 212.35);
}

TEST(EditionReseau, RefusalsLeaveTheNetworkAsItWas)
{
    reseau r;
    collerObservations(r, L"distance;A;B;;10");
    for (const wchar_t* const ligne : {L"distance;E;E;;10", L"angle;E;F;;10", L"distance;E;F;;-10", L"distance;E;F;;",
                                       L"distance;E", L"niveau;E;F;;10", L"distance;E;F;;10;0"}) {
        EXPECT_NE(collerObservations(r, ligne).find(L"1 laiss\u00e9e(s)"), std::wstring::npos);
        EXPECT_EQ(r.points.size(), 2u) << "the points of a refused row are not kept";
    }
    EXPECT_FALSE(changerObservation(r, 0, colonneObservation::mesure, L"10,5").empty());
    EXPECT_FALSE(changerObservation(r, 0, colonneObservation::vise, L"A").empty());
    EXPECT_FALSE(changerObservation(r, 0, colonneObservation::genre, L"angle").empty()) << "has no second point";
    EXPECT_EQ(r.observations.size(), 1u);
    EXPECT_EQ(texteObservation(r, 0, colonneObservation::vise), L"B");
    EXPECT_EQ(r.chercher(L"E"), -1);
    EXPECT_FALSE(changerObservation(r, 0, colonneObservation::mesure, L"1e999").empty());
}

TEST(EditionReseau, WhatIsShownIsWhatIsTyped) // whatever the axes of the file
{
    reseau r;
    r.axes = {0.0, -1.0, 1.0, 0.0, true}; // first axis north, second west
    for (const wchar_t* const ligne : {L"direction;A;B;;12.5", L"gisement;A;B;;399", L"zenithal;A;B;;101.25",
                                       L"x;A;;;-1652310.42", L"y;A;;;8184205.17", L"z;A;;;212.5", L"inclinee;A;B;;3"}) {
        ASSERT_EQ(collerObservations(r, ligne), L"1 ligne(s) coll\u00e9e(s).") << ligne;
        const int k = static_cast<int>(r.observations.size()) - 1;
        const std::wstring vue = texteObservation(r, k, colonneObservation::mesure);
        EXPECT_NE(std::wstring(ligne).find(vue), std::wstring::npos) << ligne << vue;
        EXPECT_EQ(changerObservation(r, k, colonneObservation::mesure, vue), L"");
        EXPECT_EQ(texteObservation(r, k, colonneObservation::mesure), vue);
    }
    // Coordinates come one after the other: the second is not 0 meanwhile, nor is the point placed.
    EXPECT_EQ(changerPoint(r, 0, colonnePoint::x, L"12.5"), L"");
    EXPECT_EQ(textePoint(r, 0, colonnePoint::x), L"12.5");
    EXPECT_EQ(textePoint(r, 0, colonnePoint::y), L"");
    EXPECT_FALSE(r.points[0].enPlan());
    EXPECT_EQ(changerPoint(r, 0, colonnePoint::y, L"7"), L"");
    EXPECT_DOUBLE_EQ(r.points[0].x, -7.0) << "the second axis runs west";
    EXPECT_DOUBLE_EQ(r.points[0].y, 12.5);
    EXPECT_EQ(changerPoint(r, 0, colonnePoint::x, L""), L"");
    EXPECT_EQ(textePoint(r, 0, colonnePoint::y), L"7");
}

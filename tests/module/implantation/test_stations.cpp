// Setups: angles, texts, identifiers, rows of the list.

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "implantation/identifiants.h"
#include "implantation/pointImplante.h"
#include "implantation/reglagesImplantation.h"
#include "services/codages.h"

namespace {

constexpr double pi = std::numbers::pi;

donneesStation orientee(double v0Grades)
{
    donneesStation s;
    s.station = {L"S", 0.0, 0.0, inconnu};
    s.v0 = v0Grades * pi / 200.0;
    return s;
}

donneesStation visee(double x, double y)
{
    donneesStation s = orientee(0.0);
    s.visee = true;
    s.reference = {L"R", x, y, inconnu};
    return s;
}

} // namespace

TEST(Stations, ReadTheAnglesOfTargets)
{
    // A bearing of 257.354 grades, by hand: sin and cos of 231.6186 degrees.
    const double xRef = 1000.0 * std::sin(257.354 * pi / 200.0), yRef = 1000.0 * std::cos(257.354 * pi / 200.0);
    const struct {
        const char* nom;
        donneesStation station;
        double x, y, grades, tolerance;
    } lignes[] = {
        {"north", orientee(0.0), 0.0, 10.0, 0.0, 1e-9},
        {"east", orientee(0.0), 10.0, 0.0, 100.0, 1e-9},
        {"south", orientee(0.0), 0.0, -10.0, 200.0, 1e-9},
        {"west", orientee(0.0), -10.0, 0.0, 300.0, 1e-9},
        {"an oriented angle is not reduced, on purpose", orientee(300.0), -10.0, 0.0, 600.0, 1e-9},
        {"sighted: on the direction of the reference", visee(0.0, 5.0), 0.0, 10.0, 0.0, 1e-9},
        {"just left of it: never negative", visee(0.0, 5.0), -1e-6, 10.0, 400.0, 1e-4},
        {"a published case, to its last digit", visee(xRef, yRef), -2.821, 14.874, 130.714, 6e-4},
    };
    for (const auto& l : lignes) {
        SCOPED_TRACE(l.nom);
        EXPECT_NEAR(enGrades(angleVers(l.station, l.x, l.y)), l.grades, l.tolerance);
    }
}

TEST(Stations, KnowNothingOfUnknownPlaces)
{
    donneesStation sansPlace = orientee(0.0);
    sansPlace.station.y = inconnu;
    EXPECT_EQ(angleVers(sansPlace, 1.0, 2.0), inconnu);
    EXPECT_EQ(angleVers(visee(inconnu, 0.0), 1.0, 2.0), inconnu);
    EXPECT_EQ(gisementVers(orientee(0.0), 1.0, inconnu), inconnu);
    EXPECT_EQ(distanceVers(orientee(0.0), inconnu, 1.0), inconnu);
}

TEST(Stations, DescribeThemselves)
{
    const struct {
        double grades;
        const wchar_t* texte;
    } orientations[] = {
        {0.0, L"NORD (O gr)"},    {99.9999995, L"EST (10O gr)"},
        {200.0, L"SUD (20O gr)"}, {300.0000005, L"OUEST (30O gr)"},
        {99.9999, L"99.9999 gr"}, {400.0, L"400.0000 gr"},
    };
    for (const auto& o : orientations)
        EXPECT_EQ(texteOrientation(o.grades * pi / 200.0), o.texte);

    donneesStation s = visee(3.0, 4.0);
    s.station = {L"A&B", 1.0, 2.5, 3.0};
    EXPECT_EQ(descriptionHtml(s), "<br><u> Station :</u> A&amp;B <b> x </b> = 1.0000<b> y </b>= 2.5000"
                                  "<b> z </b>= 3.0000 \n<br><u> Reference </u><b>R</b>");
    EXPECT_EQ(descriptionTexte(s), L"%%uStation :%%u A&B x  = 1.0000 y = 2.5000 z = 3.0000%%uReference:%%u R");
    EXPECT_EQ(descriptionHtml(orientee(50.0)), "<br><u> Station :</u> S <b> x </b> = 0.0000<b> y </b>= 0.0000"
                                               "<br><u> Reference </u>50.0000 gr");
    EXPECT_EQ(texteReference(orientee(0.0)), L"NORD");
    EXPECT_EQ(texteReference(orientee(1e-9)), L"V0=0.0000 gr");
    EXPECT_EQ(texteReference(s), L"R");
}

TEST(Stations, NeverGiveAllOnesAsIdentifier)
{
    identifiantImplantation compteur = aucunIdentifiant;
    EXPECT_EQ(identifiantSuivant(compteur, (std::int64_t{1} << 32) + 7), 7U);
    EXPECT_EQ(identifiantSuivant(compteur, 0), 8U);
    compteur = aucunIdentifiant - 1;
    EXPECT_EQ(identifiantSuivant(compteur, 0), aucunIdentifiant - 1);
    EXPECT_EQ(identifiantSuivant(compteur, 42), 42U) << "at all ones again, the time seeds it anew";
    compteur = aucunIdentifiant;
    EXPECT_EQ(identifiantSuivant(compteur, -1), 0U) << "a time of all ones is passed over";
}

TEST(Stations, FillTheRowsOfTheList)
{
    pointImplante p;
    static_cast<lieuNomme&>(p) = {L"P", 10.0, 0.0, inconnu};
    const donneesStation nord = orientee(0.0), sansReference = visee(inconnu, inconnu);
    donneesStation sansPlace = nord;
    sansPlace.station.x = inconnu;
    const struct {
        const char* nom;
        const donneesStation* station;
        const wchar_t *ref, *angle, *distance;
    } lignes[] = {
        {"no setup", nullptr, L"", L"-", L""},
        {"due east of a north setup", &nord, L"NORD", L"100.0000", L"10.0000"},
        {"unknown zero: the bearing", &sansReference, L"R", L"g= 100.0000", L"10.0000"},
        {"unknown station", &sansPlace, L"NORD", L"-", L""},
    };
    for (const auto& l : lignes) {
        SCOPED_TRACE(l.nom);
        const ligneImplantation ligne = ligneDe(p, l.station);
        EXPECT_EQ(ligne[colNum], L"P");
        EXPECT_EQ(ligne[colX], L"10.0000");
        EXPECT_EQ(ligne[colZ], L"");
        EXPECT_EQ(ligne[colRef], l.ref);
        EXPECT_EQ(ligne[colAngle], l.angle);
        EXPECT_EQ(ligne[colDistance], l.distance);
        EXPECT_EQ(ligne[colVisible], L"*");
    }
    p.verifie = true;
    p.hauteurVisible = 1.5;
    EXPECT_EQ(ligneDe(p, nullptr)[colVisible], L"1.50");
    EXPECT_EQ(etatDe(p, 1.5), etatVisibilite::visible) << "at most the height is visible";
    EXPECT_EQ(etatDe(p, 1.49), etatVisibilite::nonVisible);
}

TEST(Stations, MakeTheMaskOfTheOptions)
{
    optionsImplantation o;
    EXPECT_EQ(masqueDe(o), 15U);
    o.coordonnees = true;
    o.numeros = o.implantations = false;
    EXPECT_EQ(masqueDe(o), 124U);
    EXPECT_EQ(hauteurAdmise(-3.0), 0.0);
    EXPECT_EQ(hauteurAdmise(1e31), 1.2);
}

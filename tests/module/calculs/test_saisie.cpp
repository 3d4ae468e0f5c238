// What the dialogs lean on: bearings between two points, pasted rows, the summary of a traverse.

#include <limits>
#include <numbers>

#include <gtest/gtest.h>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/fermeturePolygonale.h"
#include "calculs/gisement.h"
#include "calculs/lignesCollees.h"
#include "calculs/polygonaleCalculee.h"
#include "calculs/uniteAngulaire.h"
#include "reports/htmlDocument.h"
#include "services/grandeur.h"
#include "services/nombreFixe.h"

namespace {

TEST(Gisement, Directions)
{
    struct ligne {
        const char* nom;
        double x, y; // of the direction, from (1000, 2000)
        int unite;
        double attendu;
    };
    const ligne lignes[] = {
        {"north", 1000, 2010, uniteGrades, 0},
        {"east", 1010, 2000, uniteGrades, 100},
        {"east, degrees", 1010, 2000, uniteDegres, 90},
        {"east, radians", 1010, 2000, uniteRadians, std::numbers::pi / 2},
        {"south", 1000, 1990, uniteGrades, 200},
        {"west", 990, 2000, uniteGrades, 300},
        {"west, degrees", 990, 2000, uniteDegres, 270},
        {"north-west", 990, 2010, uniteGrades, 350},
        {"3-4-5: acos(4/5)", 1003, 2004, uniteDegres, 36.86989764584402},
        {"the same place", 1000, 2000, uniteGrades, 100},
        {"an unlisted unit is grades", 990, 2000, 7, 300},
        {"unknown", inconnu, 2000, uniteGrades, inconnu},
    };
    for (const ligne& l : lignes)
        EXPECT_NEAR(gisement(1000, 2000, l.x, l.y, l.unite), l.attendu, 1e-12) << l.nom;
    // π/2 less a hair more than π/2 is negative, and a turn more is the turn itself.
    EXPECT_EQ(nombreFixe(gisement(0, 0, -1e-17, 1, uniteGrades), 4), "0.0000");
    EXPECT_EQ(nombreFixe(gisement(0, 0, -3e-16, 1, uniteGrades), 4), "400.0000");
}

TEST(LignesCollees, FromASpreadsheet)
{
    struct ligne {
        const char* nom;
        const wchar_t* texte;
        std::vector<ligneObservation> attendues;
        std::size_t laissees = 0;
    };
    const ligne lignes[] = {
        {"tabs",
         L"S1\t294.8914\t217.63\t0.5\r\nS2\t378.1\t169.69\t-0.2\r\n",
         {{L"S1", L"294.8914", L"217.63", L"0.5"}, {L"S2", L"378.1", L"169.69", L"-0.2"}}},
        {"French numbers", L"S1\t294,8914\t1\u202F217,63\t0,5", {{L"S1", L"294.8914", L"1217.63", L"0.5"}}},
        {"semicolons", L"S 1 ; 294,8914; 217.63 ;;suite", {{L"S 1", L"294.8914", L"217.63", L"0"}}},
        {"three columns", L"S1\t100\t10", {{L"S1", L"100", L"10", L"0"}}},
        {"headings and empty lines go",
         L"Station\tAngle\tDistance\n\nS1\t100\t10\t1\n\n",
         {{L"S1", L"100", L"10", L"1"}},
         1},
        {"nothing to paste", L"bonjour", {}, 1},
        {"no name", L"\t100\t10\t1", {{L"", L"100", L"10", L"1"}}},
        {"two commas are no number", L"S1\t1,234,5\t10\t1", {}, 1},
    };
    for (const ligne& l : lignes) {
        const collage colle = lignesCollees(l.texte);
        EXPECT_EQ(colle.lignes, l.attendues) << l.nom;
        EXPECT_EQ(colle.laissees, l.laissees) << l.nom;
        EXPECT_EQ(remarqueCollage(colle).empty(), l.laissees == 0) << l.nom;
    }
    EXPECT_EQ(remarqueCollage(lignesCollees(L"Station\tAngle\nS1\t100\t10\nS2\tx\t10\n")),
              L"Collage : 1 ligne(s) reprise(s), 2 laissée(s) sans angle ou distance lisible, dont « Station Angle ».");
    const std::vector<ligneObservation> copiees = {{L"S1", L"100.5", L"10", L"1"}, {L"S2", L"1", L"2", L"3"}};
    EXPECT_EQ(lignesCollees(texteDesLignes(copiees)).lignes, copiees);
}

TEST(FermeturePolygonale, BeyondAnyPractice)
{
    struct ligne {
        const char* nom;
        double erreur, fermeture;
        const wchar_t* dit;
    };
    const ligne lignes[] = {
        {"a good one", 0.01, 0.05, L""},
        {"a compass", 0.9, 3.0, L""},
        {"100 gr", 99.95, 0.05, L"(erreur angulaire de 99.95000 gr)"},
        {"a third of the length", -0.01, 1000.0 / 3.0, L"(fermeture relative 1/3)"},
        {"both", -1.01, 5.1, L"(erreur angulaire de -1.01000 gr, fermeture relative 1/196)"},
        {"more than the length", 0.0, 2000.0, L"(fermeture relative supérieure à 1)"},
        {"unknown", inconnu, inconnu, L""},
        {"not finite", std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), L""},
    };
    for (const ligne& l : lignes) {
        cheminement c;
        c.cotes.resize(4); // 1 gr
        c.longueur = 1000.0;
        c.erreurAngulaire = l.erreur;
        c.fermeturePlanimetrique = l.fermeture;
        c.fermetureRelative = c.longueur / l.fermeture;
        const std::wstring dit = remarqueFermeture(c);
        EXPECT_EQ(dit.empty(), std::wstring(l.dit).empty()) << l.nom;
        EXPECT_NE(dit.find(l.dit), std::wstring::npos) << l.nom;
    }
}

TEST(AvertissementsNoms, CutsAndNamesMadeOne)
{
    const std::vector<std::wstring> noms{L"STATION-01", L"S1", L"STATION-02", L"S1", L"Ω", L"€é"};
    EXPECT_EQ(avertissementsNoms(noms, 9, L"dans la table"),
              (std::vector<std::wstring>{
                  L"Le nom « STATION-01 » est coupé à 9 caractères dans la table.",
                  L"Le nom « STATION-02 » est coupé à 9 caractères dans la table.",
                  L"Les stations « STATION-01 » et « STATION-02 » y portent le même nom, « STATION-0 ».",
                  L"Le nom « Ω » devient « ? » dans la table : un de ses caractères n'est pas dans la page de codes "
                  L"Windows-1252."}));
}

TEST(PolygonaleCalculee, SummaryAndHeadLines)
{
    donneesPolygonaleFermee d;
    d.depart = {L"A", 0, 0, 0, 0};
    d.lignes = {{L"B", L"300.01", L"100", L"0.01"},
                {L"C", L"300", L"50", L"0"},
                {L"D", L"300", L"100", L"0"},
                {L"A", L"300", L"50.1", L"0"}};
    htmlDocument rapport;
    const polygonaleCalculee p = calculerPolygonale(d, &rapport);
    EXPECT_EQ(resumePolygonale(p.resultat).substr(0, 41), L"Erreur angulaire : -0.01000 gr ; fermetur");
    EXPECT_EQ(p.originelle.sommets.size(), 5u);
    EXPECT_EQ(p.compensee.sommets.size(), 5u);
    EXPECT_TRUE(p.avertissements.empty());
    EXPECT_EQ(rapport.text().find("<html>\n<head>\n<meta http-equiv=\"Content-Type\" content=\"text/html; "
                                  "charset=windows-1252\">\n<title>"),
              0u);
    d.lignes[0].distance = L"12,5";
    EXPECT_EQ(calculerPolygonale(d).avertissements.size(), 2u) << "the cell, and what it makes of the closure";
    d.lignes[0] = {L"B", L"299.999999999", L"100", L"0"};
    EXPECT_EQ(resumePolygonale(calculerPolygonale(d).resultat).substr(0, 34), L"Erreur angulaire : 0.00000 gr ; fe");
    d.lignes[0].angle = L"300.000000001";
    EXPECT_EQ(resumePolygonale(calculerPolygonale(d).resultat).substr(0, 34), L"Erreur angulaire : 0.00000 gr ; fe")
        << "no sign for what reads as zero";
    const std::vector<std::wstring> trois{L"a", L"b", L"c"};
    EXPECT_EQ(premieresPhrases(trois, 3), trois);
    EXPECT_EQ(premieresPhrases(trois, 2), (std::vector<std::wstring>{L"a", L"... et 2 autres remarques."}));

    EXPECT_EQ(texteFermetureRelative(11374.6), L"1/11 375");
    EXPECT_EQ(texteFermetureRelative(1234567.0), L"1/1 234 567");
    EXPECT_EQ(texteFermetureRelative(999.0), L"1/999");
    EXPECT_EQ(texteFermetureRelative(0.26), L"supérieure à 1");
    EXPECT_EQ(texteFermetureRelative(7.9e15), L"nulle") << "40 m that miss by 5e-15";
    EXPECT_EQ(texteFermetureRelative(std::numeric_limits<double>::infinity()), L"nulle");
    EXPECT_EQ(texteFermetureRelative(std::numeric_limits<double>::quiet_NaN()), L"non définie");
}

} // namespace

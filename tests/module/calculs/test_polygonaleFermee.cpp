// Closed traverses: invariances, levelling by hand, oddities kept on purpose, what the user is told.

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include <gtest/gtest.h>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/calculPolygonaleFermee.h"
#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"

#include "comparaisons.h"

namespace {

using observations = std::vector<observationPolygonale>;

// --- Invariances -----------------------------------------------------------------------------------------------------

const stationPolygonale departA{L"A", 1000.0, 2000.0, 50.0, 50.0};
/// A right-angled triangle walked clockwise, with errors of every kind.
const observations triangle = {
    {L"B", 349.98, 100.00, 1.50}, {L"C", 299.99, 100.10, -0.70}, {L"A", 350.06, 141.40, -0.77}};

TEST(PolygonaleFermee, Invariances)
{
    const auto reference = compenserPolygonaleFermee(departA, nivellementRacine, uniteGrades, triangle);

    stationPolygonale deplace = departA;
    deplace.x += 1000.0;
    deplace.y -= 250.0;
    deplace.z += 12.0;
    comparerStations(compenserPolygonaleFermee(deplace, nivellementRacine, uniteGrades, triangle), reference,
                     [](stationCorrigee s) {
                         return stationCorrigee{{}, s.x + 1000.0, s.y - 250.0, s.z + 12.0};
                     });

    stationPolygonale tourne = departA; // 100 gr clockwise around A: (dx, dy) becomes (dy, −dx)
    tourne.gisement += 100.0;
    comparerStations(compenserPolygonaleFermee(tourne, nivellementRacine, uniteGrades, triangle), reference,
                     [](stationCorrigee s) {
                         return stationCorrigee{{}, 1000.0 + (s.y - 2000.0), 2000.0 - (s.x - 1000.0), s.z};
                     });

    // The same in a mirror, which is walked the other way round: two turns added to the first angle take the place of
    // the rule's clockwise loop.
    stationPolygonale miroir = departA;
    miroir.gisement = 400.0 - departA.gisement;
    observations inverses = triangle;
    for (auto& l : inverses)
        l.angle = 400.0 - l.angle;
    inverses[0].angle += 800.0;
    const auto vue = compenserPolygonaleFermee(miroir, nivellementRacine, uniteGrades, inverses);
    comparerStations(vue, reference, [](stationCorrigee s) {
        return stationCorrigee{{}, 1000.0 - (s.x - 1000.0), s.y, s.z};
    });
    EXPECT_NEAR(vue.erreurAngulaire, -reference.erreurAngulaire, 1e-9);

    const std::pair<int, double> unites[] = {{uniteDegres, 0.9}, {uniteRadians, std::numbers::pi / 200.0}};
    for (const auto& [unite, facteur] : unites) {
        stationPolygonale depart = departA;
        depart.gisement *= facteur;
        observations lignes = triangle;
        for (auto& l : lignes)
            l.angle *= facteur;
        const auto r = compenserPolygonaleFermee(depart, nivellementRacine, unite, lignes);
        comparerStations(r, reference, [](stationCorrigee s) { return s; });
        EXPECT_NEAR(r.erreurAngulaire, reference.erreurAngulaire * facteur, 1e-11);
    }
}

TEST(PolygonaleFermee, ClosuresOfTheTriangle)
{
    const auto r = compenserPolygonaleFermee(departA, nivellementSimple, uniteGrades, triangle);
    EXPECT_NEAR(r.sommeInterieurs, 199.97, 1e-9);
    EXPECT_NEAR(r.erreurAngulaire, -0.03, 1e-9);
    EXPECT_NEAR(r.correctionAngulaire, -0.01, 1e-9);
    EXPECT_NEAR(r.cotes[1].gisement, 149.98, 1e-9); // 50 + 299.98 − 200
    EXPECT_NEAR(r.cotes[2].gisement, 300.03, 1e-9); // 149.98 + 350.05 − 200
    EXPECT_NEAR(r.fermeturePlanimetrique, std::hypot(r.fermetureX, r.fermetureY), 1e-12);
    EXPECT_NEAR(r.fermetureRelative, 341.5 / r.fermeturePlanimetrique, 1e-6);
    EXPECT_NEAR(r.cotes[2].x, departA.x, 1e-9) << "the last row comes back to the departure";
    EXPECT_NEAR(r.cotes[2].y, departA.y, 1e-9);
    EXPECT_EQ(r.stations[0].nom, L"A");
    EXPECT_EQ(r.stations[1].nom, L"B");
}

// --- Levelling -------------------------------------------------------------------------------------------------------

TEST(PolygonaleFermee, LevellingByHand)
{
    // A rectangle of 100 by 400 without any other error. Σdz = 0.06.
    const stationPolygonale depart{L"A", 0.0, 0.0, 10.0, 0.0};
    const observations rectangle = {
        {L"B", 300, 100, 1.00}, {L"C", 300, 400, 2.00}, {L"D", 300, 100, -1.00}, {L"A", 300, 400, -1.94}};
    struct ligne {
        const char* nom;
        int mode;
        double corrections[4];
        double z[4];
    };
    const ligne lignes[] = {
        {"aucun", 0, {0, 0, 0, 0}, {10, 11, 13, 12}},
        {"simple: 0.06 / 4", 1, {0.015, 0.015, 0.015, 0.015}, {10, 10.985, 12.97, 11.955}},
        {"distance: 0.06 / 1000 a metre", 2, {0.006, 0.024, 0.006, 0.024}, {10, 10.994, 12.97, 11.964}},
        {"racine: 0.06 / (10 + 20 + 10 + 20)", 3, {0.01, 0.02, 0.01, 0.02}, {10, 10.99, 12.97, 11.96}},
        {"unlisted mode corrects nothing", 4, {0, 0, 0, 0}, {10, 11, 13, 12}},
    };
    for (const ligne& l : lignes) {
        const auto r = compenserPolygonaleFermee(depart, l.mode, uniteGrades, rectangle);
        EXPECT_NEAR(r.nivellement.fermeture, 0.06, 1e-12) << l.nom;
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_NEAR(r.nivellement.denivelees[i].correction, l.corrections[i], 1e-9) << l.nom << " " << i;
            EXPECT_NEAR(r.stations[i].z, l.z[i], 1e-9) << l.nom << " " << i;
        }
    }
}

TEST(PolygonaleFermee, LevellingWeighsCorrectedDistances)
{
    // An isosceles triangle whose observed and corrected lengths differ by far: the compass rule stretches the legs.
    observations lignes = triangle;
    lignes[0].distance = 80.0;
    const auto r = compenserPolygonaleFermee(departA, nivellementDistance, uniteGrades, lignes);
    const auto& s = r.stations;
    EXPECT_NEAR(r.nivellement.denivelees[0].poids, std::hypot(s[1].x - s[0].x, s[1].y - s[0].y), 1e-9);
    EXPECT_NEAR(r.nivellement.denivelees[2].poids, std::hypot(s[0].x - s[2].x, s[0].y - s[2].y), 1e-9);
    EXPECT_GT(std::abs(r.nivellement.denivelees[0].poids - 80.0), 1.0);
}

TEST(PolygonaleFermee, UnknownYieldsUnknown)
{
    stationPolygonale depart = departA;
    depart.z = inconnu;
    auto r = compenserPolygonaleFermee(depart, nivellementSimple, uniteGrades, triangle);
    EXPECT_EQ(r.stations[2].z, inconnu);
    EXPECT_NEAR(r.nivellement.fermeture, 0.03, 1e-12) << "the closure does not need the altitude";

    observations lignes = triangle;
    lignes[1].dz = inconnu;
    r = compenserPolygonaleFermee(departA, nivellementSimple, uniteGrades, lignes);
    EXPECT_EQ(r.stations[1].z, inconnu) << "the closure is unknown, and with it every share";
    EXPECT_NE(r.stations[1].x, inconnu);
    r = compenserPolygonaleFermee(departA, nivellementAucun, uniteGrades, lignes);
    EXPECT_DOUBLE_EQ(r.stations[1].z, 51.5) << "without correction, known up to the unknown leg";
    EXPECT_EQ(r.stations[2].z, inconnu);

    lignes = triangle;
    lignes[2].angle = inconnu;
    r = compenserPolygonaleFermee(departA, nivellementAucun, uniteGrades, lignes);
    EXPECT_EQ(r.erreurAngulaire, inconnu);
    EXPECT_EQ(r.stations[1].x, inconnu);
}

// --- Oddities --------------------------------------------------------------------------------------------------------

TEST(PolygonaleFermee, Normaliser)
{
    struct ligne {
        const char* nom;
        double angle, tour, attendu;
    };
    const ligne lignes[] = {
        {"inside", 399.5, 400, 399.5},
        {"a full turn is none", 400, 400, 0},
        {"negative", -100, 400, 300},
        {"several turns down", -900, 400, 300},
        {"a hair below zero rounds to the turn itself, kept", -1e-20, 400, 400},
        {"a zero turn returns the angle", 123, 0, 123},
        {"degrees", 725, 360, 5},
    };
    for (const ligne& l : lignes)
        EXPECT_DOUBLE_EQ(normaliser(l.angle, l.tour), l.attendu) << l.nom;
}

TEST(PolygonaleFermee, FirstAngleEntersOnlyTheClosure)
{
    observations lignes = triangle;
    lignes[0].angle += 0.03; // brings the sum of interior angles from 199.97 to 199.94
    const auto r = compenserPolygonaleFermee({L"A", 0, 0, 0, -350.0}, 0, uniteGrades, lignes);
    EXPECT_NEAR(r.erreurAngulaire, -0.06, 1e-9);
    EXPECT_EQ(r.cotes[0].gisement, -350.0) << "the departure bearing is used as it is, not normalised";
}

TEST(PolygonaleFermee, TwoRowsTakeTheirWholeSumAsError)
{
    const auto r =
        compenserPolygonaleFermee({L"A", 0, 0, 0, 0}, 0, uniteGrades, {{L"B", 390, 10, 0}, {L"A", 380, 10, 0}});
    EXPECT_DOUBLE_EQ(r.erreurAngulaire, 30.0);
    EXPECT_DOUBLE_EQ(r.correctionAngulaire, 15.0);
}

TEST(PolygonaleFermee, DegenerateRowsNeverCrash)
{
    EXPECT_TRUE(compenserPolygonaleFermee(departA, 1, uniteGrades, {}).stations.empty());
    EXPECT_EQ(compenserPolygonaleFermee(departA, 2, uniteGrades, {{L"A", 10, 5, 1}}).stations.size(), 1u);
    const auto r = compenserPolygonaleFermee(departA, 2, uniteGrades, {{L"B", 300, 0, 1}, {L"A", 300, 0, 0}});
    EXPECT_FALSE(std::isfinite(r.stations[1].x));
    EXPECT_FALSE(std::isfinite(r.stations[1].z));
}

TEST(PolygonaleFermee, OneCallForTheDialog)
{
    std::vector<double> x, y, z;
    std::vector<tracePolygonale> traces;
    calculPolygonaleFermee(L"A", 1000, 2000, 50, 50, nivellementSimple, uniteGrades, triangle, x, y, z, nullptr, true,
                           true, [&traces](const tracePolygonale& t) { traces.push_back(t); });
    ASSERT_EQ(x.size(), 4u);
    EXPECT_EQ(y.size(), 4u);
    ASSERT_EQ(z.size(), 4u);
    EXPECT_EQ(x[0], 1000.0);
    EXPECT_NEAR(z[1], 51.49, 1e-9); // 50 + 1.50 − 0.03/3

    ASSERT_EQ(traces.size(), 2u);
    EXPECT_EQ(traces[0].couleur, 1);
    ASSERT_EQ(traces[0].sommets.size(), 4u);
    // On the observed angles: 50, then 50 + 299.99 − 200 = 149.99 gr.
    EXPECT_NEAR(traces[0].sommets[1].x, 1000.0 + 100.0 * std::sqrt(0.5), 1e-9);
    EXPECT_NEAR(traces[0].sommets[2].y,
                2000.0 + 100.0 * std::sqrt(0.5) + 100.1 * std::cos(149.99 * std::numbers::pi / 200.0), 1e-9);

    EXPECT_EQ(traces[1].couleur, 3);
    ASSERT_EQ(traces[1].sommets.size(), 4u) << "the departure and each station, the departure among them";
    EXPECT_EQ(traces[1].sommets[0], traces[1].sommets[1]) << "so the first vertex stands twice, kept";
    for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_EQ(traces[1].sommets[k + 1].x, x[k]);
        EXPECT_EQ(traces[1].sommets[k + 1].y, y[k]);
    }
}

TEST(PolygonaleFermee, RecordsComeFromTheTypedTexts)
{
    const auto o = observationsDe({{L"une station au nom trop long", L" 12.5 gr", L"abc", L"-1e-1"}});
    ASSERT_EQ(o.size(), 1u);
    EXPECT_EQ(o[0].nom, L"une station au nom") << "18 characters";
    EXPECT_EQ(o[0].angle, 12.5);
    EXPECT_EQ(o[0].distance, 0.0);
    EXPECT_EQ(o[0].dz, -0.1);
}

// --- What the user is told -------------------------------------------------------------------------------------------

TEST(PolygonaleFermee, Warnings)
{
    const auto avec = [](std::function<void(observations&)> changer) {
        observations lignes = triangle;
        changer(lignes);
        return lignes;
    };
    struct ligne {
        const char* nom;
        observations lignes;
        int mode;
        const wchar_t* debut; // of one sentence; none when empty
    };
    const ligne lignes[] = {
        {"a sound traverse", triangle, 1, L""},
        {"one row", {triangle[0]}, 0, L"Erreur , données insuffisantes "},
        {"a leg without length", avec([](observations& o) { o[1].distance = 0; }), 0,
         L"Distance nulle ou négative : 1 ligne(s), dont la ligne 2 (« C »)."},
        {"no length at all", {{L"B", 300, 0, 0}, {L"A", 300, 0, 0}}, 0, L"La longueur totale des côtés est nulle"},
        {"results not finite", {{L"B", 300, 0, 0}, {L"A", 300, 0, 0}}, 0, L"Le calcul ne donne pas de coordonnées"},
        {"an unknown height", avec([](observations& o) { o[0].dz = inconnu; }), 1, L"Une donnée est inconnue (1E38)"},
        {"the loop ends elsewhere", avec([](observations& o) { o[2].nom = L"Z"; }), 0,
         L"La dernière ligne vise « Z » et non la station de départ « A »"},
        {"letter case of the departure does not count", avec([](observations& o) { o[2].nom = L"a"; }), 0, L""},
        {"interior angles",
         {{L"B", 50.02, 100, 0}, {L"C", 100.01, 100.1, 0}, {L"A", 49.94, 141.4, 0}},
         0,
         L"L'erreur angulaire vaut 2 tours entiers (800 gr) : les angles saisis semblent être les angles intérieurs. "
         L"Boucle parcourue dans le sens des aiguilles d'une montre : il faut les angles extérieurs, saisissez 400 "
         L"moins chaque angle, soit 349.98 au lieu de 50.02 à la première ligne. Boucle parcourue dans l'autre sens : "
         L"gardez-les et saisissez seulement 850.02 au lieu de 50.02 à la première ligne."},
        {"angles of deflection",
         {{L"B", 149.98, 100, 0}, {L"C", 99.99, 100.1, 0}, {L"A", 150.06, 141.4, 0}},
         0,
         L"L'erreur angulaire vaut un tour et demi (600 gr) : les angles saisis semblent être des angles de déviation. "
         L"Boucle parcourue dans le sens des aiguilles d'une montre : ajoutez 200 à chacun, soit 349.98 au lieu de "
         L"149.98 à la première ligne. Boucle parcourue dans l'autre sens : saisissez 200 moins chaque angle, mais "
         L"850.02 au lieu de 149.98 à la première ligne."},
        {"a rectangle, whose deflections are its interior angles",
         {{L"B", 100, 100, 0}, {L"C", 100, 50, 0}, {L"D", 100, 100, 0}, {L"A", 100, 50, 0}},
         0,
         L"L'erreur angulaire vaut 2 tours entiers (800 gr) : plusieurs explications se valent. Soit les angles saisis "
         L"semblent être les angles intérieurs. Boucle parcourue dans le sens des aiguilles d'une montre : il faut les "
         L"angles extérieurs, saisissez 400 moins chaque angle, soit 300 au lieu de 100 à la première ligne. Boucle "
         L"parcourue dans l'autre sens : gardez-les et saisissez seulement 900 au lieu de 100 à la première ligne. "
         L"Soit "
         L"les angles saisis semblent être des angles de déviation."},
        {"an angle one turn too large", avec([](observations& o) { o[0].angle += 400; }), 0,
         L"L'erreur angulaire vaut un tour entier (-400 gr) : à la ligne 1, saisissez 349.98 au lieu de 749.98."},
        // From A to (100, 100), (100, 0), (0, 100) and back: right, right, left, left.
        {"a loop that crosses itself",
         {{L"B", 49.98, 141.42, 0}, {L"C", 350.01, 100, 0}, {L"D", 350, 141.42, 0}, {L"A", 50.01, 100, 0}},
         0,
         L"L'erreur angulaire vaut un tour entier (400 gr) : la boucle se croise sans doute ; saisissez 449.98 au lieu "
         L"de 49.98 à la première ligne, dont l'angle ne sert qu'à cette fermeture."},
        {"a reading on the other face", avec([](observations& o) { o[1].angle -= 200; }), 0,
         L"L'erreur angulaire vaut un demi-tour (200 gr) : l'angle mesuré à la station « B » semble lu à un demi-tour "
         L"près (cercle droite pour cercle gauche) ; saisissez 299.99 au lieu de 99.99 à la ligne 2."},
        {"a large error, far from a turn", avec([](observations& o) { o[0].angle -= 50; }), 0,
         L"La fermeture est hors de toute pratique (erreur angulaire de 49.97000 gr, fermeture relative 1/"},
    };
    for (const ligne& l : lignes) {
        const auto phrases =
            avertissementsPolygonale(compenserPolygonaleFermee(departA, l.mode, uniteGrades, l.lignes));
        const std::wstring debut = l.debut;
        if (debut.empty())
            EXPECT_TRUE(phrases.empty()) << l.nom;
        else
            EXPECT_TRUE(std::any_of(phrases.begin(), phrases.end(), [&](const std::wstring& p) {
                return p.compare(0, debut.size(), debut) == 0;
            })) << l.nom;
    }

    const auto cellules = avertissementsObservations({{L"A", L"12.5", L"217,63", L"0"}, {L"B", L" 1 ", L"2", L""}});
    ASSERT_EQ(cellules.size(), 2u);
    EXPECT_EQ(cellules[0], L"Ligne 1 : la distance « 217,63 » n'est pas un nombre ; seul ce qui précède la faute est "
                           L"lu, ou 0. Le séparateur décimal est le point.");
    EXPECT_EQ(cellules[1].substr(0, 26), L"Ligne 2 : l'altitude «  » ");
}

} // namespace

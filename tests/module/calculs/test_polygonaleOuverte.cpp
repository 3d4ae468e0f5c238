// Open traverses: invariances, levelling by hand, rules kept on purpose, what the user is told.

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include <gtest/gtest.h>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/calculPolygonaleOuverte.h"
#include "calculs/conseilAngulaire.h"
#include "calculs/fichierPolygonale.h"
#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"

#include "comparaisons.h"

namespace {

// --- A traverse with errors of every kind ----------------------------------------------------------------------------

/// From A to D by two stations. The known ends are right; the observations miss.
donneesPolygonaleOuverte exempleAD()
{
    donneesPolygonaleOuverte d;
    d.depart = {L"A", 1000.0, 2000.0, 50.0, 350.0};
    d.arrivee = {L"D", 1282.84, 1858.58, 50.80, 100.0};
    d.fermeture = 249.96;
    d.nivellement = nivellementRacine;
    d.lignes = {{L"B", L"300.02", L"100.02", L"1.51"},
                {L"C", L"299.99", L"199.97", L"-0.70"},
                {L"D", L"200.04", L"100.04", L"0.02"}};
    return d;
}

stationCorrigee identite(stationCorrigee s)
{
    return s;
}

TEST(PolygonaleOuverte, ClosuresByHand)
{
    const auto r = compenserPolygonale(exempleAD());
    // 350 + 300.02 + 200 = 850.02; + 299.99 + 200 = 1350.01; + 200.04 + 200 = 1750.05; + 249.96 + 200 = 2200.01.
    EXPECT_NEAR(r.angles[0].gisement, 850.02, 1e-9);
    EXPECT_NEAR(r.angles[2].gisement, 1750.05, 1e-9);
    EXPECT_NEAR(r.angles[3].gisement, 2200.01, 1e-9);
    EXPECT_NEAR(r.erreurAngulaire, 2200.01 - 4 * 400 - 100, 1e-9) << "more than a turn, not brought back";
    EXPECT_NEAR(r.cotes[1].gisement, 150.01 - 2 * 500.01 / 4, 1e-9) << "two shares, and not normalised again";
    EXPECT_NEAR(r.deltaZ, 0.80, 1e-12);
    EXPECT_NEAR(r.nivellement.fermeture, 1.51 - 0.70 + 0.02 - 0.80, 1e-12);
}

/// The same with the arrival bearing that the rule expects.
donneesPolygonaleOuverte exempleCompte()
{
    donneesPolygonaleOuverte d = exempleAD();
    d.arrivee.gisement = 600.0;
    return d;
}

TEST(PolygonaleOuverte, EndsOnTheArrival)
{
    const auto r = compenserPolygonale(exempleCompte());
    EXPECT_NEAR(r.erreurAngulaire, 0.01, 1e-9);
    EXPECT_NEAR(r.correctionAngulaire, 0.0025, 1e-9);
    EXPECT_NEAR(r.angles[3].corrige, 200.0, 1e-9) << "the arrival bearing, in one turn";
    ASSERT_EQ(r.stations.size(), 4u);
    EXPECT_NEAR(r.stations[3].x, 1282.84, 1e-9);
    EXPECT_NEAR(r.stations[3].y, 1858.58, 1e-9);
    EXPECT_NEAR(r.stations[3].z, 50.80, 1e-9);
    EXPECT_NEAR(r.fermetureX, r.deltaX - r.sommeX, 1e-12) << "known − computed";
    EXPECT_NEAR(r.sommeXCorrigee, r.deltaX, 1e-9);
    EXPECT_NEAR(r.fermetureRelative, 400.03 / std::hypot(r.fermetureX, r.fermetureY), 1e-6);
}

TEST(PolygonaleOuverte, Invariances)
{
    const donneesPolygonaleOuverte donnees = exempleCompte();
    const auto reference = compenserPolygonale(donnees);

    auto d = donnees;
    for (stationPolygonale* s : {&d.depart, &d.arrivee}) {
        s->x += 1000.0;
        s->y -= 250.0;
        s->z += 12.0;
    }
    comparerStations(compenserPolygonale(d), reference, [](stationCorrigee s) {
        return stationCorrigee{{}, s.x + 1000.0, s.y - 250.0, s.z + 12.0};
    });

    const auto tourner = [](auto s) { // 100 gr clockwise around A: (dx, dy) becomes (dy, −dx)
        const double dx = s.x - 1000.0, dy = s.y - 2000.0;
        s.x = 1000.0 + dy;
        s.y = 2000.0 - dx;
        return s;
    };
    d = donnees;
    d.arrivee = tourner(d.arrivee);
    d.depart.gisement += 100.0;
    d.arrivee.gisement += 100.0;
    comparerStations(compenserPolygonale(d), reference, tourner);

    const std::pair<int, double> unites[] = {{uniteDegres, 0.9}, {uniteRadians, std::numbers::pi / 200.0}};
    for (const auto& [unite, facteur] : unites) {
        auto observations = observationsDe(donnees.lignes);
        for (auto& o : observations)
            o.angle *= facteur;
        stationPolygonale depart = donnees.depart, arrivee = donnees.arrivee;
        depart.gisement *= facteur;
        arrivee.gisement *= facteur;
        const auto r = compenserPolygonaleOuverte(depart, arrivee, donnees.fermeture * facteur, nivellementRacine,
                                                  unite, observations);
        comparerStations(r, reference, identite);
        EXPECT_NEAR(r.erreurAngulaire, reference.erreurAngulaire * facteur, 1e-11);
    }

    // A turn more in the departure bearing and in the arrival bearing.
    d = donnees;
    d.depart.gisement += 400.0;
    d.arrivee.gisement += 400.0;
    comparerStations(compenserPolygonale(d), reference, identite);
}

TEST(PolygonaleOuverte, BackwardsGivesTheSameStations)
{
    // Every line is walked the other way: a bearing turns by half a turn, an angle becomes what is left of a turn.
    const donneesPolygonaleOuverte donnees = exempleCompte();
    const auto aller = compenserPolygonale(donnees);
    const auto observations = observationsDe(donnees.lignes);
    const std::size_t n = observations.size();
    std::vector<observationPolygonale> retour;
    for (std::size_t i = 0; i < n; ++i) {
        const observationPolygonale& cote = observations[n - 1 - i];
        const double angle = i == 0 ? donnees.fermeture : observations[n - i].angle;
        retour.push_back({i + 1 == n ? L"A" : observations[n - 2 - i].nom, 400.0 - angle, cote.distance, -cote.dz});
    }
    stationPolygonale depart = donnees.arrivee, arrivee = donnees.depart;
    depart.gisement = 0.0;     // 600 is 200, the other way
    arrivee.gisement = -250.0; // 350 is 150 the other way, a turn less by the turns walked
    const auto r =
        compenserPolygonaleOuverte(depart, arrivee, 400.0 - observations[0].angle, nivellementRacine, 0, retour);
    EXPECT_NEAR(r.erreurAngulaire, -0.01, 1e-9);
    ASSERT_EQ(r.stations.size(), n + 1);
    for (std::size_t k = 0; k <= n; ++k) {
        EXPECT_NEAR(r.stations[k].x, aller.stations[n - k].x, 1e-8) << k;
        EXPECT_NEAR(r.stations[k].y, aller.stations[n - k].y, 1e-8) << k;
        EXPECT_NEAR(r.stations[k].z, aller.stations[n - k].z, 1e-8) << k;
        EXPECT_EQ(r.stations[k].nom, aller.stations[n - k].nom) << k;
    }
}

TEST(PolygonaleOuverte, ExactObservationsCorrectNothing)
{
    // North 400, east 300: 0 + 200 + 200 = 400, + 300 + 200 = 900, + 300 + 200 = 1400 = 3 turns + 200.
    const auto juste =
        compenserPolygonaleOuverte({L"A", 0, 0, 10, 0}, {L"C", 300, 400, 13, 200}, 300, nivellementDistance,
                                   uniteGrades, {{L"B", 200, 400, 1}, {L"C", 300, 300, 2}});
    EXPECT_EQ(juste.erreurAngulaire, 0.0);
    EXPECT_NEAR(juste.fermeturePlanimetrique, 0.0, 1e-10);
    EXPECT_EQ(juste.nivellement.fermeture, 0.0);
    for (const cotePolygonale& c : juste.cotes) {
        EXPECT_NEAR(c.dx, c.dxCorrige, 1e-10);
        EXPECT_NEAR(c.dy, c.dyCorrige, 1e-10);
    }
    EXPECT_TRUE(avertissementsPolygonale(juste).empty());
}

TEST(PolygonaleOuverte, LevellingByHand)
{
    // A straight line of 100 and 400 without any other error. Σdz = 3.06 for 3 known.
    const stationPolygonale depart{L"A", 0, 0, 10, 0}, arrivee{L"C", 0, 500, 13, 0};
    const std::vector<observationPolygonale> lignes = {{L"B", 200, 100, 1.00}, {L"C", 200, 400, 2.06}};
    struct ligne {
        const char* nom;
        int mode;
        double zB, zC;
    };
    const ligne modes[] = {
        {"aucun", 0, 11.0, 13.06},
        {"simple: 0.06 / 2", 1, 10.97, 13.0},
        {"distance: 0.06 / 500 a metre", 2, 10.988, 13.0},
        {"racine: 0.06 / (10 + 20)", 3, 10.98, 13.0},
        {"unlisted mode corrects nothing", -1, 11.0, 13.06},
    };
    for (const ligne& m : modes) {
        const auto r = compenserPolygonaleOuverte(depart, arrivee, 200, m.mode, uniteGrades, lignes);
        EXPECT_NEAR(r.nivellement.fermeture, 0.06, 1e-12) << m.nom;
        EXPECT_NEAR(r.stations[1].z, m.zB, 1e-9) << m.nom;
        EXPECT_NEAR(r.stations[2].z, m.zC, 1e-9) << m.nom;
    }
}

// --- Rules kept on purpose -------------------------------------------------------------------------------------------

TEST(PolygonaleOuverte, AnglesOfRowsAreNormalisedAndCarriedBearingsRaisedOnce)
{
    const stationPolygonale depart{L"A", 0, 0, 0, -2000}, arrivee{L"C", 1, 1, 0, 0};
    const auto r =
        compenserPolygonaleOuverte(depart, arrivee, -50, 0, uniteGrades, {{L"B", -150, 10, 0}, {L"C", 450, 10, 0}});
    EXPECT_NEAR(r.angles[0].angle, 250, 1e-9);
    EXPECT_NEAR(r.angles[1].angle, 50, 1e-9);
    EXPECT_EQ(r.angles[2].angle, -50) << "the last angle is taken as it is";
    EXPECT_NEAR(r.angles[0].gisement, -2000 + 250 + 200 + 400, 1e-9) << "one turn, still negative";
    EXPECT_NEAR(r.angles[1].gisement, -1150 + 50 + 200 + 400, 1e-9);
    EXPECT_NEAR(r.angles[1].gisementReduit, 300, 1e-9); // −500
    EXPECT_NEAR(r.angles[2].gisement, -500 - 50 + 200 + 400, 1e-9);
}

TEST(PolygonaleOuverte, LastAngleMovesEveryBearingByAGrowingShare)
{
    auto d = exempleCompte();
    const auto avant = compenserPolygonale(d);
    d.fermeture += 0.04; // 0.01 an angle
    const auto apres = compenserPolygonale(d);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(apres.cotes[i].gisement, avant.cotes[i].gisement - 0.01 * static_cast<double>(i + 1), 1e-9) << i;
}

TEST(PolygonaleOuverte, StationsAndLines)
{
    auto d = exempleCompte();
    std::vector<double> x, y, z;
    std::vector<tracePolygonale> traces;
    calculPolygonaleOuverte(L"A", 1000, 2000, 50, 350, L"D", 1282.84, 1858.58, 50.80, 600, 249.96, nivellementSimple,
                            uniteGrades, observationsDe(d.lignes), x, y, z, nullptr, true, true,
                            [&traces](const tracePolygonale& t) { traces.push_back(t); });
    ASSERT_EQ(x.size(), 4u);
    EXPECT_NEAR(x[3], 1282.84, 1e-9);
    EXPECT_NEAR(z[1], 50 + 1.51 - 0.01, 1e-9); // Fz = 0.03
    ASSERT_EQ(traces.size(), 2u);
    EXPECT_EQ(traces[0].couleur, 1);
    ASSERT_EQ(traces[0].sommets.size(), 4u);
    const double k = std::numbers::pi / 200.0;
    EXPECT_NEAR(traces[0].sommets[1].x, 1000.0 + 100.02 * std::sin(50.02 * k), 1e-9) << "on the carried bearing";
    EXPECT_NEAR(traces[0].sommets[2].y, 2000.0 + 100.02 * std::cos(50.02 * k) + 199.97 * std::cos(150.01 * k), 1e-9);
    EXPECT_EQ(traces[1].couleur, 3);
    ASSERT_EQ(traces[1].sommets.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(traces[1].sommets[i], (tracePolygonale::sommet{x[i], y[i]})) << i;

    d.arrivee.nom.clear();
    EXPECT_EQ(compenserPolygonale(d).stations.back().nom, L"D") << "without a name, that of the last row";
    d.arrivee.nom = L"Borne 12";
    EXPECT_EQ(compenserPolygonale(d).stations.back().nom, L"Borne 12");
}

TEST(PolygonaleOuverte, UnknownYieldsUnknown)
{
    auto d = exempleCompte();
    d.arrivee.z = inconnu;
    auto r = compenserPolygonale(d);
    EXPECT_EQ(r.stations[1].z, inconnu) << "the levelling closure is unknown";
    EXPECT_NE(r.stations[1].x, inconnu);
    d.nivellement = nivellementAucun;
    EXPECT_NEAR(compenserPolygonale(d).stations[1].z, 51.51, 1e-9);

    d = exempleCompte();
    d.arrivee.gisement = inconnu;
    r = compenserPolygonale(d);
    EXPECT_EQ(r.erreurAngulaire, inconnu);
    EXPECT_EQ(r.stations[1].x, inconnu);
}

TEST(PolygonaleOuverte, DegenerateRowsNeverCrash)
{
    EXPECT_TRUE(compenserPolygonaleOuverte({}, {}, 0, 1, 0, {}).stations.empty());
    EXPECT_EQ(compenserPolygonaleOuverte({}, {}, 0, 2, 0, {{L"A", 10, 5, 1}}).stations.size(), 2u);
    const auto r = compenserPolygonaleOuverte({}, {L"B", 1, 1, 1, 0}, 0, 2, 0, {{L"A", 10, 0, 1}, {L"B", 10, 0, 1}});
    EXPECT_FALSE(std::isfinite(r.stations[1].x));
    EXPECT_FALSE(avertissementsPolygonale(r).empty());
}

// --- What the user is told -------------------------------------------------------------------------------------------

TEST(PolygonaleOuverte, AdviceOnTurns)
{
    const auto avec = [](std::function<void(donneesPolygonaleOuverte&)> changer) {
        donneesPolygonaleOuverte d = exempleCompte();
        changer(d);
        return d;
    };
    const auto inverser = [](donneesPolygonaleOuverte& d) {
        for (ligneObservation& l : d.lignes)
            l.angle = std::to_wstring(400.0 - std::stod(l.angle));
        d.fermeture = 400.0 - d.fermeture;
    };
    struct ligne {
        const char* nom;
        donneesPolygonaleOuverte donnees;
        std::wstring conseil;
    };
    const ligne lignes[] = {
        {"a sound traverse", exempleCompte(), L""},
        {"the turns walked are not counted", avec([](auto& d) { d.arrivee.gisement = 200; }),
         L"L'erreur angulaire vaut un tour entier (400 gr) : le gisement porté compte les tours faits en chemin, celui "
         L"d'arrivée doit les compter aussi ; saisissez 600 au lieu de 200 comme gisement d'arrivée."},
        {"a turn too many", avec([](auto& d) { d.arrivee.gisement = 1000; }),
         L"L'erreur angulaire vaut un tour entier (-400 gr) : le gisement porté compte les tours faits en chemin, "
         L"celui "
         L"d'arrivée doit les compter aussi ; saisissez 600 au lieu de 1000 comme gisement d'arrivée."},
        {"the arrival bearing the other way", avec([](auto& d) { d.arrivee.gisement = 400; }),
         L"L'erreur angulaire vaut un demi-tour (200 gr) : plusieurs explications se valent. Soit le gisement "
         L"d'arrivée "
         L"semble donné dans l'autre sens, il le faut de la station d'arrivée vers sa référence ; saisissez 600 au "
         L"lieu "
         L"de 400 comme gisement d'arrivée. Soit l'angle mesuré à la station « D » semble lu à un demi-tour près "
         L"(cercle droite pour cercle gauche) ; saisissez 49.96 au lieu de 249.96 comme dernier angle."},
        {"the departure bearing the other way", avec([](auto& d) { d.depart.gisement = 150; }),
         L"L'erreur angulaire vaut un demi-tour (-200 gr) : plusieurs explications se valent. Soit le gisement de "
         L"départ semble donné dans l'autre sens, il le faut de la référence vers la station de départ ; saisissez 350 "
         L"au lieu de 150 comme gisement de départ. Soit l'angle mesuré à la station « A » semble lu à un demi-tour "
         L"près (cercle droite pour cercle gauche) ; saisissez 100.02 au lieu de 300.02 à la ligne 1 et 200 au lieu de "
         L"600 comme gisement d'arrivée."},
        {"an angle between read on the other face", avec([](auto& d) { d.lignes[2].angle = L"0.04"; }),
         L"L'erreur angulaire vaut un demi-tour (-200 gr) : l'angle mesuré à la station « C » semble lu à un demi-tour "
         L"près (cercle droite pour cercle gauche) ; saisissez 200.04 au lieu de 0.04 à la ligne 3."},
        {"both bearings the other way", avec([](auto& d) {
             d.depart.gisement = 150;
             d.arrivee.gisement = 400;
         }),
         L"La polygonale ne se ferme pas : le gisement de départ semble donné dans l'autre sens, il le faut de la "
         L"référence vers la station de départ ; le gisement d'arrivée semble donné dans l'autre sens, il le faut de "
         L"la "
         L"station d'arrivée vers sa référence ; saisissez 350 au lieu de 150 comme gisement de départ et 600 au lieu "
         L"de 400 comme gisement d'arrivée."},
        {"angles measured the other way round", avec(inverser),
         L"La polygonale ne se ferme pas : les angles semblent mesurés dans l'autre sens, saisissez 400 moins chaque "
         L"angle, le dernier compris."},
        {"angles of deflection", avec([&](auto& d) {
             for (ligneObservation& l : d.lignes)
                 l.angle = std::to_wstring(normaliser(std::stod(l.angle) - 200.0, 400.0));
             d.fermeture -= 200.0;
         }),
         L"L'erreur angulaire vaut 2 tours entiers (-800 gr) : les angles saisis semblent être des angles de "
         L"déviation, "
         L"ajoutez 200 à chacun, le dernier compris."},
        {"angles of deflection along short legs",
         {{L"A", 1000, 1000, 0, 342.5992},
          {L"D", 941.607, 1154.478, 0, 304.7075},
          64.9438,
          uniteGrades,
          nivellementAucun,
          {{L"S0", L"48.3656", L"139.403", L"0"},
           {L"S1", L"48.1823", L"37.25", L"0"},
           {L"S2", L"287.4059", L"41.531", L"0"},
           {L"D", L"313.2159", L"37.937", L"0"}}},
         L"L'erreur angulaire vaut un demi-tour (-200 gr) : les angles saisis semblent être des angles de déviation, "
         L"ajoutez 200 à chacun, le dernier compris."},
        {"an error that nothing explains", avec([](auto& d) { d.fermeture += 50; }), L""},
        {"a turn, but the coordinates are wrong as well", avec([](auto& d) {
             d.arrivee.gisement = 200;
             d.arrivee.x += 500;
         }),
         L"L'erreur angulaire vaut un tour entier (400 gr) : le gisement porté compte les tours faits en chemin, celui "
         L"d'arrivée doit les compter aussi ; saisissez 600 au lieu de 200 comme gisement d'arrivée. Vérifiez aussi "
         L"les coordonnées et les distances : la polygonale ne se ferme pas pour autant."},
        {"half a turn, but the coordinates are wrong as well", avec([](auto& d) {
             d.arrivee.gisement = 400;
             d.arrivee.x += 500;
         }),
         L"L'erreur angulaire vaut un demi-tour (200 gr) : un angle est sans doute lu, ou un gisement donné, à un "
         L"demi-tour près, mais aucun de ces changements ne ferme à lui seul la polygonale. Vérifiez aussi les "
         L"coordonnées et les distances."},
        {"an unknown bearing", avec([](auto& d) { d.arrivee.gisement = inconnu; }), L""},
    };
    for (const ligne& l : lignes)
        EXPECT_EQ(conseilAngulaire(compenserPolygonale(l.donnees)), l.conseil) << l.nom;
}

TEST(PolygonaleOuverte, AdviceOnThePublishedCaseEnteredAsPrinted)
{
    donneesPolygonaleOuverte d;
    chargerPolygonale(VELA_SOURCE_DIR "/examples/polygonale-ouverte-degres.obs", d);
    d.arrivee.gisement = 0.0;
    const std::wstring conseil = conseilAngulaire(compenserPolygonale(d));
    EXPECT_NE(conseil.find(L"un tour entier (360°)"), std::wstring::npos);
    EXPECT_NE(conseil.find(L"saisissez 360 au lieu de 0 comme gisement d'arrivée"), std::wstring::npos);
}

TEST(PolygonaleOuverte, Warnings)
{
    auto d = exempleCompte();
    d.lignes.resize(1);
    EXPECT_EQ(avertissementsPolygonale(compenserPolygonale(d)),
              std::vector<std::wstring>{L"Erreur , données insuffisantes "});
    d = exempleCompte();
    d.arrivee.nom = L"Z";
    const auto phrases = avertissementsPolygonale(compenserPolygonale(d));
    ASSERT_EQ(phrases.size(), 1u);
    EXPECT_EQ(phrases[0],
              L"La dernière ligne vise « D » et non la station d'arrivée « Z » : la polygonale doit y finir.");
}

} // namespace

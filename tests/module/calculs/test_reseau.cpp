// Adjustment of networks: published results, invariances, singular networks, faults. Stays whole: they are one subject,
// and share the small networks and what looks into a result.

#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "calculs/calculPolygonaleOuverte.h"
#include "calculs/reseau/approcheReseau.h"
#include "calculs/reseau/comparaisonPolygonale.h"
#include "calculs/reseau/loisStatistiques.h"
#include "calculs/reseau/matriceNormale.h"
#include "calculs/reseau/symetriquePetite.h"

#include "reseauxEssai.h"

namespace {

using enum genreObservation;

const pointCompense& pointNomme(const reseau& r, const resultatReseau& resultat, const wchar_t* nom)
{
    return resultat.points.at(static_cast<std::size_t>(r.chercher(nom)));
}

/// Turned, shifted, its observations the other way round and its approximate places forgotten.
TEST(Reseau, DoesNotDependOnTheAxes)
{
    const reseau droit = grilleEssai(5, 3);
    const double tour = 1.1;
    const auto tourner = [&](double x, double y, double& e, double& n) {
        e = 700000.0 + x * std::cos(tour) + y * std::sin(tour);
        n = 6600000.0 - x * std::sin(tour) + y * std::cos(tour);
    };
    reseau tourne = droit;
    std::ranges::reverse(tourne.observations);
    for (pointReseau& p : tourne.points)
        if (p.enPlan())
            tourner(p.x, p.y, p.x, p.y);
    const resultatReseau a = compenser(droit), b = compenser(tourne);
    EXPECT_NEAR(a.s0, b.s0, 1e-6);
    for (std::size_t i = 0; i < a.points.size(); ++i) {
        double e = 0.0, n = 0.0;
        tourner(a.points[i].x, a.points[i].y, e, n);
        EXPECT_NEAR(b.points[i].x, e, 1e-6);
        EXPECT_NEAR(b.points[i].y, n, 1e-6);
        EXPECT_NEAR(a.points[i].ellipse.a, b.points[i].ellipse.a, 1e-8);
        EXPECT_NEAR(a.points[i].ellipse.b, b.points[i].ellipse.b, 1e-8);
    }
    // What the redundancies share is the degrees of freedom.
    double redondances = 0.0;
    for (const observationCompensee& m : a.mesures)
        redondances += m.redondance;
    EXPECT_NEAR(redondances, a.degresDeLiberte, 1e-6);
}

TEST(Reseau, FreeNetworkKeepsItsShapeAndItsMiddle)
{
    reseau r = grilleEssai(4, 5);
    for (pointReseau& p : r.points)
        if (!p.enPlan())
            p.plan = tenue::libre;
    const resultatReseau tenu = compenser(r);
    for (std::size_t i = 0; i < r.points.size(); ++i) { // near where they are
        r.points[i].x = tenu.points[i].x + 0.01 * static_cast<double>(i % 3);
        r.points[i].y = tenu.points[i].y - 0.01 * static_cast<double>(i % 2);
    }
    optionsCompensation options;
    options.libre = true;
    const resultatReseau libre = compenser(r, options);
    EXPECT_TRUE(libre.libre);
    EXPECT_EQ(libre.defaut, 3);
    double dx = 0.0, dy = 0.0, tour = 0.0;
    for (std::size_t i = 0; i < r.points.size(); ++i) {
        dx += libre.points[i].x - r.points[i].x;
        dy += libre.points[i].y - r.points[i].y;
        tour +=
            (libre.points[i].x - r.points[i].x) * r.points[i].y - (libre.points[i].y - r.points[i].y) * r.points[i].x;
    }
    EXPECT_NEAR(dx, 0.0, 1e-7);
    EXPECT_NEAR(dy, 0.0, 1e-7);
    EXPECT_NEAR(tour, 0.0, 1e-3); // times coordinates of hundreds of metres
    // Held by three conditions only, s0 is that of the measures among themselves; precisions are the least there are.
    double trace = 0.0, traceTenue = 0.0;
    for (std::size_t i = 0; i < r.points.size(); ++i) {
        trace += std::pow(libre.points[i].sx, 2.0);
        if (tenu.points[i].planCherche)
            traceTenue += std::pow(tenu.points[i].sx, 2.0);
    }
    EXPECT_LT(trace / 16.0, traceTenue / 12.0 * 2.0);
}

/// A length measured twice: each measure is half checked, and pulls its point by half of its fault.
TEST(Reseau, DetectableFaultsByHand)
{
    const reseau r = lireMc("Point: A X= 0 Y= 0 fixe\nStation: A\nGisement: B 100 e= 1\n"
                            "Distance: B 100.000 e= 10\nDistance: B 100.004 e= 10\n")
                         .r;
    const resultatReseau resultat = compenser(r);
    EXPECT_EQ(resultat.mesures[0].redondance, 0.0);
    EXPECT_FALSE(estConnue(resultat.mesures[0].erreurDetectable));
    for (const std::size_t k : {1U, 2U}) {
        EXPECT_NEAR(resultat.mesures[k].redondance, 0.5, 1e-9);
        // 3.291 for the risk of 0.1 % on both sides, 0.842 for the power of 80 %.
        EXPECT_NEAR(resultat.mesures[k].erreurDetectable, (3.291 + 0.842) * 0.010 * std::sqrt(2.0), 2e-5);
        EXPECT_NEAR(resultat.mesures[k].effet, 0.5 * resultat.mesures[k].erreurDetectable, 1e-9);
    }
}

/// The effect of a detectable fault is how far it moves the points, whatever unknowns were held on the way.
TEST(Reseau, EffectsInAFreeNetworkAreWhatAFaultDoes)
{
    reseau r = grilleEssai(3, 6);
    const resultatReseau tenu = compenser(r);
    for (std::size_t i = 0; i < r.points.size(); ++i) { // else their places, and the datum, follow the measures
        r.points[i].x = tenu.points[i].x;
        r.points[i].y = tenu.points[i].y;
        r.points[i].plan = tenue::libre;
    }
    optionsCompensation options;
    options.libre = true;
    options.chercherSuspects = false;
    const resultatReseau sain = compenser(r, options);
    ASSERT_TRUE(sain.libre);
    int essais = 0;
    for (std::size_t k = 0; k < r.observations.size(); k += 5) {
        const observationCompensee& m = sain.mesures[k];
        if (m.redondance < 0.05)
            continue;
        reseau fausse = r;
        fausse.observations[k].mesure += m.erreurDetectable;
        const resultatReseau avec = compenser(fausse, options);
        double plusLoin = 0.0;
        for (const int p : {r.observations[k].de, r.observations[k].vers}) {
            const auto i = static_cast<std::size_t>(p);
            plusLoin = std::max(plusLoin,
                                std::hypot(avec.points[i].x - sain.points[i].x, avec.points[i].y - sain.points[i].y));
        }
        EXPECT_NEAR(m.effet, plusLoin, 0.01 * plusLoin) << k;
        ++essais;
    }
    EXPECT_GT(essais, 5);
}

/// However many points hang by one distance, none of them is given a place.
TEST(Reseau, ManyFloatingPointsAreAllUndetermined)
{
    std::string texte = "Station: A\nDistance: B 100\nDistance: C 141.42\nStation: B\nDistance: C 100\nStation: A\n";
    constexpr int flottants = 230;
    for (int i = 0; i < flottants; ++i)
        texte += "Distance: P" + std::to_string(i) + " 50\n";
    reseau r = lireMc(texte).r;
    const auto placer = [&](const std::wstring& nom, double x, double y, tenue t) {
        pointReseau& p = r.points.at(static_cast<std::size_t>(r.chercher(nom)));
        p.x = x;
        p.y = y;
        p.plan = t;
    };
    placer(L"A", 0.0, 0.0, tenue::appui);
    placer(L"B", 100.0, 0.0, tenue::appui);
    placer(L"C", 100.0, 100.0, tenue::appui);
    for (int i = 0; i < flottants; ++i)
        placer(L"P" + std::to_wstring(i), 50.0 * std::cos(0.01 * i), 50.0 * std::sin(0.01 * i), tenue::libre);
    const resultatReseau resultat = compenser(r);
    EXPECT_EQ(resultat.defaut, flottants + 3);
    EXPECT_TRUE(estConnue(pointNomme(r, resultat, L"B").x));
    for (int i = 0; i < flottants; ++i)
        EXPECT_FALSE(estConnue(pointNomme(r, resultat, (L"P" + std::to_wstring(i)).c_str()).x)) << i;
}

/// Places at the start, from slope distances listed from the far end to the known one.
TEST(Reseau, SlopeDistancesGiveHeightsInAnyOrder)
{
    const reseau r = lireMc("Point: A X= 0 Y= 0 Z= 12 fixe\nPoint: B X= 100 Y= 0\nPoint: C X= 200 Y= 0\n"
                            "Station: B\nInclinee: C 100\nStation: A\nInclinee: B 100\n")
                         .r;
    const approcheReseau a = approcher(r);
    for (const wchar_t* nom : {L"A", L"B", L"C"}) {
        const auto p = static_cast<std::size_t>(r.chercher(nom));
        EXPECT_TRUE(a.enAltitude[p]);
        EXPECT_NEAR(a.c.z[p], 12.0, 1e-9);
    }
}

TEST(Reseau, SelectedInverseIsTheInverse)
{
    std::mt19937 alea(7);
    std::uniform_real_distribution<double> valeur(-1.0, 1.0);
    constexpr std::size_t n = 40;
    std::vector<std::vector<int>> voisins(n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = i + 1; j < n; ++j)
            if (j == i + 1 || valeur(alea) > 0.8)
                voisins[i].push_back(static_cast<int>(j));
    matriceNormale creuse(voisins);
    std::vector<double> pleine(n * n, 0.0), second(n);
    for (std::size_t i = 0; i < n; ++i) {
        second[i] = valeur(alea);
        creuse.ajouter(static_cast<int>(i), static_cast<int>(i), pleine[i * n + i] = 20.0);
        for (const int j : voisins[i]) {
            const double v = valeur(alea);
            creuse.ajouter(j, static_cast<int>(i), v);
            pleine[i * n + static_cast<std::size_t>(j)] = pleine[static_cast<std::size_t>(j) * n + i] = v;
        }
    }
    creuse.factoriser();
    creuse.inverser();
    EXPECT_TRUE(creuse.tenues().empty());
    ASSERT_TRUE(inverserSymetrique(pleine, n));
    std::vector<double> solution = second;
    creuse.resoudre(solution);
    for (std::size_t i = 0; i < n; ++i) {
        double x = 0.0;
        for (std::size_t j = 0; j < n; ++j)
            x += pleine[i * n + j] * second[j];
        EXPECT_NEAR(solution[i], x, 1e-13);
        EXPECT_NEAR(creuse.inverse(static_cast<int>(i), static_cast<int>(i)), pleine[i * n + i], 1e-14);
        for (const int j : voisins[i])
            EXPECT_NEAR(creuse.inverse(static_cast<int>(i), j), pleine[i * n + static_cast<std::size_t>(j)], 1e-14);
    }
}

TEST(Reseau, DerivativesAreDifferences)
{
    coordonneesReseau c{{10.0, 130.0, -40.0}, {20.0, 90.0, 75.0}, {5.0, 30.0, -12.0}, {0.3}};
    for (const genreObservation genre : {direction, angle, gisement, distance, distanceInclinee, zenithal, denivelee,
                                         coordonneeX, coordonneeY, coordonneeZ}) {
        observationReseau o;
        o.genre = genre;
        o.de = 0;
        o.vers = 1;
        o.vers2 = 2;
        o.serie = 0;
        o.hauteurDe = 1.5;
        o.hauteurVers = 2.0;
        const equationObservation e = equationDe(o, c);
        std::vector<double> parRang(10, 0.0);
        for (int i = 0; i < e.nombre; ++i)
            parRang[static_cast<std::size_t>(e.rang[i])] = e.derivee[i];
        for (std::size_t rang = 0; rang < 10; ++rang) {
            const auto decaler = [&](double pas) {
                coordonneesReseau ici = c;
                (rang == 9       ? ici.orientations[0]
                 : rang % 3 == 0 ? ici.x[rang / 3]
                 : rang % 3 == 1 ? ici.y[rang / 3]
                                 : ici.z[rang / 3]) += pas;
                return equationDe(o, ici).calcul;
            };
            EXPECT_NEAR((decaler(1e-4) - decaler(-1e-4)) / 2e-4, parRang[rang], 1e-8)
                << static_cast<int>(genre) << " by " << rang;
        }
    }
}

TEST(Reseau, SightsWithoutADirectionTellNothing) // their derivatives would divide by nothing
{
    const coordonneesReseau c{{10.0, 10.0}, {20.0, 20.0}, {5.0, 30.0}, {0.3}};
    for (const genreObservation genre : {direction, gisement, distance, zenithal}) {
        observationReseau o;
        o.genre = genre;
        o.de = o.serie = 0;
        o.vers = 1;
        EXPECT_FALSE(equationDe(o, c).possible) << static_cast<int>(genre);
    }
}

bool contient(const std::vector<std::wstring>& phrases, std::wstring_view partie)
{
    return std::ranges::any_of(phrases, [&](const std::wstring& p) { return p.find(partie) != p.npos; });
}

TEST(Reseau, WhatFloatsIsNamed)
{
    struct cas {
        const char* nom;
        const char* texte;
        const wchar_t* phrase;
        bool calcule; ///< the rest is computed
    };
    constexpr char base[] = "Point: A X= 0 Y= 0 fixe\nPoint: B X= 100 Y= 0 fixe\nStation: A\nDirection: B 0\n"
                            "Direction: P 350\nDistance: P 70\nStation: B\nDirection: A 0\nDirection: P 50\n";
    const cas casSinguliers[] = {
        {"one distance alone", "Station: P\nDistance: R 10\n", L"R » flotte : il n'est tenu que par distance P - R",
         true},
        {"one sight alone", "Station: A\nDirection: B 0\nDirection: Q 20\n", L"Q » ne peut pas être placé", true},
        {"a pair apart", "Station: U\nDenivelee: V 1\n", L"U et V flottent", false},
        {"a resection of two points", "Station: S\nDirection: A 0\nDirection: B 50\n", L"S » ne peut pas être placé",
         true},
    };
    for (const cas& c : casSinguliers) {
        SCOPED_TRACE(c.nom);
        const reseau r = lireMc(std::string(base) + c.texte).r;
        try {
            const resultatReseau resultat = compenser(r);
            EXPECT_TRUE(c.calcule);
            EXPECT_TRUE(contient(resultat.messages, c.phrase));
            EXPECT_TRUE(estConnue(pointNomme(r, resultat, L"P").x));
        } catch (const erreurReseau& faute) {
            EXPECT_FALSE(c.calcule);
            EXPECT_NE(faute.phrase().find(c.phrase), std::wstring::npos);
        }
    }
    // As a whole.
    const struct {
        const char* texte;
        const wchar_t* phrase;
    } entiers[] = {
        {"Station: A\nDistance: B 100\nDistance: C 141.42\nStation: B\nDistance: C 100\n",
         L"Les points A, B et C flottent : ils peuvent glisser et tourner d'un bloc : il manque un point connu, et un"},
        {"Point: A X= 0 Y= 0\nPoint: B X= 100 Y= 0\nPoint: C X= 50 Y= 80\nStation: A\nDirection: B 100\nDirection: C "
         "35\n"
         "Station: B\nDirection: A 300\nDirection: C 365\n",
         L"\nLes points A, B et C flottent : ils peuvent glisser, tourner et grandir d'un bloc : il manque deux points "
         L"connus.\nTenez"},
        {"Point: A X= 0 Y= 0 fixe\nStation: A\nDistance: B 100\nDistance: C 141.42\nStation: B\nDistance: C 100\n",
         L"\nLes points B et C flottent : ils peuvent tourner d'un bloc : il manque un gisement"},
        {"Station: A\nDenivelee: B 1\nStation: B\nDenivelee: A -1\n", L"monter ensemble"},
        {"Point: A X= 0 Y= 0 fixe\n", L"aucune observation"},
        {"Point: A X= 0 Y= 0 fixe\nFormule: distances \"1/0\"\nStation: A\nDistance: B 10\nGisement: B 50\n",
         L"1 observation(s) hors calcul : sans poids"},
    };
    for (const auto& c : entiers) {
        try {
            compenser(lireMc(c.texte).r);
            ADD_FAILURE() << c.texte;
        } catch (const erreurReseau& faute) {
            EXPECT_NE(faute.phrase().find(c.phrase), std::wstring::npos) << c.texte;
        }
    }
}

TEST(Reseau, DeviationsMayBeTheAnnouncedOnes)
{
    constexpr char mesures[] = "Precision: denivelee 2\nPoint: A Z= 0 fixe\nStation: A\nDenivelee: B 1.000\n"
                               "Denivelee: B 1.006\n";
    const reseau r = lireMc(std::string("Sigma: 1\n") + mesures).r;
    const reseau annonce = lireMc(contenuMc(lireMc(std::string("Sigma: 1 apriori\n") + mesures).r)).r;
    const resultatReseau parS0 = compenser(r), aPriori = compenser(annonce);
    EXPECT_NEAR(parS0.s0, std::sqrt(18.0) / 2.0, 1e-9); // 3 mm of residual, twice, for 2 mm announced
    EXPECT_NEAR(pointNomme(annonce, aPriori, L"B").sz, 2e-3 / std::sqrt(2.0), 1e-9);
    EXPECT_NEAR(pointNomme(r, parS0, L"B").sz, parS0.s0 * 2e-3 / std::sqrt(2.0), 1e-9);
}

TEST(Reseau, DataBetterThanAnnouncedHaveNoSuspects)
{
    // Twelve times the same within a hundredth of what is announced, one a little apart.
    std::string texte = "Point: A Z= 0 fixe\nStation: A\n";
    for (int i = 0; i < 12; ++i)
        texte += i == 11 ? "Denivelee: B 1.0010 e= 10\n"
                 : i % 2 ? "Denivelee: B 1.0001 e= 10\n"
                         : "Denivelee: B 1 e= 10\n";
    const reseau r = lireMc(texte).r;
    const resultatReseau resultat = compenser(r);
    EXPECT_LT(resultat.s0, resultat.s0Bas);
    EXPECT_TRUE(resultat.suspects.empty());
}

TEST(Reseau, NoRedundancyIsSaid)
{
    const reseau r = lireMc("Point: A Z= 100 fixe\nStation: A\nDenivelee: B 1.5 e= 4\n").r;
    const resultatReseau resultat = compenser(r);
    EXPECT_EQ(resultat.degresDeLiberte, 0);
    EXPECT_FALSE(estConnue(resultat.s0));
    EXPECT_NEAR(pointNomme(r, resultat, L"B").z, 101.5, 1e-12);
    EXPECT_NEAR(pointNomme(r, resultat, L"B").sz, 0.004, 1e-12); // as announced
    EXPECT_TRUE(contient(resultat.messages, L"Aucune redondance"));
}

TEST(Reseau, NothingToFindIsAControl) // every point held: the measures are compared with the known coordinates
{
    const reseau r =
        lireMc("Point: A X= 0 Y= 0 fixe\nPoint: B X= 0 Y= 100 fixe\nStation: A\nDistance: B 100.01 e= 5\n").r;
    const resultatReseau resultat = compenser(r);
    EXPECT_EQ(resultat.degresDeLiberte, 1);
    EXPECT_NEAR(resultat.s0, 2.0, 1e-9);
}

TEST(Reseau, PlantedFaultsAreFound)
{
    constexpr int essais = 60;
    std::mt19937 alea(11);
    int trouvees = 0, nommees = 0, fausses = 0, seules = 0;
    for (int i = 0; i < essais; ++i) {
        reseau r = grilleEssai(5, static_cast<unsigned>(100 + i));
        fausses += compenser(r).suspects.empty() ? 0 : 1;
        const auto k = std::uniform_int_distribution<std::size_t>(0, r.observations.size() - 1)(alea);
        observationReseau& o = r.observations[k];
        o.mesure += o.genre != distance ? pi : i % 2 == 0 ? 1.0 : 100.0;
        const resultatReseau resultat = compenser(r);
        if (resultat.suspects.empty() || resultat.suspects.front().observation != static_cast<int>(k))
            continue;
        ++trouvees;
        nommees += resultat.suspects.front().cause.empty() ? 0 : 1;
        seules += resultat.suspects.front().s0Sans < 1.5 ? 1 : 0;
    }
    RecordProperty("found", trouvees);
    RecordProperty("falseAlarms", fausses);
    EXPECT_GE(trouvees, essais * 95 / 100);
    EXPECT_GE(nommees, trouvees * 9 / 10);
    EXPECT_GE(seules, trouvees * 8 / 10); // the rest of the network is then as announced
    EXPECT_LE(fausses, essais / 10);
}

TEST(Reseau, LeavingOutIsWhatItSays)
{
    reseau r = grilleEssai(4, 9);
    r.observations[17].mesure += 0.004;
    const resultatReseau avec = compenser(r);
    for (const std::size_t k : {std::size_t(3), std::size_t(17), std::size_t(40)}) {
        reseau sans = r;
        sans.observations[k].active = false;
        EXPECT_NEAR(compenser(sans).s0, avec.mesures[k].s0Sans, 1e-5) << k;
    }
}

TEST(Reseau, RobustEstimationLetsGo)
{
    const reseau juste = grilleEssai(5, 21);
    reseau faux = juste;
    for (const std::size_t k : {std::size_t(5), std::size_t(50), std::size_t(90)})
        faux.observations[k].mesure += faux.observations[k].genre == distance ? 2.0 : 0.02;
    const resultatReseau attendu = compenser(juste);
    for (const estimateur methode : {estimateur::huber, estimateur::tukey}) {
        optionsCompensation options;
        options.methode = methode;
        const resultatReseau resultat = compenser(faux, options);
        double loin = 0.0;
        for (std::size_t i = 0; i < attendu.points.size(); ++i)
            loin = std::max(loin, std::hypot(resultat.points[i].x - attendu.points[i].x,
                                             resultat.points[i].y - attendu.points[i].y));
        EXPECT_LT(loin, methode == estimateur::tukey ? 0.004 : 0.02) << nomEstimateur(methode);
    }
}

TEST(Reseau, FindsPlacesByItself)
{
    struct cas {
        const char* nom;
        const char* texte;
        const wchar_t* point;
        double x, y;
    };
    const cas lieux[] = {
        {"intersection",
         "Point: A X= 0 Y= 0 fixe\nPoint: B X= 100 Y= 0 fixe\nStation: A\nDirection: B 0\nDirection: P 350\n"
         "Station: B\nDirection: A 0\nDirection: P 50\n",
         L"P", 50, 50},
        {"resection",
         "Point: A X= 0 Y= 100 fixe\nPoint: B X= 100 Y= 0 fixe\nPoint: C X= 0 Y= -200 fixe\nStation: P\n"
         "Direction: A 10\nDirection: B 110\nDirection: C 210\n",
         L"P", 0, 0},
        {"free station, angles",
         "Point: A X= 0 Y= 100 fixe\nPoint: B X= 100 Y= 0 fixe\nPoint: C X= 0 Y= -200 fixe\nStation: P\n"
         "Angle: A B 100\nAngle: B C 100\n",
         L"P", 0, 0},
        {"distances to three points",
         "Point: A X= 0 Y= 100 fixe\nPoint: B X= 100 Y= 0 fixe\nPoint: C X= 0 Y= -200 fixe\n"
         "Station: A\nDistance: P 100\nStation: B\nDistance: P 100\nStation: C\nDistance: P 200\n",
         L"P", 0, 0},
        {"traverse between two points, no orientation",
         "Point: A X= 0 Y= 0 fixe\nPoint: D X= 220 Y= 0 fixe\nStation: B\nDirection: A 0\nDirection: C 259.0334\n"
         "Distance: A 100\nStation: C\nDirection: B 0\nDirection: D 259.0334\nDistance: B 100\nDistance: D 100\n",
         L"B", 60, 80},
        {"traverse on a bearing",
         "Point: A X= 0 Y= 0 fixe\nStation: A\nGisement: B 100\nDistance: B 100\nStation: B\n"
         "Angle: A C 300\nDistance: C 50\n",
         L"C", 100, -50},
    };
    for (const cas& c : lieux) {
        SCOPED_TRACE(c.nom);
        const reseau r = lireMc(c.texte).r;
        const approcheReseau a = approcher(r);
        const auto p = static_cast<std::size_t>(r.chercher(c.point));
        ASSERT_TRUE(a.enPlan[p]);
        EXPECT_NEAR(a.c.x[p], c.x, 1e-3);
        EXPECT_NEAR(a.c.y[p], c.y, 1e-3);
    }
    // Two distances leave two places: told, until something tells them apart.
    const std::string deux = "Point: A X= 0 Y= 0 fixe\nPoint: B X= 100 Y= 0 fixe\nStation: P\nDistance: A 80\n"
                             "Distance: B 80\n";
    EXPECT_TRUE(contient(compenser(lireMc(deux).r).messages, L"P » a deux places possibles : (50.00, "));
    for (const char* const plus : {"Point: P X= 40 Y= 50\n", "Angle: B A 110\n"})
        EXPECT_FALSE(contient(compenser(lireMc(deux + plus).r).messages, L"deux places"));
    // A grid whose held corners see no one held.
    const reseau grille = grilleEssai(12, 2);
    const resultatReseau resultat = compenser(grille);
    EXPECT_TRUE(resultat.converge);
    EXPECT_FALSE(resultat.horsTolerance);
}

TEST(Reseau, ApproximatePlacesMayBeFarOff)
{
    reseau r = grilleEssai(5, 8);
    const resultatReseau attendu = compenser(r);
    for (const std::size_t i : {std::size_t(7), std::size_t(12)}) {
        r.points[i].x = attendu.points[i].x + 3000.0;
        r.points[i].y = attendu.points[i].y - 800.0;
    }
    const resultatReseau resultat = compenser(r);
    EXPECT_NEAR(resultat.s0, attendu.s0, 1e-6);
    EXPECT_NEAR(resultat.points[7].x, attendu.points[7].x, 1e-6);
}

TEST(Lois, Tables) // as printed in every table
{
    EXPECT_NEAR(quantileKhi2(0.95, 1), 3.8415, 5e-5);
    EXPECT_NEAR(quantileKhi2(0.95, 10), 18.307, 5e-4);
    EXPECT_NEAR(quantileKhi2(0.025, 100), 74.222, 5e-4);
    EXPECT_NEAR(chanceStudent(12.706, 1), 0.05, 1e-5);
    EXPECT_NEAR(chanceStudent(2.228, 10), 0.05, 1e-4);
    EXPECT_NEAR(chanceNormale(1.959964), 0.05, 1e-7);
    EXPECT_NEAR(facteurEllipse(0.95, 10), std::sqrt(2.0 * 4.1028), 1e-3);
}

/// A traverse without a fault is the same by both ways, and stations without a name stay apart.
TEST(Comparaison, APerfectTraverseIsNotShifted)
{
    donneesPolygonaleOuverte d;
    d.depart = {L"", 0.0, 0.0, 0.0, 0.0};
    d.arrivee = {L"", 200.0, 100.0, 0.0, 600.0};
    d.fermeture = 300.0;
    d.lignes = {{L"B", L"200", L"100", L"0"}, {L"C", L"300", L"100", L"0"}, {L"", L"200", L"100", L"0"}};
    d.arrivee.gisement += compenserPolygonale(d).erreurAngulaire;
    const comparaisonPolygonale c = comparer(compenserPolygonale(d), enReseau(d));
    ASSERT_EQ(c.stations.size(), 4u);
    EXPECT_TRUE(c.stations.front().connue && c.stations.back().connue);
    EXPECT_FALSE(c.stations[1].connue || c.stations[2].connue);
    EXPECT_NEAR(c.stations[2].x, 100.0, 1e-6);
    for (const stationComparee& s : c.stations)
        EXPECT_NEAR(s.ecart(), 0.0, 1e-6);
}

} // namespace

// Advice on angles, measured on random traverses whose fault is known: it is followed to the letter, and what comes out
// is compared with the stations. The rates stand in the test's XML output and in its messages.

#include <cmath>
#include <map>

#include <gtest/gtest.h>

#include "calculs/conseilAngulaire.h"
#include "calculs/fauteUnique.h"
#include "calculs/uniteAngulaire.h"

#include "polygonalesAleatoires.h"

namespace {

using taux = std::map<suite, int>;

std::string texte(const taux& t)
{
    static const std::map<suite, const char*> noms{{suite::muet, "silent"},
                                                   {suite::juste, "right, alone"},
                                                   {suite::parmi, "right among several"},
                                                   {suite::faux, "wrong"},
                                                   {suite::sansSuite, "nothing to type"}};
    std::string ligne;
    for (const auto& [s, nombre] : t)
        ligne += std::string(ligne.empty() ? "" : ", ") + noms.at(s) + " " + std::to_string(nombre);
    return ligne;
}

int nombre(const taux& t, suite s)
{
    const auto trouve = t.find(s);
    return trouve == t.end() ? 0 : trouve->second;
}

void noter(const char* nom, const taux& t)
{
    testing::Test::RecordProperty(nom, texte(t));
    std::printf("%s: %s\n", nom, texte(t).c_str());
}

double retourne(double angle, int unite)
{
    const double tour = tourComplet(unite);
    return normaliser(angle + tour / 2.0, tour);
}

TEST(ConseilsAleatoires, OneAngleOfAnOpenTraverseHalfATurnOff)
{
    Alea alea(1971);
    taux extremes, interieurs;
    int nommes = 0, total = 0;
    for (int i = 0; i < 1500; ++i) {
        polygonaleTiree p = ouverteAleatoire(alea);
        const auto k = static_cast<std::size_t>(alea.entre(0.0, static_cast<double>(p.angles())));
        p.angle(k) = retourne(p.angle(k), p.unite);
        const std::wstring conseil = conseilAngulaire(p.ouverte());
        const bool extreme = k == 0 || k == p.lignes.size();
        ++(extreme ? extremes : interieurs)[suivreOuverte(conseil, p)];
        ++total;
        nommes += conseil.find(L"« S" + std::to_wstring(k) + L" »") != std::wstring::npos;
    }
    noter("angle between the ends", interieurs);
    noter("angle at an end", extremes);
    EXPECT_EQ(nommes, total) << "the station is named";
    EXPECT_EQ(nombre(interieurs, suite::faux) + nombre(interieurs, suite::muet), 0);
    EXPECT_GT(nombre(interieurs, suite::juste), 9 * nombre(interieurs, suite::parmi));
    EXPECT_EQ(nombre(extremes, suite::parmi), nombre(extremes, suite::parmi) + nombre(extremes, suite::juste))
        << "a bearing given the other way explains it as well";
    EXPECT_EQ(nombre(extremes, suite::faux) + nombre(extremes, suite::muet), 0);
}

TEST(ConseilsAleatoires, BearingsOfAnOpenTraverseTheOtherWay)
{
    Alea alea(1789);
    taux t;
    for (int i = 0; i < 400; ++i) {
        polygonaleTiree p = ouverteAleatoire(alea);
        double& gisement = i % 2 == 0 ? p.depart.gisement : p.arrivee.gisement;
        gisement = retourne(gisement, p.unite);
        ++t[suivreOuverte(conseilAngulaire(p.ouverte()), p)];
    }
    noter("bearing the other way", t);
    EXPECT_EQ(nombre(t, suite::parmi), 400) << "the angle at that end explains it as well";
}

TEST(ConseilsAleatoires, OpenTraversesBookedByAnotherRule)
{
    struct regle {
        const char* nom;
        double (*angle)(double, double);
    };
    for (const regle& r :
         {regle{"angles the other way", [](double a, double tour) { return tour - a; }},
          regle{"deflections to the right", [](double a, double tour) { return a - tour / 2.0; }},
          regle{"deflections within a turn", [](double a, double tour) { return normaliser(a - tour / 2.0, tour); }},
          regle{"deflections to the left", [](double a, double tour) { return tour / 2.0 - a; }}}) {
        Alea alea(1848);
        taux t;
        for (int i = 0; i < 400; ++i) {
            polygonaleTiree p = ouverteAleatoire(alea);
            for (std::size_t k = 0; k < p.angles(); ++k)
                p.angle(k) = r.angle(p.angle(k), tourComplet(p.unite));
            ++t[suivreOuverte(conseilAngulaire(p.ouverte()), p)];
        }
        noter(r.nom, t);
        EXPECT_EQ(nombre(t, suite::juste) + nombre(t, suite::parmi), 400) << r.nom;
    }
}

TEST(ConseilsAleatoires, LoopsBookedByAnotherRule)
{
    struct regle {
        const char* nom;
        sensBoucle sens;
        double (*angle)(double, double);
    };
    constexpr auto interieur = [](double a, double) { return a; };
    constexpr auto oppose = [](double a, double tour) { return tour - a; };
    constexpr auto signee = [](double a, double tour) { return a - tour / 2.0; };
    constexpr auto dansLeTour = [](double a, double tour) { return normaliser(a - tour / 2.0, tour); };
    constexpr auto aGauche = [](double a, double tour) { return tour / 2.0 - a; };
    for (const regle& r : {regle{"anticlockwise, interior angles", sensBoucle::antihoraire, interieur},
                           regle{"clockwise, interior angles", sensBoucle::horaire, oppose},
                           regle{"clockwise, signed deflections", sensBoucle::horaire, signee},
                           regle{"clockwise, deflections within a turn", sensBoucle::horaire, dansLeTour},
                           regle{"anticlockwise, signed deflections", sensBoucle::antihoraire, signee},
                           regle{"anticlockwise, deflections within a turn", sensBoucle::antihoraire, dansLeTour},
                           regle{"anticlockwise, deflections to the left", sensBoucle::antihoraire, aGauche}}) {
        Alea alea(1830);
        taux t;
        for (int i = 0; i < 400; ++i) {
            polygonaleTiree p = boucleAleatoire(alea, r.sens);
            for (observationPolygonale& ligne : p.lignes)
                ligne.angle = r.angle(ligne.angle, tourComplet(p.unite));
            ++t[suivreFermee(conseilAngulaire(p.fermee()), p, r.sens == sensBoucle::antihoraire)];
        }
        noter(r.nom, t);
        EXPECT_EQ(nombre(t, suite::juste) + nombre(t, suite::parmi), 400) << r.nom;
    }
}

TEST(ConseilsAleatoires, OneAngleOfALoopHalfATurnOff)
{
    Alea alea(1515);
    taux t;
    for (int i = 0; i < 400; ++i) {
        polygonaleTiree p = boucleAleatoire(alea, sensBoucle::horaire);
        const auto k = static_cast<std::size_t>(alea.entre(0.0, static_cast<double>(p.lignes.size())));
        p.lignes[k].angle = retourne(p.lignes[k].angle, p.unite);
        ++t[suivreFermee(conseilAngulaire(p.fermee()), p, false)];
    }
    noter("angle of a loop half a turn off", t);
    EXPECT_EQ(nombre(t, suite::juste) + nombre(t, suite::parmi), 400);
}

TEST(ConseilsAleatoires, GoodDataNeedNone)
{
    Alea alea(2000);
    taux ouvertes, boucles;
    for (int i = 0; i < 1000; ++i) {
        ++ouvertes[suivreOuverte(conseilAngulaire(ouverteAleatoire(alea).ouverte()), {})];
        ++boucles[suivreFermee(conseilAngulaire(boucleAleatoire(alea, sensBoucle::horaire).fermee()), {}, false)];
    }
    EXPECT_EQ(nombre(ouvertes, suite::muet), 1000);
    EXPECT_EQ(nombre(boucles, suite::muet), 1000);
}

/// Between two stations that nearly coincide, either angle may be the one: both are named.
TEST(ConseilsAleatoires, TwoAnglesThatExplainAlikeAreBothNamed)
{
    Alea alea(1905);
    for (int i = 0; i < 200; ++i) {
        polygonaleTiree p = ouverteAleatoire(alea);
        const double tour = tourComplet(p.unite);
        // A short leg straight on, put into the second one: the rest moves by 2 cm.
        observationPolygonale pied{L"excentrée", p.lignes[1].angle, 0.02, 0.0};
        p.lignes[1].angle = tour / 2.0;
        p.lignes.insert(p.lignes.begin() + 1, pied);
        p.vraies.clear();
        p.arrivee.gisement += std::round(p.ouverte().erreurAngulaire / tour) * tour;
        p.lignes[1].angle = retourne(p.lignes[1].angle, p.unite);
        const std::wstring conseil = conseilAngulaire(p.ouverte());
        EXPECT_NE(conseil.find(L"« S1 »"), std::wstring::npos);
        EXPECT_NE(conseil.find(L"« excentrée »"), std::wstring::npos);
        EXPECT_NE(conseil.find(L"Soit "), std::wstring::npos);
    }
}

/// A lone gross fault in one angle or one length: how often it is the one named, and how often another is.
TEST(ConseilsAleatoires, OneFaultIsNamedOrNothingIs)
{
    Alea alea(1793);
    constexpr int essais = 2000;
    int nommees = 0, autres = 0;
    for (int i = 0; i < essais; ++i) {
        const bool boucle = i % 2 == 0, angulaire = i % 4 < 2;
        polygonaleTiree p = boucle ? boucleAleatoire(alea, sensBoucle::horaire) : ouverteAleatoire(alea);
        const auto k = static_cast<std::size_t>(alea.entre(0.0, static_cast<double>(p.lignes.size())));
        const double signe = i % 8 < 4 ? 1.0 : -1.0;
        const double faute =
            signe * (angulaire ? alea.entre(1.0, 30.0) / 400.0 * tourComplet(p.unite) : alea.entre(3.0, 20.0));
        (angulaire ? p.lignes[k].angle : p.lignes[k].distance) += faute;
        const auto f = boucle ? chercherFaute(p.fermee()) : chercherFaute(p.ouverte());
        if (!f)
            continue;
        const double precision = angulaire ? 0.1 / 400.0 * tourComplet(p.unite) : 0.5;
        const bool juste = f->angulaire == angulaire && f->rang == k && std::abs(f->correction + faute) < precision;
        ++(juste ? nommees : autres);
    }
    std::printf("one fault: named %d, another named %d, of %d\n", nommees, autres, essais);
    EXPECT_GT(nommees, essais / 2);
    EXPECT_LE(autres, essais / 1000);
}

/// Coarse instruments give good data too.
TEST(ConseilsAleatoires, NoFaultIsFoundInGoodData)
{
    for (const double grades : {0.0, 0.02, 0.3}) {
        Alea alea(1802);
        int dites = 0;
        for (int i = 0; i < 2000; ++i) {
            const bool boucle = i % 2 == 0;
            polygonaleTiree p = boucle ? boucleAleatoire(alea, sensBoucle::horaire) : ouverteAleatoire(alea);
            const double ecart = grades / 400.0 * tourComplet(p.unite), relatif = grades / 300.0;
            for (observationPolygonale& l : p.lignes) {
                l.angle += alea.entre(-ecart, ecart);
                l.distance *= 1.0 + alea.entre(-relatif, relatif);
            }
            dites += boucle ? chercherFaute(p.fermee()).has_value() : chercherFaute(p.ouverte()).has_value();
        }
        EXPECT_EQ(dites, 0) << grades;
    }
}

/// A square whose third side is 5 m too long: the first side would explain it as well. Not so once a corner is cut.
TEST(ConseilsAleatoires, ParallelLegsCannotBeToldApart)
{
    const stationPolygonale depart{L"A", 0.0, 0.0, 0.0, 0.0};
    const auto carre = compenserPolygonaleFermee(
        depart, 0, uniteGrades,
        {{L"B", 300.0, 100.0, 0}, {L"C", 300.0, 100.0, 0}, {L"D", 300.0, 105.0, 0}, {L"A", 300.0, 100.0, 0}});
    EXPECT_EQ(conseilFaute(carre), L"");
    const auto triangle = compenserPolygonaleFermee(
        depart, 0, uniteGrades, {{L"B", 350.0, 100.0, 0}, {L"C", 300.0, 105.0, 0}, {L"A", 350.0, 141.421, 0}});
    EXPECT_EQ(conseilFaute(triangle),
              L"Une seule faute expliquerait cette fermeture : la longueur du côté « B » - « C », 100.000 au lieu de "
              L"105.000 à la ligne 2 ; il resterait 0.000 (1/1 375 244). À vérifier sur le carnet ou le terrain.");
}

} // namespace

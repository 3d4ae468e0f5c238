// The report of an open traverse, byte for byte. Numbers were worked out apart from the program.

#include <gtest/gtest.h>

#include "calculs/calculPolygonaleOuverte.h"
#include "calculs/rapportPolygonaleOuverte.h"
#include "calculs/uniteAngulaire.h"
#include "reports/htmlDocument.h"

#include "casConnus.h"
#include "cellulesAttendues.h"

namespace {

// Carried bearings 450, 949.98, 1300.01 gr: three turns and 100.04 are missed by 0.03. Closure −0.0245, 0.0032 over
// 400.10; heights closing on +0.03.
const stationPolygonale depart{L"S1", 1000.0, 2000.0, 50.0, 0.0};
const stationPolygonale arrivee{L"S2", 1282.90, 1858.50, 50.80, 100.04};
constexpr double dernierAngle = 150.03;
const std::vector<observationPolygonale> lignes = {{L"B&\u00C9", 250.00, 100.00, 1.50}, {L"S2", 299.98, 300.10, -0.67}};

const std::string nomB = "B&amp;\xC9";

std::string planimetrie()
{
    const std::string donnees = "<P class=grand>Corrections de fermeture polygonale</P>" +
                                titre("Donn\xE9"
                                      "es") +
                                debutTable + rang(chaque(enTete, {"&nbsp", "Station", "X", "Y", "Z", "Gis"})) +
                                rang(enTeteGauche("D\xE9part") + gauche("S1") +
                                     chaque(droite, {"1000.0000", "2000.0000", "50.0000", "0.0000"})) +
                                rang(enTeteGauche("Arriv\xE9"
                                                  "e") +
                                     gauche("S2") + chaque(droite, {"1282.9000", "1858.5000", "50.8000", "100.0400"})) +
                                rang(libelle(5, "Fermeture") + droite("150.0300")) + "</table>";
    const std::string angles = titre("Fermeture angulaire") + debutTable +
                               rang(chaque(enTete, {"Station", "Angle", "Gisement", "Erreur", "Gis.Compens\xE9"})) +
                               rang(gauche("Ref") + chaque(droite, {"&nbsp", "&nbsp", "&nbsp", "0.0000"})) +
                               rang(gauche("S1") + chaque(droite, {"250.0000", "50.0000", "0.0100", "50.0100"})) +
                               rang(gauche(nomB) + chaque(droite, {"299.9800", "149.9800", "0.0200", "150.0000"})) +
                               // The arrival shows its bearing as it was carried.
                               rang(gauche("S2") + chaque(droite, {"150.0300", "1300.0100", "0.0300", "100.0400"})) +
                               rang(libelle(3, "Erreur :") + chaque(droite, {"-0.0300", "&nbsp"})) + "</table>";
    const std::string distances =
        titre("Comprensation des distances") + debutTable +
        rang(chaque(enTete,
                    {"Station", "Gisement", "Distance", "DX", "DY", "DX.Corrig\xE9", "DY.Corrig\xE9", "X", "Y"})) +
        rang(gauche(nomB) + chaque(droite, {"50.0100", "100.0000", "70.7218", "70.6996", "70.7157", "70.7004",
                                            "1070.7157", "2070.7004"})) +
        rang(gauche("S2") + chaque(droite, {"150.0000", "300.1000", "212.2027", "-212.2027", "212.1843", "-212.2004",
                                            "1282.9000", "1858.5000"})) +
        rang(libelle(2, "Total") +
             chaque(droite, {"400.1000", "282.9245", "-141.5032", "282.9000", "-141.5000", "&nbsp", "&nbsp"})) +
        rang(libelle(2, "S1-S2") +
             chaque(droite, {"&nbsp", "282.9000", "-141.5000", "&nbsp", "&nbsp", "&nbsp", "&nbsp"})) +
        rang(libelle(2, "Erreur") +
             chaque(droite, {"&nbsp", "-0.0245", "0.0032", "&nbsp", "&nbsp", "&nbsp", "&nbsp"})) +
        "</table>";
    return donnees + angles + distances;
}

std::string resultats(const char* zB, const char* zS2)
{
    return titre("R\xE9sultats finaux :") + debutTable + rang(chaque(enTete, {"Station", "X", "Y", "Z"})) +
           rang(gauche("S1") + chaque(droite, {"1000.0000", "2000.0000", "50.0000"})) +
           rang(gauche(nomB) + chaque(droite, {"1070.7157", "2070.7004", zB})) +
           rang(gauche("S2") + chaque(droite, {"1282.9000", "1858.5000", zS2})) + "</table>";
}

std::string rapport(int mode)
{
    htmlDocument document;
    rapporterPolygonale(compenserPolygonaleOuverte(depart, arrivee, dernierAngle, mode, uniteGrades, lignes), document);
    return sansZeroNegatif(document.text());
}

/// A levelling table, from the cells that the mode fills: of each leg, then of each sum.
std::string altitudes(const char* regle, const char* poids, std::initializer_list<const char*> ligne1,
                      std::initializer_list<const char*> ligne2, std::initializer_list<const char*> total4)
{
    const bool avecPoids = *poids != 0;
    const auto difference = [avecPoids](const char* nom, const char* valeur) {
        return rang(total(nom) + droite(valeur) + chaque(droite, {"&nbsp", "&nbsp", "&nbsp"}) +
                    (avecPoids ? droite("&nbsp") : ""));
    };
    return titre("Correction des altitudes") + titre(regle) + debutTable +
           rang(chaque(enTete, {"Station", "Vise", "X", "Y", "d.Z"}) + (avecPoids ? enTete(poids) : "") +
                chaque(enTete, {"Correction", "d.Z Corrig\xE9", "Z"})) +
           rang(gauche("S1") + gauche(nomB) + chaque(droite, {"1070.7157", "2070.7004", "1.5000"}) +
                chaque(droite, ligne1)) +
           rang(gauche(nomB) + gauche("S2") + chaque(droite, {"1282.9000", "1858.5000", "-0.6700"}) +
                chaque(droite, ligne2)) +
           rang(total("Total") + chaque(droite, total4)) + difference("S1-S2", "0.8000") +
           difference("Erreur", "0.0300") + "</table>";
}

TEST(RapportOuverte, Bytes)
{
    const std::string fin = "\n</body>\n</html>";
    EXPECT_EQ(rapport(nivellementAucun), feuille() + planimetrie() + titre("Pas de correction de nivellement") +
                                             resultats("51.5000", "50.8300") + fin);
    EXPECT_EQ(rapport(nivellementSimple),
              feuille() + planimetrie() +
                  altitudes("Correction simple, erreur de fermeture r\xE9partie uniform\xE8ment", "",
                            {"0.0150", "1.4850", "51.4850"}, {"0.0150", "-0.6850", "50.8000"},
                            {"0.8300", "0.0300", "0.8000", "&nbsp"}) +
                  resultats("51.4850", "50.8000") + fin);
    EXPECT_EQ(rapport(nivellementDistance),
              feuille() + planimetrie() +
                  altitudes("Correction proportionnelle aux distances", "Distance",
                            {"99.9962", "0.0075", "1.4925", "51.4925"}, {"300.0853", "0.0225", "-0.6925", "50.8000"},
                            {"0.8300", "400.0815", "0.0300", "0.8000", "&nbsp"}) +
                  resultats("51.4925", "50.8000") + fin);
    EXPECT_EQ(rapport(nivellementRacine),
              feuille() + planimetrie() +
                  altitudes("Correction proportionnelle aux racines distances", "Racine.dist",
                            {"9.9998", "0.0110", "1.4890", "51.4890"}, {"17.3230", "0.0190", "-0.6890", "50.8000"},
                            {"0.8300", "27.3228", "0.0300", "0.8000", "&nbsp"}) +
                  resultats("51.4890", "50.8000") + fin);
}

TEST(RapportOuverte, LinearInTheLegs)
{
    attendreLineaire([](std::size_t n) {
        const std::vector<observationPolygonale> cotes(n, {L"S1234", 200.01, 12.5, 0.1});
        htmlDocument document;
        std::vector<double> x, y, z;
        calculPolygonaleOuverte(L"S1234", 0, 0, 0, 0, L"S1234", 1, 2, 3, 0, 200, nivellementDistance, uniteGrades,
                                cotes, x, y, z, &document);
        EXPECT_EQ(x.size(), n + 1);
    });
}

} // namespace

// The report of a closed traverse, byte for byte. Numbers were worked out apart from the program.

#include <limits>

#include <gtest/gtest.h>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/uniteAngulaire.h"
#include "reports/htmlDocument.h"

#include "casConnus.h"
#include "cellulesAttendues.h"

namespace {

// Bearings 50, 149.98, 300.03 gr; closure 0.1143, 0.0182 over 341.50; heights closing on +0.03.
const stationPolygonale depart{L"S1", 1000.0, 2000.0, 50.0, 50.0};
const std::vector<observationPolygonale> triangle = {
    {L"A", 349.98, 100.00, 1.50}, {L"B&\u00C9", 299.99, 100.10, -0.70}, {L"S1", 350.06, 141.40, -0.77}};

const std::string noms0 = gauche("B&amp;\xC9") + gauche("S1") + gauche("A");
const std::string noms1 = gauche("S1") + gauche("A") + gauche("B&amp;\xC9");
const std::string noms2 = gauche("A") + gauche("B&amp;\xC9") + gauche("S1");

std::string planimetrie()
{
    const std::string donnees =
        "<P class=grand>Corrections de fermeture polygonale</P>" +
        titre("Donn\xE9"
              "es") +
        "<P class=petit>\r\nStation de d\xE9part : S1\tX=1000.0000\tY=2000.0000\tZ=50.000000\tVo=50.0000</P>";
    const std::string observations =
        titre("Observations") + debutTable +
        rang(chaque(enTete, {"Station", "Vise", "Angle", "Distance", "Altitude"})) +
        rang(centre("S1") + centre("A") + chaque(droite, {"349.9800", "100.0000", "1.5000"})) +
        rang(centre("A") + centre("B&amp;\xC9") + chaque(droite, {"299.9900", "100.1000", "-0.7000"})) +
        rang(centre("B&amp;\xC9") + centre("S1") + chaque(droite, {"350.0600", "141.4000", "-0.7700"})) + "</table>";
    const std::string angles =
        titre("Fermeture Angulaire") + "<P class=petit>\r\nErreur angulaire=-0.03000</P>" +
        "<P class=petit>\r\nCorrection angulaire=-0.01000</P>" + debutTable +
        rang(chaque(enTete,
                    {"R\xE9"
                     "f",
                     "Station", "Vise", "Ang Ext", "Ang Int", "Ang Int Corr", "Ang Ext Corr", "Gisement Corr"})) +
        rang(noms0 + chaque(droite, {"349.9800", "50.0200", "50.0300", "349.9700", "50.0000"})) +
        rang(noms1 + chaque(droite, {"299.9900", "100.0100", "100.0200", "299.9800", "149.9800"})) +
        rang(noms2 + chaque(droite, {"350.0600", "49.9400", "49.9500", "350.0500", "300.0300"})) +
        rang(total("Somme") + chaque(droite, {"199.9700", "&nbsp", "&nbsp", "&nbsp"})) +
        rang(total("Erreur") + chaque(droite, {"-0.0300", "&nbsp", "&nbsp", "&nbsp"})) +
        rang(total("Correction") + chaque(droite, {"-0.0100", "&nbsp", "&nbsp", "&nbsp"})) + "</table>";
    const std::string distances =
        titre("Correction des distances") + debutTable +
        rang(chaque(enTete, {"R\xE9"
                             "f",
                             "Station", "Vise", "Gis. Corrig\xE9", "Distance", "Dx", "Dy", "Dx corrig\xE9",
                             "Dy corrig\xE9", "X", "Y"})) +
        rang(noms0 + chaque(droite, {"50.0000", "100.0000", "70.7107", "70.7107", "70.6772", "70.7054", "1070.6772",
                                     "2070.7054"})) +
        rang(noms1 + chaque(droite, {"149.9800", "100.1000", "70.8036", "-70.7591", "70.7701", "-70.7645", "1141.4473",
                                     "1999.9409"})) +
        rang(noms2 + chaque(droite, {"300.0300", "141.4000", "-141.4000", "0.0666", "-141.4473", "0.0591", "1000.0000",
                                     "2000.0000"})) +
        rang(total("Somme") + chaque(droite, {"341.5000", "0.1143", "0.0182", "&nbsp", "&nbsp", "&nbsp", "&nbsp"})) +
        "</table>";
    return donnees + observations + angles + distances;
}

/// One row of the levelling table up to its height difference.
std::string debutNivellement(int ligne)
{
    const std::string debuts[] = {noms0 + chaque(droite, {"1070.6772", "2070.7054", "1.5000"}),
                                  noms1 + chaque(droite, {"1141.4473", "1999.9409", "-0.7000"}),
                                  noms2 + chaque(droite, {"1000.0000", "2000.0000", "-0.7700"})};
    return debuts[ligne];
}

std::string coordonnees(const char* z1, const char* z2)
{
    return titre("Coordonn\xE9"
                 "es finales") +
           debutTable + rang(chaque(enTete, {"Station", "X", "Y", "Z"})) +
           rang(gauche("S1") + chaque(droite, {"1000.0000", "2000.0000", "50.0000"})) +
           rang(gauche("A") + chaque(droite, {"1070.6772", "2070.7054", z1})) +
           rang(gauche("B&amp;\xC9") + chaque(droite, {"1141.4473", "1999.9409", z2})) + "</table>";
}

std::string rapport(int mode)
{
    htmlDocument document;
    rapporterPolygonale(compenserPolygonaleFermee(depart, mode, uniteGrades, triangle), document);
    return sansZeroNegatif(document.text());
}

TEST(RapportFermee, Bytes)
{
    const std::string fin = "\n</body>\n</html>";
    const std::string altitudes = titre("Correction des altitudes");

    EXPECT_EQ(rapport(nivellementAucun), feuille() + planimetrie() + titre("Pas de correction de nivellement") +
                                             coordonnees("51.5000", "50.8000") + fin);

    const std::string simple =
        altitudes + titre("Correction simple, erreur de fermeture r\xE9partie uniform\xE8ment") + debutTable +
        rang(chaque(enTete, {"R\xE9"
                             "f",
                             "Station", "Vise", "X", "Y", "d.Z", "Correction", "d.Z Corrig\xE9", "Z"})) +
        rang(debutNivellement(0) + chaque(droite, {"0.0100", "1.4900", "51.4900"})) +
        rang(debutNivellement(1) + chaque(droite, {"0.0100", "-0.7100", "50.7800"})) +
        rang(debutNivellement(2) + chaque(droite, {"0.0100", "-0.7800", "50.0000"})) +
        rang(total("Total") + chaque(droite, {"&nbsp", "0.0300", "0.0300", "0.0000", "&nbsp"})) + "</table>";
    EXPECT_EQ(rapport(nivellementSimple), feuille() + planimetrie() + simple + coordonnees("51.4900", "50.7800") + fin);

    const std::string distance =
        altitudes + titre("Correction proportionnelle aux distances") + debutTable +
        rang(chaque(enTete, {"R\xE9"
                             "f",
                             "Station", "Vise", "X", "Y", "d.Z", "Distance", "Correction", "d.Z Corrig\xE9", "Z"})) +
        rang(debutNivellement(0) + chaque(droite, {"99.9726", "0.0088", "1.4912", "51.4912"})) +
        rang(debutNivellement(1) + chaque(droite, {"100.0801", "0.0088", "-0.7088", "50.7824"})) +
        rang(debutNivellement(2) + chaque(droite, {"141.4473", "0.0124", "-0.7824", "50.0000"})) +
        rang(total("Total") + chaque(droite, {"&nbsp", "0.0300", "341.5000", "0.0300", "0.0000", "&nbsp"})) +
        "</table>";
    EXPECT_EQ(rapport(nivellementDistance),
              feuille() + planimetrie() + distance + coordonnees("51.4912", "50.7824") + fin);

    const std::string racine =
        altitudes + titre("Correction proportionnelle aux racines distances") + debutTable +
        rang(chaque(enTete, {"R\xE9"
                             "f",
                             "Station", "Vise", "X", "Y", "d.Z", "Racine.dist", "Correction", "d.Z Corrig\xE9", "Z"})) +
        rang(debutNivellement(0) + chaque(droite, {"9.9986", "0.0094", "1.4906", "51.4906"})) +
        rang(debutNivellement(1) + chaque(droite, {"10.0040", "0.0094", "-0.7094", "50.7812"})) +
        rang(debutNivellement(2) + chaque(droite, {"11.8932", "0.0112", "-0.7812", "50.0000"})) +
        rang(total("Total") + chaque(droite, {"&nbsp", "0.0300", "31.8958", "0.0300", "0.0000", "&nbsp"})) + "</table>";
    EXPECT_EQ(rapport(nivellementRacine), feuille() + planimetrie() + racine + coordonnees("51.4906", "50.7812") + fin);
}

TEST(RapportFermee, UnknownAndNonFiniteNumbersAreWritten)
{
    htmlDocument document;
    stationPolygonale sansAltitude = depart;
    sansAltitude.z = 1e38;
    rapporterPolygonale(compenserPolygonaleFermee(sansAltitude, 1, uniteGrades, triangle), document);
    const std::string texte = document.text();
    EXPECT_NE(texte.find("\tZ=99999999999999997748809823456034029568.000000\t"), std::string::npos);
    EXPECT_NE(texte.find(droite("99999999999999997748809823456034029568.0000")), std::string::npos);

    htmlDocument nul;
    std::vector<double> x, y, z;
    calculPolygonaleFermee(L"A", std::numeric_limits<double>::infinity(), 0, 0, 0, 3, 0,
                           {{L"B", 300, 0, 0}, {L"A", 300, 0, 0}}, x, y, z, &nul);
    EXPECT_NE(nul.text().find("X=inf"), std::string::npos);
    EXPECT_NE(nul.text().find("nan</td>"), std::string::npos);
}

TEST(RapportFermee, LinearInTheLegs)
{
    attendreLineaire([](std::size_t n) {
        const std::vector<observationPolygonale> lignes(n,
                                                        {L"S1234", 200.0 + 400.0 / static_cast<double>(n), 12.5, 0.1});
        htmlDocument document;
        std::vector<double> x, y, z;
        calculPolygonaleFermee(L"S1234", 0, 0, 0, 0, nivellementDistance, uniteGrades, lignes, x, y, z, &document);
        EXPECT_EQ(x.size(), n + 1);
    });
}

} // namespace

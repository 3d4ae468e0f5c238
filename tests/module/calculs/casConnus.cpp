#include "casConnus.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "TestFolder.h"

std::vector<casConnu> lireCasConnus(const char* nom)
{
    std::ifstream fichier(std::string(VELA_SOURCE_DIR "/tests/module/calculs/data/") + nom);
    std::vector<casConnu> cas;
    for (std::string texte; std::getline(fichier, texte);) {
        std::istringstream ligne(texte);
        std::string mot, suite;
        ligne >> mot;
        if (mot == "cas") {
            cas.emplace_back();
            ligne >> cas.back().nom;
        } else if (mot == "fichier") {
            ligne >> suite;
            cas.back().fichier = VELA_SOURCE_DIR "/" + suite;
        } else if (mot == "attendu") {
            casConnu::attendu a;
            ligne >> a.grandeur >> a.tolerance;
            for (double v = 0.0; ligne >> v;)
                a.valeurs.push_back(v);
            cas.back().attendus.push_back(a);
        }
    }
    return cas;
}

grandeurs grandeursCommunes(const cheminement& c)
{
    return {{"erreur-angulaire", {c.erreurAngulaire}},
            {"correction-angulaire", {c.correctionAngulaire}},
            {"longueur", {c.longueur}},
            {"fermeture-x", {c.fermetureX}},
            {"fermeture-y", {c.fermetureY}},
            {"fermeture-relative", {c.fermetureRelative}},
            {"gisements", colonne(c.cotes, &cotePolygonale::gisement)},
            {"dx", colonne(c.cotes, &cotePolygonale::dx)},
            {"dy", colonne(c.cotes, &cotePolygonale::dy)},
            {"dx-corriges", colonne(c.cotes, &cotePolygonale::dxCorrige)},
            {"dy-corriges", colonne(c.cotes, &cotePolygonale::dyCorrige)},
            {"longueurs-corrigees", colonne(c.cotes, &cotePolygonale::longueurCorrigee)},
            {"corrections-z", colonne(c.nivellement.denivelees, &deniveleeCompensee::correction)},
            {"x", colonne(c.stations, &stationCorrigee::x)},
            {"y", colonne(c.stations, &stationCorrigee::y)},
            {"z", colonne(c.stations, &stationCorrigee::z)}};
}

void verifier(const casConnu& cas, const grandeurs& calculees)
{
    ASSERT_FALSE(cas.attendus.empty()) << cas.nom;
    for (const auto& attendu : cas.attendus) {
        SCOPED_TRACE(cas.nom + " " + attendu.grandeur);
        const auto calculee = calculees.find(attendu.grandeur);
        ASSERT_NE(calculee, calculees.end());
        ASSERT_EQ(calculee->second.size(), attendu.valeurs.size());
        for (std::size_t i = 0; i < attendu.valeurs.size(); ++i)
            EXPECT_NEAR(calculee->second[i], attendu.valeurs[i], attendu.tolerance) << "row " << i;
    }
}

void comparerStations(const cheminement& c, const cheminement& reference,
                      const std::function<stationCorrigee(stationCorrigee)>& deplacement)
{
    ASSERT_EQ(c.stations.size(), reference.stations.size());
    for (std::size_t k = 0; k < c.stations.size(); ++k) {
        const stationCorrigee attendue = deplacement(reference.stations[k]);
        EXPECT_NEAR(c.stations[k].x, attendue.x, 1e-8) << k;
        EXPECT_NEAR(c.stations[k].y, attendue.y, 1e-8) << k;
        EXPECT_NEAR(c.stations[k].z, attendue.z, 1e-8) << k;
    }
}

void attendreRapports(const std::string& nom, const std::function<std::string(int nivellement)>& rapport)
{
    for (int nivellement = 0; nivellement < 4; ++nivellement) {
        const std::string attendu = contents(VELA_SOURCE_DIR "/tests/module/calculs/rapports/" + nom + "-" +
                                             std::to_string(nivellement) + ".html");
        std::string texte = rapport(nivellement);
        // Sums that are zero but for rounding may print with a sign, and not the same everywhere.
        for (std::size_t i = 0; (i = texte.find(">-0.0000<", i)) != std::string::npos;)
            texte.erase(i + 1, 1);
        EXPECT_FALSE(attendu.empty());
        EXPECT_EQ(texte, attendu) << nom << ", levelling " << nivellement;
    }
}

#include "comparaisons.h"

#include <gtest/gtest.h>

#include "TestFolder.h"

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

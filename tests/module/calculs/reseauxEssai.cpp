#include "reseauxEssai.h"

#include <cmath>

#include <gtest/gtest.h>

#include "generateurs/grilleReseau.h"

reseau reseauEssai(const char* fichier)
{
    const reseauLu lu = chargerReseau(std::string(VELA_SOURCE_DIR "/examples/publies/") + fichier);
    EXPECT_TRUE(lu.lisible) << fichier;
    EXPECT_TRUE(lu.remarques.empty()) << fichier;
    return lu.r;
}

reseau grilleEssai(int cote, unsigned graine)
{
    const reseauLu lu = lireMc(grilleReseau(cote, graine));
    EXPECT_TRUE(lu.remarques.empty());
    return lu.r;
}

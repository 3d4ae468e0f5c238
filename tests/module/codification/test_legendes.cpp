#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "codification/blocsDuDessin.h"
#include "codification/descriptionBloc.h"
#include "codification/dispositionLegende.h"
#include "points/ResbufSerializer.h"
#include "services/donneesObjet.h"

#include "dbapserv.h"
#include "Drawing.h"

namespace {

// Whatever the sizes, no line reaches into the next one, and blocks stay left of the texts.
TEST(Legende, nothingOverlaps)
{
    std::mt19937 hasard(17);
    std::uniform_real_distribution<double> taille(0.0, 40.0);
    for (int essai = 0; essai < 200; ++essai) {
        parametresLegende p;
        p.tailleTextes = 0.1 + taille(hasard) / 4.0;
        p.tailleBlocs = 0.1 + taille(hasard);
        p.distanceLignes = taille(hasard);
        p.longueurTrait = taille(hasard);
        std::vector<ligneLegende> lignes;
        for (int i = 0; i < 12; ++i)
            lignes.push_back(
                {taille(hasard), i % 5 == 0 ? 0.0 : taille(hasard), p.tailleTextes * (1 + i % 3), i % 4 == 0});
        const dispositionLegende d = disposerLegende(lignes, p);
        double dessus = d.titre.y;
        for (std::size_t i = 0; i < lignes.size(); ++i) {
            const placeLegende& l = d.lignes[i];
            const double demi =
                std::max(lignes[i].trait ? 0.0 : lignes[i].hauteur * l.echelle, lignes[i].hauteurTexte) / 2;
            EXPECT_LT(l.milieu.y + demi, dessus);
            dessus = l.milieu.y - demi;
            const double largeur = lignes[i].trait ? p.longueurTrait : lignes[i].largeur * l.echelle;
            EXPECT_LT(l.milieu.x + largeur / 2, l.texte.x);
            EXPECT_GE(l.milieu.x - largeur / 2, -1e-9);
            if (i > 0) {
                EXPECT_GE(d.lignes[i - 1].milieu.y - l.milieu.y, p.distanceLignes - 1e-9);
            }
        }
    }
}

// A drawing may hold them; a legend with places that are no numbers could not be saved.
TEST(Legende, sizesThatAreNoNumbers)
{
    constexpr double infini = std::numeric_limits<double>::infinity();
    const std::vector<ligneLegende> lignes{{1e-320, 1e-320}, {infini, 1.0}, {1.0, infini}, {0.0, 0.0}};
    for (const placeLegende& l : disposerLegende(lignes, {}).lignes) {
        EXPECT_EQ(l.echelle, 1.0);
        EXPECT_TRUE(std::isfinite(l.milieu.x + l.milieu.y + l.texte.x + l.texte.y));
    }
}

class DescriptionsTest : public testing::Test {
protected:
    void SetUp() override { acdbHostApplicationServices()->setWorkingDatabase(&db); }
    void TearDown() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }
    AcDbDatabase db;
};

TEST_F(DescriptionsTest, stoodTwiceAndForeignRecordsAreLeftAside)
{
    const AcDbObjectId bloc = addBlock(db, L"BORNE", {new AcDbLine({-1, -2, 0}, {3, 4, 0})});
    ASSERT_TRUE(ecrireDescription(bloc, L"Borne ancienne, retrouvée"));
    EXPECT_EQ(lireDescriptions(bloc).bloc, L"Borne ancienne, retrouvée");
    EXPECT_EQ(lireDescriptions(bloc).entite, L"Borne ancienne, retrouvée");
    // Of another program: another marker. The comments are shown.
    ResbufSerializer autre;
    autre.writeInt(12744722);
    autre.writeString(L"autre chose");
    ASSERT_TRUE(ecrireDonneesObjet(bloc, L"BLOCKINFO_QUARVEL", *autre.chaine()));
    EXPECT_EQ(lireDescriptions(bloc).bloc, L"Borne ancienne, retrouvée");
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> definition(bloc, AcDb::kForWrite);
        definition->setComments(L"commentaire");
    }
    EXPECT_EQ(lireDescriptions(bloc).bloc, L"commentaire");
    EXPECT_EQ(lireDescriptions(bloc).entite, L"Borne ancienne, retrouvée");
    const std::vector<blocDuDessin> blocs = blocsDuDessin();
    ASSERT_EQ(blocs.size(), 1u);
    EXPECT_EQ(blocs[0].occurrences, 0);
    EXPECT_DOUBLE_EQ(blocs[0].tailleX(), 4.0);
    EXPECT_DOUBLE_EQ(blocs[0].tailleY(), 6.0);
}

} // namespace

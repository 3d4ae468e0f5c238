#include <gtest/gtest.h>

#include "exchange/tableauCoordonnees.h"

namespace {

/// One unit a letter.
double largeurTexte(const std::wstring& texte)
{
    return static_cast<double>(texte.size());
}

const std::vector<rangeeTable> troisPoints{{L"1", L"10.000", L"20.000", L"1.50", L"1", L"Borne"},
                                           {L"12345", L"11.000", L"21.000", L"", L"2", L""},
                                           {L"3", L"12.000", L"22.000", L"2.50", L"1", L"Borne"}};

} // namespace

TEST(tableauCoordonnees, standsInItsOutlineInBandsBesideEachOther)
{
    paramsTable params; // text height 2: lines of 4, margins of 1.5
    const tableauCoordonnees un = composerTableau(troisPoints, params, largeurTexte);
    EXPECT_DOUBLE_EQ(un.hauteur, 4 * 4.0);
    EXPECT_DOUBLE_EQ(un.largeur, 5 + 6 + 6 + 4 + 4 * 3.0);
    EXPECT_EQ(un.textes.size(), 4u + 11u) << "an unknown altitude is no text";
    EXPECT_EQ(un.traits.size(), 4u + 1u);
    EXPECT_EQ(un.textes[1].texte, L"X");
    EXPECT_DOUBLE_EQ(un.textes[1].x, 8 + 9 - 1.5) << "numbers stand to the right of their column";
    EXPECT_DOUBLE_EQ(un.textes[1].y, -4.0 + 1.0);

    params.lignesParColonne = 2;
    const tableauCoordonnees deux = composerTableau(troisPoints, params, largeurTexte);
    EXPECT_DOUBLE_EQ(deux.hauteur, 3 * 4.0);
    EXPECT_DOUBLE_EQ(deux.largeur, 2 * un.largeur + 6.0);
    EXPECT_EQ(deux.textes.size(), 2 * 4u + 11u);
    for (const texteTable& t : deux.textes) {
        EXPECT_TRUE(t.x > 0.0 && t.x < deux.largeur && t.y < 0.0 && t.y > -deux.hauteur);
        EXPECT_TRUE(t.x < un.largeur || t.x > un.largeur + 6.0);
    }
}

TEST(tableauCoordonnees, drawsTheLinesAskedFor)
{
    struct Row {
        const char* name;
        bool encadrer, enTete, colonnes, lignes;
        std::size_t traits;
    };
    for (const Row& r : {Row{"none", false, false, false, false, 0}, Row{"frame", true, false, false, false, 4},
                         Row{"header", false, true, false, false, 1}, Row{"columns", false, false, true, false, 3},
                         Row{"rows, not under the header", false, false, false, true, 2},
                         Row{"all", true, true, true, true, 4 + 3 + 3}}) {
        paramsTable params;
        params.encadrer = r.encadrer;
        params.separerEnTete = r.enTete;
        params.separerColonnes = r.colonnes;
        params.separerLignes = r.lignes;
        EXPECT_EQ(composerTableau(troisPoints, params, largeurTexte).traits.size(), r.traits) << r.name;
    }
}

TEST(tableauCoordonnees, keepsItsSettingsAsText)
{
    paramsTable params;
    params.tailleTextes = 0.35;
    params.lignesParColonne = 7;
    params.libelle = params.grouper = true;
    params.x = params.encadrer = false;
    EXPECT_EQ(paramsDeTexte(texteParams(params)), params);
    for (const char* const abime : {"", "2", "2 3", "2 3 11", "-1 3 11111111111", "x 3 11111111111", "2 0 11111111111"})
        EXPECT_EQ(paramsDeTexte(abime), paramsTable()) << abime;
}

#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "tools/rapportTransformation.h"

namespace {

constexpr auto translation = typeTransformation::translation;
constexpr auto similitude = typeTransformation::similitude;
constexpr auto affine = typeTransformation::affine;

resultatTransformation reussie(const std::vector<couplePoints>& couples, typeTransformation type)
{
    const auto calcul = calculerTransformation(couples, type);
    EXPECT_TRUE(std::holds_alternative<resultatTransformation>(calcul));
    return std::get<resultatTransformation>(calcul);
}

// A translation by hand: shifts (1, 2), (3, 2), (2, 8), weights 1, 1, 2: mean (2, 5).
TEST(transformationPlane, weightedTranslation)
{
    std::vector<couplePoints> couples = {
        {L"1", {0, 0}, {1, 2}}, {L"2", {10, 0}, {13, 2}}, {L"3", {0, 10}, {2, 18}, 2.0}};
    const resultatTransformation r = reussie(couples, translation);
    EXPECT_DOUBLE_EQ(r.transformation.translation().x, 2.0);
    EXPECT_DOUBLE_EQ(r.transformation.translation().y, 5.0);
    EXPECT_EQ(r.degresDeLiberte, 4);
    // Residuals (1, 3), (-1, 3), (0, -3), squares 10 + 10 + 2·9 over 4.
    EXPECT_DOUBLE_EQ(*r.s0, std::sqrt(38.0 / 4.0));
    EXPECT_DOUBLE_EQ(r.ecarts[2].redondance, 0.5);
    couples[2].actif = false;
    EXPECT_DOUBLE_EQ(reussie(couples, translation).transformation.translation().y, 2.0);
    EXPECT_DOUBLE_EQ(reussie(couples, translation).ecarts[2].vy, -6.0) << "told though switched off";
}

TEST(transformationPlane, refusesWhatTellsNothing)
{
    struct row {
        const char* nom;
        std::vector<couplePoints> couples;
        typeTransformation type;
        const wchar_t* morceau;
    };
    const row rows[] = {
        {"none", {}, translation, L"au moins 1"},
        {"all switched off", {{L"1", {0, 0}, {1, 1}, 1.0, false}}, translation, L"au moins 1"},
        {"one for a similarity", {{L"1", {0, 0}, {1, 1}}}, similitude, L"au moins 2"},
        {"two at one place", {{L"1", {5, 5}, {1, 1}}, {L"2", {5, 5}, {2, 2}}}, similitude, L"m\u00eame endroit"},
        {"in line",
         {{L"1", {1650000, 8180000}, {0, 0}}, {L"2", {1650010, 8180010}, {1, 0}}, {L"3", {1650030, 8180030}, {5, 5}}},
         affine,
         L"align\u00e9s"},
    };
    for (const row& r : rows) {
        const auto calcul = calculerTransformation(r.couples, r.type);
        ASSERT_TRUE(std::holds_alternative<std::wstring>(calcul)) << r.nom;
        EXPECT_NE(std::get<std::wstring>(calcul).find(r.morceau), std::wstring::npos) << r.nom;
    }
}

// Exact pairs come back exactly, far from the origin too; a pair that is wrong by some metres is named.
TEST(transformationPlane, recoversAndNamesTheBlunder)
{
    std::mt19937 hasard(23);
    std::uniform_real_distribution<double> d(-500.0, 500.0), bruit(-0.01, 0.01);
    for (const typeTransformation type : {translation, similitude, affine})
        for (int essai = 0; essai < 50; ++essai) {
            transformationPlane vraie;
            vraie.centre = {1650000 + d(hasard), 8180000 + d(hasard)};
            vraie.cible = {d(hasard), d(hasard)};
            if (type != translation) {
                vraie.xx = vraie.yy = 0.9;
                vraie.yx = 0.3;
                vraie.xy = -0.3;
            }
            if (type == affine)
                vraie.xy = 0.1;
            std::vector<couplePoints> couples;
            for (int i = 0; i < 8; ++i) {
                const point2 p{1650000 + d(hasard), 8180000 + d(hasard)};
                couples.push_back({std::to_wstring(i), p, vraie.appliquer(p)});
            }
            const resultatTransformation exacte = reussie(couples, type);
            for (const ecartCouple& e : exacte.ecarts)
                EXPECT_LT(std::hypot(e.vx, e.vy), 1e-8);
            for (couplePoints& c : couples)
                c.cible = c.cible + point2{bruit(hasard), bruit(hasard)};
            couples[5].cible.x += 5.0;
            const resultatTransformation fausse = reussie(couples, type);
            ASSERT_TRUE(fausse.pire);
            EXPECT_EQ(*fausse.pire, 5u);
            double redondances = 0.0;
            for (const ecartCouple& e : fausse.ecarts)
                redondances += 2 * e.redondance;
            EXPECT_NEAR(redondances, fausse.degresDeLiberte, 1e-9);
        }
}

} // namespace

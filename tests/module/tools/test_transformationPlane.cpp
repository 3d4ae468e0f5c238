#include <algorithm>
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
        {"beyond all places",
         {{L"A", {0, 0}, {1, 1}}, {L"B", {1e308, 5}, {2, 2}}},
         similitude,
         L"B \u00bb a une coord"},
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

// Inverse of a normal matrix, by elimination.
using matrice = std::vector<std::vector<double>>;
matrice inverse(matrice n)
{
    const std::size_t rang = n.size();
    matrice q(rang, std::vector<double>(rang));
    for (std::size_t i = 0; i < rang; ++i)
        q[i][i] = 1.0;
    for (std::size_t i = 0; i < rang; ++i) {
        const double pivot = n[i][i];
        for (std::size_t k = 0; k < rang; ++k) {
            n[i][k] /= pivot;
            q[i][k] /= pivot;
        }
        for (std::size_t j = 0; j < rang; ++j)
            if (const double f = n[j][i]; j != i)
                for (std::size_t k = 0; k < rang; ++k) {
                    n[j][k] -= f * n[i][k];
                    q[j][k] -= f * q[i][k];
                }
    }
    return q;
}

// Standard deviations of tX, tY and of the coefficients, against the inverse of the whole normal matrix in the
// coordinates as they are (ours reckons from the centre, with sums), for weights and places without symmetry.
TEST(transformationPlane, standardDeviationsOfCoefficients)
{
    std::vector<couplePoints> couples = {{L"1", {12, 7}, {112.04, 51.98}},
                                         {L"2", {95, 18}, {195.01, 63.03}, 2.0},
                                         {L"3", {81, 77}, {180.97, 122.02}, 0.5},
                                         {L"4", {20, 88}, {120.02, 132.95}, 3.0},
                                         {L"5", {55, 140}, {154.99, 185.06}}};
    const auto lignes = [](typeTransformation type, point2 p) -> matrice {
        if (type == translation)
            return {{1, 0}, {0, 1}};
        if (type == similitude)
            return {{1, 0, p.x, -p.y}, {0, 1, p.y, p.x}};
        return {{1, 0, p.x, p.y, 0, 0}, {0, 1, 0, 0, p.x, p.y}};
    };
    for (const typeTransformation type : {translation, similitude, affine}) {
        const std::size_t inconnues = lignes(type, {})[0].size();
        matrice normale(inconnues, std::vector<double>(inconnues));
        for (const couplePoints& c : couples)
            for (const auto& ligne : lignes(type, c.source))
                for (std::size_t i = 0; i < inconnues; ++i)
                    for (std::size_t k = 0; k < inconnues; ++k)
                        normale[i][k] += c.poids * ligne[i] * ligne[k];
        const matrice q = inverse(normale);
        const resultatTransformation r = reussie(couples, type);
        EXPECT_NEAR(r.sigmaTranslation, std::sqrt(q[0][0]), 1e-12);
        EXPECT_NEAR(r.sigmaTranslation, std::sqrt(q[1][1]), 1e-12);
        EXPECT_NEAR(r.sigmaX, type == translation ? 0.0 : std::sqrt(q[2][2]), 1e-12);
        EXPECT_NEAR(r.sigmaY, type == translation ? 0.0 : std::sqrt(q[3][3]), 1e-12);
        EXPECT_NEAR(r.sigmaY, type == translation ? 0.0 : std::sqrt(q.back().back()), 1e-12);
        // Each is written, with its unit.
        std::wstring phrases;
        for (const std::wstring& phrase : phrasesTransformation(couples, type, r))
            phrases += phrase + L"\n";
        EXPECT_EQ(std::ranges::count(phrases, L'\u00b1'), type == translation ? 3 : 7);
        EXPECT_NE(phrases.find(L"(unit\u00e9s du dessin)"), std::wstring::npos);
        EXPECT_EQ(phrases.find(L"(sans unit\u00e9)") != std::wstring::npos, type != translation);
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
            EXPECT_FALSE(exacte.pire) << "rounding is nobody's fault";
            for (couplePoints& c : couples)
                c.cible = c.cible + point2{bruit(hasard), bruit(hasard)};
            couples[5].cible.x += 5.0;
            const resultatTransformation fausse = reussie(couples, type);
            ASSERT_TRUE(fausse.pire);
            EXPECT_EQ(*fausse.pire, 5u);
            const std::size_t unDeTrop = type == translation ? 2 : type == similitude ? 3 : 4;
            const std::vector<couplePoints> justes(couples.begin(), couples.begin() + static_cast<int>(unDeTrop));
            EXPECT_FALSE(reussie(justes, type).pire) << "all stand alike";
            double redondances = 0.0;
            for (const ecartCouple& e : fausse.ecarts)
                redondances += 2 * e.redondance;
            EXPECT_NEAR(redondances, fausse.degresDeLiberte, 1e-9);
        }
}

} // namespace

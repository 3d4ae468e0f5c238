#include <gtest/gtest.h>

#include "tools/decalagePoints.h"
#include "tools/deplacementPoints.h"
#include "tools/projectionPoints.h"

namespace {

axe equerre(bool ferme = false)
{
    const sommetAxe sommets[] = {{{0, 0, 10}}, {{100, 0, 20}}, {{100, 50, 20}}};
    return axe::deSommets(sommets, ferme);
}

TEST(projection, reportEscapesNamesAndLeavesUnknownsEmpty)
{
    const abscisses numerotation(990.0);
    const pointNomme points[] = {{L"A<1>", {20, -2, inconnu}}};
    const auto projetes = projeterPoints(equerre(), numerotation, points);
    EXPECT_EQ(projetes[0].denivelee, inconnu);
    const std::string html = rapportProjection(equerre(), numerotation, projetes).text();
    EXPECT_NE(html.find("A&lt;1&gt;"), std::string::npos);
    EXPECT_NE(html.find(">1+10.000<"), std::string::npos);
    EXPECT_EQ(html.find("1000000000"), std::string::npos);
}

TEST(decalage, chainagesAndOffsets)
{
    using mode = demandeDecalage::mode;
    struct row {
        const char* nom;
        mode choix;
        bool ferme;
        double origine;
        std::vector<double> listees, attendues; // chainages
    };
    const row rows[] = {
        {"interval: multiples of the chainage, both ends", mode::intervalle, false, 13.0, {}, {13, 50, 100, 150, 163}},
        {"an end on a multiple comes once", mode::intervalle, false, 0.0, {}, {0, 50, 100, 150}},
        {"given, in their order; those outside give nothing", mode::abscisses, false, 0.0, {70, -1, 20, 151}, {70, 20}},
        {"vertices", mode::sommets, false, 0.0, {}, {0, 100, 150}},
        {"closed: its end is its start", mode::sommets, true, 0.0, {}, {0, 100, 150}},
    };
    for (const row& r : rows) {
        demandeDecalage d;
        d.choix = r.choix;
        d.pas = 50;
        d.listees = r.listees;
        std::vector<double> trouvees;
        for (const pointDecale& p : pointsDecales(equerre(r.ferme), abscisses(r.origine), d))
            trouvees.push_back(p.abscisse);
        EXPECT_EQ(trouvees, r.attendues) << r.nom;
    }
    demandeDecalage d;
    d.choix = mode::sommets;
    d.decalages = {-1, 2};
    d.altitudes = false;
    const auto points = pointsDecales(equerre(), abscisses(), d);
    ASSERT_EQ(points.size(), 6u);
    EXPECT_NEAR(points[1].place.y, -2, 1e-12);
    EXPECT_EQ(points[1].place.z, inconnu);
    EXPECT_NEAR(points[3].place.x, 102, 1e-12) << "at a vertex, square to the side that leaves it";
}

TEST(decalage, listsOfNumbers)
{
    std::wstring faute;
    EXPECT_EQ(nombresListes(L" 1; -2.5\t3 ", faute), (std::vector<double>{1, -2.5, 3}));
    EXPECT_TRUE(nombresListes(L"", faute)->empty());
    for (const wchar_t* const texte : {L"1 2,5", L"1 nan", L"x", L"1e999"}) {
        faute.clear();
        EXPECT_FALSE(nombresListes(texte, faute)) << faute.size();
        EXPECT_FALSE(faute.empty());
    }
}

TEST(altitudes, slopesTextsAndUnknowns)
{
    const pointNomme points[] = {{L"1", {50, 3, 5}}, {L"2", {150, -1, inconnu}}};
    EXPECT_EQ(altitudesDecalees(points, 2.0), (std::vector<double>{7, inconnu}));
    EXPECT_EQ(altitudesEnPente(points, {0, 0, 10}, {100, 0, 20}), (std::vector<double>{15, 25}));
    EXPECT_TRUE(altitudesEnPente(points, {1, 1, 10}, {1, 1, 20}).empty());
    EXPECT_EQ(altitudesDeLAxe(points, equerre()), (std::vector<double>{15, 20}));
    const point3 cotes[] = {{51, 3, 7.5}, {52, 3, 8}, {160, 0, 9}};
    EXPECT_EQ(altitudesVoisines(points, cotes, 1.0), (std::vector<double>{7.5, inconnu}));
    EXPECT_EQ(deportesDuVecteur(points, {1, 1, 1})[1].z, inconnu);
    EXPECT_NEAR(deportesDeLAxe(points, equerre(), 4)[0].y, -1, 1e-12);
}

} // namespace

#include <map>
#include <set>

#include <gtest/gtest.h>

#include "tools/carroyage.h"

namespace {

axe polygone(std::initializer_list<sommetAxe> sommets, bool ferme = true)
{
    return axe::deSommets(std::vector<sommetAxe>(sommets), ferme);
}

using noeud = std::pair<double, double>;

/// Crosses by their place: the middle of a level stroke that stands with an upright one.
std::set<noeud> croixDe(const dessinCarroyage& d)
{
    std::map<noeud, int> traits;
    for (const auto& t : d.traits)
        ++traits[{(t.de.x + t.a.x) / 2, (t.de.y + t.a.y) / 2}];
    std::set<noeud> croix;
    for (const auto& [place, nombre] : traits)
        if (nombre == 2)
            croix.insert(place);
    return croix;
}

std::size_t nombreDe(const dessinCarroyage& d, const std::string& contenu)
{
    return static_cast<std::size_t>(
        std::count_if(d.textes.begin(), d.textes.end(), [&](const auto& t) { return t.contenu == contenu; }));
}

const axe carre = polygone({{{0, 0, 0}}, {{250, 0, 0}}, {{250, 250, 0}}, {{0, 250, 0}}});
const axe equerre = polygone({{{0, 0, 0}},
                              {{0, 310, 0}},
                              {{310, 310, 0}},
                              {{310, 0, 0}},
                              {{210, 0, 0}},
                              {{210, 210, 0}},
                              {{90, 210, 0}},
                              {{90, 0, 0}}});

TEST(carroyage, crossesAreStrictlyInside)
{
    struct row {
        const char* nom;
        axe contour;
        double pas;
        std::set<noeud> croix;
    };
    const row rows[] = {
        {"square, border rows bear none", carre, 100, {{100, 100}, {100, 200}, {200, 100}, {200, 200}}},
        {"U, four crossings a row", equerre, 50, {{50, 50},   {50, 100},  {50, 150},  {50, 200},  {50, 250},
                                                  {50, 300},  {100, 250}, {150, 250}, {200, 250}, {100, 300},
                                                  {150, 300}, {200, 300}, {250, 50},  {250, 100}, {250, 150},
                                                  {250, 200}, {250, 250}, {250, 300}, {300, 50},  {300, 100},
                                                  {300, 150}, {300, 200}, {300, 250}, {300, 300}}},
        {"open: its last vertex is dropped",
         polygone({{{0, 0, 0}}, {{25, 0, 0}}, {{25, 25, 0}}, {{0, 25, 0}}, {{3, 3, 0}}}, false),
         10,
         {{10, 10}, {10, 20}, {20, 10}, {20, 20}}},
        {"disc",
         polygone({{{-15, 0, 0}, 1.0}, {{15, 0, 0}, 1.0}}),
         10,
         {{0, 0}, {-10, 0}, {10, 0}, {0, -10}, {0, 10}, {-10, -10}, {-10, 10}, {10, -10}, {10, 10}}},
        {"disc run the other way",
         polygone({{{-15, 0, 0}, -1.0}, {{15, 0, 0}, -1.0}}),
         10,
         {{0, 0}, {-10, 0}, {10, 0}, {0, -10}, {0, 10}, {-10, -10}, {-10, 10}, {10, -10}, {10, 10}}},
        {"slanting borders through nodes", polygone({{{0, 0, 0}}, {{30, 0, 0}}, {{0, 30, 0}}}), 10, {{10, 10}}},
        {"negative coordinates",
         polygone({{{-25, -25, 0}}, {{-5, -25, 0}}, {{-5, -5, 0}}, {{-25, -5, 0}}}),
         10,
         {{-20, -20}, {-20, -10}, {-10, -20}, {-10, -10}}},
        {"repeated vertices",
         polygone({{{5, 5, 0}}, {{5, 5, 0}}, {{15, 5, 0}}, {{15, 15, 0}}, {{15, 15, 0}}, {{5, 15, 0}}}),
         10,
         {{10, 10}}},
        {"less than a triangle", polygone({{{0, 0, 0}}, {{25, 25, 0}}}, false), 10, {}},
    };
    for (const row& r : rows) {
        parametresCarroyage p;
        p.pasX = p.pasY = r.pas;
        EXPECT_EQ(croixDe(carroyage(r.contour, p)), r.croix) << r.nom;
    }
}

TEST(carroyage, labelsAtTheOuterBordersOnly)
{
    parametresCarroyage p;
    p.pasX = p.pasY = 50;
    const dessinCarroyage d = carroyage(equerre, p);
    // Rows 50 to 300 (0 runs along the border), columns 50 to 300: two labels each.
    EXPECT_EQ(d.textes.size(), 2u * (6 + 6));
    EXPECT_EQ(nombreDe(d, "0.00"), 0u);
    for (const auto& t : d.textes)
        if (t.rotation == 0.0) {
            EXPECT_TRUE(t.place.x == -5 || t.place.x == 315) << t.place.x;
        }
}

TEST(carroyage, placesOfLabels)
{
    const axe bande = polygone({{{10, 90, 0}}, {{110, 90, 0}}, {{110, 110, 0}}, {{10, 110, 0}}});
    parametresCarroyage p;
    p.pasX = 1000; // no column but 0, which is outside
    p.decimales = 1;
    const dessinCarroyage dehors = carroyage(bande, p);
    ASSERT_EQ(dehors.textes.size(), 2u);
    EXPECT_EQ(dehors.textes[0].place, (point2{5, 99}));
    EXPECT_TRUE(dehors.textes[0].aDroite);
    EXPECT_EQ(dehors.textes[1].place, (point2{115, 99}));
    EXPECT_EQ(dehors.traits[0].a, (point2{7.5, 100}));
    EXPECT_EQ(dehors.textes[0].contenu, "100.0");
    p.ecrituresInternes = true;
    const dessinCarroyage dedans = carroyage(bande, p);
    EXPECT_EQ(dedans.textes[0].place, (point2{15, 99}));
    EXPECT_FALSE(dedans.textes[0].aDroite);
    EXPECT_EQ(dedans.textes[1].place, (point2{107.5, 99})) << "half as far as the others, on purpose";
    EXPECT_TRUE(dedans.textes[1].aDroite);

    p.pasX = 100;
    p.pasY = 1000;
    const dessinCarroyage colonne = carroyage(bande, p); // column 100 from 90 to 110
    ASSERT_EQ(colonne.textes.size(), 2u);
    EXPECT_EQ(colonne.textes[0].place, (point2{101, 95}));
    EXPECT_EQ(colonne.textes[1].place, (point2{101, 105}));
    EXPECT_FALSE(colonne.textes[0].aDroite);
    EXPECT_TRUE(colonne.textes[1].aDroite);
}

// Borders on the grid stay without crosses however the steps round, far from the origin and thousands of rows on.
TEST(carroyage, smallStepsAndFarPlaces)
{
    struct row {
        const char* nom;
        double x, y, pas;
        int nombre;
    };
    constexpr row rows[] = {{"tenths", 0.3, 0.7, 0.1, 50},
                            {"Lambert", 1650000.0, 8180000.0, 0.1, 100},
                            {"Lambert, thirds", 1650000.3, 8180000.6, 0.3, 40},
                            {"rows by the thousand", 0.0, 0.0, 0.01, 1000}};
    for (const row& r : rows) {
        const double k = r.nombre;
        const double xa = std::round(r.x / r.pas) * r.pas, ya = std::round(r.y / r.pas) * r.pas;
        const double xb = (std::round(r.x / r.pas) + k) * r.pas, yb = (std::round(r.y / r.pas) + k) * r.pas;
        parametresCarroyage p;
        p.pasX = p.pasY = r.pas;
        const dessinCarroyage d = carroyage(polygone({{{xa, ya, 0}}, {{xb, ya, 0}}, {{xb, yb, 0}}, {{xa, yb, 0}}}), p);
        const auto lignes = static_cast<std::size_t>(r.nombre - 1);
        EXPECT_EQ(d.traits.size(), 2 * lignes * lignes + 4 * lignes) << r.nom;
    }
}

} // namespace

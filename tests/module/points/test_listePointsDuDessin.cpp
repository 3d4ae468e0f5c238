#include <algorithm>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "points/listePointsDuDessin.h"
#include "points/pointsDistincts.h"

namespace {

pointDuDessin point(const wchar_t* nom, double x = 0, double y = 0, double z = 1, int code = 1)
{
    pointDuDessin p;
    p.setParams(nom, AcGePoint3d(x, y, z), code);
    return p;
}

void remplir(listePointsDuDessin& table, std::initializer_list<const wchar_t*> noms)
{
    double x = 0;
    for (const wchar_t* nom : noms)
        table.Ajouter(point(nom, x++));
}

std::vector<std::string> noms(const listePointsDuDessin& table)
{
    std::vector<std::string> resultat;
    for (int i = 0; i < table.nbPoint(); ++i)
        resultat.emplace_back(table.getData(i)->getNomPoint());
    return resultat;
}
using Noms = std::vector<std::string>;

int position(const listePointsDuDessin& table, const wchar_t* nom)
{
    int p = -2;
    const int trouve = table.existPoint(nom, p);
    EXPECT_EQ(trouve, p >= 0);
    return p;
}

TEST(listePointsDuDessin, findsNames)
{
    struct Row {
        const char* name;
        std::initializer_list<const wchar_t*> points;
        const wchar_t* sought;
        int position;
    };
    const Row rows[] = {
        {"as it is", {L"A1", L"B2"}, L"B2", 1},
        {"letter case", {L"Pt\u00c9"}, L"pT\u00e9", 0},
        {"spaces around", {L" A1 "}, L"  a1", 0},
        {"a tab is no space", {L"A1"}, L"A1\t", -1},
        {"a tab in the name is part of it", {L"\tA1"}, L"\tA1", 0},
        {"the last of a name", {L"A", L"B", L"a"}, L"A", 2},
        {"a name cut when it was given", {L"ABCDEFGHIJK"}, L"ABCDEFGHI", 0},
        {"the name looked up is not cut", {L"ABCDEFGHIJK"}, L"ABCDEFGHIJK", -1},
        {"the nameless point", {L"A", L" "}, L"", 1},
        {"outside the page", {L"?"}, L"\u4e2d", -1},
        {"question mark", {L"?"}, L"?", 0},
        {"absent", {L"A"}, L"B", -1},
        {"no points", {}, L"A", -1},
        {"null", {L"A"}, nullptr, -1},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        listePointsDuDessin table;
        remplir(table, r.points);
        EXPECT_EQ(position(table, r.sought), r.position);
    }
}

TEST(listePointsDuDessin, refusesPositionsOutside)
{
    listePointsDuDessin table;
    remplir(table, {L"A"});
    EXPECT_THROW(table.getData(1), CInvalidArgException*);
    EXPECT_THROW(table.getData(-1), CInvalidArgException*);
    EXPECT_EQ(table.getData(0), table.getData().GetData());
}

TEST(listePointsDuDessin, neverCreatesAtAltitudeZero)
{
    listePointsDuDessin table;
    table.CreerPoint(AcGePoint3d(1, 2, 0.0), 3, L"a");
    table.CreerPoint(AcGePoint3d(1, 2, -0.0), 3, L"a");
    EXPECT_EQ(table.nbPoint(), 0);
    table.CreerPoint(AcGePoint3d(1, 2, 0.000001), 3, nullptr);
    ASSERT_EQ(table.nbPoint(), 1);
    EXPECT_TRUE(*table.getData(0) == point(L"*", 1, 2, 0.000001, 3));
    EXPECT_TRUE(table.getData(0)->getId().isNull());
}

TEST(listePointsDuDessin, findsByPlace)
{
    listePointsDuDessin table;
    pointDuDessin trouve = point(L"avant");
    EXPECT_EQ(table.getAt(0, 0, trouve), 0);
    EXPECT_EQ(table.findNearestTo(0, 0, trouve), 0);
    EXPECT_STREQ(trouve.getNomPoint(), "avant");

    table.Ajouter(point(L"loin", 3e18, 0));
    table.Ajouter(point(L"a", 10, 0));
    table.Ajouter(point(L"b", 10.0000005, 0));
    table.Ajouter(point(L"c", -10, 0));
    struct Row {
        const char* name;
        double x, y;
        const char* at;
        const char* nearest;
    };
    const Row rows[] = {
        {"first within a millionth", 10.0000009, 0, "a", "b"},
        {"the second alone", 10.0000012, 0, "b", "b"},
        {"too far on one axis", 10, 0.000001, "", "a"},
        {"tie: the earliest", 0, 0, "", "a"},
        {"beyond the bound for all: the first", 0, 1e19, "", "loin"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        EXPECT_EQ(table.getAt(r.x, r.y, trouve), *r.at != '\0');
        if (*r.at) {
            EXPECT_STREQ(trouve.getNomPoint(), r.at);
        }
        EXPECT_EQ(table.findNearestTo(r.x, r.y, trouve), 1);
        EXPECT_STREQ(trouve.getNomPoint(), r.nearest);
    }
}

TEST(listePointsDuDessin, findsTheLargestNumber)
{
    struct Row {
        std::initializer_list<const wchar_t*> points;
        int largest;
    };
    const Row rows[] = {
        {{}, 0},         {{L"12", L"7B", L"A3"}, 12},  {{L"A3", L"", L"*"}, 0},
        {{L"-5"}, 0},    {{L"-5", L"--7", L"+-8"}, 0}, {{L" 12", L"+13"}, 13},
        {{L"007.9"}, 7}, {{L"9999999999"}, 999999999},
    };
    for (const Row& r : rows) {
        listePointsDuDessin table;
        remplir(table, r.points);
        EXPECT_EQ(table.getMaxNum(), r.largest);
    }
}

TEST(listePointsDuDessin, shiftsKnownAltitudes)
{
    listePointsDuDessin table;
    table.Ajouter(point(L"a", 0, 0, 10));
    table.Ajouter(point(L"b", 0, 0, 1e38));
    table.decalZ(-0.5);
    EXPECT_EQ(table.getData(0)->getZ(), 9.5);
    EXPECT_EQ(table.getData(1)->getZ(), 1e38);
}

TEST(listePointsDuDessin, mergesWithoutTestingDuplicates)
{
    listePointsDuDessin a, b;
    remplir(a, {L"1", L"2"});
    remplir(b, {L"2", L"3"});
    a.fusionnerAvec(b);
    EXPECT_EQ(noms(a), (Noms{"1", "2", "2", "3"}));
    EXPECT_EQ(position(a, L"2"), 2);
    a.fusionnerAvec(a);
    EXPECT_EQ(a.nbPoint(), 8);
    EXPECT_EQ(position(a, L"3"), 7);
}

TEST(listePointsDuDessin, removesByName)
{
    listePointsDuDessin table;
    remplir(table, {L"A", L"B", L"C", L"a"});
    table.supprimerPoint(L"inconnu");
    EXPECT_EQ(table.nbPoint(), 4);
    table.supprimerPoint(L" A");
    EXPECT_EQ(noms(table), (Noms{"A", "B", "C"}));
    EXPECT_EQ(position(table, L"a"), -1) << "the earlier namesake stays but is hidden";
    table.supprimerPoint(L"b");
    EXPECT_EQ(noms(table), (Noms{"A", "C"}));
    EXPECT_EQ(position(table, L"C"), 1);
    table.supprimerPoint(L"C");
    EXPECT_EQ(noms(table), (Noms{"A"}));

    listePointsDuDessin trois;
    remplir(trois, {L"1", L"2", L"3"});
    trois.supprimerPoint(L"1");
    EXPECT_EQ(noms(trois), (Noms{"3", "2"}));
    EXPECT_EQ(position(trois, L"3"), 0);
}

TEST(listePointsDuDessin, leavesAStaleEntryForANameWithTabs)
{
    listePointsDuDessin table;
    remplir(table, {L"\tT"});
    table.supprimerPoint(L"\tT");
    EXPECT_EQ(table.nbPoint(), 0);
    EXPECT_EQ(position(table, L"\tT"), 0) << "the entry removed is that of the name without tabs";
    AcDbObjectId id;
    EXPECT_THROW(table.getObjId(L"\tT", id), CInvalidArgException*);
}

TEST(listePointsDuDessin, numbersNamelessPoints)
{
    listePointsDuDessin table;
    remplir(table, {L"10", L"*", L" . ", L"3", L"\t", L"*.*", L""});
    table.renumeroter(false);
    EXPECT_EQ(noms(table), (Noms{"10", "11", "12", "3", "\t", "13", "14"}));
    EXPECT_EQ(position(table, L"11"), -1) << "the index keeps the old names";
    EXPECT_EQ(position(table, L"*"), 1);

    // The point that "*" finds is called 11 by now; what leaves the index is the name given.
    table.supprimerPoint(L"*");
    EXPECT_EQ(position(table, L"*"), -1);
    EXPECT_EQ(table.nbPoint(), 6);
}

TEST(listePointsDuDessin, numbersAllPoints)
{
    listePointsDuDessin table;
    remplir(table, {L"B", L"A", L"\tC"});
    table.renumeroter(true);
    EXPECT_EQ(noms(table), (Noms{"1", "2", "3"}));
    EXPECT_EQ(position(table, L"3"), 2);
    EXPECT_EQ(position(table, L"A"), -1);
}

TEST(listePointsDuDessin, removesDuplicatesKeepingTheLowestCode)
{
    listePointsDuDessin table;
    table.Ajouter(point(L"b5", 7, 1, 10, 5));
    table.Ajouter(point(L"b2", 7, 1, 20, 2));
    table.Ajouter(point(L"a", 3, 9, 1, 8));
    table.Ajouter(point(L" \tc", 7, 0, 1, 8));
    pointDuDessin dessine = point(L"d", 3, 9, 1, 9);
    dessine.setId(AcDbObjectId().setFromOldId(5));
    table.Ajouter(dessine);
    table.delDups();
    EXPECT_EQ(noms(table), (Noms{"a", " \tc", "b2"}));
    EXPECT_EQ(position(table, L"b2"), 2);
    EXPECT_EQ(position(table, L"C"), 1) << "tabs are stripped when the index is rebuilt";
    EXPECT_EQ(position(table, L"b5"), -1);
}

TEST(listePointsDuDessin, forgetsNamesWhenNothingWasDuplicate)
{
    listePointsDuDessin table;
    remplir(table, {L"B", L"A"});
    table.delDups();
    EXPECT_EQ(noms(table), (Noms{"B", "A"}));
    EXPECT_EQ(position(table, L"A"), -1);
    EXPECT_EQ(position(table, L"B"), -1);
    listePointsDuDessin vide;
    vide.delDups();
    EXPECT_EQ(vide.nbPoint(), 0);
}

TEST(listePointsDuDessin, followsMovedEntities)
{
    const auto objet = [](std::int64_t n) { return AcDbObjectId().setFromOldId(n); };
    listePointsDuDessin table;
    for (const std::int64_t n : {8, 16, 16}) {
        pointDuDessin p = point(L"p", 0, 0, 0);
        p.setId(objet(n));
        table.Ajouter(p);
    }
    struct Row {
        const char* name;
        std::int64_t objet;
        int masque;
        int moved;
        AcGePoint3d result;
    };
    const Row rows[] = {
        {"X and Y", 8, 3, 0, AcGePoint3d(1, 2, 0)},
        {"the first of two", 16, 7, 1, AcGePoint3d(1, 2, 3)},
        {"Z alone", 8, 4, 0, AcGePoint3d(1, 2, 3)},
        {"no coordinate", 8, 8, 0, AcGePoint3d(1, 2, 3)},
        {"an entity of no point", 99, 7, 2, AcGePoint3d(0, 0, 0)},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        table.notifyPositionPoint(objet(r.objet), AcGePoint3d(1, 2, 3), r.masque);
        const AcGePoint3d p = static_cast<const listePointsDuDessin&>(table).getData(r.moved)->getAs3dPnt();
        EXPECT_EQ(p.x, r.result.x);
        EXPECT_EQ(p.y, r.result.y);
        EXPECT_EQ(p.z, r.result.z);
    }

    // The entities change hands after the index was made.
    table.getData(2)->setId(objet(24));
    table.getData(1)->setId(objet(8));
    table.getData(0)->setId(objet(16));
    for (const auto& [n, attendu] : {std::pair{16, 0}, {8, 1}, {24, 2}}) {
        table.notifyPositionPoint(objet(n), AcGePoint3d(100 + n, 0, 0), 1);
        EXPECT_EQ(table.getData(attendu)->getX(), 100 + n);
    }
    table.supprimerPoint(L"p");
    table.notifyPositionPoint(objet(24), AcGePoint3d(5, 5, 5), 7); // gone with its point: nothing moves
    EXPECT_EQ(table.getData(0)->getX(), 116);
    EXPECT_EQ(table.getData(1)->getX(), 108);
}

TEST(listePointsDuDessin, growsFarBeyondItsFirstRoom)
{
    listePointsDuDessin table;
    constexpr int nombre = 200000;
    CString nom;
    for (int i = 0; i < nombre; ++i) {
        nom.Format(L"%c%d", i % 2 ? L'A' : L'b', i);
        table.Ajouter(point(nom));
    }
    for (int i = 0; i < nombre; ++i) {
        nom.Format(L"%c%d", i % 2 ? L'a' : L'B', i);
        ASSERT_EQ(position(table, nom), i);
    }
    // Removing every other one from the end keeps the rest within reach.
    for (int i = nombre - 1; i > 0; i -= 2) {
        nom.Format(L"A%d", i);
        table.supprimerPoint(nom);
    }
    EXPECT_EQ(table.nbPoint(), nombre / 2);
    for (int i = 0; i < nombre; i += 2) {
        nom.Format(L"B%d", i);
        int p = -1;
        ASSERT_TRUE(table.existPoint(nom, p));
        ASSERT_EQ(CString(table.getData(p)->getNomPoint()).CompareNoCase(nom), 0);
    }
}

TEST(pointsDistincts, sortsWithTolerance)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double inf = std::numeric_limits<double>::infinity();
    struct Row {
        const char* name;
        std::vector<lieuPoint> points;
        std::vector<int> kept;
    };
    const Row rows[] = {
        {"none", {}, {}},
        {"by X, then Y, then code", {{2, 0, 1, 0}, {1, 5, 1, 1}, {1, 4, 9, 2}, {1, 4.5, 3, 3}}, {2, 3, 1, 0}},
        {"X values within the tolerance are equal: Y decides", {{0.5e-8, 1, 1, 0}, {0, 2, 1, 1}}, {0, 1}},
        {"lowest code of a place", {{1, 1, 5, 0}, {1, 1, 2, 1}, {1, 1, -3, 2}}, {2}},
        {"equal in all keys: the earliest", {{1, 1, 5, 0}, {1, 1, 5, 1}}, {0}},
        {"within the tolerance on each axis, beyond it in distance", {{0, 0, 2, 0}, {9e-9, 9e-9, 1, 1}}, {1, 0}},
        {"just inside", {{0, 0, 2, 0}, {0.9e-8, 0, 1, 1}}, {1}},
        {"at the tolerance", {{0, 0, 1, 0}, {1e-8, 0, 1, 1}}, {0, 1}},
        {"both zeros are one place", {{0.0, 0, 2, 0}, {-0.0, -0.0, 1, 1}}, {1}},
        {"unknown coordinates are one place", {{1e38, 1e38, 2, 0}, {1e38, 1e38, 1, 1}}, {1}},
        {"what is no number is kept, last",
         {{nan, 0, 1, 0}, {-nan, 0, 1, 1}, {inf, 0, 1, 2}, {-inf, 0, 1, 3}, {5, 0, 1, 4}},
         {3, 4, 2, 0, 1}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        std::vector<int> kept;
        for (const lieuPoint& lieu : pointsDistincts(r.points))
            kept.push_back(lieu.position);
        EXPECT_EQ(kept, r.kept);
    }
}

TEST(pointsDistincts, sortsManyPointsAsAPlainSortDoes)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 hasard(seed);
    for (const double etendue : {1e4, 1e300}) {
        std::uniform_real_distribution<double> coordonnee(-etendue, etendue);
        std::vector<lieuPoint> lieux;
        for (int i = 0; i < 5000; ++i)
            lieux.push_back({i % 7 ? coordonnee(hasard) : 1e38, coordonnee(hasard), i % 3, i});
        std::vector<lieuPoint> attendu = lieux;
        std::sort(attendu.begin(), attendu.end(),
                  [](const lieuPoint& a, const lieuPoint& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
        const std::vector<lieuPoint> kept = pointsDistincts(lieux);
        ASSERT_EQ(kept.size(), attendu.size());
        for (std::size_t i = 0; i < kept.size(); ++i)
            ASSERT_EQ(kept[i].position, attendu[i].position);
    }
}

/// Chains of points nearer than the tolerance to their neighbours, but not to each other: an order that let the
/// tolerance into a comparison would be none.
TEST(pointsDistincts, holdsOnChains)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 hasard(seed);
    std::vector<lieuPoint> lieux;
    for (int i = 0; i < 20000; ++i)
        lieux.push_back({0.4e-8 * static_cast<double>(hasard() % 5000), 0.4e-8 * static_cast<double>(hasard() % 5),
                         static_cast<int>(hasard() % 10), i});
    const std::vector<lieuPoint> kept = pointsDistincts(lieux);
    std::set<int> positions;
    for (const lieuPoint& lieu : kept)
        positions.insert(lieu.position);
    EXPECT_EQ(positions.size(), kept.size());
    EXPECT_FALSE(kept.empty());
    std::shuffle(lieux.begin(), lieux.end(), hasard);
    const std::vector<lieuPoint> again = pointsDistincts(lieux);
    ASSERT_EQ(again.size(), kept.size()) << "the order given does not matter";
    for (std::size_t i = 0; i < kept.size(); ++i)
        ASSERT_EQ(again[i].position, kept[i].position);
}

} // namespace

#include <gtest/gtest.h>

#include "exchange/formatXYZ.h"
#include "exchange/lecteurLignes.h"
#include "services/grandeur.h"

namespace {

pointsLus lire(std::string_view contenu)
{
    sourceMemoire source(contenu);
    pointsLus lus;
    lecteurXYZ().lire(source, lus);
    return lus;
}

/// "name|x|y|z|code|observation" of each point, "?" for an unknown Z.
std::string resume(const std::vector<pointXYZ>& points)
{
    std::string texte;
    for (const pointXYZ& p : points) {
        char nombres[200];
        std::snprintf(nombres, sizeof nombres, "|%g|%g|%s|%d|", p.x, p.y,
                      p.z == inconnu ? "?" : std::to_string(p.z).c_str(), p.code);
        texte += p.nom + nombres + std::string(p.observation.begin(), p.observation.end()) + ";";
    }
    return texte;
}

} // namespace

TEST(formatXYZ, readsLines)
{
    struct Row {
        const char* name;
        std::string text;
        const char* points;
        std::size_t left;
    };
    const Row rows[] = {
        {"name, X, Y", "P1 10 20", "P1|10|20|?|1|;", 0},
        {"code 0 and an observation", "P2 10 20 5 0 borne  nord\n", "P2|10|20|5.000000|1|borne nord;", 0},
        {"blank lines", "\n \t \r\n\n", "", 0},
        {"X is no number", "P3 abc 20", "", 1},
        {"strict X refuses a leading point", "P .5 20", "", 1},
        {"strict Y refuses a trailing point and an exponent of its own", "P 5 12.\nP 5 1e3", "", 2},
        {"Y is missing", "P 5", "", 1},
        {"plain Z: a word is 0, so is the point that lists write for unknown", "P 1 2 abc\nP 1 2 .",
         "P|1|2|0.000000|1|;P|1|2|0.000000|1|;", 0},
        {"plain Z: what precedes the fault", "P 1 2 12,5\nP 1 2 +.5", "P|1|2|12.000000|1|;P|1|2|0.500000|1|;", 0},
        {"codes: negative, no number, beyond 32 bits", "a 1 2 3 -4\nb 1 2 3 x\nc 1 2 3 99999999999",
         "a|1|2|3.000000|-4|;b|1|2|3.000000|1|;c|1|2|3.000000|2147483647|;", 0},
        {"a comma does not separate", "P1,1,2", "", 1},
        {"a zero byte ends a line", std::string("P 1 2\0 3\nQ 3 4", 15), "P|1|2|?|1|;Q|3|4|?|1|;", 0},
        {"a long line is read in pieces of 1024", "P 1 2" + std::string(1019, ' ') + "Q 3 4", "P|1|2|?|1|;Q|3|4|?|1|;",
         0},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        const pointsLus lus = lire(r.text);
        EXPECT_EQ(resume(lus.points), r.points);
        EXPECT_EQ(lus.ecartees, r.left);
    }
}

TEST(formatXYZ, writesByteForByteAndReadsBack)
{
    std::vector<pointXYZ> points(2);
    points[0].nom = "P\xE9";
    points[0].x = 1.5;
    points[0].y = -2;
    points[0].code = 12;
    points[0].observation = L"borne \x20AC";
    points[1].nom = "12345678901";
    points[1].x = points[1].y = points[1].z = 0;
    const std::string contenu = contenuXYZ(points);
    EXPECT_EQ(contenu,
              "\n        P\xE9\t      1.500000\t     -2.000000\t99999999999999997748809823456034029568.000000\t    12"
              "\tborne \x80\n12345678901\t      0.000000\t      0.000000\t      0.000000\t     1");
    const std::vector<pointXYZ> relus = lire(contenu).points;
    ASSERT_EQ(relus.size(), 2u);
    EXPECT_EQ(relus[0].z, inconnu);
    EXPECT_EQ(relus[0].nom, points[0].nom);
    EXPECT_EQ(relus[0].observation, points[0].observation);
}

TEST(formatXYZ, trimsPathsAndAddsItsExtension)
{
    EXPECT_EQ(cheminPointsElague(L" \t;,leve.xyz., "), L"leve.xyz");
    EXPECT_EQ(cheminPointsElague(L" ,;."), L"");
    EXPECT_EQ(cheminAvecXYZ(L"a.txt"), L"a.txt.xyz");
    EXPECT_EQ(cheminAvecXYZ(L"A.XyZ"), L"A.XyZ");
}

TEST(pointXYZ, numbersEachRecordAndCopiesItsNumber)
{
    const pointXYZ un, deux, copie = un;
    EXPECT_EQ(deux.serie, un.serie + 1);
    EXPECT_EQ(copie.serie, un.serie);
    EXPECT_EQ(un.drapeau, 0);
}

TEST(lecteurLignes, cutsAtEveryEndWhateverTheBlocks)
{
    // Long enough for several blocks; lines of every length around the longest piece.
    std::string texte;
    std::vector<std::string> attendues;
    for (std::size_t i = 0; i < 90000; ++i) {
        const std::string ligne(i % 13, static_cast<char>('a' + i % 26));
        texte += ligne + (i % 2 ? "\r\n" : "\n");
        for (std::size_t pris = 0; pris == 0 || pris < ligne.size(); pris += 10)
            attendues.push_back(ligne.substr(pris, 10));
    }
    sourceMemoire source(texte);
    lecteurLignes lignes(source, 10);
    for (const std::string& attendue : attendues) {
        ASSERT_TRUE(lignes.suivante());
        ASSERT_EQ(lignes.ligne(), attendue) << lignes.numero();
    }
    EXPECT_FALSE(lignes.suivante());
    EXPECT_EQ(lignes.numero(), 90000u);
}

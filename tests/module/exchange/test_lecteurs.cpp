#include <cmath>

#include <gtest/gtest.h>

#include "exchange/colonnesSeparees.h"
#include "exchange/lecteurPoints.h"
#include "services/codages.h"
#include "services/grandeur.h"

#include "TestFolder.h"

namespace {

struct attendu {
    std::wstring nom;
    double x, y, z;
    int code = 1;
    std::wstring observation = {};
};

void comparer(const std::vector<pointXYZ>& lus, const std::vector<attendu>& attendus)
{
    ASSERT_EQ(lus.size(), attendus.size());
    for (std::size_t i = 0; i < lus.size(); ++i) {
        EXPECT_EQ(lus[i].nom, versAnsi(attendus[i].nom));
        EXPECT_EQ(lus[i].x, attendus[i].x);
        EXPECT_EQ(lus[i].y, attendus[i].y);
        EXPECT_EQ(lus[i].z, attendus[i].z);
        EXPECT_EQ(lus[i].code, attendus[i].code);
        EXPECT_EQ(lus[i].observation, attendus[i].observation);
    }
}

std::string utf16(std::string_view ascii, bool inverse)
{
    std::string octets = inverse ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : ascii)
        octets.append(inverse ? std::string{'\0', c} : std::string{c, '\0'});
    return octets;
}

} // namespace

TEST(lecteurs, readFilesOfOtherPrograms)
{
    struct Row {
        const char* name;
        const char* file;
        std::string text;
        std::vector<attendu> points;
        std::vector<std::size_t> problems; ///< their lines
    };
    const std::string xml = "<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.0'>";
    const Row rows[] = {
        {"semicolons, decimal comma, no header",
         "a.csv",
         "P1;10,5;20,5;1,25;3;borne\nP2;1;2;;;\n",
         {{L"P1", 10.5, 20.5, 1.25, 3, L"borne"}, {L"P2", 1, 2, inconnu}},
         {}},
        {"commas", "a.csv", "P1, 10.5, 20.5\n", {{L"P1", 10.5, 20.5, inconnu}}, {}},
        {"commas around quoted decimal commas",
         "a.csv",
         "\"P \"\"1\"\"\",\"10,5\",\"20,5\"\n",
         {{L"P \"1\"", 10.5, 20.5, inconnu}},
         {}},
        {"blanks, decimal comma",
         "a.asc",
         "1 10,5 20,5 -1,5\n\n2\t 11 21\n",
         {{L"1", 10.5, 20.5, -1.5}, {L"2", 11, 21, inconnu}},
         {}},
        {"tabs with an empty cell", "a.tsv", "P1\t1.5\t2.5\t\t7\n", {{L"P1", 1.5, 2.5, inconnu, 7}}, {}},
        {"header, columns out of order, windows-1252",
         "a.csv",
         "Code;N\xB0;Nord;Est;Libell\xE9;Alt\n4;P\xE9;20;10;x;5\n",
         {{L"P\xE9", 10, 20, 5, 4, L"x"}},
         {}},
        {"utf-8 with its mark", "a.csv", "\xEF\xBB\xBFnom;x;y\nP\xC3\xA9;1;2\n", {{L"P\xE9", 1, 2, inconnu}}, {}},
        {"utf-16, either order", "a.csv", utf16("P1;1,5;2,5\r\n", false), {{L"P1", 1.5, 2.5, inconnu}}, {}},
        {"utf-16, the other order", "a.csv", utf16("P1;1,5;2,5\r\n", true), {{L"P1", 1.5, 2.5, inconnu}}, {}},
        {"a name in letters that names do not have is told",
         "a.csv",
         "\xCE\xA9"
         "1;1;2\n",
         {{L"?1", 1, 2, inconnu}},
         {1}},
        {"utf-16 that ends amid a character",
         "a.csv",
         utf16("P1;1;2;3;4;a", false) + "\x3D\xD8",
         {{L"P1", 1, 2, 3, 4, L"a?"}},
         {}},
        {"three numbers with decimals have no name", "a.pts", "1.5 2.5 3.5\n", {{L"", 1.5, 2.5, 3.5}}, {}},
        {"words of an observation",
         "a.pts",
         "P1 1 2 3 7 borne nord\nP2 1 2 3 7 bord du trottoir est\n",
         {{L"P1", 1, 2, 3, 7, L"borne nord"}, {L"P2", 1, 2, 3, 7, L"bord du trottoir est"}},
         {}},
        {"a header's N is the number where another column is north",
         "a.csv",
         "N;X;Y;Z\n101;1;2;3\n",
         {{L"101", 1, 2, 3}},
         {}},
        {"or the first of two", "a.csv", "N;N;E\n101;1;2\n", {{L"101", 2, 1, inconnu}}, {}},
        {"and north where none is", "a.csv", "Nom;N;E\n101;1;2\n", {{L"101", 2, 1, inconnu}}, {}},
        {"columns and cells that nothing takes are told",
         "a.csv",
         "Nom;X;Y;Heure\nP1;1;2;8h\nP2;1;2;8h;;reste\n",
         {{L"P1", 1, 2, inconnu}, {L"P2", 1, 2, inconnu}},
         {1, 3}},
        {"bad lines are told",
         "a.csv",
         "P1;1;2;3\nP2;x;2;3\nP3;1;2;z\nP4;1\nP5;1;2;3;ARB\n\"P6;1;2\n",
         {{L"P1", 1, 2, 3}, {L"P5", 1, 2, 3, 1, L"ARB"}},
         {2, 3, 4, 5, 6}},
        {"lines that end with carriage returns alone",
         "a.csv",
         "P1;1;2\r\rP2;3;4\r",
         {{L"P1", 1, 2, inconnu}, {L"P2", 3, 4, inconnu}},
         {}},
        {"an altitude that a list of points does not know", "a.csv", "P1;1;2;.;3\n", {{L"P1", 1, 2, inconnu, 3}}, {}},
        {"what no survey holds comes in, and is told",
         "a.csv",
         "P1;1;2;3;20000\n;4;5;6;7\nP3;1e300;2;3;4\nP4;1;2;3;-1\n",
         {{L"P1", 1, 2, 3, 20000}, {L"", 4, 5, 6, 7}, {L"P3", 1e300, 2, 3, 4}, {L"P4", 1, 2, 3, -1}},
         {1, 2, 3, 4}},
        {"the same in a file of points", "a.xyz", "P1 1 2 3 20000\n", {{L"P1", 1, 2, 3, 20000}}, {1}},
        {"instrument, carriage returns alone, no name",
         "a.gsi",
         "110001+00000A12 81..00+00012345 82..00+00067890\r81..00+00001000 82..00+00002000\r",
         {{L"A12", 12.345, 67.89, inconnu}, {L"", 1, 2, inconnu}},
         {2}},
        {"instrument, 8 characters",
         "a.gsi",
         "110001+00000A12 81..00+00012345 82..00+00067890 83..00+00001234\r\n",
         {{L"A12", 12.345, 67.89, 1.234}},
         {}},
        {"instrument, 16 characters, other units, found by content",
         "a.dat",
         "*110001+0000000000000012 81..06-0000000000012345 82..08+0000000000067890 71....+0000000000000007 "
         "72....+000000000BORDURE\n",
         {{L"12", -1.2345, 0.6789, inconnu, 7, L"BORDURE"}},
         {}},
        {"instrument: station, feet, code block, bad word, no unit",
         "a.gsi",
         "110001+000000S1 84..00+00001000 85..00+00002000\n110002+00000002 81..01+00010000 82..01+00020000\n"
         "410003+00000001\n110004+00000004 81..00+0001\n110005+00000005 81..09+00001000 82..00+00001000\n",
         {{L"S1", 1, 2, inconnu}, {L"2", 10 * 0.3048, 20 * 0.3048, inconnu}},
         {2, 3, 4, 5}},
        {"LandXML: north first, entities, code",
         "a.xml",
         xml + "\n<CgPoints><CgPoint name='A&amp;B' code='3' desc='d'> 20.5\n10.5 5</CgPoint></CgPoints></LandXML>",
         {{L"A&B", 10.5, 20.5, 5, 3, L"d"}},
         {}},
        {"LandXML: prefix, feet, reference, bad number",
         "a.landxml",
         "<l:LandXML xmlns:l='u'><l:Units><l:Imperial linearUnit='foot'/></l:Units>\n<l:CgPoint name='a'>1 "
         "2</l:CgPoint>\n"
         "<l:CgPoint pntRef='a'/>\n<l:CgPoint name='b'>1 x</l:CgPoint></l:LandXML>",
         {{L"a", 2 * 0.3048, 0.3048, inconnu}},
         {1, 3, 4}},
        {"LandXML: unit after the points, a number too many",
         "a.xml",
         xml + "<CgPoint name='a'>1 2</CgPoint>\n<CgPoint name='b'>1 2 3 4</CgPoint>\n<Imperial linearUnit='foot'/>"
               "</LandXML>",
         {{L"a", 2 * 0.3048, 0.3048, inconnu}, {L"b", 2 * 0.3048, 0.3048, 3 * 0.3048}},
         {2, 3}},
        {"LandXML: a point in a point, one unit more",
         "a.xml",
         xml + "<Metric linearUnit='meter'/><CgPoint name='a'>1 2 3<CgPoint name='b'>4 5 6</CgPoint></CgPoint>\n"
               "<Imperial linearUnit='foot'/><CgPoint name='c'>1 2<Feature>9</Feature></CgPoint></LandXML>",
         {{L"a", 2, 1, 3}, {L"c", 2, 1, inconnu}},
         {1, 2}},
        {"LandXML cut short keeps what was read",
         "a.xml",
         xml + "<CgPoint name='a'>1 2</CgPoint>\n<CgPoi",
         {{L"a", 2, 1, inconnu}},
         {2}},
        {"other XML is refused", "a.xml", "<a/>", {}, {0}},
        {"a binary file is refused",
         "a.csv",
         std::string("\x7F"
                     "ELF\1\1\0\0\0\0",
                     10),
         {},
         {0}},
        {"a line cut into pieces is told once",
         "a.xyz",
         "P1 1 2\n" + std::string(5000, 'x') + "\nP3 1 2\nx\n",
         {{L"P1", 1, 2, inconnu}, {L"P3", 1, 2, inconnu}},
         {2, 4}},
        {"one whose pieces are points too",
         "a.xyz",
         "P1 1 2 3 4 " + std::string(1012, 'x') + " P2 5 6 x x\n",
         {{L"P1", 1, 2, 3, 4, std::wstring(1012, L'x')}, {L"P2", 5, 6, 0}},
         {1}},
        {"a point file without line feeds", "a.txt", "P1 1 2 3\rP2 4 5\r", {{L"P1", 1, 2, 3, 4, L"5"}}, {0, 1}},
        {"what a point file reads leniently is told",
         "a.xyz",
         "P1 1 2 .\nP2 1 2 12,5 7\nP3 1 2 3 BORD clou\nP4 1 2 3 7a\nP5 1 2 3 +7\nP6 1 2 3 0\nP7 1 2 1e3\n",
         {{L"P1", 1, 2, 0},
          {L"P2", 1, 2, 12, 7},
          {L"P3", 1, 2, 3, 1, L"clou"},
          {L"P4", 1, 2, 3, 7},
          {L"P5", 1, 2, 3, 7},
          {L"P6", 1, 2, 3},
          {L"P7", 1, 2, 1000}},
         {1, 2, 3, 4}},
        {"a point file in UTF-16", "a.txt", utf16("P1 1 2\n", false), {}, {0, 1}},
        {"a point file in UTF-8 is read by its rules, and told",
         "a.xyz",
         "\xEF\xBB\xBFP1 1 2\nP\xC3\xA9 3 4\n",
         {{L"\u00EF\u00BB\u00BFP1", 1, 2, inconnu}, {L"P\u00C3\u00A9", 3, 4, inconnu}},
         {0}},
        {"txt goes by the rules of point files", "a.TXT", "P1;1;2\nP2 1 2\n", {{L"P2", 1, 2, inconnu}}, {1}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        sourceMemoire source(r.text);
        const pointsLus lus = lirePoints(source, r.file);
        comparer(lus.points, r.points);
        std::vector<std::size_t> lignes;
        for (const problemeLecture& p : lus.problemes)
            lignes.push_back(p.ligne);
        EXPECT_EQ(lignes, r.problems);
    }
}

TEST(lecteurs, takeCodesAndObservationsThatBeginFarDown)
{
    std::string octets;
    for (int i = 0; i < 60; ++i)
        octets += "101;2;3;4\n";
    octets += "P;1;2;3;7;clou;de;ville\n";
    sourceMemoire source(octets);
    pointsLus lus;
    lecteurColonnes().lire(source, lus);
    ASSERT_EQ(lus.points.size(), 61u);
    EXPECT_EQ(lus.remarquees, 0u);
    EXPECT_EQ(lus.points.back().code, 7);
    EXPECT_EQ(lus.points.back().observation, L"clou de ville");
}

TEST(lecteurs, sayWhatIsWrongInWords)
{
    sourceMemoire source("P1;1;2;3\nP\x01;x;2;3\n");
    const pointsLus lus = lirePoints(source, "a.csv");
    EXPECT_EQ(
        phrasesProblemes(L"a.csv", lus),
        (std::vector<std::wstring>{L"a.csv, ligne 2 : X « x » n'est pas un nombre. Ligne écartée : « P.;x;2;3 »"}));
    sourceMemoire mots("110001+0\x02\n");
    EXPECT_EQ(lirePoints(mots, "a.gsi").problemes[0].raison, L"« 110001+0. » n'est pas un mot de 8 caractères.");
    sourceMemoire balises("<LandXML><a></b></LandXML>");
    EXPECT_EQ(lirePoints(balises, "a.xml").problemes[0].raison,
              L"XML mal formé, la suite n'est pas lue (une balise ferme un autre élément que le dernier ouvert).");
}

TEST(lecteurs, takeTheColumnsThatTheUserChose)
{
    const lecteurColonnes lecteur({';', true, {colonne::y, colonne::x, colonne::ignoree, colonne::nom}});
    sourceMemoire source("a;b;c;d\n1;2;9;P\n");
    pointsLus lus;
    lecteur.lire(source, lus);
    comparer(lus.points, {{L"P", 2, 1, inconnu}});
    const auto apercu = apercuColonnes("a;\xC3\xA9\n\n1;2\n3;4\n", ';', 2);
    EXPECT_EQ(apercu, (std::vector<std::vector<std::wstring>>{{L"a", L"\xE9"}, {L"1", L"2"}}));
}

TEST(lecteurs, refuseFoldersAndMissingFiles)
{
    TestFolder folder;
    for (const char* const nom : {"dossier", "dossier.xml", "dossier.xyz", "dossier.gsi"}) {
        std::filesystem::create_directory(folder / nom);
        const pointsLus lus = lirePoints(folder / nom);
        ASSERT_EQ(lus.problemes.size(), 1U) << nom;
        EXPECT_EQ(lus.problemes[0].raison, L"lecture impossible du fichier.");
    }
    EXPECT_FALSE(lirePoints(folder / "absent.csv").lisible);
    EXPECT_TRUE(lirePoints(folder.write("vide.csv")).lisible);
}

TEST(lecteurs, tellOfAFileThatAnotherProgramChangesMeanwhile)
{
    namespace fs = std::filesystem;
    TestFolder folder;
    std::string texte;
    constexpr int lignes = 20000;
    for (int i = 0; i < lignes; ++i)
        texte += "P 1.5 2.5 3.5\n";
    const auto lireApres = [&](const char* nom, const auto& changer) {
        const fs::path fichier = folder.write(nom, texte);
        sourceFichier source(fichier);
        source.debut();
        changer(fichier);
        return lirePoints(source, fichier);
    };
    for (const char* const nom : {"leve.xyz", "leve.asc"})
        for (const std::size_t taille : {texte.size() / 2 + 5, texte.size() + 100}) {
            const pointsLus lus = lireApres(nom, [taille](const fs::path& f) { fs::resize_file(f, taille); });
            EXPECT_FALSE(lus.lisible);
            EXPECT_GT(lus.points.size(), 9000u);
            EXPECT_NE(phrasesProblemes(L"leve", lus).back().find(L"leve : un autre programme a changé le fichier"),
                      std::wstring::npos);
        }
    // What was opened stays there to be read.
    const pointsLus lus = lireApres("parti.xyz", [](const fs::path& f) { fs::remove(f); });
    EXPECT_TRUE(lus.lisible);
    EXPECT_EQ(lus.points.size(), static_cast<std::size_t>(lignes));
}

namespace {

/// A line of 256 MB that no reader may hold.
class ligneSansFin final : public sourceOctets {
public:
    explicit ligneSansFin(std::string_view debut) : m_debut(debut) {}
    etatSource etat() const override { return etatSource::saine; }
    std::size_t plusGrand = 0; ///< the most that was asked for at once

private:
    std::size_t lireSuite(char* cible, std::size_t taille) override
    {
        plusGrand = std::max(plusGrand, taille);
        const std::size_t donnes = std::min(taille, m_reste);
        std::fill_n(cible, donnes, 'x');
        std::copy_n(m_debut.data(), std::min(donnes, m_debut.size()), cible);
        m_debut = {};
        m_reste -= donnes;
        return donnes;
    }

    std::string_view m_debut;
    std::size_t m_reste = std::size_t{1} << 28;
};

} // namespace

TEST(lecteurs, stopAtAnXmlThatOpensOrNamesWithoutEnd)
{
    for (const bool ouvrir : {true, false}) {
        std::string texte = "<LandXML>";
        for (int i = 0; i < 1000000; ++i) // more than 64 MB of the parser's own
            texte += ouvrir ? "<a>" : "<a" + std::to_string(i) + "/>";
        sourceMemoire source(texte);
        const pointsLus lus = lirePoints(source, "a.xml");
        ASSERT_EQ(lus.problemes.size(), 1U);
        EXPECT_EQ(lus.problemes[0].raison, L"éléments emboîtés ou noms sans fin : ce n'est pas un levé.");
    }
}

TEST(lecteurs, readAnEndlessLineInBoundedMemory)
{
    for (const auto& [fichier, debut] :
         {std::pair{"a.xyz", "P "}, {"a.csv", "P1;1;2;"}, {"a.gsi", "110001+"}, {"a.xml", "<LandXML a='"}}) {
        SCOPED_TRACE(fichier);
        ligneSansFin source(debut);
        const pointsLus lus = lirePoints(source, fichier);
        EXPECT_TRUE(lus.points.empty());
        EXPECT_FALSE(lus.problemes.empty());
        EXPECT_LT(source.plusGrand, std::size_t{1} << 20);
    }
}

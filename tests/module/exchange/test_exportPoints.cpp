#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "exchange/exportPoints.h"
#include "exchange/lecteurPoints.h"
#include "services/grandeur.h"

#include "TestFolder.h"

namespace {

pointSuivant liste(std::vector<pointExporte> points)
{
    return [points = std::move(points), i = std::size_t{0}](pointExporte& p) mutable {
        if (i == points.size())
            return false;
        p = points[i++];
        return true;
    };
}

const std::vector<pointExporte> deuxPoints{{"P1", 1.5, -2, inconnu, 3, {}}, {"<\xE9>", 10, 20, 5.00004, 12, "a&b"}};

/// No file may grow beyond this size meanwhile, as on a full disk.
class disquePlein {
public:
    explicit disquePlein(rlim_t octets) : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_avant);
        const rlimit borne{octets, m_avant.rlim_max};
        setrlimit(RLIMIT_FSIZE, &borne);
    }
    ~disquePlein()
    {
        setrlimit(RLIMIT_FSIZE, &m_avant);
        std::signal(SIGXFSZ, m_signal);
    }

private:
    void (*m_signal)(int);
    rlimit m_avant{};
};

} // namespace

TEST(exportPoints, writesTextInPlaceAndKeepsTheOldEnd)
{
    TestFolder folder;
    const std::string lignes = "        P1\t         1.5000\t        -2.0000\t              .\t    3\n"
                               "       <\xE9>\t        10.0000\t        20.0000\t         5.0000\t   12\n";
    const auto fichier = folder / "liste.xyz";
    EXPECT_EQ(exporterPoints(fichier, formatExport::texte, liste(deuxPoints)), issueEcriture::ecrit);
    EXPECT_EQ(folder.read("liste.xyz"), lignes);
    folder.write("liste.xyz", std::string(lignes.size(), '-') + "ancien");
    EXPECT_EQ(exporterPoints(fichier, formatExport::texte, liste(deuxPoints)), issueEcriture::ecrit);
    EXPECT_EQ(folder.read("liste.xyz"), lignes + "ancien");
}

TEST(exportPoints, writesAPage)
{
    TestFolder folder;
    folder.write("liste.htm", std::string(10000, '-'));
    EXPECT_EQ(exporterPoints(folder / "liste.htm", formatExport::html, liste(deuxPoints)), issueEcriture::ecrit);
    const std::string page = folder.read("liste.htm");
    const std::string fin =
        "<tr ><td CLASS=celgris>N\xB0</td><td CLASS=celgris>X</td><td CLASS=celgris>Y</td><td CLASS=celgris>Z</td>"
        "<td CLASS=celgris>Code</td></tr>"
        "<tr ><td class=celnorm align='left'>P1</td><td class=celnorm align=right>1.5000</td>"
        "<td class=celnorm align=right>-2.0000</td><td class=celnorm align=right>&nbsp</td>"
        "<td class=celnorm align=right>3</td></tr>"
        "<tr ><td class=celnorm align='left'>&lt;\xE9&gt;</td><td class=celnorm align=right>10.0000</td>"
        "<td class=celnorm align=right>20.0000</td><td class=celnorm align=right>5.0000</td>"
        "<td class=celnorm align=right>12</td></tr></table>\n</body>\n</html>";
    EXPECT_TRUE(page.starts_with("<html>\n<head>\n")) << page;
    EXPECT_TRUE(page.ends_with(fin)) << page;
    for (const char* const classe : {".petit{", ".grand{", ".titre{", ".celnorm{", ".celgris{"})
        EXPECT_NE(page.find(classe), std::string::npos) << classe;
}

TEST(exportPoints, writesLandXmlThatReadsBackTheSame)
{
    TestFolder folder;
    const auto fichier = folder / "liste.xml";
    EXPECT_EQ(
        exporterLandXml(
            fichier, liste({{"P\"1\xE9", 0.1, 1e-7, inconnu, 3, "a&b <c>"}, {"2", 1.0 / 3, 6600000.001, 5, 1, {}}}), 0),
        issueEcriture::ecrit);
    EXPECT_NE(folder.read("liste.xml").find("date=\"1970-01-01\" time=\"00:00:00\""), std::string::npos);
    const pointsLus lus = lirePoints(fichier);
    EXPECT_TRUE(lus.problemes.empty());
    ASSERT_EQ(lus.points.size(), 2u);
    EXPECT_EQ(lus.points[0].nom, "P\"1\xE9");
    EXPECT_EQ(lus.points[0].observation, L"a&b <c>");
    EXPECT_EQ(lus.points[0].y, 1e-7);
    EXPECT_EQ(lus.points[0].z, inconnu);
    EXPECT_EQ(lus.points[0].code, 3);
    EXPECT_EQ(lus.points[1].x, 1.0 / 3);
    EXPECT_EQ(lus.points[1].y, 6600000.001);
}

TEST(exportPoints, chooseTheFormatByTheExtension)
{
    EXPECT_EQ(formatDuFichier("a.HTM"), formatExport::html);
    EXPECT_EQ(formatDuFichier("a.html"), formatExport::html);
    EXPECT_EQ(formatDuFichier("a.xml"), formatExport::landXml);
    EXPECT_EQ(formatDuFichier("a.csv"), formatExport::texte);
    EXPECT_EQ(formatDuFichier("a"), formatExport::texte);
}

TEST(exportPoints, aFullDiskLeavesTheOldFileOrSaysItIsDamaged)
{
    TestFolder folder;
    const std::vector<pointExporte> beaucoup(5000, deuxPoints[0]);
    for (const formatExport format : {formatExport::html, formatExport::landXml, formatExport::texte}) {
        folder.write("liste", "ancien");
        std::error_code erreur;
        const issueEcriture issue = [&] {
            const disquePlein plein(20000);
            return exporterPoints(folder / "liste", format, liste(beaucoup), &erreur);
        }();
        EXPECT_NE(phraseEcriture(L"a", issue, erreur).find(L"(plus de place sur le disque) ; le fichier"),
                  std::wstring::npos);
        const bool surPlace = format == formatExport::texte;
        EXPECT_EQ(issue, surPlace ? issueEcriture::abime : issueEcriture::intact);
        EXPECT_EQ(folder.read("liste") == "ancien", !surPlace);
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1) << "nothing is left beside";
    folder.write("liste", "ancien");
    std::filesystem::permissions(folder / "liste", std::filesystem::perms::owner_read);
    std::filesystem::create_directory(folder / "dossier");
    for (const formatExport format : {formatExport::html, formatExport::landXml, formatExport::texte})
        for (const auto& [nom, dit] : {std::pair{"liste", L"protégé"}, {"dossier", L"c'est un dossier"}}) {
            std::error_code erreur;
            const issueEcriture issue = exporterPoints(folder / nom, format, liste(deuxPoints), &erreur);
            EXPECT_EQ(issue, issueEcriture::intact);
            EXPECT_NE(phraseEcriture(L"a", issue, erreur).find(dit), std::wstring::npos);
        }
    EXPECT_EQ(folder.read("liste"), "ancien");
    EXPECT_EQ(exporterPoints(folder / "absent/liste", formatExport::html, liste(deuxPoints)), issueEcriture::intact);
    EXPECT_EQ(phraseEcriture(L"a", issueEcriture::ecrit), L"");
}

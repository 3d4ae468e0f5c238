#include <fstream>
#include <vector>

#include <gtest/gtest.h>

#include "codification/regleCode.h"
#include "codification/tableCodification.h"
#include "codification/xmlCodification.h"
#include "rx/Console.h"
#include "services/codages.h"
#include "services/dossierSupport.h"

#include "dbapserv.h"
#include "dbsymtb.h"
#include "supportEssai.h"

namespace fs = std::filesystem;

namespace {

const fs::path defcodif = supportEssai::fichier("defcodif");

class TableCodificationTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const auto& e : fs::directory_iterator(supportEssai::dossier()))
            if (e.path().filename().string().starts_with("defcodif"))
                fs::remove(e.path());
    }
    static std::wstring large(const fs::path& chemin) { return chemin.wstring(); }

    /// Files beside "defcodif", by what follows that name.
    static std::vector<std::string> aCote()
    {
        std::vector<std::string> noms;
        for (const auto& e : fs::directory_iterator(supportEssai::dossier()))
            if (const std::string nom = e.path().filename().string(); nom.starts_with("defcodif") && nom != "defcodif")
                noms.push_back(nom.substr(8));
        std::sort(noms.begin(), noms.end());
        return noms;
    }
};

constexpr const char* unCode = "<codifPoints>\n    <TBdata>\n        <codifPoint>\n"
                               "            <code>7</code>\n"
                               "            <libelle>Arbre  &lt;\xC3\xA9t\xC3\xA9&gt;</libelle>\n"
                               "            <chemin>C:\\a.dwg</chemin>\n"
                               "            <tailleBlock>0.333333</tailleBlock>\n"
                               "            <precisionAltitudes>3</precisionAltitudes>\n"
                               "            <layerBlock>A</layerBlock>\n"
                               "            <layerAltitudes>B</layerAltitudes>\n"
                               "            <layerNumero>C</layerNumero>\n"
                               "            <layerObs>D</layerObs>\n"
                               "            <layerCode>E</layerCode>\n"
                               "            <coulLayerBlock>1</coulLayerBlock>\n"
                               "            <coulLayerAltitudes>2</coulLayerAltitudes>\n"
                               "            <coulLayerNumero>3</coulLayerNumero>\n"
                               "            <coulLayerObs>4</coulLayerObs>\n"
                               "            <coulLayerCode>300</coulLayerCode>\n"
                               "        </codifPoint>\n    </TBdata>\n</codifPoints>\n";

codifPoint codeDeLExemple()
{
    codifPoint code;
    code.code = 7;
    code.libelle = L"Arbre  <été>";
    code.chemin = L"C:\\a.dwg";
    code.tailleBlock = 1.0 / 3.0;
    code.precisionAltitudes = 3;
    code.layers = {L"A", L"B", L"C", L"D", L"E"};
    code.couleurs = {1, 2, 3, 4, 300};
    return code;
}

TEST_F(TableCodificationTest, writesItsXml)
{
    const std::vector<codifPoint> codes{codeDeLExemple()};
    EXPECT_EQ(xmlDeCodes(codes), unCode);
    std::vector<codifPoint> lus;
    ASSERT_TRUE(codesDeXml(unCode, lus));
    ASSERT_EQ(lus.size(), 1U);
    EXPECT_EQ(xmlDeCodes(lus), unCode) << "blanks within texts and values out of range come back as they were";
    EXPECT_EQ(lus[0].tailleBlock, 0.333333);
}

TEST_F(TableCodificationTest, keepsAnyLabel)
{
    const struct {
        const wchar_t *ecrit, *lu;
    } rows[] = {
        {L"<a> & \"b\" 'c' </libelle>", nullptr},         {L"deux\nlignes\tet  blancs ", nullptr},
        {L"&#x41; n'est pas A, &#x non plus <", nullptr}, {L"]]> &amp;", nullptr},
        {L"&#x41; ]]> &#x42;", L"& #x41; ]]> & #x42;"},   {L"\u20ac \U0001F332", nullptr},
    };
    for (const auto& r : rows) {
        std::vector<codifPoint> codes(2), lus;
        codes[0].libelle = r.ecrit;
        ASSERT_TRUE(codesDeXml(xmlDeCodes(codes), lus)) << xmlDeCodes(codes);
        ASSERT_EQ(lus.size(), 2U);
        EXPECT_TRUE(lus[0].libelle == (r.lu ? r.lu : r.ecrit)) << xmlDeCodes(codes);
    }
}

TEST_F(TableCodificationTest, readsOneField)
{
    struct Row {
        const char* name;
        const char* champ;
        int code;
        const wchar_t* libelle;
        double taille;
        int precision;
    };
    const Row rows[] = {
        {"nothing: the defaults", "", 1, L"Point Topo", 1.0, 2},
        {"code 0 is not held", "<code>0</code>", 0, L"Point Topo", 1.0, 2},
        {"code below zero", "<code> -12x</code>", -12, L"Point Topo", 1.0, 2},
        {"code of no number", "<code>abc</code>", 0, L"Point Topo", 1.0, 2},
        {"empty number", "<code></code><tailleBlock/>", 1, L"Point Topo", 1.0, 2},
        {"a text that was emptied", "<libelle></libelle>", 1, L"", 1.0, 2},
        {"the same, shorter", "<libelle/>", 1, L"", 1.0, 2},
        {"values on lines of their own", "<libelle>\n    Une  borne\n  </libelle><code>\n3\n</code>", 3, L"Une  borne",
         1.0, 2},
        {"blanks without a line end", "<libelle> a </libelle>", 1, L" a ", 1.0, 2},
        {"size below zero is not held", "<tailleBlock>-2.5</tailleBlock>", 1, L"Point Topo", -2.5, 2},
        {"size of no number", "<tailleBlock>x</tailleBlock>", 1, L"Point Topo", 0.0, 2},
        {"decimals are not held", "<precisionAltitudes>99</precisionAltitudes>", 1, L"Point Topo", 1.0, 99},
        {"the first of two", "<code>3</code><code>4</code>", 3, L"Point Topo", 1.0, 2},
        {"any order, foreign elements", "<x/><libelle>L</libelle><code>3</code>", 3, L"L", 1.0, 2},
        {"an entity", "<libelle>R&amp;D &#x41;</libelle>", 1, L"R&D A", 1.0, 2},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        std::vector<codifPoint> lus;
        const std::string xml = std::string("<codifPoints><TBdata><autre><code>9</code></autre><codifPoint>") +
                                r.champ + "</codifPoint></TBdata></codifPoints>";
        ASSERT_TRUE(codesDeXml(xml, lus));
        ASSERT_EQ(lus.size(), 1U);
        EXPECT_EQ(lus[0].code, r.code);
        EXPECT_TRUE(lus[0].libelle == r.libelle) << versAnsi(lus[0].libelle);
        EXPECT_EQ(lus[0].tailleBlock, r.taille);
        EXPECT_EQ(lus[0].precisionAltitudes, r.precision);
    }
}

TEST_F(TableCodificationTest, keepsWhatItsUserEmptied)
{
    std::vector<codifPoint> codes(1), lus;
    codes[0].libelle = codes[0].chemin = L"";
    codes[0].layers = {L"", L"", L"C", L"", L""};
    ASSERT_TRUE(codesDeXml(xmlDeCodes(codes), lus));
    EXPECT_TRUE(lus.at(0).libelle.empty() && lus[0].chemin.empty());
    EXPECT_TRUE(lus[0].layers == codes[0].layers);
}

TEST_F(TableCodificationTest, repairsAndTellsImpossibleLayers)
{
    const struct {
        const wchar_t *lu, *pris;
    } rows[] = {
        {L"VRD/EAU", L"VRD_EAU"},       {L"A<B>", L"A_B_"},    {L"a\tb", L"a_b"}, {L"Été ; ", L"Été ; "}, {L"", L""},
        {L" _ Numero ", L" _ Numero "}, {L"a\\b|c", L"a_b_c"},
    };
    for (const auto& r : rows) {
        std::wstring dit;
        Console::instance().setSink([&dit](const std::wstring& texte) { dit += texte; });
        codifPoint code;
        code.code = 12;
        code.setLayer(calqueObs, r.lu);
        reparerCalques(code, L"f");
        EXPECT_TRUE(code.layers[calqueObs] == r.pris) << versAnsi(code.layers[calqueObs]);
        EXPECT_EQ(dit.empty(), std::wstring(r.lu) == r.pris);
        EXPECT_TRUE(dit.empty() || dit.starts_with(L"\nf, code 12 : le nom de calque «"));
    }
    std::wstring dit;
    Console::instance().setSink([&dit](const std::wstring& texte) { dit += texte; });
    ecrireDans(defcodif,
               "<codifPoints><TBdata><codifPoint><layerObs>A&lt;B&gt;</layerObs></codifPoint></TBdata></codifPoints>");
    EXPECT_TRUE(tableCodification()[0].layers[calqueObs] == L"A_B_");
    EXPECT_NE(dit.find(L"« A<B> » est impossible, « A_B_ » est pris"), std::wstring::npos);
    Console::instance().setSink({});
}

TEST_F(TableCodificationTest, takesOlderBytesForWindows1252)
{
    std::vector<codifPoint> lus;
    ASSERT_TRUE(codesDeXml("<codifPoints><TBdata><codifPoint><libelle>\xC9t\xE9</libelle></codifPoint></TBdata>"
                           "</codifPoints>",
                           lus));
    EXPECT_TRUE(lus.at(0).libelle == L"Été");
}

TEST_F(TableCodificationTest, refusesWhatIsNoTable)
{
    const auto imbrique = [](const char* element) {
        std::string xml = "<codifPoints><TBdata>";
        for (int i = 0; i < 200000; ++i)
            xml += element;
        return xml;
    };
    const struct {
        const char* name;
        std::string xml;
    } rows[] = {
        {"empty", ""},
        {"text", "Code {\nCODE: 1\n}"},
        {"another root", "<autre><TBdata/></autre>"},
        {"no table", "<codifPoints><codifPoint/></codifPoints>"},
        {"cut within an element", std::string(unCode).substr(0, 300)},
        {"nested without end", imbrique("<a>")},
        {"what would close it is an attribute", imbrique("<a b='/>' c='</a>'>")},
        {"what would close it is a text", imbrique("<a>/>")},
        {"what would close it is a comment", imbrique("<a><!-- </a> -->")},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.name);
        std::vector<codifPoint> lus(3);
        EXPECT_FALSE(codesDeXml(r.xml, lus));
        EXPECT_EQ(lus.size(), 3U);
    }
    std::vector<codifPoint> lus;
    EXPECT_TRUE(codesDeXml("<codifPoints><TBdata/></codifPoints>", lus)) << "a table without codes is one";
}

TEST_F(TableCodificationTest, makesTheDefaultsOnAFreshInstallation)
{
    const tableCodification table;
    ASSERT_EQ(table.nombre(), 2);
    EXPECT_EQ(table[0].code, 1);
    EXPECT_TRUE(table[0].libelle == L"Point topo") << "not the label of a new record";
    EXPECT_EQ(table[1].code, 100);
    EXPECT_TRUE(table[1].libelle == L"Station");
    EXPECT_TRUE(table[1].chemin == cheminBiblio(L"velablk3.dwg"));
    EXPECT_TRUE(codifPoint().libelle == L"Point Topo");

    std::vector<codifPoint> ecrits;
    ASSERT_TRUE(codesDeXml(contents(defcodif), ecrits));
    ASSERT_EQ(ecrits.size(), 2U);
    EXPECT_EQ(ecrits[1].code, 100);
    EXPECT_TRUE(aCote().empty()) << "nothing was there to keep";
}

TEST_F(TableCodificationTest, keepsADamagedFileBesideTheNewOne)
{
    const fs::path journaux = supportEssai::fichier("lecteurs/c/QUARVEL4/SUPPORT");
    fs::create_directories(journaux);
    const std::string casse = std::string(unCode).substr(0, 300);
    ecrireDans(defcodif, casse);
    EXPECT_EQ(tableCodification().nombre(), 2);
    EXPECT_EQ(contents(supportEssai::fichier("defcodif.abime")), casse);
    EXPECT_NE(contents(journaux / "MESSAGES.MSG").find("defcodif.abime]"), std::string::npos);

    ecrireDans(defcodif, "autre");
    EXPECT_EQ(tableCodification().nombre(), 2);
    EXPECT_EQ(aCote(), (std::vector<std::string>{".abime", ".abime-2"}));
    EXPECT_EQ(contents(supportEssai::fichier("defcodif.abime-2")), "autre");
    EXPECT_EQ(tableCodification().nombre(), 2);
    EXPECT_EQ(aCote().size(), 2U) << "the new file is sound";

    ecrireDans(defcodif, "<codifPoints><TBdata/></codifPoints>");
    EXPECT_EQ(tableCodification().nombre(), 2);
    EXPECT_EQ(aCote().size(), 2U) << "a table whose codes were all removed holds nothing to keep";
}

TEST_F(TableCodificationTest, leavesAFileItCannotCopy)
{
    fs::create_directory(defcodif); // neither read nor copied as a file
    std::wstring dit;
    Console::instance().setSink([&dit](const std::wstring& texte) { dit += texte; });
    tableCodification table;
    EXPECT_EQ(table.nombre(), 2);
    EXPECT_NE(dit.find(L"n'a pas pu être copié"), std::wstring::npos);
    EXPECT_EQ(table.sauver(), 1) << "as when the dialog closes";
    Console::instance().setSink({});
    EXPECT_TRUE(fs::is_directory(defcodif));
    EXPECT_TRUE(aCote().empty());
}

TEST_F(TableCodificationTest, triesTheGivenFileFirst)
{
    const fs::path autre = supportEssai::fichier("defcodif-chantier");
    ecrireDans(autre, unCode);
    const tableCodification table(large(autre).c_str());
    ASSERT_EQ(table.nombre(), 1);
    EXPECT_EQ(table[0].code, 7);
    EXPECT_FALSE(fs::exists(defcodif));

    const tableCodification sans(large(supportEssai::fichier("defcodif-absent")).c_str());
    EXPECT_EQ(sans.nombre(), 2);
    EXPECT_TRUE(fs::exists(defcodif)) << "defaults go to this file, never to the one that was asked for";
    EXPECT_FALSE(fs::exists(supportEssai::fichier("defcodif-absent")));
    EXPECT_TRUE(sans.getFichier().ends_with(L"defcodif"));
}

TEST_F(TableCodificationTest, findsOrCreatesCodes)
{
    tableCodification table;
    table.ajouter(codeDeLExemple());
    codifPoint homonyme = codeDeLExemple();
    homonyme.libelle = L"second";
    table.ajouter(homonyme);
    EXPECT_EQ(table.indexCode(7), 2) << "the first of two";
    EXPECT_TRUE(table.getCodif(7).libelle == L"Arbre  <été>");
    EXPECT_TRUE(table.getCodif(8).libelle == L"Code 8");
    EXPECT_TRUE(table.getLibelle(9) == L"Code N° 9") << "deliberately another text";
    EXPECT_TRUE(table.getLibelle(8) == L"Code 8");
    EXPECT_EQ(table.nombre(), 6);
    EXPECT_EQ(table.plusPetitNumeroLibre(), 2);
    EXPECT_EQ(table.indexCode(55), -1);
    EXPECT_EQ(table.supprimer(2), 5);
    EXPECT_TRUE(table.getCodif(7).libelle == L"second");
    for (const int index : {-1, 5}) {
        EXPECT_THROW(table[index], CException*);
        EXPECT_THROW(table.supprimer(index), CException*);
    }
    for (int code = 1; code < 9999; ++code)
        table.getCodif(code);
    EXPECT_EQ(table.plusPetitNumeroLibre(), 9999);
    table.getCodif(9999);
    EXPECT_EQ(table.plusPetitNumeroLibre(), 0);
    EXPECT_EQ(tableCodification().nombre(), 2) << "what was created is not saved by itself";
}

TEST_F(TableCodificationTest, keepsImpossibleCodesOutOfTheSharedFileUntilTheyAreEdited)
{
    tableCodification table;
    table.getCodif(8);
    table.getCodif(-5); // that of a point that a file gave it
    table.getLibelle(70000);
    table.getCodif(12000).libelle = L"Regard";
    table.sauver();
    const tableCodification relue;
    EXPECT_EQ(relue.nombre(), 4) << "the two of a fresh installation, 8 and what was edited";
    EXPECT_GE(relue.indexCode(12000), 0);
}

TEST_F(TableCodificationTest, savesWholeFilesOnly)
{
    tableCodification table;
    table.ajouter(codeDeLExemple());
    EXPECT_EQ(table.sauver(), 1);
    EXPECT_EQ(tableCodification().nombre(), 3);
    const std::string avant = contents(defcodif);
    const fs::path nullePart = supportEssai::fichier("absent/defcodif");
    EXPECT_EQ(table.sauver(large(nullePart).c_str()), 1) << "always";
    EXPECT_EQ(contents(defcodif), avant);
    EXPECT_TRUE(aCote().empty()) << "no temporary file is left";
    EXPECT_EQ(table.charger(), 1);
    EXPECT_EQ(table.nombre(), 6) << "loading appends";
}

/// In a process of its own: the support folder is another one from then on.
[[noreturn]] void sauverDansUnDossierInterdit(const char* avant)
{
    const fs::path perso = supportEssai::dossier().string() + "-perso", copie = perso / "Quarvel5/support";
    fs::create_directories(perso);
    fs::permissions(perso, fs::perms::all);
    ::setenv("VELA_REGISTRY", (perso / "registre.ini").c_str(), 1);
    const bool administrateur = geteuid() == 0; // whom permissions do not stop
    fs::permissions(supportEssai::dossier(), fs::perms(0555));
    if (administrateur && seteuid(65534) != 0)
        std::exit(2);
    tableCodification table;
    table.getCodif(8);
    table.sauver();
    if (administrateur && seteuid(0) != 0)
        std::exit(2);
    fs::permissions(supportEssai::dossier(), fs::perms(0755));
    const bool bon = contents(copie / "defcodif").find("<code>8</code>") != std::string::npos &&
                     fs::exists(copie / "biblio/velablk1.dxf") && contents(defcodif) == avant &&
                     tableCodification().nombre() == table.nombre() && table.getFichier() == cheminSupport(L"defcodif");
    fs::remove_all(perso);
    std::exit(bon ? 0 : 1);
}

TEST_F(TableCodificationTest, savesToACopyOfASupportFolderThatCannotBeWritten)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* avant : {unCode, "illisible"}) {
        ecrireDans(defcodif, avant);
        EXPECT_EXIT(sauverDansUnDossierInterdit(avant), testing::ExitedWithCode(0), "") << avant;
        EXPECT_EQ(contents(defcodif), avant);
    }
}

TEST_F(TableCodificationTest, makesTheLayersOfAllItsCodes)
{
    AcDbDatabase db;
    tableCodification table;
    table.ajouter(codeDeLExemple());
    table.creerCalquesTable(&db);
    AcDbLayerTable* calques = nullptr;
    ASSERT_EQ(db.getLayerTable(calques, AcDb::kForRead), Acad::eOk);
    for (const wchar_t* nom : {L"_ Altitudes Points", L"_ Codes Points", L"A", L"E"})
        EXPECT_TRUE(calques->has(nom));
    calques->close();
    table.creerCalquesTable(nullptr);
}

} // namespace

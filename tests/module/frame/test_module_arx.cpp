#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "calculs/placerPolygonale.h"
#include "db/DatabaseImpl.h"
#include "ed/CommandRunner.h"
#include "ed/DrawingChanges.h"
#include "ed/Kernel.h"
#include "lisp/LispCall.h"
#include "lisp/LispFunctionTable.h"
#include "lisp/LispText.h"
#include "points/projetDansDessin.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"

#include "aced.h"
#include "dbpl.h"
#include "Drawing.h"
#include "supportEssai.h"
#include "TestFolder.h"
#include "windows.h"

namespace {

/// The module loaded in a host with one empty drawing and a project.
class ModuleTest : public testing::Test {
protected:
    void SetUp() override
    {
        Console::instance().setSink([this](const std::wstring& texte) { imprime += texte; });
        DocumentList::instance().create();
        const std::string chemin = MODULE_ARX;
        const auto echec = ModuleTable::instance().load(std::wstring(chemin.begin(), chemin.end()));
        ASSERT_FALSE(echec) << CStringA(echec->c_str()).GetString();
        setSrcInfosTopo(nullptr, &projet, 1, 0);
    }
    void TearDown() override
    {
        setSrcInfosTopo(nullptr, nullptr, 0, 0);
        DocumentList::instance().closeAll();
        ModuleTable::instance().unloadAll();
        Console::instance().setSink(nullptr);
    }

    /// The value of a call as AutoLISP shows it.
    static std::wstring appeler(const wchar_t* nom, resbuf* arguments = nullptr)
    {
        const LispResult resultat = callLispFunction(nom, ResbufChain(arguments));
        EXPECT_EQ(resultat.failure, L"");
        return lispText(resultat.value.get());
    }
    static std::vector<AcDbObjectId> entites()
    {
        return entitiesOf(DocumentList::instance().current()->database()->currentSpaceId());
    }
    /// As typed by a user; a command leaves nothing open and nothing behind.
    static void executer(const std::wstring& commande)
    {
        const CommandOutcome resultat = CommandRunner::instance().run(L"_" + commande);
        EXPECT_EQ(resultat.failure, L"");
        EXPECT_TRUE(resultat.leftOpen.empty());
        EXPECT_EQ(resultat.newBuffers, 0);
        EXPECT_EQ(resultat.newTexts, 0);
    }
    void ajouter(const wchar_t* nom, double x, double y, double z)
    {
        pointDuDessin p;
        p.setParams(nom, AcGePoint3d(x, y, z), 1);
        projet.currTable()->Ajouter(p);
    }

    Kernel noyau;
    projetsTopo projet;
    std::wstring imprime;
};

TEST_F(ModuleTest, itsCommandsSayWhatTheyNeed)
{
    std::vector<std::wstring> noms;
    const std::unique_ptr<AcEdCommandIterator> it(acedRegCmds->iterator());
    for (; !it->done(); it->next())
        if (std::wstring(it->commandGroup()) == L"QUARVEL4")
            noms.emplace_back(it->command()->globalName());
    EXPECT_FALSE(noms.empty());
    std::erase(noms, L"PTSEN3D");
    for (const std::wstring& nom : noms) {
        SCOPED_TRACE(CStringA(nom.c_str()).GetString());
        imprime.clear();
        executer(nom);
        EXPECT_TRUE(imprime.empty() || imprime.find(L"elle demande une session avec fenêtres") != std::wstring::npos)
            << "without windows a command that opens a dialog says so, what is not there yet prints nothing";
    }
    EXPECT_TRUE(entites().empty());
}

TEST_F(ModuleTest, definesItsFunctionsInEachDrawing)
{
    DocumentList::instance().create();
    const auto& documents = DocumentList::instance().documents();
    const std::vector<std::wstring> noms = LispFunctionTable::of(*documents.front()).names();
    EXPECT_FALSE(noms.empty());
    for (const auto& document : documents) {
        const LispFunctionTable& table = LispFunctionTable::of(*document);
        EXPECT_EQ(table.names(), noms);
        std::set<short> codes;
        for (const std::wstring& nom : noms)
            codes.insert(table.find(nom)->code);
        EXPECT_EQ(codes.size(), noms.size()) << "each leads to its own function";
    }
    Document& document = *documents.front();
    ASSERT_FALSE(ModuleTable::instance().unload(L"Vela-ARX2015-64BITS.arx"));
    EXPECT_TRUE(LispFunctionTable::of(document).names().empty());
    EXPECT_EQ(acedRegCmds->lookupGlobalCmd(L"PTSEN3D"), nullptr);
}

TEST_F(ModuleTest, answersEveryMessage)
{
    LoadedModule* const module = ModuleTable::instance().find(L"Vela-ARX2015-64BITS.arx");
    ASSERT_NE(module, nullptr);
    EXPECT_FALSE(module->locked);
    EXPECT_TRUE(module->mdiAware);
    for (const auto message : {AcRx::kNullMsg, AcRx::kCfgMsg, AcRx::kEndMsg, AcRx::kQuitMsg, AcRx::kInvkSubrMsg,
                               AcRx::kSaveMsg, AcRx::kUnloadDwgMsg, AcRx::kLoadDwgMsg, AcRx::kEndDialogMsg})
        EXPECT_EQ(ModuleTable::instance().call(*module, message), AcRx::kRetOK);
}

TEST_F(ModuleTest, keepsWhatFunctionsAreGiven)
{
    const ads_point p2 = {1.5, 2.5, 9.0}, p3 = {1.5, 2.5, 3.5};
    EXPECT_EQ(appeler(L"add_pt", acutBuildList(RTSTR, L"12", RT3DPOINT, p3, RTSHORT, 7, 0)), L"T");
    EXPECT_EQ(appeler(L"ADD_PT", acutBuildList(RTSTR, L"7B", RTPOINT, p2, 0)), L"T");
    EXPECT_EQ(appeler(L"add_pt", acutBuildList(RTSTR, L"A", RTLB, RTSHORT, 1, RTREAL, 2.5, RTLE, RTLONG, 9999L, 0)),
              L"T");
    EXPECT_EQ(appeler(L"add_pt", acutBuildList(RTSTR, L"B", RT3DPOINT, p3, RTLONG, 70000L, 0)), L"nil")
        << "not a code, nor is what a short integer would make of it";
    const listePointsDuDessin& table = *projet.currTable();
    ASSERT_EQ(table.nbPoint(), 3);
    EXPECT_EQ(table.getData(0)->getZ(), 3.5);
    EXPECT_EQ(table.getData(0)->getCode(), 7);
    EXPECT_EQ(table.getData(1)->getZ(), 1e38);
    EXPECT_EQ(table.getData(1)->getCode(), 1);
    EXPECT_EQ(table.getData(2)->getY(), 2.5);
    EXPECT_EQ(table.getData(2)->getCode(), 9999);

    const TestFolder dossier;
    const auto chemin = dossier.write("x.txt");
    EXPECT_EQ(appeler(L"vldelfile", acutBuildList(RTSTR, chemin.wstring().c_str(), 0)), L"T");
    EXPECT_FALSE(std::filesystem::exists(chemin));
}

TEST_F(ModuleTest, worksWithoutAProject)
{
    const ads_point p = {1, 2, 3};
    setSrcInfosTopo(nullptr, nullptr, 0, 0);
    EXPECT_EQ(appeler(L"maxnum"), L"nil");
    EXPECT_EQ(appeler(L"add_pt", acutBuildList(RTSTR, L"A", RT3DPOINT, p, 0)), L"nil");
    EXPECT_EQ(appeler(L"c:ZoomLeve"), L"");
    executer(L"PTSEN3D");
    EXPECT_EQ(placerPolygonale({{L"S1", 1, 2, 3}}, {}, {}), 0);
    EXPECT_EQ(imprime, L"");

    setSrcInfosTopo(nullptr, &projet, 0, 0);
    projet.setCourante(-3);
    EXPECT_EQ(appeler(L"maxnum"), L"nil") << "a damaged project is no crash";
}

TEST_F(ModuleTest, placesPointsInSpace)
{
    executer(L"PTSEN3D");
    EXPECT_EQ(imprime, L"\n 0 points plac\u00e9s");
    imprime.clear();
    ajouter(L"inconnu", 1, 1, 1e38);
    ajouter(L"bas", 2, 2, -100000000.0);
    ajouter(L"trop bas", 3, 3, -100000000.1);
    ajouter(L"haut", 4, 4, 99999999.9);
    ajouter(L"trop haut", 5, 5, 100000000.0);
    executer(L"PTSEN3D");
    EXPECT_EQ(imprime, L"\n 5 points plac\u00e9s") << "the size of the table, deliberately";
    const auto ids = entites();
    ASSERT_EQ(ids.size(), 2U);
    const AcDbObjectPointer<AcDbPoint> premier(ids[0]);
    EXPECT_EQ(premier->position().z, -100000000.0);
    const AcDbObjectPointer<AcDbPoint> second(ids[1]);
    EXPECT_EQ(second->position().x, 4);
}

TEST_F(ModuleTest, tellsWhenThereIsNothingToZoomOn)
{
    EXPECT_EQ(appeler(L"c:ZoomLeve"), L"");
    EXPECT_EQ(imprime, L"\nPas de points dans cette table");
    imprime.clear();
    ajouter(L"A", 100, 200, 0);
    EXPECT_EQ(appeler(L"c:ZoomLeve"), L"");
    EXPECT_EQ(imprime, L"");
}

TEST_F(ModuleTest, placesATraverse)
{
    const double inf = std::numeric_limits<double>::infinity();
    const std::vector<stationCorrigee> stations = {
        {L"DEPART-TRES-LONG", 1, 2, 3}, {L"S2", 4, 5, 6}, {L"S3", inf, 0, 0}, {L"S4", 1e38, 0, 0}};
    const std::vector<tracePolygonale> traces = {{1, {{0, 0}, {1, 1}}}, {3, {{0, 0}, {2, 2}, {3, 3}}}, {1, {{0, inf}}}};
    EXPECT_EQ(placerPolygonale(stations, {100, false}, traces), 3);
    const listePointsDuDessin& table = *projet.currTable();
    ASSERT_EQ(table.nbPoint(), 3);
    EXPECT_STREQ(table.getData(0)->getNomPoint(), "DEPART-TR");
    EXPECT_EQ(table.getData(0)->getZ(), 1e38);
    EXPECT_EQ(table.getData(0)->getCode(), 100);
    EXPECT_TRUE(table.getData(2)->getId().isNull());
    const auto ids = entites();
    ASSERT_EQ(ids.size(), 4U);
    for (const auto& [i, couleur, sommets] : {std::tuple{0, 1, 2U}, {1, 3, 3U}}) {
        const AcDbObjectPointer<AcDbPolyline> ligne(ids[static_cast<std::size_t>(i)]);
        ASSERT_EQ(ligne.openStatus(), Acad::eOk);
        EXPECT_EQ(ligne->colorIndex(), couleur);
        EXPECT_EQ(ligne->numVerts(), sommets);
    }
    EXPECT_EQ(table.getData(1)->getId(), ids[3]);

    EXPECT_EQ(placerPolygonale(stations, {10000, true}, {}), 3);
    EXPECT_EQ(table.getData(4)->getZ(), 6);
    EXPECT_EQ(table.getData(4)->getCode(), 100) << "a code out of range becomes that of stations";
    const AcDbObjectPointer<AcDbBlockReference> symbole(table.getData(4)->getId());
    ASSERT_EQ(symbole.openStatus(), Acad::eOk);
    EXPECT_EQ(symbole->position(), AcGePoint3d(4, 5, 0)) << "the altitude is told by its attribute";
}

/// What a traverse dialog keeps in the user's settings.
class brouillonDuPoste {
public:
    brouillonDuPoste()
    {
        RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Ostrakon\\Quarvel5\\Reglages", 0, nullptr,
                        REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE, nullptr, &cle, nullptr);
    }
    ~brouillonDuPoste()
    {
        mettre(L"");
        RegCloseKey(cle);
    }
    brouillonDuPoste(const brouillonDuPoste&) = delete;
    brouillonDuPoste& operator=(const brouillonDuPoste&) = delete;

    void mettre(const std::wstring& texte)
    {
        RegSetValueExW(cle, nom, 0, REG_SZ, reinterpret_cast<const BYTE*>(texte.c_str()),
                       static_cast<DWORD>((texte.size() + 1) * sizeof(wchar_t)));
    }
    std::wstring lu(const wchar_t* sous = nom) const
    {
        wchar_t texte[2000] = {};
        DWORD type = 0, taille = sizeof texte - sizeof(wchar_t);
        RegQueryValueExW(cle, sous, nullptr, &type, reinterpret_cast<BYTE*>(texte), &taille);
        return texte;
    }

private:
    static constexpr const wchar_t* nom = L"Brouillon.corrPolygoDLG";
    HKEY cle = nullptr;
};

TEST_F(ModuleTest, recoveryCopiesBringWhatWasTypedAndNotSaved)
{
    const TestFolder folder;
    brouillonDuPoste poste;
    const std::wstring saisie = L"a1%0AeditX=" + std::wstring(600, L'7') + L"%09%C3%A9", suite = L"a1%0AeditX=8";
    const std::wstring pleins = L"b2%0AA=2 b3%0AA=3 b4%0AA=4 b5%0AA=5 b6%0AA=6";
    Document& dessin = *DocumentList::instance().current();
    poste.mettre(saisie);
    const auto etat = dessin.database()->impl().undo().state();
    ASSERT_EQ(DrawingChanges::writeCopy(dessin, folder / "copie.dxf"), std::nullopt);
    EXPECT_EQ(dessin.database()->impl().undo().state(), etat);
    ASSERT_EQ(DocumentList::instance().saveAs(dessin, (folder / "plan.dxf").wstring()), std::nullopt);
    EXPECT_EQ(folder.read("plan.dxf").find("VELA_BROUILLONS"), std::string::npos) << "not the drawing's";
    DocumentList::instance().closeAll();

    struct Row {
        const char* name;
        std::wstring before, after;
        bool stays; ///< in the drawing, when that is saved
    };
    const Row rows[] = {
        {"another user", L"", saisie, false},
        {"this user, who typed on", suite, suite, false},
        {"one with observations of another traverse", L"b2%0AeditX=9", L"b2%0AeditX=9 " + saisie, false},
        {"one who keeps as many as are kept", pleins, pleins, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        poste.mettre(row.before);
        const auto ouvert = DocumentList::instance().open((folder / "copie.dxf").wstring());
        ASSERT_NE(ouvert.document, nullptr);
        EXPECT_EQ(poste.lu(), row.after);
        EXPECT_FALSE(DrawingChanges::instance().areUnsaved(*ouvert.document));
        EXPECT_EQ(ouvert.document->database()->impl().undo().undoable(), 0U);
        ASSERT_EQ(DocumentList::instance().saveAs(*ouvert.document, (folder / "apres.dxf").wstring()), std::nullopt);
        EXPECT_EQ(folder.read("apres.dxf").find("VELA_BROUILLONS") != std::string::npos, row.stays);
        DocumentList::instance().closeAll();
    }
    poste.mettre(L"");
    DocumentList::instance().open((folder / "apres.dxf").wstring());
    EXPECT_EQ(poste.lu(), saisie) << "offered once the user's own are in a file";
    DocumentList::instance().closeAll();

    // The settings of whoever opens a drawing are no store for what it holds: 20,000 names took more than a minute.
    std::string etranger = folder.read("copie.dxf");
    etranger.replace(etranger.find("corrPolygoDLG"), 13, "AutreDialogue");
    const auto ouvert = DocumentList::instance().open(folder.write("etranger.dxf", etranger).wstring());
    EXPECT_EQ(poste.lu(L"Brouillon.AutreDialogue"), L"");
    ASSERT_EQ(DocumentList::instance().saveAs(*ouvert.document, (folder / "apres.dxf").wstring()), std::nullopt);
    EXPECT_NE(folder.read("apres.dxf").find("AutreDialogue"), std::string::npos);
}

} // namespace

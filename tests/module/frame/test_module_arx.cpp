#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "calculs/placerPolygonale.h"
#include "ed/CommandRunner.h"
#include "ed/Kernel.h"
#include "lisp/LispCall.h"
#include "lisp/LispFunctionTable.h"
#include "lisp/LispText.h"
#include "points/projetDansDessin.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"

#include "aced.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "supportEssai.h"

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
        AcDbDatabase* const db = DocumentList::instance().current()->database();
        AcDbBlockTable* blocs = nullptr;
        db->getBlockTable(blocs, AcDb::kForRead);
        AcDbBlockTableRecord* espace = nullptr;
        blocs->getAt(ACDB_MODEL_SPACE, espace, AcDb::kForRead);
        AcDbBlockTableRecordIterator* it = nullptr;
        espace->newIterator(it);
        std::vector<AcDbObjectId> ids;
        for (; !it->done(); it->step()) {
            AcDbObjectId id;
            it->getEntityId(id);
            ids.push_back(id);
        }
        delete it;
        espace->close();
        blocs->close();
        return ids;
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

TEST_F(ModuleTest, registersItsCommands)
{
    struct Row {
        const wchar_t* name;
        Adesk::Int32 flags;
    };
    // 1: transparent, 2: takes what was selected before.
    const Row rows[] = {
        {L"CARROYAGE", 2},   {L"VCODIFICATION", 1}, {L"COORDSXYZ", 0}, {L"CORRPOLFERMEE", 0}, {L"CORRPOLOUVERTE", 0},
        {L"CORRMCARRES", 0}, {L"IMPORTGSI", 0},     {L"RECT3PT", 3},   {L"IMPORTPOINTS", 2},  {L"EXPORTPOINTS", 2},
        {L"TABLEXYZ", 2},    {L"MAJPOINTS", 2},     {L"PTSEN3D", 0},
    };
    const std::unique_ptr<AcEdCommandIterator> it(acedRegCmds->iterator());
    std::size_t n = 0;
    for (; !it->done(); it->next()) {
        if (std::wstring(it->commandGroup()) != L"QUARVEL4")
            continue;
        ASSERT_LT(n, std::size(rows));
        EXPECT_STREQ(it->command()->globalName(), rows[n].name);
        EXPECT_STREQ(it->command()->localName(), rows[n].name);
        EXPECT_EQ(it->command()->commandFlags(), rows[n].flags) << n;
        ++n;
    }
    EXPECT_EQ(n, std::size(rows));

    for (const Row& r : rows) {
        if (std::wstring(r.name) == L"PTSEN3D")
            continue;
        imprime.clear();
        executer(r.name);
        EXPECT_TRUE(imprime.empty() || imprime.find(L"elle demande une session avec fenêtres") != std::wstring::npos)
            << "without windows a command that opens a dialog says so, what is not there yet prints nothing";
    }
    EXPECT_TRUE(entites().empty());
}

TEST_F(ModuleTest, definesItsFunctionsInEachDrawing)
{
    const wchar_t* const noms[] = {
        L"calctailleblock", L"add_pt",           L"analyse",       L"attrvisibility",  L"c:projpoly",
        L"c:vcode",         L"ename_pt",         L"getsegtype",    L"k_getpt",         L"maxnum",
        L"modif-attrib",    L"reg_pts",          L"select_all",    L"seloncode",       L"selonnum",
        L"vldelfile",       L"superpos",         L"sxd",           L"wait_user",       L"tpcdaddpt",
        L"loadcodept",      L"addcodept",        L"resetcodespts", L"choixpoint",      L"chgreppts",
        L"updarxttxt",      L"c:decrireblock",   L"c:tablegendes", L"c:gererLeves",    L"C:pointsParDecalage",
        L"C:ZoomLeve",      L"selectionnerCode", L"c:TopJndre",    L"VELATEXT",        L"c:DISSOCBLOCK",
        L"c:IMPLANT2",      L"c:VLDEPORTPNTS",   L"c:VLAJUSTERZ",  L"c:AllegerDessin",
    };
    ASSERT_EQ(std::size(noms), 39U);
    DocumentList::instance().create();
    for (const auto& document : DocumentList::instance().documents()) {
        const LispFunctionTable& table = LispFunctionTable::of(*document);
        EXPECT_EQ(table.names().size(), 39U);
        short code = 0;
        for (const wchar_t* nom : noms) {
            const LispFunction* const f = table.find(nom);
            ASSERT_NE(f, nullptr) << CStringA(nom).GetString();
            EXPECT_EQ(f->name, nom) << "letter case as it is, odd as it may be";
            EXPECT_EQ(f->code, code++);
        }
    }
    Document& document = *DocumentList::instance().documents().front();
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

TEST_F(ModuleTest, checksWhatFunctionsAreGiven)
{
    const ads_point p2 = {1.5, 2.5, 9.0};
    const ads_point p3 = {1.5, 2.5, 3.5};
    const auto refus = L"\nparametres incorrects.";
    struct Row {
        const char* name;
        const wchar_t* function;
        resbuf* arguments;
        std::wstring value, printed;
    };
    const Row rows[] = {
        {"maxnum of an empty table", L"maxnum", nullptr, L"1", L""},
        {"add_pt in space", L"add_pt", acutBuildList(RTSTR, L"12", RT3DPOINT, p3, RTSHORT, 7, 0), L"T", L""},
        {"add_pt in the plane, code left out", L"ADD_PT", acutBuildList(RTSTR, L"7B", RTPOINT, p2, 0), L"T", L""},
        {"add_pt with whole coordinates", L"add_pt",
         acutBuildList(RTSTR, L"A", RTLB, RTSHORT, 1, RTREAL, 2.5, RTLE, RTLONG, 70000L, 0), L"T", L""},
        {"maxnum", L"maxnum", nullptr, L"13", L""},
        {"maxnum takes nothing", L"maxnum", acutBuildList(RTSHORT, 1, 0), L"nil", refus},
        {"add_pt without arguments", L"add_pt", nullptr, L"nil", refus},
        {"add_pt without point", L"add_pt", acutBuildList(RTSTR, L"A", 0), L"nil", refus},
        {"add_pt, name not text", L"add_pt", acutBuildList(RTSHORT, 1, RT3DPOINT, p3, 0), L"nil", refus},
        {"add_pt, point not point", L"add_pt", acutBuildList(RTSTR, L"A", RTSTR, L"1,2", 0), L"nil", refus},
        {"add_pt, list of one", L"add_pt", acutBuildList(RTSTR, L"A", RTLB, RTREAL, 1.0, RTLE, 0), L"nil", refus},
        {"add_pt, list of four", L"add_pt",
         acutBuildList(RTSTR, L"A", RTLB, RTREAL, 1.0, RTREAL, 1.0, RTREAL, 1.0, RTREAL, 1.0, RTLE, 0), L"nil", refus},
        {"add_pt, list of texts", L"add_pt", acutBuildList(RTSTR, L"A", RTLB, RTSTR, L"1", RTSTR, L"2", RTLE, 0),
         L"nil", refus},
        {"add_pt, code not whole", L"add_pt", acutBuildList(RTSTR, L"A", RT3DPOINT, p3, RTREAL, 1.5, 0), L"nil", refus},
        {"add_pt, too many", L"add_pt", acutBuildList(RTSTR, L"A", RT3DPOINT, p3, RTSHORT, 1, RTNIL, 0), L"nil", refus},
        {"analyse", L"analyse", acutBuildList(RTSTR, L"a, b\tc\n\n,d", 0), L"(\"a\" \"b\" \"c\" \"d\")", L""},
        {"analyse, one part", L"analyse", acutBuildList(RTSTR, L"abc", 0), L"(\"abc\")", L""},
        {"analyse, separators only", L"analyse", acutBuildList(RTSTR, L" ,\t\n", 0), L"nil", L""},
        {"analyse, empty", L"analyse", acutBuildList(RTSTR, L"", 0), L"nil", L""},
        {"analyse, number", L"analyse", acutBuildList(RTREAL, 1.0, 0), L"nil", refus},
        {"analyse, nothing", L"analyse", nullptr, L"nil", refus},
        {"VELATEXT", L"velatext", acutBuildList(RTSTR, L"\u00e9t\u00e9 n\u00b05", 0), L"\"\u00c9T\u00c9 N\u00b05\"",
         L""},
        {"VELATEXT, several", L"VELATEXT", acutBuildList(RTSTR, L"a", RTSTR, L"b", 0), L"(\"A\" \"B\")", L""},
        {"VELATEXT, a number among them", L"VELATEXT", acutBuildList(RTSTR, L"a", RTSHORT, 1, 0), L"nil", refus},
        {"vldelfile, no such file", L"vldelfile", acutBuildList(RTSTR, L"/nulle/part.txt", 0), L"nil", L""},
        {"vldelfile, nothing", L"vldelfile", nullptr, L"nil", refus},
        {"not there yet: no value", L"c:projpoly", nullptr, L"", L""},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        imprime.clear();
        EXPECT_EQ(appeler(r.function, r.arguments), r.value);
        EXPECT_EQ(imprime, r.printed);
    }
    const listePointsDuDessin& table = *projet.currTable();
    ASSERT_EQ(table.nbPoint(), 3);
    EXPECT_EQ(table.getData(0)->getZ(), 3.5);
    EXPECT_EQ(table.getData(0)->getCode(), 7);
    EXPECT_EQ(table.getData(1)->getZ(), 1e38);
    EXPECT_EQ(table.getData(1)->getCode(), 1);
    EXPECT_EQ(table.getData(2)->getY(), 2.5);
    EXPECT_EQ(table.getData(2)->getCode(), 70000);
}

TEST_F(ModuleTest, deletesFiles)
{
    const std::string chemin = testing::TempDir() + "vela_suppression_" + std::to_string(getpid());
    std::ofstream(chemin) << "x";
    EXPECT_EQ(appeler(L"vldelfile", acutBuildList(RTSTR, std::wstring(chemin.begin(), chemin.end()).c_str(), 0)), L"T");
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

} // namespace

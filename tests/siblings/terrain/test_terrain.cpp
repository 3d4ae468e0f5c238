#include <string>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "commands/CommandTable.h"
#include "ed/Kernel.h"
#include "implantation/implantationEnLigne.h"
#include "points/projetDansDessin.h"
#include "points/terrainVoisin.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"

#include "acedCmdNF.h"
#include "adscodes.h"
#include "dbents.h"
#include "Drawing.h"
#include "TestFolder.h"
#include "windows.h"

namespace {

std::wstring large(const std::string& texte)
{
    return {texte.begin(), texte.end()};
}

/// The three functions, as the survey module finds them.
struct exports {
    exports()
    {
        const HMODULE module = GetModuleHandleW(moduleTerrain);
        const auto chercher = [module](auto& fonction, const char* nom) {
            using type = std::remove_reference_t<decltype(fonction)>;
            fonction = reinterpret_cast<type>(reinterpret_cast<void*>(GetProcAddress(module, nom)));
        };
        chercher(donnees, "currDwgData");
        chercher(altitude, "calcZPoint");
        chercher(profil, "tinExtractPath");
    }
    fonctionCurrDwgData donnees = nullptr;
    fonctionCalcZPoint altitude = nullptr;
    fonctionTinExtractPath profil = nullptr;
};

class TerrainTest : public testing::Test {
protected:
    void SetUp() override
    {
        registerHostCommands();
        for (const char* const module : {MODULE_ARX, PRINCIPAL_ARX, TERRAIN_ARX}) {
            const auto echec = ModuleTable::instance().load(large(module));
            ASSERT_FALSE(echec) << std::string(echec->begin(), echec->end());
        }
        Console::instance().setSink([this](const std::wstring& texte) { affiche += texte; });
    }
    void TearDown() override
    {
        DocumentList::instance().closeAll();
        ModuleTable::instance().unloadAll();
        Console::instance().setSink({});
    }

    /// A drawing with the points (0 or 10, 0 or 10), z = 100 + x, and a model of them.
    Document& dessinAvecModele()
    {
        Document& document = DocumentList::instance().create();
        for (const auto& [x, y] : {std::pair{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0}})
            points.push_back(addEntity(*document.database(), new AcDbPoint(AcGePoint3d(x, y, 100.0 + x))));
        modele(L"SOL");
        return document;
    }
    static void modele(const wchar_t* nom)
    {
        acedCommandS(RTSTR, L"-MNT", RTSTR, nom, RTSTR, L"_ALL", RTSTR, L"", RTNONE);
    }
    static double altitudeDe(terrain* sol, double x, double y)
    {
        AcGePoint3d p(x, y, -1.0);
        return exports().altitude(sol, p) ? p.z : -1.0;
    }

    Kernel noyau;
    TestFolder dossier;
    std::wstring affiche;
    std::vector<AcDbObjectId> points;
};

TEST_F(TerrainTest, answersTheSurveyModule)
{
    const exports e;
    ASSERT_TRUE(e.donnees && e.altitude && e.profil);
    EXPECT_TRUE(e.donnees()->modeles.empty()) << "no drawing";
    dessinAvecModele();
    ASSERT_EQ(e.donnees()->modeles.size(), 1U);
    terrain* const sol = e.donnees()->modeles[0];
    AcGePoint3d p(2.5, 4.0, 7.0);
    EXPECT_EQ(e.altitude(sol, p), 1);
    EXPECT_DOUBLE_EQ(p.z, 102.5);
    p = AcGePoint3d(11.0, 4.0, 7.0);
    EXPECT_EQ(e.altitude(sol, p), 0);
    EXPECT_EQ(p.z, 7.0) << "as it was";
    p.x = 1e38;
    EXPECT_EQ(e.altitude(sol, p), 0);
    EXPECT_EQ(e.altitude(nullptr, p), 0);
    profilTerrain profil{{}};
    EXPECT_EQ(e.profil(sol, {-5.0, 3.0, 0.0}, {20.0, 3.0, 0.0}, profil), 1);
    ASSERT_EQ(profil.size(), 1U);
    EXPECT_NEAR(profil[0].front().z, 100.0, 1e-9);
    EXPECT_NEAR(profil[0].back().x, 10.0, 1e-9);
    EXPECT_EQ(e.profil(sol, {1e38, 3.0, 0.0}, {20.0, 3.0, 0.0}, profil), 0);
    EXPECT_TRUE(profil.empty());
    EXPECT_EQ(e.profil(sol, {3.0, 3.0, 0.0}, {3.0, 3.0, 9.0}, profil), 0);
}

TEST_F(TerrainTest, followsItsModelThroughEditsUndoAndClosing)
{
    Document& document = dessinAvecModele();
    const exports e;
    terrain* const sol = e.donnees()->modeles[0];
    EXPECT_EQ(altitudeDe(sol, 5, 5), 105.0);
    {
        const AcDbObjectPointer<AcDbPoint> point(points[0], AcDb::kForWrite);
        point->setPosition(AcGePoint3d(0.0, 0.0, 50.0));
    }
    affiche.clear();
    for (int fois = 0; fois < 3; ++fois)
        EXPECT_EQ(e.donnees()->modeles.size(), 1U);
    EXPECT_NE(affiche.find(L"n'est plus \u00e0 jour"), std::wstring::npos);
    EXPECT_EQ(affiche.find(L"n'est plus"), affiche.rfind(L"n'est plus")) << "said once";
    EXPECT_EQ(altitudeDe(sol, 0, 0), 100.0) << "the ground stays until the model is brought up to date";
    modele(L"SOL");
    EXPECT_EQ(altitudeDe(sol, 0, 0), 50.0) << "the same terrain, the new ground";
    acedCommandS(RTSTR, L"_U", RTNONE);
    EXPECT_EQ(altitudeDe(sol, 0, 0), 100.0);
    modele(L"AUTRE");
    ASSERT_EQ(e.donnees()->modeles.size(), 2U);
    EXPECT_EQ(e.donnees()->courant, 1);
    acedCommandS(RTSTR, L"_U", RTNONE);
    EXPECT_EQ(e.donnees()->modeles.size(), 1U);

    const std::wstring chemin = large((dossier / "terrain.dxf").string());
    ASSERT_FALSE(DocumentList::instance().saveAs(document, chemin));
    DocumentList::instance().close(document);
    EXPECT_EQ(altitudeDe(sol, 5, 5), -1.0) << "its drawing is closed";
    ASSERT_NE(DocumentList::instance().open(chemin).document, nullptr);
    ASSERT_EQ(e.donnees()->modeles.size(), 1U);
    EXPECT_EQ(altitudeDe(e.donnees()->modeles[0], 0, 0), 100.0);
}

TEST_F(TerrainTest, takesPointsOfTablesAsTheyAre)
{
    DocumentList::instance().create();
    const auto ajouter = [](const wchar_t* nom, double x, double y, double z) {
        pointDuDessin p;
        p.setParams(nom, AcGePoint3d(x, y, z), 1);
        tablesPoints->currTable()->Ajouter(p);
    };
    ajouter(L"1", 0, 0, 10.123456789);
    ajouter(L"2", 10, 0, 10);
    ajouter(L"3", 0, 10, 10);
    ajouter(L"4", 5, 50, 1e38);
    acedCommandS(RTSTR, L"-MNT", RTSTR, L"T", RTSTR, L"", RTNONE);
    EXPECT_NE(affiche.find(L"1 points sans altitude laiss\u00e9s de c\u00f4t\u00e9"), std::wstring::npos);
    const exports e;
    ASSERT_EQ(e.donnees()->modeles.size(), 1U);
    EXPECT_EQ(altitudeDe(e.donnees()->modeles[0], 0, 0), 10.123456789);
    affiche.clear();
    tablesPoints->currTable()->getData(1)->setZ(11.0);
    e.donnees();
    EXPECT_NE(affiche.find(L"n'est plus \u00e0 jour"), std::wstring::npos);
}

TEST_F(TerrainTest, comesAndGoesBetweenTheSightsOfAJob)
{
    dessinAvecModele();
    const auto ajouter = [](const wchar_t* nom, double x, double y) {
        pointDuDessin p;
        p.setParams(nom, AcGePoint3d(x, y, 1e38), 1);
        tablesPoints->currTable()->Ajouter(p);
    };
    ajouter(L"S", 1.0, 1.0);
    ajouter(L"1", 9.0, 8.0);
    ajouter(L"2", 90.0, 80.0);
    demandeImplantation demande;
    demande.station = L"S";
    demande.points = L"1,2";
    demande.verifier = true;
    const auto verifies = [&] {
        const suitesImplantation suites = implanterEnLigne(demande);
        EXPECT_EQ(suites.erreur, L"");
        int nombre = 0;
        for (const pointImplante& p : suites.resultat.blocs.at(0).points)
            nombre += p.verifie ? 1 : 0;
        EXPECT_EQ(suites.avertissements.size(), 1U) << "a point off the ground, or no ground at all";
        return nombre;
    };
    EXPECT_EQ(verifies(), 1);
    ASSERT_FALSE(ModuleTable::instance().unload(large(TERRAIN_ARX)));
    EXPECT_EQ(verifies(), 0);
    ASSERT_FALSE(ModuleTable::instance().load(large(TERRAIN_ARX)));
    EXPECT_EQ(verifies(), 1);
}

TEST_F(TerrainTest, unloadsInEitherOrder)
{
    for (const bool terrainFirst : {true, false}) {
        dessinAvecModele();
        EXPECT_NE(exports().donnees, nullptr);
        ModuleTable& modules = ModuleTable::instance();
        const auto partir = [&](const char* module) {
            const auto echec = modules.unload(large(module));
            EXPECT_FALSE(echec) << module << std::string(echec->begin(), echec->end());
        };
        partir(terrainFirst ? TERRAIN_ARX : PRINCIPAL_ARX);
        partir(terrainFirst ? PRINCIPAL_ARX : MODULE_ARX);
        partir(terrainFirst ? MODULE_ARX : TERRAIN_ARX);
        EXPECT_EQ(GetModuleHandleW(moduleTerrain), nullptr);
        DocumentList::instance().closeAll();
        for (const char* const module : {MODULE_ARX, PRINCIPAL_ARX, TERRAIN_ARX})
            ASSERT_FALSE(modules.load(large(module)));
    }
}

} // namespace

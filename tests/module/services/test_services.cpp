#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "ap/DocumentList.h"
#include "ap/UndoMarks.h"
#include "services/CAcadUndoGroup.h"
#include "services/dossierSupport.h"
#include "services/etendueVue.h"
#include "services/journaux.h"
#include "services/nomDessin.h"
#include "services/variablesHote.h"

#include "dbapserv.h"
#include "TestFolder.h"

namespace fs = std::filesystem;

namespace {

/// A configuration of our own: the registry file, and drive C beside it.
class ServicesTest : public testing::Test {
protected:
    void SetUp() override
    {
        fs::create_directories(dossier());
        ::setenv("VELA_REGISTRY", (dossier() / "registre.ini").c_str(), 1);
    }
    void TearDown() override { DocumentList::instance().closeAll(); }

    static fs::path dossier() { return fs::path(testing::TempDir()) / ("vela_services_" + std::to_string(getpid())); }
    static void ecrireRegistre(const wchar_t* nom, const std::wstring& valeur)
    {
        HKEY cle = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Ostrakon\\Quarvel5", 0, nullptr, 0, KEY_WRITE,
                                  nullptr, &cle, nullptr),
                  ERROR_SUCCESS);
        const auto taille = static_cast<DWORD>((valeur.size() + 1) * sizeof(wchar_t));
        EXPECT_EQ(RegSetValueExW(cle, nom, 0, REG_SZ, reinterpret_cast<const BYTE*>(valeur.c_str()), taille),
                  ERROR_SUCCESS);
        RegCloseKey(cle);
    }
};

TEST_F(ServicesTest, composesSupportPaths)
{
    ecrireRegistre(L"chemin", L"C:\\Vela\\Support\\\\");
    EXPECT_STREQ(cheminSupport(L"defcodif"), L"C:\\Vela\\Support\\defcodif");
    EXPECT_STREQ(cheminSupport(L"velablk1.dwg", L"biblio"), L"C:\\Vela\\Support\\biblio\\velablk1.dwg");
    EXPECT_STREQ(cheminSupport(L"a", L""), L"C:\\Vela\\Support\\a");
    const wchar_t* const premier = cheminSupport(L"premier");
    EXPECT_EQ(cheminSupport(L"second"), premier) << "one buffer for all";
    EXPECT_STREQ(premier, L"C:\\Vela\\Support\\second");
    EXPECT_EQ(std::wcslen(cheminSupport(std::wstring(5000, L'x').c_str())), 4095U);

    ecrireRegistre(L"chemin", L"D:\\Ailleurs");
    EXPECT_STREQ(cheminSupport(L"a"), L"C:\\Vela\\Support\\a") << "looked up once";
    std::wstring valeur;
    EXPECT_EQ(lireValeurRegistre(L"chemin", valeur), 1);
    EXPECT_TRUE(valeur == L"D:\\Ailleurs");
}

TEST_F(ServicesTest, readsRegistryValues)
{
    std::wstring texte(L"avant");
    DWORD nombre = 5;
    EXPECT_EQ(lireValeurRegistre(L"absent", texte), 0);
    EXPECT_EQ(lireValeurRegistre(L"absent", nombre), 0);
    ecrireRegistre(L"texte", L"\u00e9t\u00e9");
    EXPECT_EQ(lireValeurRegistre(L"texte", nombre), 0) << "not a number";
    EXPECT_EQ(nombre, 5U);
    EXPECT_EQ(lireValeurRegistre(L"texte", texte), 1);
    EXPECT_TRUE(texte == L"\u00e9t\u00e9");
}

TEST_F(ServicesTest, appendsToTheLogs)
{
    journaliserMessage("perdu\n"); // no such folder yet: dropped
    const fs::path support = dossier() / "lecteurs" / "c" / "QUARVEL4" / "SUPPORT";
    fs::create_directories(support);
    journaliserMessage("un\n");
    journaliserMessage("deux");
    EXPECT_EQ(contents(support / "MESSAGES.MSG"), "un\ndeux");

    fs::current_path(dossier());
    journaliserDebug(0, L"a");
    journaliserDebug(2, L"\u00e9");
    journaliserDebug(-1, L"c");
    EXPECT_EQ(contents(dossier() / "DEBUGINFO.MSG"), "\na\n    \xe9\nc");
}

TEST_F(ServicesTest, cutsTheDrawingNameAtItsFirstDot)
{
    EXPECT_TRUE(nomDessin() == L"") << "no drawing";
    Document& document = DocumentList::instance().create();
    const fs::path fichier = dossier() / "dossier.1" / "plan.v2.dxf";
    fs::create_directories(fichier.parent_path());
    ASSERT_FALSE(DocumentList::instance().saveAs(document, fichier.wstring()));
    EXPECT_TRUE(nomDessin().ends_with(L"plan"));
    EXPECT_NE(nomDessin().find(L"dossier.1"), std::wstring::npos) << "dots of the folder stay";
}

TEST_F(ServicesTest, readsTheExtentOfTheView)
{
    etendueVue vue{1, 2, 3, 4};
    EXPECT_FALSE(lireEtendueVue(vue)) << "no drawing";
    EXPECT_EQ(vue.xMin, 1);
    DocumentList::instance().create();
    AcGePoint3d centre;
    double taille = 0;
    ASSERT_TRUE(lireVariable(L"VIEWCTR", centre) && lireVariable(L"VIEWSIZE", taille) && lireEtendueVue(vue));
    EXPECT_DOUBLE_EQ((vue.yMin + vue.yMax) / 2, centre.y);
    EXPECT_DOUBLE_EQ(std::min(vue.xMax - vue.xMin, vue.yMax - vue.yMin), taille);
    EXPECT_FALSE(lireVariable(L"VIEWSIZE", centre)) << "of another type";
}

TEST_F(ServicesTest, groupsUndo)
{
    struct marques : UndoMarks {
        void documentOpened(AcDbDatabase&) override {}
        void startMark(AcDbDatabase&) override { texte += '('; }
        void endMark(AcDbDatabase&) override { texte += ')'; }
        std::string texte;
    } m;
    {
        const CAcadUndoGroup sansDessin;
    }
    DocumentList::instance().create();
    setUndoMarks(&m);
    {
        const CAcadUndoGroup groupe;
        EXPECT_EQ(m.texte, "(");
        const CAcadUndoGroup interieur;
    }
    AcDbDatabase seule; // a working drawing that no document shows
    AcDbDatabase* const courante = acdbHostApplicationServices()->workingDatabase();
    acdbHostApplicationServices()->setWorkingDatabase(&seule);
    {
        const CAcadUndoGroup groupe;
    }
    acdbHostApplicationServices()->setWorkingDatabase(courante);
    setUndoMarks(nullptr);
    const std::string marquees = m.texte;
    EXPECT_EQ(marquees.front(), '(');
    EXPECT_EQ(std::count(marquees.begin(), marquees.end(), '('), std::count(marquees.begin(), marquees.end(), ')'));
}

} // namespace

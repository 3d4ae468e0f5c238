#include "commands/CommandHooks.h"
#include "commands/Variables.h"
#include "ed/CommandStack.h"
#include "ed/input/CurrentView.h"
#include "ed/PlotHook.h"
#include "platform/CodePage.h"

#include "acutmem.h"
#include "CommandTest.h"

/// Files, history, layers, names, measures, the view, the session.

namespace {

using Texts = std::vector<std::string>;

class HostCommands : public CommandTest {
protected:
    ~HostCommands() override
    {
        CommandHooks::instance() = {};
        PlotHook::instance().plot = nullptr;
    }
    std::wstring path(const char* name) const { return platform::wideFromUtf8(file(name).string()); }
    /// Types lines, which must print a text.
    void says(const std::wstring& lines, const wchar_t* text)
    {
        printed();
        typed(lines);
        const std::wstring said = printed();
        EXPECT_NE(said.find(text), std::wstring::npos) << platform::utf8FromWide(lines) << platform::utf8FromWide(said);
    }
    static CurrentView view() { return CurrentView::get(); }
};

// ---- history

TEST_F(HostCommands, undoSaysWhatItTakesBack)
{
    typed(L"L | 0,0 | 1,0 |  | C | 0,0 | 5");
    says(L"U", L"CERCLE");
    EXPECT_EQ(entities(), Texts({"LINE 0,0 1,0"}));
    says(L"_UNDO | 5", L"Tout a été annulé.");
    EXPECT_EQ(entities(), Texts());
    says(L"RETABLIR | RETABLIR | RETABLIR", L"Il n'y a rien à rétablir.");
    EXPECT_EQ(entities().size(), 2U);
    typed(L"U | U | MRETABLIR | 1");
    EXPECT_EQ(entities().size(), 1U);
}

TEST_F(HostCommands, aSetIsTakenBackAtOnce)
{
    typed(L"PO | 0,0 | ANNULER | D | PO | 1,0 | PO | 2,0 | ANNULER | F | U");
    EXPECT_EQ(entities(), Texts({"POINT 0,0"}));
    typed(L"RETABLIR");
    EXPECT_EQ(entities().size(), 3U);
    says(L"ANNULER | F", L"Aucun groupe n'est commencé.");
}

TEST_F(HostCommands, backGoesToTheLastMark)
{
    says(L"PO | 0,0 | ANNULER | M | PO | 1,0 | PO | 2,0 | ANNULER | 10", L"Marque rencontrée.");
    EXPECT_EQ(entities(), Texts({"POINT 0,0"})) << "a number of steps stops at a mark";
    typed(L"ANNULER | M | PO | 3,0 | PO | 4,0 | ANNULER | R");
    EXPECT_EQ(entities(), Texts({"POINT 0,0"}));
    typed(L"ANNULER | R | N");
    EXPECT_EQ(entities(), Texts({"POINT 0,0"})) << "without a mark it asks first";
    typed(L"ANNULER | R | O");
    EXPECT_EQ(entities(), Texts());
}

TEST_F(HostCommands, lookingIsNoStep)
{
    typed(L"PO | 0,0 | ZOOM | _E | DI | 0,0 | 1,1 | LISTE | _ALL |  | U");
    EXPECT_EQ(entities(), Texts());
}

// ---- files

TEST_F(HostCommands, saveOpenSaveAgain)
{
    typed(L"L | 0,0 | 10,0 | ");
    EXPECT_EQ(variable<short>(L"DBMOD"), 1);
    says(L"SAUVENOM | " + path("plan"), L"plan.dxf");
    EXPECT_EQ(variable<short>(L"DBMOD"), 0);
    EXPECT_EQ(read("plan.dxf"), bytes());
    typed(L"NOUVEAU");
    EXPECT_EQ(entities(), Texts());
    typed(L"OUVRIR | " + path("plan.dxf"));
    EXPECT_EQ(DocumentList::instance().documents().size(), 2U) << "it comes to the front";
    EXPECT_EQ(entities(), Texts({"LINE 0,0 10,0"}));
    typed(L"C | 0,0 | 5 | SAUVERAP");
    EXPECT_EQ(read("plan.dxf"), bytes());
    typed(L"U");
    EXPECT_EQ(variable<short>(L"DBMOD"), 1) << "what the file holds was taken back";
    typed(L"RETABLIR");
    EXPECT_EQ(variable<short>(L"DBMOD"), 0);
}

TEST_F(HostCommands, nothingIsReplacedUnasked)
{
    write("autre.dxf", "un autre");
    typed(L"SAUVENOM | " + path("autre.dxf") + L" | N");
    EXPECT_EQ(read("autre.dxf"), "un autre");
    typed(L"SAUVENOM | " + path("autre.dxf") + L" | O");
    EXPECT_NE(read("autre.dxf"), "un autre");
    EXPECT_EQ(read("autre.dxf.bak") + read("autre.bak"), "un autre") << "it is kept";

    const std::string before = read("autre.dxf");
    std::filesystem::permissions(path("autre.dxf"), std::filesystem::perms::owner_read);
    typed(L"PO | 0,0 | SAUVERAP | N");
    EXPECT_EQ(read("autre.dxf"), before) << "marked as read-only";
    typed(L"SAUVERAP | O");
    EXPECT_NE(read("autre.dxf"), before);
}

TEST_F(HostCommands, whatCannotBeOpenedIsTold)
{
    says(L"OUVRIR | " + path("absent"), L"introuvable");
    write("faux.dxf", "ceci n'est pas un dessin");
    says(L"OUVRIR | " + path("faux.dxf"), L"faux.dxf");
    EXPECT_EQ(DocumentList::instance().documents().size(), 1U);
}

TEST_F(HostCommands, whatFailsIsShownToo)
{
    std::vector<std::wstring> shown;
    CommandHooks::instance().tellFailure = [&](const std::wstring& reason) { shown.push_back(reason); };
    says(L"OUVRIR | " + path("absent.dxf"), L"introuvable");
    says(L"RECUPERER | " + path("absent.dxf"), L"introuvable");
    says(L"SAUVENOM | " + path("plan.dwg"), L"en DXF");
    says(L"SAUVENOM | " + path("absent/plan.dxf"), L"absent");
    EXPECT_EQ(shown.size(), 4U);
}

TEST_F(HostCommands, bearingsAreClockwiseFromNorthInGrades)
{
    says(L"DI | 0,0 | 10,0", L"Gisement = 100.0000 gr");
    says(L"DI | 0,0 | -1,1", L"Gisement = 350.0000 gr");
    says(L"DI | 0,0 | 0,-3", L"Gisement = 200.0000 gr");
}

TEST_F(HostCommands, snapsAreChosenByTheirNames)
{
    typed(L"OSNAP | EXT,MIL");
    EXPECT_EQ(variable<short>(L"OSMODE"), 3);
    says(L"_OSNAP | MIL,XYZ", L"inconnu");
    typed(L"ACCROBJ | _non");
    EXPECT_EQ(variable<short>(L"OSMODE"), 0);
}

TEST_F(HostCommands, recoversWhatCanBeReadAndSaysTheRest)
{
    typed(L"PO | 1,1 | PO | 2,2 | PO | 3,3 | SAUVENOM | " + path("plan.dxf") + L" | FERMER");
    std::string damaged = read("plan.dxf");
    const auto second = damaged.find("AcDbPoint", damaged.find("AcDbPoint") + 1);
    damaged.insert(damaged.find('\n', second) + 1, "#@!\n");
    write("plan.dxf", damaged);
    says(L"RECUPERER | " + path("plan.dxf"), L"code de groupe illisible « #@! »");
    EXPECT_EQ(entities(), Texts({"POINT 1,1", "POINT 3,3"}));
    EXPECT_EQ(variable<short>(L"DBMOD"), 1) << "the mended drawing is to be saved";
    typed(L"SAUVERAP | FERMER | OUVRIR | " + path("plan.dxf"));
    says(L"CONTROLER", L"aucune anomalie");
    EXPECT_EQ(entities(), Texts({"POINT 1,1", "POINT 3,3"}));
}

TEST_F(HostCommands, auditsAnOpenDrawing)
{
    write("r12.dxf", "0\nSECTION\n2\nENTITIES\n0\nINSERT\n8\n0\n2\nABSENT\n10\n1\n20\n1\n0\nENDSEC\n0\nEOF\n");
    typed(L"OUVRIR | " + path("r12.dxf") + L" | PO | 0,0");
    says(L"_AUDIT", L"son bloc n'existe pas");
}

TEST_F(HostCommands, closingAsksWhenSomethingWouldBeLost)
{
    typed(L"NOUVEAU | FERMER");
    EXPECT_EQ(DocumentList::instance().documents().size(), 1U);
    typed(L"PO | 0,0 | FERMER | ESC");
    EXPECT_EQ(DocumentList::instance().documents().size(), 1U) << "cancelled";
    typed(L"FERMER | O | " + path("garde"));
    EXPECT_EQ(DocumentList::instance().documents().size(), 0U);
    EXPECT_NE(read("garde.dxf"), "");
    typed(L"OUVRIR | " + path("garde.dxf"));
    EXPECT_EQ(entities(), Texts({"POINT 0,0"})) << "opened where nothing was";
}

TEST_F(HostCommands, aDialogChoosesTheFile)
{
    CommandHooks::instance().chooseFile = [this](const CommandHooks::FileQuestion& asked) {
        return asked.toSave ? std::optional(path("choisi.dxf")) : std::nullopt;
    };
    typed(L"SAUVENOM | OUVRIR");
    EXPECT_NE(read("choisi.dxf"), "");
    EXPECT_EQ(DocumentList::instance().documents().size(), 1U);
    typed(L"FILEDIA | 0 | SAUVENOM | " + path("tape") + L" | FILEDIA | 1");
    EXPECT_NE(read("tape.dxf"), "");
}

// ---- layers, names, colours

TEST_F(HostCommands, layers)
{
    const std::string before = bytes();
    typed(L"CALQUE | CR | Bornes | N | Bati,Voirie | CO | rouge | B* | IN | Bati | V | Voirie | ");
    EXPECT_EQ(variableText(L"CLAYER"), L"Bornes");
    printed();
    typed(L"CA | ? | * | ");
    const std::wstring list = printed();
    EXPECT_NE(list.find(L"Bornes  [actif]  couleur 1 (rouge)"), std::wstring::npos);
    EXPECT_NE(list.find(L"Bati  [inactif]  couleur 1 (rouge)"), std::wstring::npos);
    EXPECT_NE(list.find(L"Voirie  [actif, verrouillé]  couleur 7 (blanc)"), std::wstring::npos);
    EXPECT_NE(list.find(L"4 calques"), std::wstring::npos);
    says(L"CA | G | Bornes | ", L"Le calque courant ne peut être gelé.");
    says(L"CA | G | Voirie | D | Voirie | ", L"Un calque gelé ne peut être le calque courant.");
    typed(L"-CALQUE | _THAW | Voirie | _UNLOCK | * | _ON | * | _SET | Voirie | RE | Bati | Bâti dur | ");
    says(L"CA | ? | Bâti* | ", L"Bâti dur  [actif]");
    typed(L"CA | D | absent | N | a<b | IN | rien* | T | absent | ");
    const std::wstring refusals = printed();
    EXPECT_NE(refusals.find(L"Le calque « absent » n'existe pas."), std::wstring::npos);
    EXPECT_NE(refusals.find(L"Le nom de calque « a<b » n'est pas permis."), std::wstring::npos);
    EXPECT_NE(refusals.find(L"Aucun calque ne correspond à « rien* »."), std::wstring::npos);
    EXPECT_NE(refusals.find(L"Le type de ligne « absent » n'est pas dans le dessin."), std::wstring::npos);
    EXPECT_EQ(variableText(L"CLAYER"), L"Voirie");
    typed(L"ANNULER | 100");
    EXPECT_EQ(bytes(), before);
}

TEST_F(HostCommands, namesAndColours)
{
    says(L"CA | N | A,B |  | RENOMMER | CA | A | B", L"« B » existe déjà.");
    says(L"-RENOMMER | CA | A | C | CA | ? | C | ", L"C  [actif]");
    says(L"REN | CA | 0", L"« 0 » ne peut être renommé.");
    typed(L"COULEUR | vert");
    EXPECT_EQ(variableText(L"CECOLOR"), L"3");
    typed(L"_COLOR | _ByLayer");
    EXPECT_EQ(variableText(L"CECOLOR"), L"BYLAYER");
    says(L"COULEUR | 300", L"est attendu");
    EXPECT_EQ(variableText(L"CECOLOR"), L"BYLAYER");
}

TEST_F(HostCommands, aTextThatAProgramWritesIsOneLine)
{
    typed(L"(progn (command \"_.TEXT\" '(0 0) 2 0 \"a\") (command \"_.-POINT\" '(1 1)))");
    EXPECT_EQ(entities(), (std::vector<std::string>{"TEXT a 0,0 h2", "POINT 1,1"}));
}

TEST_F(HostCommands, changesPropertiesOfSeveral)
{
    typed(L"CA | N | Bornes |  | L | 0,0 | 10,0 |  | C | 20,0 | 5");
    const std::string before = bytes();
    says(L"CHPROP | _ALL |  | CA | absent | CO | 300 | CA | Bornes | _C | vert | _LT | Continuous | _S | 2.5 | ",
         L"« absent » n'est pas dans le dessin.");
    typed(L"(sslength (ssget \"X\" '((8 . \"Bornes\") (62 . 3) (6 . \"Continuous\") (48 . 2.5))))");
    EXPECT_EQ(printed(), L"\n2");
    typed(L"U");
    EXPECT_EQ(bytes(), before);
}

// ---- measures

TEST_F(HostCommands, distancesAndPoints)
{
    setVariable(L"LUPREC", short{3});
    typed(L"DISTANCE | 0,0,0 | 3,4,12");
    EXPECT_EQ(variable<double>(L"DISTANCE"), 13.0);
    const std::wstring said = printed();
    EXPECT_NE(said.find(L"Distance = 13.000"), std::wstring::npos) << platform::utf8FromWide(said);
    EXPECT_NE(said.find(L"Delta X = 3.000,  Delta Y = 4.000,  Delta Z = 12.000"), std::wstring::npos);
    says(L"ID | 1,2,3", L"X = 1.000  Y = 2.000  Z = 3.000");
    typed(L"L | @ | @1,0 | ");
    EXPECT_EQ(entities(), Texts({"LINE 1,2,3 2,2,3"}));
}

TEST_F(HostCommands, areas)
{
    struct Row {
        const char* name;
        const wchar_t* typed;
        double area, perimeter;
    };
    const Row rows[] = {
        {"points: a triangle of 3, 4, 5", L"AIRE | 0,0 | 3,0 | 3,4 | ", 6.0, 12.0},
        {"a point taken back", L"AA | 0,0 | 3,0 | 9,9 | U | 3,4 | ", 6.0, 12.0},
        {"far from the origin", L"AA | 1700000,8200000 | @3,0 | @0,4 | ", 6.0, 12.0},
        {"a circle", L"C | 0,0 | 1 | AA | O | 1,0", 3.14159265358979, 6.28318530717959},
        {"an open polyline is closed for its area", L"PL | 0,0 | 3,0 | 3,4 |  | AA | O | 1,0", 6.0, 7.0},
        {"added and taken away", L"AA | A | 0,0 | 10,0 | 10,10 | 0,10 |  | S | 0,0 | 3,0 | 3,4 |  |  | ", 94.0, 12.0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        DocumentList::instance().create();
        CurrentView::set({0, 0}, 100);
        typed(row.typed);
        EXPECT_NEAR(variable<double>(L"AREA"), row.area, 1e-9);
        EXPECT_NEAR(variable<double>(L"PERIMETER"), row.perimeter, 1e-9);
    }
    says(L"AA | 0,0 | 1,1 | ", L"Trois points au moins sont nécessaires.");
}

TEST_F(HostCommands, list)
{
    setVariable(L"LUPREC", short{2});
    typed(L"L | 0,0 | 3,4 |  | C | 9,9 | 2 | LISTE | _ALL | ");
    const std::wstring said = printed();
    for (const wchar_t* part :
         {L"LIGNE  Calque : « 0 »", L"longueur : 5.00", L"CERCLE", L"rayon : 2.00", L"aire : 12.57"})
        EXPECT_NE(said.find(part), std::wstring::npos) << platform::utf8FromWide(part) << platform::utf8FromWide(said);
}

// ---- the view

TEST_F(HostCommands, zoomAndPan)
{
    CurrentView::setScreen(200, 100);
    CurrentView::set({0, 0}, 10);
    typed(L"ZOOM | 10,10 | 30,20");
    EXPECT_EQ(view().center, AcGePoint2d(20, 15));
    EXPECT_NEAR(view().height, 10.0, 1e-12) << "twice as wide as high, like the window";
    typed(L"Z | 2X");
    EXPECT_NEAR(view().height, 5.0, 1e-12);
    typed(L"Z | P | Z | P");
    EXPECT_EQ(view().center, AcGePoint2d(0, 0));
    says(L"Z | P", L"Il n'y a pas de vue précédente.");
    typed(L"Z | C | 7,8 | 40");
    EXPECT_EQ(view().center, AcGePoint2d(7, 8));
    EXPECT_NEAR(view().height, 40.0, 1e-12);
    typed(L"Z | C | 7,8 | 4x");
    EXPECT_NEAR(view().height, 10.0, 1e-12);
    typed(L"PAN | 0,0 | 3,1");
    EXPECT_EQ(view().center, AcGePoint2d(4, 7));
    typed(L"L | 100,100 | 'Z | _W | 0,0 | 20,10 | 140,120 | ");
    EXPECT_EQ(entities(), Texts({"LINE 100,100 140,120"})) << "looked at meanwhile";
    EXPECT_EQ(view().center, AcGePoint2d(10, 5));
    typed(L"Z | _E");
    EXPECT_EQ(view().center, AcGePoint2d(120, 110));
    EXPECT_NEAR(view().height, 20.0 / 0.96, 0.1);
    typed(L"Z | T | Z | O | _ALL |  | Z | ECH | 0.5");
    EXPECT_NEAR(view().height, 40.0, 0.1) << "counted from the whole drawing";
    says(L"Z | -3 | Z | abc", L"Un nombre positif est attendu");
}

TEST_F(HostCommands, anEmptyDrawingHasItsLimits)
{
    CurrentView::set({5000, 5000}, 1);
    typed(L"Z | T");
    const auto least = variable<AcGePoint2d>(L"LIMMIN"), most = variable<AcGePoint2d>(L"LIMMAX");
    EXPECT_NEAR(view().center.x, (least.x + most.x) / 2.0, 1e-9);
    says(L"Z | ET", L"Il n'y a rien à montrer.");
}

// ---- the session

TEST_F(HostCommands, variables)
{
    typed(L"MODIFVAR | LUPREC | 6");
    EXPECT_EQ(variable<short>(L"LUPREC"), 6);
    typed(L"MODIFVAR | LUPREC | ");
    EXPECT_EQ(variable<short>(L"LUPREC"), 6);
    says(L"MODIFVAR | ? | lup*", L"LUPREC  6");
    says(L"MODIFVAR | VIEWSIZE", L"lecture seule");
    says(L"MODIFVAR | RIEN", L"Variable inconnue");
    says(L"MODIFVAR | LUPREC | 99", L"ne convient pas");
    typed(L"MODIFVAR | INSBASE | 1,2,3");
    EXPECT_EQ(variable<AcGePoint3d>(L"INSBASE"), AcGePoint3d(1, 2, 3));
}

TEST_F(HostCommands, applicationsAndScripts)
{
    write("outils.lsp", "(defun c:BORNE () (command \"_POINT\" \"7,7\") (princ))");
    typed(L"CHARGAPPLI | " + path("outils.lsp") + L" | BORNE");
    EXPECT_EQ(entities(), Texts({"POINT 7,7"}));
    says(L"CHARGAPPLI | " + path("absent.lsp"), L"absent.lsp");
    says(L"CHARGAPPLI | " + path("absent.arx"), L"absent.arx");
    says(L"SCRIPT | plan.scr", L"Les scripts ne sont pas disponibles ici.");
    std::wstring run;
    CommandHooks::instance().runScript = [&run](const std::wstring& script) {
        run = script;
        return std::wstring();
    };
    typed(L"SCRIPT | plan.scr");
    EXPECT_EQ(run, L"plan.scr");
}

TEST_F(HostCommands, plot)
{
    says(L"TRACEUR", L"Le tracé n'est pas disponible ici.");
    PlotRequest asked;
    PlotHook::instance().plot = [&asked](AcDbDatabase&, const PlotRequest& request) {
        asked = request;
        return std::wstring();
    };
    typed(L"TRACEUR | plan.pdf |  | A3 | P | 500");
    EXPECT_EQ(asked.file, L"plan.pdf");
    EXPECT_FALSE(asked.window);
    EXPECT_EQ(asked.paperWidth, 297.0);
    EXPECT_EQ(asked.paperHeight, 420.0);
    EXPECT_EQ(asked.scale, 2.0) << "millimetres of paper for a metre";
    typed(L"_PLOT | plan.png | F | 1,2 | 3,5 |  |  | ");
    ASSERT_TRUE(asked.window);
    EXPECT_EQ(asked.window->width(), 2.0);
    EXPECT_EQ(asked.paperWidth, 297.0) << "A4, landscape";
    EXPECT_EQ(asked.scale, 0.0);
}

TEST_F(HostCommands, everyNameLeadsToItsCommand)
{
    std::unique_ptr<AcEdCommandIterator> each(acedRegCmds->iterator());
    std::size_t count = 0;
    for (; !each->done(); each->next(), ++count) {
        const AcEdCommand* command = each->command();
        EXPECT_EQ(acedRegCmds->lookupGlobalCmd(command->globalName()), command);
        EXPECT_EQ(acedRegCmds->lookupLocalCmd(command->localName()), command);
    }
    EXPECT_GE(count, 38U);
}

} // namespace

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "ap/UndoMarks.h"
#include "ed/CommandRunner.h"
#include "platform/CodePage.h"
#include "rx/Console.h"

#include "acedads.h"
#include "acutmem.h"
#include "afx.h"
#include "dbads.h"
#include "FakeDatabase.h"
#include "moduleActions.h"

namespace {

std::string ran; // letters that commands leave
std::function<void()> body;

void runBody()
{
    const auto current = body; // it may set another one
    current();
}

class RecordedMarks : public UndoMarks {
public:
    void documentOpened(AcDbDatabase&) override {}
    void startMark(AcDbDatabase&) override { ran += "("; }
    void endMark(AcDbDatabase&) override { ran += ")"; }
};

class Runner : public testing::Test {
protected:
    void SetUp() override
    {
        setUndoMarks(&marks);
        Console::instance().setSink([this](const std::wstring& text) { printed += text; });
        list.open(L"/p/a.dxf");
        ran.clear();
    }
    void TearDown() override
    {
        runner.setOpenObjects(nullptr);
        moduleActions.clear();
        ModuleTable::instance().unloadAll();
        acedRegCmds->removeGroup(L"TEST");
        acedRegCmds->removeGroup(L"DEUX");
        list.closeAll();
        setUndoMarks(nullptr);
        Console::instance().setSink(nullptr);
        EXPECT_FALSE(runner.isRunning());
    }
    static void add(const wchar_t* global, const wchar_t* local, Adesk::Int32 flags, AcRxFunctionPtr function)
    {
        ASSERT_EQ(acedRegCmds->addCommand(L"TEST", global, local, flags, function), Acad::eOk);
    }
    void addBody(Adesk::Int32 flags, std::function<void()> what)
    {
        body = std::move(what);
        acedRegCmds->removeGroup(L"TEST");
        add(L"CORPS", L"CORPS", flags, runBody);
    }
    /// What is left by the command of a typed name, or why there is none.
    std::string lettersOf(const wchar_t* typed)
    {
        ran.clear();
        const CommandOutcome outcome = runner.run(typed);
        return outcome.failure.empty() ? ran : "refused";
    }

    RecordedMarks marks;
    std::wstring printed;
    DocumentList& list = DocumentList::instance();
    CommandRunner& runner = CommandRunner::instance();
};

TEST_F(Runner, findsCommandsAsTheyAreTyped)
{
    add(L"LINE", L"LIGNE", ACRX_CMD_NO_UNDO_MARKER, [] { ran += "L"; });
    add(L"C", L"CERCLE", ACRX_CMD_NO_UNDO_MARKER, [] { ran += "C"; });
    moduleActions[AcRx::kLoadDwgMsg] = [] {
        acedDefun(L"c:ligne", 0);
        acedDefun(L"C:ZoomLeve", 1);
        acedDefun(L"maxnum", 2);
    };
    moduleActions[AcRx::kInvkSubrMsg] = [] { ran += static_cast<char>('0' + acedGetFunCode()); };
    ASSERT_EQ(ModuleTable::instance().load(platform::wideFromUtf8(TEST_MODULE)), std::nullopt);

    struct Row {
        const wchar_t* typed;
        const char* letters;
    };
    const Row rows[] = {
        {L"LIGNE", "L"},        {L"ligne", "L"},
        {L"_LINE", "L"},        {L"LINE", "refused"},
        {L"_LIGNE", "(0)"},     {L"'_line", "L"},
        {L"._LINE", "L"},       {L"_.LINE", "L"},
        {L".LIGNE", "L"},       {L"zoomleve", "(1)"},
        {L"_ZOOMLEVE", "(1)"},  {L".ZOOMLEVE", "refused"},
        {L"maxnum", "refused"}, {L"C:ZoomLeve", "refused"},
        {L"", "refused"},       {L"_", "refused"},
        {L"-LIGNE", "L"},       {L"_.-line", "L"},
        {L"-", "refused"},      {L"--LIGNE", "refused"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(lettersOf(row.typed), row.letters) << testing::PrintToString(row.typed);

    printed.clear();
    EXPECT_EQ(runner.run(L"LIGNES").failure, L"Commande inconnue : « LIGNES ».");
    EXPECT_EQ(printed, L"\nCommande inconnue : « LIGNES ».");
}

TEST_F(Runner, locksAndMarksByTheFlags)
{
    struct Row {
        const char* name;
        Adesk::Int32 flags;
        AcAp::DocLockMode lock;
        bool quiescent;
        const char* marks;
    };
    const Row rows[] = {
        {"modal", ACRX_CMD_MODAL, AcAp::kWrite, false, "()"},
        {"pick set", ACRX_CMD_USEPICKSET, AcAp::kWrite, false, "()"},
        {"session", ACRX_CMD_SESSION, AcAp::kNotLocked, true, "()"},
        {"reads only", ACRX_CMD_DOCREADLOCK, AcAp::kRead, false, "()"},
        {"exclusive", ACRX_CMD_DOCEXCLUSIVELOCK, AcAp::kXWrite, false, "()"},
        {"locks by itself", ACRX_CMD_NOINTERNALLOCK, AcAp::kNotLocked, false, "()"},
        {"no step for U", ACRX_CMD_NO_UNDO_MARKER, AcAp::kWrite, false, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        AcAp::DocLockMode lock = AcAp::kNone;
        bool quiescent = false;
        addBody(row.flags, [&] {
            lock = curDoc()->myLockMode();
            quiescent = curDoc()->isQuiescent();
        });
        EXPECT_EQ(lettersOf(L"CORPS"), row.marks);
        EXPECT_EQ(lock, row.lock);
        EXPECT_EQ(quiescent, row.quiescent);
        EXPECT_EQ(list.current()->lockCount(), 0U);
        EXPECT_TRUE(list.current()->isQuiescent());
    }
}

TEST_F(Runner, runsOnlyTransparentCommandsInsideAnother)
{
    addBody(ACRX_CMD_MODAL, [this] {
        EXPECT_EQ(runner.runningNames(), L"CORPS");
        EXPECT_EQ(runner.run(L"'ZOOM").failure, L"");
        EXPECT_EQ(runner.run(L"LIGNE").failure, L"La commande « LINE » ne peut être appelée pendant « CORPS ».");
    });
    add(L"ZOOM", L"ZOOM", ACRX_CMD_TRANSPARENT, [] {
        EXPECT_EQ(CommandRunner::instance().runningNames(), L"CORPS'ZOOM");
        ran += "Z";
    });
    add(L"LINE", L"LIGNE", ACRX_CMD_MODAL, [] { ran += "L"; });
    EXPECT_EQ(lettersOf(L"CORPS"), "((Z))");
}

TEST_F(Runner, tellsWhatACommandThrows)
{
    struct Row {
        const char* name;
        std::function<void()> thrower;
        const wchar_t* reason;
    };
    const Row rows[] = {
        {"standard", [] { throw std::runtime_error("fichier tronqué"); }, L"fichier tronqué"},
        {"framework", [] { AfxThrowInvalidArgException(); }, L"Argument non valide."},
        {"object not open for write", [] { throw AcDbOpenError(Acad::eNotOpenForWrite); },
         L"objet du dessin mal ouvert (eNotOpenForWrite)"},
        {"memory", [] { throw std::bad_alloc(); }, L"mémoire insuffisante"},
        {"anything", [] { throw 1; }, L"erreur inconnue"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        addBody(ACRX_CMD_MODAL, row.thrower);
        printed.clear();
        const std::wstring failure = L"La commande « CORPS » a échoué : " + std::wstring(row.reason) + L".";
        EXPECT_EQ(runner.run(L"CORPS").failure, failure);
        EXPECT_EQ(printed, L"\n" + failure);
        EXPECT_FALSE(runner.isRunning());
        EXPECT_EQ(list.current()->lockCount(), 0U);
    }
}

TEST_F(Runner, putsRightAndTellsWhatACommandLeaves)
{
    int asked = 0;
    runner.setOpenObjects([&asked] {
        ++asked;
        return std::vector<std::wstring>{L"AcDbPoint 2F"};
    });
    addBody(ACRX_CMD_MODAL, [] {
        acDocManager->lockDocument(curDoc());
        static_cast<Document*>(curDoc())->startUndoMark();
    });
    const CommandOutcome outcome = runner.run(L"CORPS");
    EXPECT_EQ(outcome.leftOpen, std::vector<std::wstring>{L"AcDbPoint 2F"});
    EXPECT_EQ(printed, L"\nLa commande « CORPS » a laissé 1 verrou(s) du dessin, 1 marque(s) d'annulation."
                       L"\nLa commande « CORPS » a laissé des objets ouverts : AcDbPoint 2F.");
    EXPECT_EQ(ran, "(())");
    EXPECT_EQ(list.current()->lockCount(), 0U);

    // A transparent command may find the outer one's objects open: only the outermost is asked.
    addBody(ACRX_CMD_TRANSPARENT, [this] {
        body = [] {};
        runner.run(L"CORPS");
    });
    asked = 0;
    runner.run(L"CORPS");
    EXPECT_EQ(asked, 1);
}

TEST_F(Runner, countsResultBuffersThatWereNotReleased)
{
    static resbuf* kept = nullptr;
    addBody(ACRX_CMD_MODAL, [] { kept = acutBuildList(RTSTR, L"S1", RTREAL, 1.0, 0); });
    const CommandOutcome leaking = runner.run(L"CORPS");
    EXPECT_EQ(leaking.newBuffers, 2);
    EXPECT_EQ(leaking.newTexts, 1);
    addBody(ACRX_CMD_MODAL, [] { acutRelRb(kept); });
    EXPECT_EQ(runner.run(L"CORPS").newBuffers, -2);
}

TEST_F(Runner, sessionCommandsMayCloseTheirDocument)
{
    addBody(ACRX_CMD_SESSION, [this] {
        acDocManager->lockDocument(curDoc());
        list.closeAll();
    });
    EXPECT_EQ(runner.run(L"CORPS").failure, L"");
    EXPECT_EQ(list.documentCount(), 0);

    addBody(ACRX_CMD_SESSION, [] {
        acdbFail(L"rien à faire");
        acdbFail(L"autre chose");
    });
    EXPECT_EQ(runner.run(L"CORPS").failure, L"La commande « CORPS » a échoué : rien à faire.");

    addBody(ACRX_CMD_SESSION, [this] { list.create(); });
    EXPECT_EQ(runner.run(L"CORPS").failure, L"");
    list.closeAll();
    addBody(ACRX_CMD_MODAL, [] { FAIL(); });
    EXPECT_EQ(runner.run(L"CORPS").failure, L"La commande « CORPS » demande un dessin, et aucun n'est ouvert.");
}

TEST_F(Runner, aModuleDoesNotGoWhileItsCommandRuns)
{
    moduleActions[AcRx::kInitAppMsg] = [] {
        acedRegCmds->addCommand(L"DEUX", L"PARTIR", L"PARTIR", ACRX_CMD_MODAL,
                                [] { ran += acrxDynamicLinker->unloadModule(L"Temoin.arx") ? "gone" : "stays"; });
        acedRegCmds->addCommand(L"DEUX", L"DEFINIR", L"DEFINIR", ACRX_CMD_MODAL,
                                [] { EXPECT_EQ(acedDefun(L"f", 1), RTNORM) << "its own code runs"; });
    };
    ASSERT_EQ(ModuleTable::instance().load(platform::wideFromUtf8(TEST_MODULE)), std::nullopt);
    EXPECT_EQ(lettersOf(L"PARTIR"), "(stays)");
    EXPECT_EQ(lettersOf(L"DEFINIR"), "()");
    EXPECT_TRUE(acrxDynamicLinker->unloadModule(L"Temoin.arx"));
    EXPECT_EQ(lettersOf(L"PARTIR"), "refused");
}

} // namespace

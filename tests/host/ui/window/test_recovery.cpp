#include <csignal>
#include <cstdlib>
#include <fstream>
#include <QFileDialog>
#include <QProcess>
#include <QTest>
#include <QTreeWidget>

#include <unistd.h>

#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "ed/DrawingChanges.h"
#include "ui/window/Autosave.h"
#include "ui/window/DocumentTabs.h"
#include "ui/window/DrawingEdit.h"
#include "ui/window/DrawingFiles.h"
#include "ui/window/DrawingRecovery.h"
#include "ui/window/MainWindow.h"
#include "ui/window/RecoveryFolder.h"
#include "ui/window/WindowSettings.h"

#include "WindowTest.h"

/// Copies of what is not saved, and what is left of a session that was killed.

namespace fs = std::filesystem;

namespace {

class RecoveryTest : public WindowTest {
protected:
    static void draw()
    {
        const DrawingEdit step(document());
        add(new AcDbLine({0, 0, 0}, {1, 1, 0}));
    }
    /// Copies of this session.
    static int copies()
    {
        int count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(RecoveryFolder::place()))
            count += entry.path().extension() == ".dxf" ? 1 : 0;
        return count;
    }
    /// What the session does that is to be killed; `data` is its folder.
    void beKilled(const char* data)
    {
        setenv("XDG_DATA_HOME", data, 1);
        window = nullptr;
        window = std::make_unique<MainWindow>();
        ASSERT_TRUE(window->files().open(QString::fromUtf8(data) + QStringLiteral("/plan.dxf")));
        draw();
        window->autosave().keepAll();
        fs::remove_all(folder); // this process's own, which nobody else tidies up
        fs::remove_all(fs::path(std::getenv("VELA_REGISTRY")).parent_path());
        std::raise(SIGKILL);
    }
};

TEST_F(RecoveryTest, copiesLeaveTheDrawingAloneAndGoWithIt)
{
    DocumentList& list = DocumentList::instance();
    Document& plan = list.create();
    const fs::path file = folder / "plan.dxf";
    ASSERT_EQ(list.saveAs(plan, file.wstring()), std::nullopt);
    const std::string before = contents(file);
    Autosave& autosave = window->autosave();

    autosave.keepAll();
    EXPECT_EQ(copies(), 0) << "nothing to keep of what is saved";
    draw();
    autosave.keepAll();
    EXPECT_EQ(copies(), 1);
    EXPECT_EQ(contents(file), before);
    EXPECT_STREQ(plan.fileName(), file.wstring().c_str());
    EXPECT_TRUE(DrawingChanges::instance().areUnsaved(plan));
    EXPECT_EQ(plan.database()->impl().undo().undoable(), 1U);
    EXPECT_TRUE(RecoveryFolder::lost().empty()) << "this session lives";

    ASSERT_EQ(list.save(plan), std::nullopt);
    autosave.keepAll();
    EXPECT_EQ(copies(), 0);
    draw();
    autosave.keepAll();
    EXPECT_EQ(copies(), 1);
    list.close(plan);
    EXPECT_EQ(copies(), 0) << "closed: the user has answered";
    window.reset();
    EXPECT_TRUE(fs::is_empty(RecoveryFolder::place()));
}

TEST_F(RecoveryTest, aDraftAloneIsCopiedWithTheDrawingAtWork)
{
    std::uint64_t draft = 7; // from before the drawing was opened: in the settings, and nothing new
    DrawingChanges::instance().setModuleStates({nullptr, [&] { return draft; }});
    DocumentList& list = DocumentList::instance();
    list.create();
    Document& plan = list.create();
    Autosave& autosave = window->autosave();
    autosave.keepAll();
    EXPECT_EQ(copies(), 0);
    draft = 8;
    autosave.keepAll();
    EXPECT_EQ(copies(), 1);
    EXPECT_FALSE(DrawingChanges::instance().areUnsaved(plan)) << "closing loses nothing: the settings hold the draft";
    draft = 0; // saved by its dialog
    autosave.keepAll();
    EXPECT_EQ(copies(), 0);
    DrawingChanges::instance().setModuleStates({});
}

TEST_F(RecoveryTest, whatAKilledSessionKeptIsOffered)
{
    if (const char* const data = std::getenv("VELA_TEST_DATA"))
        return beKilled(data); // this is the process that the test below has started
    DocumentList& list = DocumentList::instance();
    const fs::path file = folder / "plan.dxf";
    Document& plan = list.create();
    ASSERT_EQ(list.saveAs(plan, file.wstring()), std::nullopt);
    list.close(plan);
    const std::string before = contents(file);

    setenv("VELA_TEST_DATA", folder.c_str(), 1);
    QProcess session;
    session.start(QStringLiteral("/proc/%1/exe").arg(getpid()),
                  {QStringLiteral("--gtest_filter=RecoveryTest.whatAKilledSessionKeptIsOffered")});
    unsetenv("VELA_TEST_DATA");
    ASSERT_TRUE(session.waitForFinished(60'000));
    ASSERT_EQ(session.exitStatus(), QProcess::CrashExit) << session.readAllStandardOutput().toStdString();
    ASSERT_EQ(session.exitCode(), SIGKILL);

    EXPECT_EQ(contents(file), before);
    const std::vector<LostDrawing> lost = RecoveryFolder::lost();
    ASSERT_EQ(lost.size(), 1U);
    EXPECT_EQ(lost[0].file.toStdString(), file.string());
    EXPECT_EQ(lost[0].title, QStringLiteral("plan.dxf"));

    whenDialog([](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QTreeWidget*>()->topLevelItemCount(), 1);
        press(dialog, "Plus tard");
    });
    offerRecovery(*window, window->autosave());
    EXPECT_EQ(RecoveryFolder::lost().size(), 1U) << "kept for the next start";

    whenDialog([](QDialog& dialog) { press(dialog, "Récupérer"); });
    offerRecovery(*window, window->autosave());
    ASSERT_EQ(list.documentCount(), 1);
    EXPECT_STREQ(document().docTitle(), L"plan (récupéré).dxf");
    EXPECT_FALSE(document().isNamedDrawing());
    EXPECT_EQ(entities(), "AcDbLine");
    EXPECT_TRUE(DrawingChanges::instance().areUnsaved(document()));
    EXPECT_TRUE(RecoveryFolder::lost().empty());
    EXPECT_EQ(copies(), 1) << "this session keeps it now";
    EXPECT_TRUE(windowSettings::recentFiles().filter(QStringLiteral("recuperation")).isEmpty());

    play({
        [this] {
            whenDialog([](QDialog& dialog) {
                EXPECT_EQ(static_cast<QFileDialog&>(dialog).selectedFiles().constFirst().section(u'/', -1),
                          QStringLiteral("plan.dxf"))
                    << "the old place is proposed";
                dialog.reject();
            });
            choose("_QSAVE")();
        },
    });
}

/// What Qt complains of.
QStringList& warnings()
{
    static QStringList told;
    return told;
}

TEST_F(RecoveryTest, whatIsNotWantedIsRemoved)
{
    const fs::path place = folder / "vela" / "recuperation";
    const fs::path dead = place / "session";
    fs::create_directories(dead);
    std::ofstream(dead / "1.dxf") << "0\nEOF\n";
    std::ofstream(dead / "1.json") << R"({"titre": "a.dxf", "fichier": "/a.dxf", "heure": "2026-01-02T03:04:05"})";
    std::ofstream(dead / "2.json") << "{}"; // its copy was never written
    fs::create_directories(place / "vide");
    warnings().clear();
    const QtMessageHandler former = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& told) { warnings().append(told); });
    EXPECT_EQ(RecoveryFolder::lost().size(), 1U);
    qInstallMessageHandler(former);
    EXPECT_EQ(warnings().join(u'\n').toStdString(), "");
    EXPECT_FALSE(fs::exists(place / "vide"));
    whenDialog([](QDialog& dialog) { press(dialog, "Supprimer les copies"); });
    offerRecovery(*window, window->autosave());
    EXPECT_FALSE(fs::exists(dead));
}

} // namespace

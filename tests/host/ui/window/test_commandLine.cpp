#include <QLabel>
#include <QTest>

#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "ed/CommandRunner.h"
#include "ed/CommandStack.h"
#include "ed/input/CurrentView.h"
#include "ed/input/PickFirst.h"
#include "ed/SystemVariables.h"
#include "ui/window/Canvas.h"
#include "ui/window/CommandEdit.h"
#include "ui/window/CommandInput.h"
#include "ui/window/CompletionList.h"
#include "ui/window/MainWindow.h"
#include "ui/window/PromptText.h"

#include "acedads.h"
#include "Drawing.h"
#include "WindowTest.h"

/// The command line and the canvas: what is typed and clicked answers what is asked.

namespace {

class CommandLineTest : public WindowTest {
protected:
    CommandLineTest()
    {
        DocumentList::instance().create();
        SystemVariables::instance().set(L"OSMODE", short{0});
        show(0, 0, 100, 100);
    }
};

TEST_F(CommandLineTest, clicksAndTextsAnswerACommand)
{
    play({
        type("testligne"),
        [this] { EXPECT_EQ(prompt(), "Premier point : "); },
        click(10, 20),
        [this] { EXPECT_EQ(prompt(), "Point suivant ou [Clore] : "); },
        type("30,40"),
        type("@5,0"),
        key(Qt::Key_Return),
        [this] {
            EXPECT_EQ(prompt(), "Commande : ");
            EXPECT_EQ(entities(), "AcDbLine AcDbLine");
            EXPECT_NE(history().find("testligne"), std::string::npos) << history();
        },
        type("_testline"),
        type("1,1"),
        type("2,2"),
        [this] { QMetaObject::invokeMethod(&child<QLabel>("invite"), "linkActivated", Q_ARG(QString, "Clore")); },
        [this] {
            EXPECT_TRUE(window->input().isIdle()) << "a keyword clicked in the prompt";
            EXPECT_EQ(entities(), "AcDbLine AcDbLine AcDbLine");
        },
    });
}

/// What stands on the line while the command that was answered is at work, or shows a dialog of its own.
std::function<void()> afterPick;

TEST_F(CommandLineTest, thePromptGoesWithItsAnswer)
{
    std::string seen = "?";
    afterPick = [&] { seen = prompt(); };
    acedRegCmds->addCommand(L"ESSAI", L"TESTPICK", L"TESTPICK", ACRX_CMD_MODAL, [] {
        ads_point place;
        acedGetPoint(nullptr, L"\nPosition du point", place);
        afterPick();
    });
    play({type("testpick"), click(10, 20)});
    EXPECT_EQ(seen, "");
}

TEST_F(CommandLineTest, escapeCancelsAndClears)
{
    play({
        type("testligne"),
        click(10, 20),
        key(Qt::Key_Escape),
        [this] {
            EXPECT_TRUE(window->input().isIdle());
            EXPECT_EQ(entities(), "");
            QTest::keyClicks(&edit(), QStringLiteral("abc"));
        },
        key(Qt::Key_Escape),
        [this] { EXPECT_EQ(edit().text(), QString()); },
    });
}

TEST_F(CommandLineTest, aBlankEndsAnInputAndEnterRepeats)
{
    play({
        [this] { QTest::keyClicks(&edit(), QStringLiteral("testligne 1,2 3,4 ")); },
        key(Qt::Key_Return),
        key(Qt::Key_Return),
        [this] {
            EXPECT_EQ(entities(), "AcDbLine");
            EXPECT_EQ(prompt(), "Premier point : ") << "Enter repeats the last command";
        },
        key(Qt::Key_Escape),
        [this] { QTest::keyClicks(&edit(), QStringLiteral("(+ 1 2)")); },
        [this] { EXPECT_EQ(edit().text(), QStringLiteral("(+ 1 2)")) << "an expression holds blanks"; },
    });
}

TEST_F(CommandLineTest, namesAreCompleted)
{
    play({
        [this] {
            QTest::keyClicks(&edit(), QStringLiteral("testl"));
            const auto& list = *edit().findChild<CompletionList*>();
            EXPECT_TRUE(list.isVisible());
            EXPECT_EQ(list.count(), 1);
            EXPECT_EQ(list.item(0)->text(), QStringLiteral("TESTLIGNE"));
            QTest::keyClick(&edit(), Qt::Key_Tab);
            EXPECT_EQ(edit().text(), QStringLiteral("TESTLIGNE"));
            EXPECT_FALSE(list.isVisible());
        },
        key(Qt::Key_Return),
        [this] {
            EXPECT_EQ(prompt(), "Premier point : ");
            QTest::keyClicks(&edit(), QStringLiteral("testl"));
            EXPECT_FALSE(edit().findChild<CompletionList*>()->isVisible()) << "a point is asked for";
            edit().clear();
        },
        key(Qt::Key_Escape),
        [this] {
            QTest::keyClicks(&edit(), QStringLiteral("_testl"));
            QTest::keyClick(&edit(), Qt::Key_Down);
            QTest::keyClick(&edit(), Qt::Key_Return);
        },
        [this] { EXPECT_EQ(prompt(), "Premier point : ") << "the name gone to is the one that is sent"; },
        key(Qt::Key_Escape),
    });
}

TEST_F(CommandLineTest, anExpressionMayRunOverLines)
{
    play({
        type("(setq a (+ 1"),
        [this] { EXPECT_EQ(prompt(), "(... "); },
        type("20 300))"),
        [this] {
            EXPECT_EQ(prompt(), "Commande : ");
            EXPECT_NE(history().find("321"), std::string::npos) << history();
        },
        type("(setq b"),
        key(Qt::Key_Escape),
        [this] { EXPECT_EQ(prompt(), "Commande : ") << "given up"; },
    });
}

TEST_F(CommandLineTest, keysOfTheWindowWorkWhileTheLineIsEmpty)
{
    add(new AcDbLine({10, 10, 0}, {20, 10, 0}));
    play({
        choose(":toutSelectionner"),
        key(Qt::Key_Delete),
        [this] {
            EXPECT_EQ(entities(), "");
            QTest::keyClick(&edit(), Qt::Key_Z, Qt::ControlModifier);
        },
        [] { EXPECT_EQ(entities(), "AcDbLine"); },
        [this] {
            QTest::keyClicks(&edit(), QStringLiteral("abc"));
            QTest::keyClick(&edit(), Qt::Key_Home);
            QTest::keyClick(&edit(), Qt::Key_Delete);
            EXPECT_EQ(edit().text(), QStringLiteral("bc")) << "in a line with text they are the line's";
            edit().clear();
        },
    });
}

TEST_F(CommandLineTest, endlessExpressionsAreInterrupted)
{
    play({
        [this] {
            QTimer::singleShot(150, window.get(), [this] { QTest::keyClick(&edit(), Qt::Key_Escape); });
            type("(while T)")();
        },
        [this] { EXPECT_EQ(prompt(), "Commande : "); },
    });
}

TEST_F(CommandLineTest, arrowsGoThroughSentLines)
{
    play({
        type("testligne"),
        type("7,8"),
        key(Qt::Key_Escape),
        [this] {
            QTest::keyClick(&edit(), Qt::Key_Up);
            EXPECT_EQ(edit().text(), QStringLiteral("7,8"));
            QTest::keyClick(&edit(), Qt::Key_Up);
            EXPECT_EQ(edit().text(), QStringLiteral("testligne"));
            QTest::keyClick(&edit(), Qt::Key_Down);
            QTest::keyClick(&edit(), Qt::Key_Down);
            EXPECT_EQ(edit().text(), QString());
        },
    });
}

TEST_F(CommandLineTest, whatIsAskedOfTheWindowWaitsForTheCommandToEnd)
{
    play({
        type("testligne"),
        click(10, 20),
        [this] { window->input().whenIdle([] { DocumentList::instance().create(); }); },
        [this] {
            EXPECT_TRUE(window->input().isIdle()) << "what ran was cancelled";
            EXPECT_EQ(DocumentList::instance().documentCount(), 2);
        },
    });
}

TEST_F(CommandLineTest, closingTheWindowCancelsWhatRuns)
{
    play({
        type("testligne"),
        click(10, 20),
        [this] { window->close(); },
    });
    EXPECT_FALSE(CommandRunner::instance().isRunning());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(CommandLineTest, clicksSelectBetweenCommands)
{
    add(new AcDbLine({10, 10, 0}, {20, 10, 0}));
    add(new AcDbLine({10, 50, 0}, {20, 50, 0}));
    const auto selected = [] { return PickFirst::of(document()).objects().size(); };
    play({
        click(15, 10),
        [&] { EXPECT_EQ(selected(), 1U); },
        click(15, 50),
        [&] { EXPECT_EQ(selected(), 2U); },
        [&] {
            QTest::mouseClick(&canvas(), Qt::LeftButton, Qt::ShiftModifier, pixelOf(15, 50));
            EXPECT_EQ(selected(), 1U) << "Shift takes out";
        },
        key(Qt::Key_Escape),
        [&] { EXPECT_EQ(selected(), 0U); },
        click(5, 5),
        click(17, 60),
        [&] { EXPECT_EQ(selected(), 0U) << "from left to right: what lies within"; },
        click(17, 60),
        click(5, 5),
        [&] { EXPECT_EQ(selected(), 2U) << "from right to left: what it meets"; },
        [] { SystemVariables::instance().set(L"PICKADD", short{0}); },
        click(15, 50),
        [&] { EXPECT_EQ(selected(), 1U) << "in place of what was selected"; },
        [&] {
            QTest::mouseClick(&canvas(), Qt::LeftButton, Qt::ShiftModifier, pixelOf(15, 10));
            EXPECT_EQ(selected(), 2U) << "Shift adds";
            QTest::mouseClick(&canvas(), Qt::LeftButton, Qt::ShiftModifier, pixelOf(15, 50));
            EXPECT_EQ(selected(), 1U) << "and takes out what is in";
        },
        [] { SystemVariables::instance().set(L"PICKADD", short{2}); },
        key(Qt::Key_Escape),
        choose(":deselectionner"),
        choose(":toutSelectionner"),
        [&] { EXPECT_EQ(selected(), 2U); },
    });
}

TEST_F(CommandLineTest, theCursorSnaps)
{
    add(new AcDbLine({10, 10, 3}, {60, 10, 4}));
    SystemVariables::instance().set(L"OSMODE", short{1}); // ends
    play({
        type("testligne"),
        click(10.4, 10.3),
        type("80,80"),
        key(Qt::Key_Return),
        [] {
            const AcDbObjectPointer<AcDbLine> line(entitiesOf(document().database()->currentSpaceId()).back());
            ASSERT_EQ(line.openStatus(), Acad::eOk);
            EXPECT_EQ(line->startPoint(), AcGePoint3d(10, 10, 3)) << "the end, with its altitude";
        },
    });
}

TEST_F(CommandLineTest, wheelAndMiddleButtonMoveTheView)
{
    play({
        [this] {
            const QPoint at = pixelOf(70, 30);
            const double pixel = canvas().view().pixel;
            const AcGePoint2d place = canvas().view().toWorld(at);
            QWheelEvent turn(at, canvas().mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                             Qt::NoScrollPhase, false);
            QApplication::sendEvent(&canvas(), &turn);
            EXPECT_NEAR(canvas().view().pixel, pixel / 1.25, 1e-12);
            EXPECT_EQ(canvas().view().toWorld(at), place) << "what is under the cursor stays there";
        },
        [this] {
            const QPoint from = pixelOf(50, 50), to = from + QPoint(40, -25);
            QTest::mousePress(&canvas(), Qt::MiddleButton, Qt::NoModifier, from);
            QTest::mouseMove(&canvas(), to);
            QTest::mouseRelease(&canvas(), Qt::MiddleButton, Qt::NoModifier, to);
            EXPECT_LE((pixelOf(50, 50) - to).manhattanLength(), 1);
        },
    });
}

TEST_F(CommandLineTest, zoomPreviousKnowsWhatTheWheelLeft)
{
    CurrentView before;
    play({
        [this, &before] {
            show(0, 0, 100, 100);
            before = CurrentView::get();
            const QPoint at = pixelOf(70, 30);
            for (int i = 0; i < 3; ++i) {
                QWheelEvent turn(at, canvas().mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                                 Qt::NoScrollPhase, false);
                QApplication::sendEvent(&canvas(), &turn);
            }
            EXPECT_LT(CurrentView::get().height, before.height);
        },
        type("ZOOM"),
        type("P"),
        [&before] {
            EXPECT_EQ(CurrentView::get().center, before.center);
            EXPECT_EQ(CurrentView::get().height, before.height) << "a turning of the wheel is one step";
        },
    });
}

struct PromptRow {
    const char* name;
    const wchar_t* prompt;
    std::vector<InputKeyword> keywords;
    const char* shown;
};

TEST(PromptText, keywordsAreLinks)
{
    const std::vector<InputKeyword> keywords{{L"Clore", L"Close"}, {L"annUler", L"Undo"}};
    const PromptRow rows[] = {
        {"no keyword", L"Premier point : ", {}, "Premier point : "},
        {"keywords between brackets", L"Point suivant ou [Clore/annUler] : ", keywords,
         "Point suivant ou [<a href=\"Clore\">Clore</a> / <a href=\"annUler\">annUler</a>] : "},
        {"a word that is none", L"Point [Clore/3D] <5> : ", keywords,
         "Point [<a href=\"Clore\">Clore</a> / 3D] &lt;5&gt; : "},
        {"brackets that do not close", L"Point [Clore : ", keywords, "Point [Clore : "},
    };
    for (const PromptRow& row : rows) {
        InputRequest request;
        request.kind = InputRequest::Kind::point;
        request.prompt = row.prompt;
        request.keywords = row.keywords;
        EXPECT_EQ(promptAsRichText(request).toStdString(), row.shown) << row.name;
    }
}

} // namespace

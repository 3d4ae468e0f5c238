#include "WindowTest.h"

#include <cstdlib>
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>

#include "ap/DocumentList.h"
#include "commands/CommandTable.h"
#include "ed/CommandStack.h"
#include "ed/input/CurrentView.h"
#include "ui/application/VelaApplication.h"
#include "ui/window/Canvas.h"
#include "ui/window/CommandEdit.h"
#include "ui/window/MainWindow.h"

#include "acedads.h"
#include "Drawing.h"

namespace {

/// The application lives as long as the tests, and ends before what Qt keeps in static variables.
class ApplicationLife : public testing::Environment {
public:
    void SetUp() override { m_application = VelaApplication::make(VelaApplication::Screen::none); }
    void TearDown() override { m_application.reset(); }

private:
    std::unique_ptr<VelaApplication> m_application;
};
const testing::Environment* const applicationLife = testing::AddGlobalTestEnvironment(new ApplicationLife);

/// The registry of the user is read once: its file is the same for all tests that a process runs, and no other's.
struct RegistryFolder : TestFolder {
    RegistryFolder() { setenv("VELA_REGISTRY", (path() / "registre.ini").c_str(), 1); }
};

} // namespace

WindowTest::WindowTest(PointTables* points)
{
    static const RegistryFolder registry;
    setenv("XDG_DATA_HOME", folder.c_str(), 1);
    kernel = std::make_unique<Kernel>();
    static const bool registered = (registerHostCommands(), true);
    EXPECT_TRUE(registered);
    addLineCommand();
    window = std::make_unique<MainWindow>(points);
    window->resize(900, 700);
    window->show();
}

WindowTest::~WindowTest()
{
    window.reset();
    DocumentList::instance().closeAll();
    acedRegCmds->removeGroup(L"ESSAI");
    kernel.reset();
}

void WindowTest::play(std::vector<Step> steps)
{
    std::size_t next = 0;
    QTimer clock;
    clock.setInterval(1);
    const auto advance = [&] {
        if (!window->input().request() || QApplication::activeModalWidget())
            return; // a command is at work, or a dialog of the step before is open
        if (next == steps.size())
            return window->input().end();
        steps[next++]();
    };
    QObject::connect(&clock, &QTimer::timeout, window.get(), advance);
    QTimer::singleShot(60'000, window.get(), [this] {
        ADD_FAILURE() << "the steps hang at: " << prompt();
        window->input().end();
    });
    clock.start();
    window->work();
    EXPECT_EQ(next, steps.size());
}

WindowTest::Step WindowTest::type(const char* text)
{
    return [this, text] {
        QTest::keyClicks(&edit(), QString::fromUtf8(text));
        QTest::keyClick(&edit(), Qt::Key_Return);
    };
}

WindowTest::Step WindowTest::key(Qt::Key which)
{
    return [this, which] { QTest::keyClick(&edit(), which); };
}

WindowTest::Step WindowTest::click(double x, double y)
{
    return [this, x, y] { QTest::mouseClick(&canvas(), Qt::LeftButton, Qt::NoModifier, pixelOf(x, y)); };
}

WindowTest::Step WindowTest::choose(const char* item)
{
    return [this, item] {
        QAction* const action = window->findChild<QAction*>(QString::fromUtf8(item));
        ASSERT_NE(action, nullptr) << item;
        ASSERT_TRUE(action->isEnabled()) << item;
        action->trigger();
    };
}

void WindowTest::whenDialog(std::function<void(QDialog& dialog)> answer)
{
    auto* const look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, answer = std::move(answer)] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        look->stop();
        look->deleteLater();
        answer(*dialog);
    });
    look->start(1);
}

void WindowTest::press(QDialog& dialog, const char* caption)
{
    for (QAbstractButton* const button : dialog.findChildren<QAbstractButton*>())
        if (button->text().remove(u'&') == QString::fromUtf8(caption))
            return button->click();
    ADD_FAILURE() << "no button " << caption;
    dialog.reject();
}

Canvas& WindowTest::canvas() const
{
    return child<Canvas>("canevas");
}

CommandEdit& WindowTest::edit() const
{
    return child<CommandEdit>("ligneCommande");
}

std::string WindowTest::prompt() const
{
    QTextDocument rich;
    rich.setHtml(child<QLabel>("invite").text());
    return rich.toPlainText().toStdString();
}

std::string WindowTest::history() const
{
    return child<QPlainTextEdit>("historique").toPlainText().toStdString();
}

QPoint WindowTest::pixelOf(double x, double y) const
{
    return canvas().view().toCanvas(AcGePoint2d(x, y)).toPoint();
}

Document& WindowTest::document()
{
    return *DocumentList::instance().current();
}

std::string WindowTest::entities()
{
    std::string kinds;
    for (const AcDbObjectId id : entitiesOf(document().database()->currentSpaceId()))
        kinds += (kinds.empty() ? "" : " ") + QString::fromWCharArray(id.objectClass()->name()).toStdString();
    return kinds;
}

void WindowTest::show(double minX, double minY, double maxX, double maxY) const
{
    CurrentView::show({minX, minY}, {maxX, maxY});
}

// ---- a command that draws

namespace {

void drawLines()
{
    ads_point from{}, to{};
    if (acedGetPoint(nullptr, L"\nPremier point : ", from) != RTNORM)
        return;
    for (;;) {
        acedInitGet(0, L"Clore _ Close");
        if (acedGetPoint(from, L"\nPoint suivant ou [Clore] : ", to) != RTNORM)
            return;
        add(new AcDbLine({from[0], from[1], from[2]}, {to[0], to[1], to[2]}));
        std::copy(std::begin(to), std::end(to), std::begin(from));
    }
}

} // namespace

void addLineCommand()
{
    acedRegCmds->addCommand(L"ESSAI", L"TESTLINE", L"TESTLIGNE", ACRX_CMD_MODAL, drawLines);
}

AcDbObjectId add(AcDbEntity* entity)
{
    return addEntity(*DocumentList::instance().current()->database(), entity);
}

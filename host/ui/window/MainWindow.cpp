#include "ui/window/MainWindow.h"

#include <algorithm>
#include <exception>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "ap/DocumentList.h"
#include "commands/CommandHooks.h"
#include "ed/DrawingChanges.h"
#include "ed/input/CommandLine.h"
#include "ed/input/CurrentView.h"
#include "ed/input/EditorInput.h"
#include "ed/input/PickFirst.h"
#include "ed/input/SnapWords.h"
#include "ed/input/Transients.h"
#include "ed/SystemVariables.h"
#include "lisp/LispHooks.h"
#include "rx/Console.h"
#include "rx/ExceptionText.h"
#include "ui/script/ScriptCommand.h"
#include "ui/window/Autosave.h"
#include "ui/window/Canvas.h"
#include "ui/window/CommandEdit.h"
#include "ui/window/CommandPanel.h"
#include "ui/window/DocumentTabs.h"
#include "ui/window/DrawingFiles.h"
#include "ui/window/DrawingSelection.h"
#include "ui/window/HelpPages.h"
#include "ui/window/LayerPanel.h"
#include "ui/window/LayoutTabs.h"
#include "ui/window/LayoutView.h"
#include "ui/window/PointPanel.h"
#include "ui/window/PointTables.h"
#include "ui/window/PropertyPanel.h"
#include "ui/window/RecoveryFolder.h"
#include "ui/window/WindowMenus.h"
#include "ui/window/WindowSettings.h"

namespace {

constexpr int placesVersion = 1; // of what saveState writes
constexpr int autosaveMinutes = 3;

std::unique_ptr<RecoveryFolder> sessionFolder()
{
    try {
        return std::make_unique<RecoveryFolder>();
    } catch (const std::exception& failure) {
        Console::instance().print(L"\nLes copies de secours ne peuvent être faites : " +
                                  QString::fromUtf8(failure.what()).toStdWString());
        return nullptr;
    }
}

short settingOf(const wchar_t* name)
{
    const auto value = SystemVariables::instance().value(name);
    const short* const number = value ? std::get_if<short>(&*value) : nullptr;
    return number ? *number : short{0};
}

} // namespace

MainWindow::MainWindow(PointTables* points) :
    m_files(new DrawingFiles(*this)),
    m_autosave(new Autosave(sessionFolder(), this)),
    m_menus(new WindowMenus(*this))
{
    setObjectName(QStringLiteral("fenetre"));
    setWindowTitle(QStringLiteral("Vela"));
    setAcceptDrops(true);
    makeCenter();
    makePanels(points);
    makeStatusBar();
    registerOrders();
    connectParts();
    followKernel();
    restorePlaces();
    setDarkGround(windowSettings::text(L"fond", QStringLiteral("sombre")) == QLatin1String("sombre"));
    m_autosave->setMinutes(windowSettings::number(L"minutesSauvegarde", autosaveMinutes));
    if (points)
        DrawingChanges::instance().setModuleStates(
            {[points] { return points->state(); }, [points] { return points->drafts(); }});
    showDocument(DocumentList::instance().current());
}

MainWindow::~MainWindow()
{
    DrawingChanges::instance().setModuleStates({});
    CommandHooks::instance().chooseFile = nullptr;
    CommandHooks::instance().tellFailure = nullptr;
    CommandHooks::instance().regenerate = nullptr;
    LispHooks::instance().interrupted = nullptr;
    CurrentView::onChange(nullptr);
    PickFirst::onChange(nullptr);
    Transients::onChange(nullptr);
    Console::instance().setSink({});
    m_canvas->setDocument(nullptr);
    m_layout->show(nullptr, AcDbObjectId());
}

// ---- assembling

void MainWindow::makeCenter()
{
    m_tabs = new DocumentTabs;
    m_canvas = new Canvas(m_input);
    m_layout = new LayoutView;
    m_layouts = new LayoutTabs;
    auto* const center = new QWidget;
    auto* const column = new QVBoxLayout(center);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_tabs);
    column->addWidget(m_canvas, 1);
    column->addWidget(m_layout, 1);
    column->addWidget(m_layouts);
    setCentralWidget(center);
}

void MainWindow::makePanels(PointTables* points)
{
    m_commands = new CommandPanel(m_input);
    auto* const bottom = new QDockWidget(QStringLiteral("Ligne de commande"), this);
    bottom->setObjectName(QStringLiteral("panneauCommandes"));
    bottom->setWidget(m_commands);
    bottom->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    addDockWidget(Qt::BottomDockWidgetArea, bottom);
    resizeDocks({bottom}, {130}, Qt::Vertical);

    m_layers = new LayerPanel;
    m_properties = new PropertyPanel;
    m_points = new PointPanel(points);
    addPanel(*m_layers, "Calques", "panneauCalques", ":panneauCalques");
    addPanel(*m_properties, "Propriétés", "panneauProprietes", ":panneauProprietes");
    addPanel(*m_points, "Tables de points", "panneauPoints", ":panneauPoints");
    auto* const properties = findChild<QDockWidget*>(QStringLiteral("panneauProprietes"));
    tabifyDockWidget(properties, findChild<QDockWidget*>(QStringLiteral("panneauPoints")));
    properties->raise();
}

void MainWindow::addPanel(QWidget& content, const char* title, const char* name, const std::string& order)
{
    auto* const panel = new QDockWidget(QString::fromUtf8(title), this);
    panel->setObjectName(QString::fromLatin1(name));
    panel->setWidget(&content);
    addDockWidget(Qt::RightDockWidgetArea, panel);
    resizeDocks({panel}, {400}, Qt::Horizontal);
    QAction* const action = m_menus->action(order);
    connect(action, &QAction::triggered, panel, &QDockWidget::setVisible);
    connect(panel, &QDockWidget::visibilityChanged, action,
            [panel, action] { action->setChecked(!panel->isHidden()); });
    action->setChecked(true);
}

void MainWindow::makeStatusBar()
{
    m_coordinates = new QLabel;
    m_coordinates->setObjectName(QStringLiteral("coordonnees"));
    m_coordinates->setMinimumWidth(280);
    statusBar()->addPermanentWidget(m_coordinates);
    for (const char* const order : {":accrochage", ":ortho"}) {
        auto* const button = new QToolButton;
        button->setDefaultAction(m_menus->action(order));
        button->setAutoRaise(true);
        statusBar()->addPermanentWidget(button);
    }
}

void MainWindow::connectParts()
{
    connect(m_menus, &WindowMenus::typed, this, &MainWindow::typeInput);
    connect(m_menus, &WindowMenus::ordered, this, [this](const std::string& order) {
        if (const auto found = m_orders.find(order); found != m_orders.end())
            found->second();
    });
    connect(m_menus, &WindowMenus::fileChosen, this, [this](const QString& path) { openFiles({path}); });
    connect(m_tabs, &DocumentTabs::activated, this, &MainWindow::showDocument);
    connect(m_tabs, &DocumentTabs::closingAsked, this, [this](Document* document) { closeDocument(document); });
    connect(m_tabs, &DocumentTabs::activationAsked, this, [this](Document* document) {
        m_input.whenIdle([document] {
            if (DocumentList::instance().isOpen(document))
                DocumentList::instance().activateDocument(document);
        });
    });
    connect(m_canvas, &Canvas::cursorAt, this, &MainWindow::showCoordinates);
    connect(m_layouts, &LayoutTabs::chosen, this, &MainWindow::showLayout);
    connect(m_canvas, &Canvas::menuAsked, this, &MainWindow::showCanvasMenu);
    connect(m_canvas, &Canvas::clicked, this, [this] { m_commands->edit().setFocus(); });
    connect(m_layers, &LayerPanel::edited, this, &MainWindow::followDrawing);
    connect(m_properties, &PropertyPanel::edited, this, &MainWindow::followDrawing);
    connect(m_points, &PointPanel::edited, this, &MainWindow::followDrawing);
    connect(m_points, &PointPanel::shown, this, &MainWindow::showPoint);
    connect(&m_input, &CommandInput::asked, this, [this] {
        if (m_input.isIdle())
            followDrawing();
    });
}

/// What the kernel tells of itself.
void MainWindow::followKernel()
{
    Console::instance().setSink([this](const std::wstring& text) { m_commands->print(QString::fromStdWString(text)); });
    ScriptRunner::Options scripts;
    scripts.interactive = true;
    scripts.commandEnded = [this] { followDrawing(); };
    scripts.warn = [](const QString& remark) { Console::instance().print(L"\n" + remark.toStdWString()); };
    m_scripts = std::make_unique<ScriptCommand>(scripts);
    CommandHooks::instance().chooseFile = [this](const CommandHooks::FileQuestion& question) {
        return m_files->choose(question);
    };
    CommandHooks::instance().tellFailure = [this](const std::wstring& reason) { m_files->tellFailure(reason); };
    CommandHooks::instance().regenerate = [this](AcApDocument&) { m_canvas->refresh(); };
    LispHooks::instance().interrupted = [this] { return m_input.interrupted(); };
    CurrentView::onChange([this](AcApDocument&) { m_canvas->followView(); });
    PickFirst::onChange([this](AcApDocument&) {
        m_canvas->refreshAbove();
        m_properties->refresh();
    });
    Transients::onChange([this](AcApDocument&) {
        m_canvas->refreshAbove();
        showTransientTexts();
    });
}

void MainWindow::restorePlaces()
{
    resize(1280, 820);
    restoreGeometry(windowSettings::bytes(L"geometrie"));
    restoreState(windowSettings::bytes(L"etat"), placesVersion);
    m_commands->edit().setSentLines(windowSettings::text(L"commandes").split(u'\t', Qt::SkipEmptyParts));
}

void MainWindow::savePlaces() const
{
    constexpr qsizetype linesKept = 50;
    windowSettings::setBytes(L"geometrie", saveGeometry());
    windowSettings::setBytes(L"etat", saveState(placesVersion));
    const QStringList& lines = m_commands->edit().sentLines();
    windowSettings::setText(L"commandes", lines.mid(std::max<qsizetype>(0, lines.size() - linesKept)).join(u'\t'));
}

// ---- orders

/// Bits of OSMODE, an item of the menu each.
constexpr int snapModes[] = {1, 2, 4, 8, 16, 32, 64, 128, 512};

void MainWindow::registerOrders()
{
    const auto whenIdle = [this](auto action) { return [this, action] { m_input.whenIdle(action); }; };
    const auto forCurrent = [](auto action) {
        return [action] {
            if (Document* const document = DocumentList::instance().current())
                action(*document);
        };
    };
    m_orders = {
        {":fermer", whenIdle(forCurrent([this](Document& document) { m_files->close(document); }))},
        {":quitter", [this] { close(); }},
        {":toutSelectionner", whenIdle([this] { setSelection(true); })},
        {":deselectionner", whenIdle([this] { setSelection(false); })},
        {":zoomEtendu", [this] { m_canvas->showExtents(); }},
        {":zoomAvant", [this] { m_canvas->zoom(2.0, m_canvas->rect().center()); }},
        {":zoomArriere", [this] { m_canvas->zoom(0.5, m_canvas->rect().center()); }},
        {":fondSombre", [this] { setDarkGround(!m_canvas->hasDarkGround()); }},
        {":historique", [this] { m_commands->setHistoryVisible(m_commands->isHistoryHidden()); }},
        {":accrochage", [this] { toggleSetting(L"OSMODE", kNoSnap); }},
        {":ortho", [this] { toggleSetting(L"ORTHOMODE", 1); }},
        {":guide", [this] { help_pages::showGuide(*this); }},
        {":commandes", [this] { help_pages::showCommands(*this); }},
        {":apropos", [this] { help_pages::showAbout(*this); }},
    };
    for (const int mode : snapModes)
        m_orders.emplace(":accroche" + std::to_string(mode), [this, mode] { toggleSetting(L"OSMODE", mode); });
}

void MainWindow::typeInput(const QString& input)
{
    const QStringList lines = input.split(u' ');
    if (input.startsWith(u'\'') && m_input.request())
        m_input.typeAll(lines);
    else
        m_input.whenIdle([this, lines] { m_input.typeAll(lines); });
    m_commands->edit().setFocus();
}

void MainWindow::setDarkGround(bool dark)
{
    m_canvas->setDarkGround(dark);
    m_layout->setDarkGround(dark);
    m_menus->action(":fondSombre")->setChecked(dark);
    windowSettings::setText(L"fond", dark ? QStringLiteral("sombre") : QStringLiteral("clair"));
}

void MainWindow::toggleSetting(const wchar_t* name, int bit)
{
    SystemVariables::instance().set(name, static_cast<short>(settingOf(name) ^ bit));
    followSwitches();
}

void MainWindow::setSelection(bool all)
{
    if (Document* const document = DocumentList::instance().current())
        PickFirst::of(*document).set(all ? selectableEntities(*document->database()) : std::vector<AcDbObjectId>());
}

void MainWindow::showPoint(double x, double y)
{
    CurrentView::set({x, y}, CurrentView::get().height);
    m_canvas->mark({x, y});
}

void MainWindow::showCanvasMenu(const QPoint& at)
{
    QMenu menu(this);
    const QString last = QString::fromStdWString(CommandLine::instance().lastCommand());
    if (!last.isEmpty())
        connect(menu.addAction(QStringLiteral("Répéter %1").arg(last)), &QAction::triggered, this,
                [this, last] { m_input.type(last); });
    for (const char* const order : {":zoomEtendu", ":toutSelectionner", ":deselectionner", ":panneauProprietes"})
        menu.addAction(m_menus->action(order));
    menu.exec(at);
}

void MainWindow::showCoordinates(const AcGePoint3d& point)
{
    const auto& told = Transients::of(*DocumentList::instance().current()).coordinatesText();
    const int decimals = settingOf(L"LUPREC");
    const auto number = [decimals](double value) { return QString::number(value, 'f', decimals); };
    m_coordinates->setText(told.empty()
                               ? QStringLiteral("%1, %2, %3").arg(number(point.x), number(point.y), number(point.z))
                               : QString::fromStdWString(told));
}

void MainWindow::openFiles(const QStringList& paths)
{
    m_input.whenIdle([this, paths] {
        for (const QString& path : paths)
            m_files->open(path);
    });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    openFiles(paths);
}

// ---- documents

void MainWindow::showDocument(Document* document)
{
    m_canvas->setDocument(document);
    m_layouts->setDocument(document);
    m_layers->setDocument(document);
    m_properties->setDocument(document);
    followDrawing();
}

void MainWindow::showLayout(AcDbObjectId block)
{
    Document* const document = DocumentList::instance().current();
    m_layout->show(document ? document->database() : nullptr, block);
    m_layout->setVisible(!block.isNull());
    m_canvas->setVisible(block.isNull());
}

void MainWindow::closeDocument(Document* document)
{
    m_input.whenIdle([this, document] {
        if (DocumentList::instance().isOpen(document))
            m_files->close(*document);
    });
}

void MainWindow::followDrawing()
{
    m_tabs->refresh();
    m_layers->refresh();
    m_properties->refresh();
    m_points->refresh();
    m_menus->refresh();
    followSwitches();
    Document* const document = DocumentList::instance().current();
    if (document)
        DrawingFiles::note(*document);
    setWindowTitle(document ? QString::fromWCharArray(document->docTitle()) + QStringLiteral(" — Vela")
                            : QStringLiteral("Vela"));
}

void MainWindow::followSwitches()
{
    const int snaps = settingOf(L"OSMODE");
    m_menus->action(":accrochage")->setChecked((snaps & kNoSnap) == 0 && snaps != 0);
    for (const int mode : snapModes)
        m_menus->action(":accroche" + std::to_string(mode))->setChecked((snaps & mode) != 0);
    m_menus->action(":ortho")->setChecked(settingOf(L"ORTHOMODE") != 0);
    m_menus->action(":historique")->setChecked(!m_commands->isHistoryHidden());
}

void MainWindow::showTransientTexts()
{
    Document* const document = DocumentList::instance().current();
    const QString told = document ? QString::fromStdWString(Transients::of(*document).statusText()) : QString();
    if (told != statusBar()->currentMessage())
        statusBar()->showMessage(told);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_input.isEnding())
        return event->accept();
    if (!m_input.isIdle()) {
        event->ignore(); // until what runs is cancelled
        return m_input.whenIdle([this] { close(); });
    }
    if (!m_files->closeAll())
        return event->ignore();
    savePlaces();
    m_input.end();
    event->accept();
}

void MainWindow::keyPressEvent(QKeyEvent* event)
{
    CommandEdit& edit = m_commands->edit();
    const bool isText = !event->text().isEmpty() && event->text().at(0).isPrint();
    if (edit.hasFocus() || (event->key() != Qt::Key_Escape && !isText))
        return QMainWindow::keyPressEvent(event);
    if (isText)
        edit.setFocus();
    QCoreApplication::sendEvent(&edit, event);
}

void MainWindow::work()
{
    const EditorInput::Source source(m_input);
    m_commands->edit().setFocus();
    while (!m_input.isEnding()) {
        try {
            CommandLine::instance().runNext();
        } catch (...) {
            Console::instance().print(L"\nErreur : " + currentExceptionText() + L".");
        }
    }
}

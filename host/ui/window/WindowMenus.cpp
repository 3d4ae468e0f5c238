#include "ui/window/WindowMenus.h"

#include <algorithm>
#include <array>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "ed/CommandRunner.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"
#include "ui/window/MenuTable.h"
#include "ui/window/ModuleMenus.h"
#include "ui/window/ToolIcons.h"
#include "ui/window/WindowSettings.h"

namespace {

/// Orders that are on or off.
constexpr std::array<std::string_view, 7> switches{":fondSombre",     ":historique",        ":accrochage",   ":ortho",
                                                   ":panneauCalques", ":panneauProprietes", ":panneauPoints"};

/// The word that an input begins with, without the mark of transparent ones.
std::wstring commandOf(const QString& input)
{
    const QString name = input.section(u' ', 0, 0);
    return (name.startsWith(u'\'') ? name.mid(1) : name).toStdWString();
}

QToolBar* makeTools(QMainWindow& window, const QString& name, const QString& title)
{
    auto* const tools = new QToolBar(title, &window);
    tools->setObjectName(name);
    tools->setIconSize(QSize(20, 20));
    window.addToolBar(tools);
    return tools;
}

bool hasPictures(const std::vector<Menu>& menus)
{
    return std::ranges::any_of(menus, [](const Menu& menu) {
        return std::ranges::any_of(menu.items, [](const MenuItem& item) { return !item.picture.empty(); });
    });
}

bool hasVisibleItem(const QMenu& menu)
{
    return std::ranges::any_of(menu.actions(),
                               [](const QAction* action) { return action->isVisible() && !action->isSeparator(); });
}

} // namespace

WindowMenus::WindowMenus(QMainWindow& window) : QObject(&window), m_window(window)
{
    m_own.tools = makeTools(window, QStringLiteral("barreOutils"), QStringLiteral("Outils"));
    addMenus(m_own, menuTable());
    addMenus(m_own, {helpMenu()});
    m_help = m_own.menus.back()->menuAction();
    refresh();
}

void WindowMenus::addMenus(Part& part, const std::vector<Menu>& subjects)
{
    for (const Menu& subject : subjects) {
        auto* const menu = new QMenu(QString::fromStdString(subject.caption), &m_window);
        m_window.menuBar()->insertMenu(m_help, menu); // at the end while there is no help
        part.menus.push_back(menu);
        const auto toolsBefore = part.tools ? part.tools->actions().size() : 0;
        for (const MenuItem& item : subject.items)
            addItem(part, *menu, item);
        if (part.tools && part.tools->actions().size() > toolsBefore)
            part.tools->addSeparator();
    }
}

void WindowMenus::refresh()
{
    dropModules();
    addModules();
    const auto showKnown = [](const Part& part) {
        for (const auto& [action, command] : part.commands)
            action->setVisible(CommandRunner::knows(command));
        for (QMenu* const menu : part.menus)
            menu->menuAction()->setVisible(hasVisibleItem(*menu));
    };
    showKnown(m_own);
    for (const auto& [path, part] : m_modules)
        showKnown(part);
}

void WindowMenus::addModules()
{
    for (const auto& module : ModuleTable::instance().modules()) {
        const auto [place, added] = m_modules.try_emplace(module->path);
        if (!added)
            continue;
        const QString name = QString::fromStdWString(module->name);
        const auto brought = menusOfModule(QString::fromStdWString(module->path));
        if (!brought)
            continue;
        for (const QString& fault : brought->faults)
            Console::instance().print(L"\n" + fault.toStdWString());
        if (hasPictures(brought->menus))
            place->second.tools = makeTools(m_window, QStringLiteral("barreOutils.") + name,
                                            QString::fromStdString(brought->menus.front().caption).remove(u'&'));
        addMenus(place->second, brought->menus);
    }
}

void WindowMenus::dropModules()
{
    std::erase_if(m_modules, [](const auto& brought) {
        const auto& part = brought.second;
        if (std::ranges::any_of(ModuleTable::instance().modules(),
                                [&brought](const auto& module) { return module->path == brought.first; }))
            return false;
        qDeleteAll(part.menus);
        delete part.tools;
        return true;
    });
}

void WindowMenus::addItem(Part& part, QMenu& menu, const MenuItem& item)
{
    if (item.caption.empty()) {
        menu.addSeparator();
        return;
    }
    const std::string input = item.input;
    if (input == ":recents") {
        addRecentFiles(menu, item);
        return;
    }
    const QString caption = QString::fromStdString(item.caption);
    QAction* const action = menu.addAction(caption);
    action->setObjectName(QString::fromStdString(input));
    action->setStatusTip(QString(caption).remove(u'&'));
    if (!item.shortcut.empty())
        action->setShortcut(QKeySequence(QString::fromStdString(item.shortcut)));
    if (!item.picture.empty()) {
        action->setIcon(toolIcon(QString::fromStdString(item.picture)));
        part.tools->addAction(action);
    }
    if (!input.starts_with(':')) {
        const QString typedInput = QString::fromStdString(input);
        part.commands.emplace_back(action, commandOf(typedInput));
        connect(action, &QAction::triggered, this, [this, typedInput] { emit typed(typedInput); });
        return;
    }
    action->setCheckable(std::ranges::find(switches, input) != switches.end() || input.starts_with(":accroche"));
    m_orders.emplace(input, action);
    connect(action, &QAction::triggered, this, [this, input] { emit ordered(input); });
}

void WindowMenus::addRecentFiles(QMenu& menu, const MenuItem& item)
{
    QMenu* const recent = menu.addMenu(QString::fromStdString(item.caption));
    recent->setObjectName(QStringLiteral("menuRecents"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecentFiles(*recent); });
}

void WindowMenus::fillRecentFiles(QMenu& menu)
{
    menu.clear();
    int number = 0;
    for (const QString& path : windowSettings::recentFiles()) {
        const QString caption = QStringLiteral("&%1  %2").arg(++number).arg(QFileInfo(path).fileName());
        QAction* const action = menu.addAction(caption);
        action->setStatusTip(path);
        action->setToolTip(path);
        connect(action, &QAction::triggered, this, [this, path] { emit fileChosen(path); });
    }
    if (number == 0)
        menu.addAction(QStringLiteral("(aucun)"))->setEnabled(false);
}

#include "ui/window/WindowMenus.h"

#include <array>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "ed/CommandRunner.h"
#include "ui/window/MenuTable.h"
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

} // namespace

WindowMenus::WindowMenus(QMainWindow& window) : QObject(&window), m_window(window)
{
    auto* const tools = new QToolBar(QStringLiteral("Outils"), &window);
    tools->setObjectName(QStringLiteral("barreOutils"));
    tools->setIconSize(QSize(20, 20));
    window.addToolBar(tools);
    for (const Menu& subject : menuTable()) {
        QMenu* const menu = window.menuBar()->addMenu(QString::fromUtf8(subject.caption));
        const auto toolsBefore = tools->actions().size();
        for (const MenuItem& item : subject.items) {
            addItem(*menu, item);
            if (item.icon)
                tools->addAction(menu->actions().constLast());
        }
        if (tools->actions().size() > toolsBefore)
            tools->addSeparator();
        connect(menu, &QMenu::aboutToShow, this, &WindowMenus::dimUnknown);
    }
    dimUnknown();
}

void WindowMenus::addItem(QMenu& menu, const MenuItem& item)
{
    if (!item.caption) {
        menu.addSeparator();
        return;
    }
    const std::string input = item.input;
    if (input == ":recents") {
        addRecentFiles(menu, item);
        return;
    }
    QAction* const action = menu.addAction(QString::fromUtf8(item.caption));
    action->setObjectName(QString::fromUtf8(item.input));
    action->setStatusTip(QString::fromUtf8(item.caption).remove(u'&'));
    if (item.shortcut)
        action->setShortcut(QKeySequence(QString::fromLatin1(item.shortcut)));
    if (item.icon)
        action->setIcon(toolIcon(QString::fromLatin1(item.icon)));
    if (!input.starts_with(':')) {
        const QString typedInput = QString::fromStdString(input);
        m_commands.emplace_back(action, commandOf(typedInput));
        connect(action, &QAction::triggered, this, [this, typedInput] { emit typed(typedInput); });
        return;
    }
    action->setCheckable(std::ranges::find(switches, input) != switches.end());
    m_orders.emplace(input, action);
    connect(action, &QAction::triggered, this, [this, input] { emit ordered(input); });
}

QAction* WindowMenus::addRecentFiles(QMenu& menu, const MenuItem& item)
{
    QMenu* const recent = menu.addMenu(QString::fromUtf8(item.caption));
    recent->setObjectName(QStringLiteral("menuRecents"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecentFiles(*recent); });
    return recent->menuAction();
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

void WindowMenus::dimUnknown() const
{
    for (const auto& [action, command] : m_commands)
        action->setEnabled(CommandRunner::knows(command));
}

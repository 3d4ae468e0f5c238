#pragma once

#include <map>
#include <QObject>
#include <string>
#include <utility>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;
struct Menu;
struct MenuItem;

/// The menus and tool bars of the window: those of the table of menus, and those that loaded modules bring. An item
/// whose command is not known does not show.
class WindowMenus : public QObject {
    Q_OBJECT

public:
    explicit WindowMenus(QMainWindow& window);

    /// Follows the modules and commands that came and went.
    void refresh();

    /// The action of an order of the window's own, as ":fondSombre".
    QAction* action(const std::string& order) const { return m_orders.at(order); }

signals:
    /// A command is to be typed, as it stands in the table.
    void typed(const QString& input);
    void ordered(const std::string& order);
    void fileChosen(const QString& path);

private:
    /// What one module brought, or the host's own.
    struct Part {
        std::vector<QMenu*> menus;
        QToolBar* tools = nullptr;
        std::vector<std::pair<QAction*, std::wstring>> commands; ///< with the names of the commands
    };

    void addMenus(Part& part, const std::vector<Menu>& subjects);
    void addModules();
    void dropModules();
    void addItem(Part& part, QMenu& menu, const MenuItem& item);
    void addRecentFiles(QMenu& menu, const MenuItem& item);
    void fillRecentFiles(QMenu& menu);

    QMainWindow& m_window;
    std::map<std::string, QAction*> m_orders;
    Part m_own;
    QAction* m_help = nullptr;              ///< of the last menu
    std::map<std::wstring, Part> m_modules; ///< by the path they were loaded from
};

#pragma once

#include <map>
#include <QObject>
#include <string>
#include <utility>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
struct MenuItem;

/// The menus and the tool bar of the window, from the table of menus. Commands that are not known are dimmed.
class WindowMenus : public QObject {
    Q_OBJECT

public:
    explicit WindowMenus(QMainWindow& window);

    /// The action of an order of the window's own, as ":fondSombre".
    QAction* action(const std::string& order) const { return m_orders.at(order); }

signals:
    /// A command is to be typed, as it stands in the table.
    void typed(const QString& input);
    void ordered(const std::string& order);
    void fileChosen(const QString& path);

private:
    void addItem(QMenu& menu, const MenuItem& item);
    QAction* addRecentFiles(QMenu& menu, const MenuItem& item);
    void fillRecentFiles(QMenu& menu);
    void dimUnknown() const;

    QMainWindow& m_window;
    std::map<std::string, QAction*> m_orders;
    std::vector<std::pair<QAction*, std::wstring>> m_commands; ///< with the names of the commands
};

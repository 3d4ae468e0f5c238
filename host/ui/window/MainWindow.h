#pragma once

#include <functional>
#include <map>
#include <memory>
#include <QMainWindow>
#include <string>

#include "ui/window/CommandInput.h"

class Autosave;
class Canvas;
class CommandPanel;
class Document;
class DocumentTabs;
class DrawingFiles;
class LayerPanel;
class LayoutTabs;
class LayoutView;
class PointPanel;
class PointTables;
class PropertyPanel;
class QDockWidget;
class QLabel;
class ScriptCommand;
class WindowMenus;

/// The program's window: drawings in tabs, the canvas, the command line, and the panels that follow the drawing.
/// The open documents are those of DocumentList, whoever opened them. There is one at a time.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `points` may be null. It is not owned.
    explicit MainWindow(PointTables* points = nullptr);
    ~MainWindow() override;

    CommandInput& input() { return m_input; }
    DrawingFiles& files() { return *m_files; }
    Autosave& autosave() { return *m_autosave; }

    /// Reads and carries out commands until the window is closed. The window must be shown.
    void work();

protected:
    void closeEvent(QCloseEvent* event) override;
    /// What no panel takes is typed at the command line; Escape cancels wherever the keyboard is.
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeCenter();
    void makePanels(PointTables* points);
    void addPanel(QWidget& content, const char* title, const char* name, const std::string& order);
    void makeStatusBar();
    void connectParts();
    void followKernel();
    void restorePlaces();
    void savePlaces() const;

    void registerOrders();
    /// Types what a menu says, each input a line; what runs is cancelled unless the command may run meanwhile.
    void typeInput(const QString& input);
    void setDarkGround(bool dark);
    void toggleSetting(const wchar_t* name, int bit);
    void setSelection(bool all);
    void showPoint(double x, double y);
    void showCanvasMenu(const QPoint& at);
    void showCoordinates(const AcGePoint3d& point);
    void openFiles(const QStringList& paths);

    void showDocument(Document* document);
    /// Model space for the null id: the place where commands draw.
    void showLayout(AcDbObjectId block);
    void closeDocument(Document* document);
    /// The drawing may have changed: titles, panels, states of switches.
    void followDrawing();
    void followSwitches();
    void showTransientTexts();

    CommandInput m_input;
    std::unique_ptr<ScriptCommand> m_scripts;
    DrawingFiles* m_files;
    Autosave* m_autosave;
    WindowMenus* m_menus;
    DocumentTabs* m_tabs = nullptr;
    Canvas* m_canvas = nullptr;
    LayoutView* m_layout = nullptr;
    LayoutTabs* m_layouts = nullptr;
    CommandPanel* m_commands = nullptr;
    LayerPanel* m_layers = nullptr;
    PropertyPanel* m_properties = nullptr;
    PointPanel* m_points = nullptr;
    QLabel* m_coordinates = nullptr;
    std::map<std::string, std::function<void()>> m_orders;
};

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <QPoint>
#include <QTimer>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ed/Kernel.h"
#include "ui/window/MainWindow.h"

#include "acdocman.h"
#include "dbents.h"
#include "TestFolder.h"

class Canvas;
class CommandEdit;
class Document;
class PointTables;
class QDialog;
class VelaApplication;

/// A window without a display, with settings and recovery folder of its own. A test plays steps: each is done when the
/// window waits for input, the window is closed after the last.
class WindowTest : public testing::Test {
protected:
    using Step = std::function<void()>;

    explicit WindowTest(PointTables* points = nullptr);
    ~WindowTest() override;

    /// Carries out the steps, each once the one before has had its effect, then ends without asking anything.
    void play(std::vector<Step> steps);

    /// Steps: a line typed key by key, ended by Enter; an answer to the modal dialog that the step before opened.
    Step type(const char* text);
    Step key(Qt::Key key);
    Step click(double x, double y);
    /// An item of the menus, by its input in the table of menus.
    Step choose(const char* item);

    /// What the next modal dialog is answered with: called once it shows.
    static void whenDialog(std::function<void(QDialog& dialog)> answer);
    static void press(QDialog& dialog, const char* caption);

    Canvas& canvas() const;
    CommandEdit& edit() const;
    std::string prompt() const;
    std::string history() const;
    QPoint pixelOf(double x, double y) const;
    static Document& document();
    /// Kinds of the entities of model space, "AcDbLine AcDbPoint".
    static std::string entities();
    void show(double minX, double minY, double maxX, double maxY) const;
    template <class Widget>
    Widget& child(const char* name) const
    {
        Widget* const found = window->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    const TestFolder ownFolder;
    const std::filesystem::path& folder = ownFolder.path();
    std::unique_ptr<Kernel> kernel;
    std::unique_ptr<MainWindow> window;
};

/// Draws lines from point to point, as drafting commands ask: point, then points or the keyword "Clore".
void addLineCommand();
/// Adds an entity to the current drawing, outside any command.
AcDbObjectId add(AcDbEntity* entity);

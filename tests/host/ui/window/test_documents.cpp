#include <fstream>
#include <QDateTime>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QStyledItemDelegate>
#include <QTabBar>
#include <QTest>
#include <QTreeView>

#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "db/Layouts.h"
#include "ed/DrawingChanges.h"
#include "ed/PlotHook.h"
#include "ed/SystemVariables.h"
#include "ui/window/CommandEdit.h"
#include "ui/window/DocumentTabs.h"
#include "ui/window/DrawingEdit.h"
#include "ui/window/DrawingFiles.h"
#include "ui/window/MainWindow.h"
#include "ui/window/WindowSettings.h"

#include "Drawing.h"
#include "WindowTest.h"

/// Drawings in tabs, their files, and the questions before they close.

namespace {

class DocumentsTest : public WindowTest {
protected:
    QString path(const char* name) const { return QString::fromStdString((folder / name).string()); }
    DocumentTabs& tabs() const { return child<DocumentTabs>("onglets"); }
    std::string titles() const
    {
        QStringList titles;
        for (int i = 0; i < tabs().count(); ++i)
            titles.append(tabs().tabText(i));
        return titles.join(u'|').toStdString();
    }
    static std::string title() { return QString::fromWCharArray(document().docTitle()).toStdString(); }
    static void draw()
    {
        const DrawingEdit step(document());
        add(new AcDbLine({0, 0, 0}, {1, 1, 0}));
    }
    /// A drawing on disk, not open.
    QString saved(const char* name)
    {
        DocumentList& list = DocumentList::instance();
        Document& made = list.create();
        EXPECT_EQ(list.saveAs(made, path(name).toStdWString()), std::nullopt);
        list.close(made);
        return path(name);
    }
};

TEST_F(DocumentsTest, tabsFollowTheDocuments)
{
    std::string one, other;
    play({
        choose("_NEW"),
        [&one] { one = title(); },
        choose("_NEW"),
        [&, this] {
            other = title();
            EXPECT_NE(one, other);
            EXPECT_EQ(titles(), one + "|" + other);
            EXPECT_EQ(tabs().currentIndex(), 1);
            tabs().setCurrentIndex(0);
        },
        [&one] {
            EXPECT_EQ(title(), one) << "the chosen tab is the current document";
            draw();
        },
        type("_regen"),
        [&, this] {
            EXPECT_EQ(titles(), one + " *|" + other);
            EXPECT_EQ(window->windowTitle().toStdString(), one + " — Vela");
        },
        type("_u"),
        [&, this] { EXPECT_EQ(titles(), one + "|" + other) << "taken back: as it was"; },
    });
}

TEST_F(DocumentsTest, changedDrawingsAskBeforeTheyClose)
{
    DocumentList::instance().create();
    const QString file = path("plan.dxf");
    play({
        [] { draw(); },
        [this] {
            whenDialog([](QDialog& dialog) {
                EXPECT_EQ(static_cast<QMessageBox&>(dialog).text().toStdString(),
                          "Enregistrer les modifications de « " + title() + " » ?");
                press(dialog, "Annuler");
            });
            choose(":fermer")();
        },
        [this, &file] {
            EXPECT_EQ(titles(), title()) << "it stays";
            EXPECT_EQ(DocumentList::instance().saveAs(document(), file.toStdWString()), std::nullopt);
            draw();
        },
        [this] {
            whenDialog([](QDialog& dialog) { press(dialog, "Enregistrer"); });
            choose(":fermer")();
        },
        [this, &file] {
            EXPECT_EQ(titles(), "");
            EXPECT_TRUE(window->files().open(file));
            EXPECT_EQ(entities(), "AcDbLine AcDbLine") << "the answer was to save";
            draw();
            whenDialog([](QDialog& dialog) { press(dialog, "Ne pas enregistrer"); });
            choose(":fermer")();
        },
        [this, &file] {
            EXPECT_TRUE(window->files().open(file));
            EXPECT_EQ(entities(), "AcDbLine AcDbLine");
        },
        choose(":fermer"), // nothing to ask
    });
}

TEST_F(DocumentsTest, aWindowWithChangedDrawingsStaysWhenTheUserWantsSo)
{
    DocumentList::instance().create();
    play({
        [] { draw(); },
        [this] {
            whenDialog([](QDialog& dialog) { press(dialog, "Annuler"); });
            window->close();
            EXPECT_TRUE(window->isVisible());
        },
        [this] {
            whenDialog([](QDialog& dialog) { press(dialog, "Ne pas enregistrer"); });
            window->close();
        },
    });
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(DocumentList::instance().documentCount(), 0);
}

TEST_F(DocumentsTest, recentFilesAreRememberedLastFirst)
{
    for (const QString& old : windowSettings::recentFiles())
        windowSettings::forgetRecentFile(old);
    const QString first = saved("un.dxf"), second = saved("deux.dxf");
    play({
        [&, this] {
            EXPECT_TRUE(window->files().open(first));
            EXPECT_TRUE(window->files().open(second));
            EXPECT_TRUE(window->files().open(first)) << "open already: it comes to the front";
        },
        [&, this] {
            EXPECT_EQ(windowSettings::recentFiles(), QStringList({first, second}));
            EXPECT_EQ(titles(), "un.dxf|deux.dxf");
            QMenu& menu = child<QMenu>("menuRecents");
            emit menu.aboutToShow();
            ASSERT_EQ(menu.actions().size(), 2);
            menu.actions().at(1)->trigger();
        },
        [&, this] {
            EXPECT_STREQ(document().docTitle(), L"deux.dxf");
            whenDialog([](QDialog& dialog) { press(dialog, "OK"); });
            EXPECT_FALSE(window->files().open(path("absent.dxf")));
            EXPECT_EQ(windowSettings::recentFiles(), QStringList({second, first}));
        },
    });
}

TEST_F(DocumentsTest, placesOfTheWindowAreRemembered)
{
    DocumentList::instance().create();
    play({
        [this] {
            window->resize(1010, 730);
            edit().setSentLines({QStringLiteral("ligne"), QStringLiteral("1,2")});
            window->close();
        },
    });
    window = nullptr;
    window = std::make_unique<MainWindow>();
    EXPECT_EQ(window->size(), QSize(1010, 730));
    EXPECT_EQ(edit().sentLines(), QStringList({QStringLiteral("ligne"), QStringLiteral("1,2")}));
}

/// The texts of a file dialog's list, as they are painted.
QStringList listed(const QFileDialog& dialog)
{
    const auto* const list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    QStringList texts;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
        for (int column = 0; column < 4; ++column) {
            const QModelIndex at = list->model()->index(row, column, list->rootIndex());
            struct Texts : QStyledItemDelegate { // where the function is within reach
                static auto filled() { return &Texts::initStyleOption; }
            };
            QStyleOptionViewItem option;
            (qobject_cast<QStyledItemDelegate*>(list->itemDelegateForIndex(at))->*Texts::filled())(&option, at);
            texts.append(option.text);
        }
    return texts;
}

TEST_F(DocumentsTest, fileDialogsSpeakFrench)
{
    saved("plan.dxf");
    std::filesystem::create_directory(folder / "levés");
    std::filesystem::resize_file(folder / "plan.dxf", 2048);
    windowSettings::setText(L"dossier", QString::fromStdString(folder.string()));
    play({
        [] {
            whenDialog([](QDialog& dialog) {
                auto& files = dynamic_cast<QFileDialog&>(dialog);
                // The list fills by and by, with the folders that the program makes there too.
                const QString plan = QStringLiteral("plan.dxf"), size = QStringLiteral("2,0 ko");
                EXPECT_TRUE(QTest::qWaitFor([&] {
                    const QStringList texts = listed(files);
                    return texts.contains(QStringLiteral("levés")) && texts.contains(plan) && texts.contains(size);
                }));
                const QStringList texts = listed(files);
                EXPECT_EQ(texts.value(texts.indexOf(QStringLiteral("levés")) + 2), QStringLiteral("Dossier"));
                const auto row = texts.indexOf(plan);
                EXPECT_EQ(texts.value(row + 1), size);
                EXPECT_EQ(texts.value(row + 2), QStringLiteral("Fichier DXF"));
                EXPECT_TRUE(QDateTime::fromString(texts.value(row + 3), QStringLiteral("dd/MM/yyyy HH:mm")).isValid());
                dialog.reject();
            });
        },
        choose("_OPEN"),
    });
}

TEST_F(DocumentsTest, plottingRemembersTheSheet)
{
    PlotRequest asked;
    const auto paint = std::exchange(PlotHook::instance().plot, [&asked](AcDbDatabase&, const PlotRequest& request) {
        asked = request;
        return std::wstring();
    });
    SystemVariables::instance().set(L"FILEDIA", short{0});
    DocumentList::instance().create();
    const QString name = QString::fromStdString(title()).section(u'.', 0, 0) + QStringLiteral(".pdf");
    play({
        type("TRACEUR"),
        [&] { EXPECT_NE(prompt().find("<" + name.toStdString() + ">"), std::string::npos) << prompt(); },
        type("plan.pdf"),
        type(""),
        type("A3"),
        type("Portrait"),
        type("Plumes"),
        type("Noir"),
        type("500"),
        [&] {
            EXPECT_TRUE(asked.monochrome);
            EXPECT_EQ(asked.scale, 2.0);
            asked = {};
        },
        type("TRACEUR"),
        type("plan.pdf"),
        type(""),
        type(""),
        type(""),
        [&] { EXPECT_NE(prompt().find("<500>"), std::string::npos) << prompt(); },
        type(""),
        [&] {
            EXPECT_TRUE(asked.monochrome);
            EXPECT_EQ(asked.scale, 2.0);
            EXPECT_EQ(asked.paperHeight, 420.0) << "A3, upright";
        },
    });
    SystemVariables::instance().set(L"FILEDIA", short{1});
    PlotHook::instance().plot = paint;
}

TEST_F(DocumentsTest, whatCannotBeOpenedIsToldInABox)
{
    const std::string damaged = (folder / "abime.dxf").string();
    std::ofstream(damaged) << "ceci n'est pas un dessin\n";
    std::string told;
    play({
        [&] {
            whenDialog([&](QDialog& dialog) {
                told = dynamic_cast<QMessageBox&>(dialog).text().toStdString();
                EXPECT_EQ(dialog.objectName(), QStringLiteral("echecFichier"));
                press(dialog, "OK");
            });
            EXPECT_FALSE(window->files().open(QString::fromStdString(damaged)));
        },
        [&] { EXPECT_NE(told.find("abime.dxf"), std::string::npos) << told; },
        [&] {
            DocumentList::instance().create();
            whenDialog([&](QDialog& dialog) {
                told = dynamic_cast<QMessageBox&>(dialog).text().toStdString();
                press(dialog, "OK");
            });
            SystemVariables::instance().set(L"FILEDIA", short{0});
        },
        type("_SAVEAS"),
        type((folder / "absent/plan.dxf").c_str()),
        [&] { EXPECT_NE(told.find("absent"), std::string::npos) << told; },
    });
    SystemVariables::instance().set(L"FILEDIA", short{1});
}

TEST_F(DocumentsTest, layoutsThatHoldSomethingHaveTabs)
{
    auto& layouts = child<QTabBar>("presentations");
    auto& paper = child<QWidget>("presentation");
    play({
        choose("_NEW"),
        [&] { EXPECT_TRUE(layouts.isHidden()) << "every drawing has a paper space"; },
        [&] {
            AcDbDatabase& database = *document().database();
            addEntity(layoutBlocks(database)[1], new AcDbCircle({100, 100, 0}, {0, 0, 1}, 50));
            ASSERT_EQ(DocumentList::instance().saveAs(document(), path("folio.dxf").toStdWString()), std::nullopt);
            DocumentList::instance().close(document());
            ASSERT_TRUE(window->files().open(path("folio.dxf")));
        },
        [&] {
            ASSERT_EQ(layouts.count(), 2);
            EXPECT_EQ(layouts.tabText(0), QStringLiteral("Objet"));
            EXPECT_TRUE(layouts.isVisible());
            layouts.setCurrentIndex(1);
        },
        [&] {
            EXPECT_TRUE(paper.isVisible() && !child<QWidget>("canevas").isVisible());
            const QImage seen = paper.grab().toImage();
            int inked = 0; // on a line through the middle of the circle
            for (int x = 0; x < seen.width(); ++x)
                inked += seen.pixelColor(x, seen.height() / 2) != seen.pixelColor(1, 1);
            EXPECT_GE(inked, 2);
            layouts.setCurrentIndex(0);
            EXPECT_TRUE(child<QWidget>("canevas").isVisible()) << "commands draw there";
        },
    });
}

} // namespace

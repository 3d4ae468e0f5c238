#include <cctype>
#include <fstream>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "ap/DocumentList.h"
#include "rx/ModuleTable.h"
#include "ui/window/MenuTable.h"
#include "ui/window/ModuleMenus.h"

#include "WindowTest.h"

/// The menus that modules bring, and what of all menus shows.

namespace fs = std::filesystem;

/// The module of the test says nothing.
extern "C" AcRx::AppRetCode moduleHeard(const char*, AcRx::AppMsgCode, void*)
{
    return AcRx::kRetOK;
}

namespace {

/// The letters behind "&", of one menu: Alt and a letter must lead to one place.
std::string clashes(const std::vector<std::string>& captions)
{
    std::string seen, twice;
    for (const std::string& caption : captions) {
        const auto mark = caption.find('&');
        if (mark == caption.npos)
            continue;
        const char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(caption[mark + 1])));
        if (static_cast<unsigned char>(letter) < 128)
            (seen.find(letter) == seen.npos ? seen : twice) += letter;
    }
    return twice;
}

TEST(MenuTableKeys, doNotClash)
{
    std::vector<Menu> menus = menuTable();
    menus.push_back(helpMenu());
    std::vector<std::string> titles{"&Topographie", "&Outils topo", "Terrai&n"}; // those of the family's modules
    for (const Menu& menu : menus) {
        titles.push_back(menu.caption);
        std::vector<std::string> captions;
        for (const MenuItem& item : menu.items)
            captions.push_back(item.caption);
        EXPECT_EQ(clashes(captions), "") << menu.caption;
    }
    EXPECT_EQ(clashes(titles), "");
}

TEST(ModuleMenusText, SaysWhatItLeavesOut)
{
    struct Row {
        const char* name;
        const char* text;
        const char* fault;
        int items;
    };
    const Row rows[] = {
        {"a whole menu", "# essai\r\n[&Un]\r\nA | _LINE\r\n-\r\nB | B 1 | M4 20 L20 4 C1 2 3 4 5 6 Z\n", "", 3},
        {"a picture of the host's", "[U]\nA | A | point", "", 1},
        {"an entry without menu", "A | _LINE\n[U]\nB | B",
         "x.menu, ligne 1 : une entrée ne peut pas précéder le premier titre « [Menu] ».", 1},
        {"a title left open", "[U]\n[V\nB | B", "x.menu, ligne 2 : un titre de menu s'écrit « [Titre] ».", 1},
        {"no command", "[U]\n\nA |\nB | B",
         "x.menu, ligne 3 : une entrée s'écrit « libellé | commande » ou « libellé | commande | icône ».", 1},
        {"an order of the window's", "[U]\nA | :quitter", "x.menu, ligne 2 : « :quitter » n'est pas une commande.", 0},
        {"a picture that is none", "[U]\nA | A | croix",
         "x.menu, ligne 2 : « croix » n'est ni une icône connue, ni un tracé M, L, C, Z.", 0},
        {"strokes cut short", "[U]\nA | A | M1 2 L3",
         "x.menu, ligne 2 : « M1 2 L3 » n'est ni une icône connue, ni un tracé M, L, C, Z.", 0},
        {"bytes of another code page",
         "[U]\nPolygonale ferm\xE9"
         "e | A\nB | B",
         "x.menu, ligne 2 : ce n'est pas de l'UTF-8.", 1},
        {"nothing", "", "", 0},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        const ModuleMenus read = readModuleMenus(r.text, "x.menu");
        EXPECT_EQ(read.faults.join('\n').toStdString(), r.fault);
        std::size_t items = 0;
        for (const Menu& menu : read.menus)
            items += menu.items.size();
        EXPECT_EQ(items, static_cast<std::size_t>(r.items));
    }
}

class MenusTest : public WindowTest {
protected:
    MenusTest() { DocumentList::instance().create(); }
    ~MenusTest() override { ModuleTable::instance().unloadAll(); }

    /// Loads a module from the test's folder, where this menu lies beside it; none when it is null.
    Step load(const char* menu)
    {
        return [this, menu] {
            fs::create_symlink(TEST_MODULE, module());
            if (menu)
                std::ofstream(folder / "Temoin.menu") << menu;
            EXPECT_EQ(ModuleTable::instance().load(module().wstring()), std::nullopt);
            type("'_REGEN")(); // back to the prompt of commands
        };
    }
    Step unload()
    {
        return [this] {
            ModuleTable::instance().unloadAll();
            type("'_REGEN")();
        };
    }
    fs::path module() const { return folder / "Temoin.arx"; }

    /// "Menu(item item)" of the menus that show between those of the host and the help.
    std::string brought() const
    {
        std::string shown;
        const auto titles = window->menuBar()->actions();
        const auto own = static_cast<qsizetype>(menuTable().size());
        EXPECT_EQ(titles.last()->text(), "Aid&e");
        for (const QAction* const title : titles.mid(own, titles.size() - own - 1)) {
            if (!title->isVisible())
                continue;
            shown += title->text().toStdString() + "(";
            for (const QAction* const item : title->menu()->actions())
                if (item->isVisible() && !item->isSeparator())
                    shown += item->text().toStdString() + " ";
            shown += ")";
        }
        return shown;
    }
};

TEST_F(MenusTest, ComeAndGoWithTheirModule)
{
    const auto tools = [this] { return window->findChild<QToolBar*>("barreOutils.Temoin.arx"); };
    play({load("[&Essai]\nTracer | _TESTLINE | M4 20 L20 4\n-\nAbsente | PASLA\n[Vide]\nAbsente | PASLA\nfautif\n"),
          [&] {
              EXPECT_EQ(brought(), "&Essai(Tracer )") << "what is not registered does not show";
              EXPECT_NE(history().find("Temoin.menu, ligne 7 : une entrée s'écrit"), std::string::npos) << history();
              ASSERT_NE(tools(), nullptr);
              EXPECT_EQ(tools()->actions().first()->text(), "Tracer");
              choose("_TESTLINE")();
          },
          type("0,0"), type("10,0"), type(""), [&] { EXPECT_EQ(entities(), "AcDbLine"); }, unload(),
          [&] {
              EXPECT_EQ(brought(), "");
              EXPECT_EQ(tools(), nullptr);
          }});
}

TEST_F(MenusTest, AModuleMayBringNone)
{
    play({load(nullptr), [this] { EXPECT_EQ(brought(), ""); }});
}

} // namespace

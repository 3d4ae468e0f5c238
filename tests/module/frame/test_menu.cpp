#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "frame/commandes.h"
#include "frame/fonctionsLisp.h"
#include "ui/window/ModuleMenus.h"

#include "afx.h"

namespace {

/// Those to come share one empty handler: each that has one of its own does something.
template <class Ligne>
bool faitQuelqueChose(std::span<const Ligne> table, const wchar_t* nom)
{
    const auto ligne =
        std::ranges::find_if(table, [nom](const Ligne& l) { return CString(l.nom).CompareNoCase(nom) == 0; });
    return ligne != table.end() && std::ranges::count(table, ligne->executer, &Ligne::executer) == 1;
}

/// As a command, or as an AutoLISP function that is one.
bool faitQuelqueChose(const std::string& nom)
{
    const std::wstring large(nom.begin(), nom.end());
    return faitQuelqueChose(tableCommandes(), large.c_str()) ||
           faitQuelqueChose(tableFonctionsLisp(), (L"c:" + large).c_str());
}

TEST(MenuDuModule, ListsCommandsThatWork)
{
    std::ifstream fichier(VELA_SOURCE_DIR "/module/resources/module.menu", std::ios::binary);
    const std::string texte{std::istreambuf_iterator<char>(fichier), {}};
    const ModuleMenus lus = readModuleMenus(QByteArray::fromStdString(texte), "module.menu");
    EXPECT_EQ(lus.faults.join('\n').toStdString(), "");
    std::size_t entrees = 0;
    for (const Menu& menu : lus.menus)
        for (const MenuItem& item : menu.items)
            if (!item.caption.empty()) {
                ++entrees;
                EXPECT_TRUE(faitQuelqueChose(item.input)) << item.input;
            }
    EXPECT_GT(entrees, 0u);
}

} // namespace

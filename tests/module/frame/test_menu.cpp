#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "frame/commandes.h"
#include "frame/fonctionsLisp.h"
#include "services/lettres.h"
#include "ui/window/ModuleMenus.h"

namespace {

/// A function "C:NAME" is a command too.
bool estUneFonction(const std::wstring& nom)
{
    return std::ranges::any_of(tableFonctionsLisp(),
                               [&](const fonctionLisp& f) { return enMinuscules(f.nom) == L"c:" + enMinuscules(nom); });
}

/// Commands to come share one empty handler: each that has one of its own does something.
bool faitQuelqueChose(const std::string& nom)
{
    const auto table = tableCommandes();
    const std::wstring large(nom.begin(), nom.end());
    if (estUneFonction(large))
        return true;
    if (std::ranges::find(tableCommandesVela(), large, &commande::nom) != tableCommandesVela().end())
        return true;
    const auto commandeDite = std::ranges::find(table, large, &commande::nom);
    return commandeDite != table.end() && std::ranges::count(table, commandeDite->executer, &commande::executer) == 1;
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

#include <gtest/gtest.h>

#include "exchange/tableObsXYZ.h"

#include "TestFolder.h"

namespace {

tableObsXYZ unPoint()
{
    tableObsXYZ table;
    table.points.emplace_back().nom = "P1";
    return table;
}

} // namespace

TEST(tableObsXYZ, writesUnderALowerCaseNameAndReadsItBack)
{
    TestFolder folder;
    const std::wstring chemin = (folder / "Points").wstring() + L". ;";
    EXPECT_EQ(unPoint().ecrire(chemin.c_str()), 1);
    EXPECT_TRUE(std::filesystem::exists(folder / "points.xyz"));

    tableObsXYZ lue = unPoint();
    lue.chemin = (folder / "POINTS.XYZ").wstring();
    EXPECT_EQ(lue.lire(nullptr, false), 1);
    EXPECT_EQ(lue.points.size(), 2u);
    EXPECT_EQ(lue.lire(nullptr, true), 1);
    EXPECT_EQ(lue.points.size(), 1u);
}

TEST(tableObsXYZ, replacesTheFileOfTheVeryNameThatWasChosen)
{
    TestFolder folder;
    folder.write("Leve.XYZ", "ancien");
    folder.write("leve.xyz", "autre");
    EXPECT_EQ(unPoint().ecrire((folder / "Leve.XYZ").wstring().c_str()), 1);
    EXPECT_NE(folder.read("Leve.XYZ"), "ancien");
    EXPECT_EQ(folder.read("leve.xyz"), "autre");
}

TEST(tableObsXYZ, refusesWhatCannotBeOpened)
{
    TestFolder folder;
    tableObsXYZ table = unPoint();
    EXPECT_EQ(table.lire(L" ,;.", true), 0);
    EXPECT_EQ(table.points.size(), 1u) << "an empty path changes nothing";
    EXPECT_EQ(table.ecrire(nullptr), 0);
    EXPECT_EQ(table.ecrire((folder / "absent/a").wstring().c_str()), 0);
    EXPECT_EQ(table.lire(folder.path().wstring().c_str(), false), 0);
    EXPECT_EQ(table.points.size(), 1u);
    EXPECT_EQ(table.lire((folder / "absent.xyz").wstring().c_str(), true), 0);
    EXPECT_TRUE(table.points.empty());
}

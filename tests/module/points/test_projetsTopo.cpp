#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "points/FileSerializer.h"
#include "points/projetsTopo.h"

#include "TestFolder.h"

namespace {

class projetsTopoTest : public testing::Test {
protected:
    /// Tables as "name" (empty) or "name:points".
    static void remplir(projetsTopo& projet, const std::vector<std::string>& tables, int courante)
    {
        projet.removeAll();
        for (const std::string& description : tables) {
            const std::size_t deuxPoints = description.find(':');
            projet.creerTablePoints(CString(description.substr(0, deuxPoints).c_str()));
            const int nombre = deuxPoints == std::string::npos ? 0 : std::stoi(description.substr(deuxPoints + 1));
            for (int i = 0; i < nombre; ++i) {
                pointDuDessin p;
                p.setParams(L"P", AcGePoint3d(i, 2 * i, i ? 100.5 : 1e38), i);
                p.setId(AcDbObjectId().setFromOldId(i));
                projet.getTable(projet.nbTables() - 1)->Ajouter(p);
            }
        }
        projet.setCourante(courante);
    }
    static std::vector<std::string> decrire(const projetsTopo& projet)
    {
        std::vector<std::string> tables;
        for (int i = 0; i < projet.nbTables(); ++i) {
            const listePointsDuDessin& table = *projet.getTable(i);
            tables.emplace_back(CStringA(table.getNomTable()).GetString());
            if (table.nbPoint())
                tables.back() += ":" + std::to_string(table.nbPoint());
        }
        return tables;
    }
    int ecrire(const projetsTopo& projet) const
    {
        FileSerializer s(large(), true);
        return projet.SaveToXRecord(&s) && s.fermer();
    }
    int lire(projetsTopo& projet) const
    {
        FileSerializer s(large(), false);
        return projet.GetFromXRecord(&s);
    }
    CString large() const { return CString(chemin.c_str()); }

    const TestFolder dossier;
    const std::string chemin = (dossier / "projet.bin").string();
};
using Tables = std::vector<std::string>;

TEST_F(projetsTopoTest, beginsWithOneTable)
{
    projetsTopo projet;
    EXPECT_EQ(decrire(projet), Tables{"LEVE"});
    EXPECT_EQ(projet.getCourante(), 0);
    projet.creerTablePoints(L"T1");
    EXPECT_EQ(projet.getCourante(), 0);
    projet.removeAll();
    EXPECT_EQ(projet.getCourante(), -1);
    EXPECT_TRUE(projet.currTable()->getNomTable() == L"") << "an empty project gets a table without name";
    EXPECT_EQ(projet.getCourante(), 0);
}

TEST_F(projetsTopoTest, settlesTheCurrentTable)
{
    projetsTopo projet;
    remplir(projet, {"A", "B"}, 5);
    EXPECT_EQ(projet.currTable(), projet.getTable(0));
    EXPECT_EQ(projet.getCourante(), 0);
    projet.setCourante(-1);
    EXPECT_THROW(projet.currTable(), CInvalidArgException*);
    EXPECT_THROW(projet.getTable(2), CInvalidArgException*);
}

TEST_F(projetsTopoTest, removesTables)
{
    struct Row {
        const char* name;
        Tables tables;
        int current, removed;
        Tables left;
        int newCurrent;
    };
    const Row rows[] = {
        {"the only one stays", {"A:1"}, 0, 0, {"A:1"}, 0},
        {"before the current one", {"A", "B", "C"}, 2, 0, {"B", "C"}, 1},
        {"the current one: the one before it", {"A", "B", "C"}, 1, 1, {"A", "C"}, 0},
        {"the first, current", {"A", "B"}, 0, 0, {"B"}, 0},
        {"after the current one", {"A", "B", "C"}, 0, 2, {"A", "B"}, 0},
        {"out of range", {"A", "B"}, 1, 2, {"A", "B"}, 1},
        {"negative", {"A", "B"}, 1, -1, {"A", "B"}, 1},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        projetsTopo projet;
        remplir(projet, r.tables, r.current);
        projet.removeTablePoints(r.removed);
        EXPECT_EQ(decrire(projet), r.left);
        EXPECT_EQ(projet.getCourante(), r.newCurrent);
    }
}

TEST_F(projetsTopoTest, tidiesWhatItReads)
{
    struct Row {
        const char* name;
        Tables tables;
        int current;
        Tables read;
        int newCurrent;
    };
    const Row rows[] = {
        {"one empty LEVE is kept", {"LEVE", "T1:3"}, 1, {"LEVE", "T1:3"}, 1},
        {"two empty LEVE go, current 0 whatever it was", {"LEVE", "T0:1", "T1:2", "LEVE"}, 2, {"T0:1", "T1:2"}, 0},
        {"two empty LEVE and one other", {"LEVE", "LEVE", "T1:3"}, 2, {"T1:3"}, 0},
        {"nothing but empty LEVE", {"LEVE", "LEVE", "LEVE"}, 2, {"LEVE"}, 0},
        {"a LEVE with points counts as another", {"LEVE", "LEVE:1", "LEVE"}, 1, {"LEVE:1"}, 0},
        {"letter case and blanks make another name", {"leve", "LEVE ", "LEVE"}, 1, {"leve", "LEVE ", "LEVE"}, 1},
        {"negative current", {"A", "B"}, -7, {"A", "B"}, 0},
        {"current past the end", {"A", "B"}, 2, {"A", "B"}, 0},
        {"no table: the read current is lost", {}, 3, {"LEVE"}, 0},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        projetsTopo ecrit, lu;
        remplir(ecrit, r.tables, r.current);
        ASSERT_EQ(ecrire(ecrit), 1);
        EXPECT_EQ(lire(lu), 1);
        EXPECT_EQ(decrire(lu), r.read);
        EXPECT_EQ(lu.getCourante(), r.newCurrent);
    }
}

TEST_F(projetsTopoTest, keepsEveryField)
{
    projetsTopo ecrit, lu;
    remplir(ecrit, {"T:40"}, 0);
    ASSERT_EQ(ecrire(ecrit), 1);
    ASSERT_EQ(lire(lu), 1);
    for (int i = 0; i < 40; ++i) {
        EXPECT_TRUE(*lu.getTable(0)->getData(i) == *ecrit.getTable(0)->getData(i));
        EXPECT_EQ(lu.getTable(0)->getData(i)->getId(), ecrit.getTable(0)->getData(i)->getId());
    }
    int position = -1;
    EXPECT_EQ(lu.getTable(0)->existPoint(L"p", position), 1);
    EXPECT_EQ(position, 39);
}

TEST_F(projetsTopoTest, writesTheStoredFormItemByItem)
{
    projetsTopo projet;
    remplir(projet, {"T:1"}, 0);
    ASSERT_EQ(ecrire(projet), 1);
    const std::string lu = contents(chemin);
    using namespace std::string_literals;
    // 1e38 is 0x47D2CED32A16A1B1.
    EXPECT_EQ(lu, "i\0\0\0\0"s                          // current
                  "i\1\0\0\0"s                          // tables
                  "ci\1\0\0\0bT\0"s                     // name
                  "i\1\0\0\0"s                          // points
                  "bP\0\0\0\0\0\0\0\0\0"s               // name of ten bytes
                  "i\0\0\0\0"s                          // code
                  "d\0\0\0\0\0\0\0\0d\0\0\0\0\0\0\0\0"s // X, Y
                  "d\xb1\xa1\x16\x2a\xd3\xce\xd2\x47"s  // Z unknown
                  "b\0\0\0\0\0\0\0\0"s);                // not drawn
}

TEST_F(projetsTopoTest, dropsADamagedFormWhole)
{
    projetsTopo projet;
    remplir(projet, {"T1:2", "T2:1"}, 1);
    ASSERT_EQ(ecrire(projet), 1);
    const auto entier = std::filesystem::file_size(chemin);
    for (std::uintmax_t taille = 0; taille < entier; ++taille) {
        std::filesystem::resize_file(chemin, taille);
        projetsTopo lu;
        remplir(lu, {"avant:2"}, 0);
        ASSERT_EQ(lire(lu), 0) << "cut at " << taille;
        ASSERT_EQ(decrire(lu), Tables{"LEVE"});
        ASSERT_EQ(lu.getCourante(), 0);
        ASSERT_EQ(ecrire(projet), 1);
    }
    struct Row {
        const char* name;
        int tables, points;
    };
    for (const Row& r : {Row{"negative tables", -1, 0},
                         {"absurd tables", 2000000000, 0},
                         {"negative points", 1, -1},
                         {"absurd points", 1, 2000000000}}) {
        SCOPED_TRACE(r.name);
        {
            FileSerializer s(large(), true);
            ASSERT_TRUE(s.writeInt(0) && s.writeInt(r.tables) && s.writeString(L"T") && s.writeInt(r.points));
        }
        projetsTopo lu;
        EXPECT_EQ(lire(lu), 0);
        EXPECT_EQ(decrire(lu), Tables{"LEVE"});
    }
}

TEST_F(projetsTopoTest, survivesRandomDamage)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 hasard(seed);
    projetsTopo projet;
    remplir(projet, {"T1:3", "LEVE", "T2:2"}, 1);
    ASSERT_EQ(ecrire(projet), 1);
    const std::string sain = contents(chemin);
    for (int i = 0; i < 500; ++i) {
        std::string abime = sain;
        for (unsigned n = hasard() % 4 + 1; n > 0; --n)
            abime[hasard() % abime.size()] = static_cast<char>(hasard());
        std::ofstream(chemin, std::ios::binary) << abime;
        projetsTopo lu;
        lire(lu);
        ASSERT_GE(lu.nbTables(), 1);
        ASSERT_NE(lu.currTable(), nullptr);
        for (int t = 0; t < lu.nbTables(); ++t) {
            lu.getTable(t)->delDups();
            lu.getTable(t)->renumeroter(false);
        }
    }
}

TEST_F(projetsTopoTest, cutsAStoredNameWithoutZero)
{
    {
        FileSerializer s(large(), true);
        ASSERT_TRUE(s.writeInt(0) && s.writeInt(1) && s.writeString(L"T") && s.writeInt(1) &&
                    s.writeBytes("ABCDEFGHIJ", 10) && s.writeInt(4) && s.writeDouble(1) && s.writeDouble(2) &&
                    s.writeDouble(3) && s.writeId(AcDbObjectId()));
    }
    projetsTopo lu;
    ASSERT_EQ(lire(lu), 1);
    EXPECT_STREQ(lu.getTable(0)->getData(0)->getNomPoint(), "ABCDEFGHI");
}

TEST_F(projetsTopoTest, losesItselfToATableNameTooLongToRead)
{
    projetsTopo projet;
    remplir(projet, {"T1:2", std::string(256, 'x')}, 0);
    ASSERT_EQ(ecrire(projet), 1);
    EXPECT_EQ(lire(projet), 0);
    EXPECT_EQ(decrire(projet), Tables{"LEVE"});
}

TEST_F(projetsTopoTest, shiftsAltitudesAndMovesPointsOfEveryTable)
{
    projetsTopo projet;
    remplir(projet, {"A:2", "B:2"}, 0);
    projet.decalZ(0.25);
    projet.notifyPositionPoint(AcDbObjectId().setFromOldId(1), AcGePoint3d(7, 8, 9), 3);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(projet.getTable(i)->getData(0)->getZ(), 1e38);
        EXPECT_EQ(projet.getTable(i)->getData(1)->getAs3dPnt().x, 7);
        EXPECT_EQ(projet.getTable(i)->getData(1)->getZ(), 100.75);
    }
}

} // namespace

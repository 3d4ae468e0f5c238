#include <deque>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "points/journalProjet.h"

namespace {

/// A drawing whose undo brings back the numbers that were written.
class dessinEssai : public dessinDuJournal {
public:
    bool ecrire(int numero) override
    {
        numeros.push_back(numero);
        return true;
    }
    int groupe() const override { return 0; }

    std::deque<int> numeros{0};
};

std::string noms(const projetsTopo& projet)
{
    std::string tous;
    for (int i = 0; i < projet.nbTables(); ++i) {
        tous += '|';
        for (int j = 0; j < projet.getTable(i)->nbPoint(); ++j)
            tous += std::as_const(*projet.getTable(i)).getData(j)->getNomPoint();
    }
    return tous;
}

class JournalTest : public testing::Test {
protected:
    void ajouter(const wchar_t* nom, int combien = 1)
    {
        pointDuDessin p;
        p.setParams(nom, AcGePoint3d(1, 2, 3), 1);
        for (int i = 0; i < combien; ++i)
            projet.currTable()->Ajouter(p);
    }

    dessinEssai dessin;
    projetsTopo projet;
};

TEST_F(JournalTest, goesToAnyStateAndBack)
{
    journalProjet journal(projet, dessin);
    const struct {
        const char* name;
        std::function<void()> change;
        std::string after;
    } rows[] = {
        {"added", [&] { (ajouter(L"A"), ajouter(L"B"), ajouter(L"C")); }, "|ABC"},
        {"removed, the last takes its place", [&] { projet.currTable()->supprimerPoint(L"A"); }, "|CB"},
        {"renumbered", [&] { projet.currTable()->renumeroter(true); }, "|12"},
        {"a table comes", [&] { (projet.creerTablePoints(L"T"), projet.setCourante(1), ajouter(L"D")); }, "|12|D"},
        {"changed and removed at once",
         [&] { (projet.currTable()->changerCode(0, 5), ajouter(L"E"), projet.removeTablePoints(1)); }, "|12"},
        {"came and went", [&] { (projet.creerTablePoints(L"T"), projet.removeTablePoints(1)); }, "|12"},
        {"the array is emptied by who has it", [&] { projet.currTable()->getData().RemoveAll(); }, "|"},
        {"and filled, a page and more", [&] { ajouter(L"F", 300); }, "|" + std::string(300, 'F')},
        {"all is dropped", [&] { projet.reset(); }, "|"},
    };
    std::vector<std::string> etats{noms(projet)};
    std::vector<int> numeros{0};
    for (const auto& r : rows) {
        r.change();
        journal.clore();
        EXPECT_EQ(noms(projet), r.after) << r.name;
        etats.push_back(r.after);
        numeros.push_back(dessin.numeros.back());
    }
    for (const std::size_t i : {9U, 0U, 5U, 8U, 1U, 9U, 7U, 4U, 3U, 6U, 2U}) {
        EXPECT_TRUE(journal.aller(numeros[i]));
        EXPECT_EQ(noms(projet), etats[i]) << "state " << i;
    }
    int position = -1;
    EXPECT_TRUE(projet.currTable()->existPoint(L"B", position)) << "names are found again";
}

TEST_F(JournalTest, followsAPointThatIsHandedOutOnceItCame)
{
    journalProjet journal(projet, dessin);
    ajouter(L"A", 300);
    pointDuDessin* const point = projet.currTable()->getData(299); // theirs until the table grows or shrinks
    journal.clore();
    const int avant = dessin.numeros.back();
    point->setCode(7);
    journal.clore();
    ASSERT_NE(dessin.numeros.back(), avant);
    EXPECT_TRUE(journal.aller(avant));
    EXPECT_EQ(point->getCode(), 1);
}

TEST_F(JournalTest, forgetsTheOldestStepsBeyondItsBound)
{
    constexpr std::size_t plafond = 100000;
    journalProjet journal(projet, dessin, plafond);
    ajouter(L"A", 1000);
    for (int i = 2; i < 12; ++i) { // some 56 kB each
        journal.clore();
        projet.currTable()->decalZ(1.0);
    }
    journal.clore();
    const double haute = std::as_const(*projet.currTable()).getData(0)->getZ();
    EXPECT_FALSE(journal.aller(0)) << "forgotten, and told";
    EXPECT_EQ(std::as_const(*projet.currTable()).getData(0)->getZ(), haute - 1) << "in the oldest state known";
    EXPECT_TRUE(journal.aller(dessin.numeros.back()));
    EXPECT_EQ(std::as_const(*projet.currTable()).getData(0)->getZ(), haute);
}

} // namespace

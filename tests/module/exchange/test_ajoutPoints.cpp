#include <gtest/gtest.h>

#include "exchange/ajoutPoints.h"
#include "exchange/fusionTables.h"
#include "points/projetsTopo.h"
#include "services/codages.h"

namespace {

std::vector<pointXYZ> pointsLus(std::initializer_list<const wchar_t*> noms)
{
    std::vector<pointXYZ> points;
    for (const wchar_t* const nom : noms) {
        pointXYZ& p = points.emplace_back();
        p.nom = versAnsi(nom);
        p.x = p.y = static_cast<double>(points.size());
        p.observation = nom;
    }
    return points;
}

std::string noms(const listePointsDuDessin& table)
{
    std::string texte;
    for (int i = 0; i < table.nbPoint(); ++i)
        (texte += table.getData(i)->getNomPoint()) += ' ';
    return texte;
}

} // namespace

TEST(ajoutPoints, treatsNamesThatExistAsTheUserWants)
{
    struct Row {
        nomsExistants choix;
        const char* noms;
        int ajoutes, autres;
    };
    for (const Row& r :
         {Row{nomsExistants::ajouter, "A1 7 a1 12 x ", 3, 0}, Row{nomsExistants::renumeroter, "A1 7 13 12 x ", 3, 1},
          Row{nomsExistants::remplacer, "a1 7 12 x ", 2, 1}, Row{nomsExistants::laisser, "A1 7 12 x ", 2, 1}}) {
        listePointsDuDessin table;
        observationsEnAttente observations;
        ajouterPoints(table, pointsLus({L"A1", L"7"}), nomsExistants::ajouter, observations);
        table.delDups(); // empties the table's own index
        const auto entres = pointsLus({L" a1 ", L"12", L"x"});
        EXPECT_EQ(nombreNomsExistants(table, entres), 1);
        const bilanAjout bilan = ajouterPoints(table, pointsLus({L"a1", L"12", L"x"}), r.choix, observations);
        EXPECT_EQ(noms(table), r.noms);
        EXPECT_EQ(bilan.ajoutes, r.ajoutes);
        EXPECT_EQ(bilan.renumerotes + bilan.remplaces + bilan.laisses, r.autres);
        EXPECT_EQ(observations[table.nbPoint() - 1], L"x");
    }
}

TEST(ajoutPoints, tellsNamesThatATableCuts)
{
    listePointsDuDessin table;
    observationsEnAttente observations;
    const bilanAjout bilan =
        ajouterPoints(table, pointsLus({L"123456789", L"1234567890"}), nomsExistants::ajouter, observations);
    EXPECT_EQ(noms(table), "123456789 123456789 ");
    EXPECT_EQ(bilan.nomsCoupes, 1);
    EXPECT_EQ(phrasesNoms(bilan).size(), 1U);
}

TEST(ajoutPoints, waitingObservationsFollowTheirPoints)
{
    listePointsDuDessin table;
    for (const double x : {5.0, 3.0, 3.0, 1.0}) { // the twin of higher code goes
        pointDuDessin point;
        point.setParams(L"", {x, 0.0, 1.0}, table.nbPoint() + 1);
        table.Ajouter(point);
    }
    const observationsEnAttente attente{{0, L"cinq"}, {2, L"part"}, {3, L"un"}};
    const std::vector<pointDuDessin> anciens = pointsObserves(table, attente);
    table.delDups();
    EXPECT_EQ(observationsSuivies(table, attente, anciens), (observationsEnAttente{{0, L"un"}, {2, L"cinq"}}));
}

TEST(fusionTables, keepsNamesThatCanBeReadAgain)
{
    projetsTopo projet;
    projet.getTable(0)->setNomTable(std::wstring(200, L'a').c_str());
    projet.creerTablePoints(std::wstring(200, L'b').c_str());
    const int places[] = {0, 1};
    fusionnerTables(projet, places);
    ASSERT_EQ(projet.nbTables(), 3);
    EXPECT_EQ(projet.getTable(2)->getNomTable().GetLength(), longueurNomTable);
    EXPECT_EQ(projet.getCourante(), 0);
}

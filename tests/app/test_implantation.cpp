// vela implantation: figures, refusals, drawing kept.

#include "programme.h"

namespace {

class Implantation : public dossierEssai {
protected:
    Implantation()
    {
        ecrire("chantier.scr", "(command \"_POINT\" \"-50,-50,100\" \"_POINT\" \"150,-50,100\" \"_POINT\" "
                               "\"150,150,100\" \"_POINT\" \"-50,150,100\")\n"
                               "-MNT SOL TOUT\n\n"
                               "(tpcdaddpt \"S1\" '(0 0 100) 100)\n"
                               "(tpcdaddpt \"S2\" '(100 0 100) 100)\n"
                               "(tpcdaddpt \"1\" '(40 0 100) 1)\n"
                               "(tpcdaddpt \"2\" '(0 40 100) 2)\n"
                               "(tpcdaddpt \"borne\" '(0 0 100) 9)\n"
                               "LINE 20,-5 20,5\n\n"
                               "IMPLANT2\n[Gérer obstacles] L\n3\n20,0\nQ\n[Annuler]\n"
                               "SAVEAS chantier.dxf\n");
        EXPECT_EQ(vela("executer chantier.scr").statut, 0);
    }
};

} // namespace

TEST_F(Implantation, GivesAnglesAndSights)
{
    const nlohmann::json oriente = velaJson("implantation chantier.dxf --station S1 --reference gisement=300 --code 1");
    ASSERT_EQ(oriente["points"].size(), 1U);
    const auto& p = oriente["points"][0];
    EXPECT_EQ(p["nom"], "1");
    EXPECT_NEAR(p["angle"].get<double>(), 400.0, 1e-6) << "not reduced";
    EXPECT_EQ(p["distance"], 40.0);
    EXPECT_EQ(p["reference"], "V0=300.0000 gr");
    EXPECT_TRUE(p["visible"].is_null());

    const nlohmann::json vus = velaJson(
        "implantation chantier.dxf --station S1 --reference S2 --table LEVE --verifier --hauteur 1.5 --seuil 1");
    ASSERT_EQ(vus["points"].size(), 4U) << "not the station itself";
    EXPECT_NE(vus["avertissements"].dump().find("rien à implanter : borne"), std::string::npos);
    EXPECT_EQ(vus["points"][1]["visible"], false) << "the wall saved on its line";
    EXPECT_NEAR(vus["points"][1]["hauteurVisible"].get<double>(), 1.5, 1e-9);
    EXPECT_EQ(vus["points"][2]["visible"], true);
    EXPECT_NEAR(vus["points"][2]["angle"].get<double>(), 300.0, 1e-6);
}

TEST_F(Implantation, SpreadsAndKeepsTheJob)
{
    const nlohmann::json r = velaJson("implantation chantier.dxf --stations S1,S2 --repartir --points 1,2,9 --verifier "
                                      "--hauteur 1.5 --rapport r.html --dessiner --enregistrer fait.dxf");
    EXPECT_EQ(r["avertissements"].size(), 1U);
    EXPECT_EQ(r["points"][0]["station"], "S1");
    EXPECT_EQ(r["points"][1]["nom"], "1");
    EXPECT_EQ(r["points"][1]["station"], "S2") << "nearer to S1, which does not see it";
    EXPECT_NE(lire("r.html").find("<title>Implantations</title>"), std::string::npos);
    ecrire("suite.scr", "IMPLANT2\n? lignes = 2\n? liste 1,Station = S2\n[Annuler]\n");
    EXPECT_EQ(vela("executer suite.scr --dessin fait.dxf").statut, 0);
}

TEST_F(Implantation, TellsOfWhatItTakesOtherwise)
{
    const nlohmann::json r = velaJson("implantation chantier.dxf --station S1 --stations s1,S2 --repartir --equilibrer "
                                      "--points 1,2 --hauteur -3 --seuil 1e31");
    EXPECT_EQ(r["avertissements"].size(), 2U) << r["avertissements"];
    EXPECT_EQ(r["points"][0]["station"], "S1");
    EXPECT_EQ(r["points"][1]["station"], "S2") << "S1 is one station, not two";
}

TEST_F(Implantation, TellsOfAGroundOutOfDate)
{
    EXPECT_EQ(velaJson("implantation chantier.dxf --station S1 --points 1 --verifier")["terrainPerime"], false);
    ecrire("change.scr", "(entmake '((0 . \"POINT\") (10 10.0 10.0 101.0)))\n-MNT SOL TOUT\n\n"
                         "(entmod (subst '(10 10.0 10.0 105.0) '(10 10.0 10.0 101.0) (entget (entlast))))\n"
                         "SAVEAS change.dxf\n");
    ASSERT_EQ(vela("executer change.scr --dessin chantier.dxf").statut, 0);
    EXPECT_EQ(velaJson("implantation change.dxf --station S1 --points 1 --verifier --rapport r.html")["terrainPerime"],
              true);
    EXPECT_NE(lire("r.html").find("n'est plus \xE0 jour"), std::string::npos);
}

TEST_F(Implantation, RefusesWhatCannotBe)
{
    for (const char* const arguments :
         {"--station ZZ --points 1", "--station S1", "--points 1", "--station S1 --points 77", "--station S1 --table T",
          "--station S1 --points 1 --reference gisement=x", "--station S1 --points 1 --reference gisement=1e300",
          "--station S1 --points 1 --reference gisement=400.5", "--station S1 --points 1 --reference ZZ",
          "--station S1 --points 1 --stations S2", "--station S1 --points 1 --rapport autre.DXF",
          "--station S1 --points 1 --dessiner --enregistrer a.dwg"}) {
        const execution run = vela(std::string("implantation chantier.dxf ") + arguments);
        EXPECT_EQ(run.statut, 1) << arguments;
        EXPECT_NE(run.erreurs.find("vela : "), std::string::npos) << arguments;
    }
}

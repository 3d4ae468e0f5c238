#include "programme.h"

using nlohmann::json;

namespace {

class executer : public dossierEssai {
protected:
    execution script(const std::string& contenu, const std::string& options = "") const
    {
        ecrire("essai.scr", contenu);
        return vela("executer essai.scr" + options);
    }
};

} // namespace

TEST_F(executer, EvaluatesAutoLisp)
{
    const execution run = script("; trois points, puis le plus grand numéro\n"
                                 "\n"
                                 "(add_pt \"7\" '(10.0 20.0 5.5) 12)\n"
                                 "  (add_pt \"8\" (list 30 40.5))\r\n"
                                 "(ADD_PT \"S \\\"1\\\"\" '(1 2 3))\n"
                                 "(maxnum)\n"
                                 "(analyse \"a b,c\")\n"
                                 "(mapcar 'add_pt '(\"20\" \"21\") '((1 2) (3 4)))\n"
                                 "(defun c:bonjour () (princ (strcat \"Bonjour \" (itoa (maxnum)))) (princ))\n"
                                 "BONJOUR\n"
                                 "(c:bonjour)\n"
                                 "(setvar \"OSMODE\" 5)\n"
                                 "(type (getvar \"LUNITS\"))\n");
    EXPECT_EQ(run.statut, 0) << run.erreurs;
    EXPECT_EQ(run.sortie, "Lecture des données Topo\n" // what the console shows as a drawing opens
                          "T\nT\nT\n9\n(\"a\" \"b\" \"c\")\n(T T)\nC:BONJOUR\nBonjour 22\nBonjour 22\n5\nINT\n");
    EXPECT_EQ(run.erreurs, "");
}

TEST_F(executer, SavesAndOpensDrawings)
{
    const execution run = script("(add_pt \"1\" '(10.0 20.0 5.5) 12)\n"
                                 "(add_pt \"2\" '(10.0 30.0) 12)\n"
                                 "PTSEN3D\n"
                                 "_SAVEAS premier.dxf\n"
                                 "(add_pt \"3\" '(10.0 40.0 5.5))\n"
                                 "SAVEAS\n"
                                 "\"second.dxf\"\n"
                                 "OUVRIR premier.dxf\n"
                                 "(maxnum)\n");
    EXPECT_EQ(run.statut, 0) << run.erreurs;
    EXPECT_TRUE(run.sortie.ends_with("3\n")) << run.sortie; // the drawing opened last holds points 1 and 2
    const json premier = velaJson("info premier.dxf");
    EXPECT_EQ(premier["tablesPoints"][0]["points"], 2);
    EXPECT_EQ(premier["entitesParClasse"], json({{"POINT", 1}})) << "only point 1 has an altitude";
    EXPECT_EQ(velaJson("info second.dxf")["tablesPoints"][0]["points"], 3);

    EXPECT_EQ(script("(add_pt \"9\" '(1 2 3))\nQSAVE\n", " --dessin premier.dxf").statut, 0);
    EXPECT_EQ(velaJson("info premier.dxf")["tablesPoints"][0]["points"], 3);
    EXPECT_TRUE(std::filesystem::exists(chemin("premier.bak")));
}

TEST_F(executer, EndsLoopsWithAMessage)
{
    const execution boucle = script("(setq n 0)(while t (setq n (1+ n)))\n", " --limite 1");
    EXPECT_EQ(boucle.statut, 1);
    EXPECT_NE(boucle.erreurs.find(
                  "essai.scr, ligne 1 : \u00E9valuation interrompue : le temps accord\u00E9 est \u00E9coul\u00E9"),
              std::string::npos)
        << boucle.erreurs;
    const execution recursion = script("(defun f (n) (1+ (f n)))(f 1)\n");
    EXPECT_EQ(recursion.statut, 1);
    EXPECT_NE(recursion.erreurs.find("essai.scr, ligne 1 : "), std::string::npos) << recursion.erreurs;
    EXPECT_EQ(recursion.erreurs.find("parenth\u00E8se"), std::string::npos) << "two expressions on a line";
    EXPECT_EQ(vela("executer essai.scr --limite 0").statut, 1);
}

TEST_F(executer, StopsAtTheLineThatFails)
{
    struct cas {
        const char* nom;
        const char* ligne;
        const char* message;
    };
    for (const cas& c :
         {cas{"unknown command", "PAS_CA", "PAS_CA"},
          cas{"unknown function", "(pas_ca 1)", "aucune définition de fonction : PAS_CA, dans (PAS_CA 1)"},
          cas{"unbalanced", "(maxnum", "parenthèse fermante manquante"},
          cas{"text not closed", "(analyse \"a", "guillemet fermant manquant"},
          cas{"more than a call", "(maxnum))", "parenthèse fermante en trop"},
          cas{"a call inside", "(list (car 5))", "argument de type incorrect : listp: 5, dans (CAR 5)"},
          cas{"a bad number", "(analyse 1.2.3)", "« 1.2.3 »"},
          cas{"another format", "SAVEAS plan.dwg", "donnez un nom en « .dxf »"},
          cas{"no file", "OPEN absent.dxf", "absent.dxf : fichier introuvable"},
          cas{"no such layer", "CALQUE _S INCONNU ", "Le calque « INCONNU » n'existe pas"},
          cas{"nor block", "-INSERER absent", "Ni bloc ni fichier de ce nom : « absent »"},
          cas{"a name that stays", "RENOMMER CA 0 TOTO", "« 0 » ne peut être renommé"},
          cas{"a style that is not there", "TEXTE S absent 0,0 1 0 essai", "Le style « absent » n'existe pas"}}) {
        SCOPED_TRACE(c.nom);
        const execution run = script(std::string("; un commentaire\n\n") + c.ligne + "\n(= 1 1)\n");
        EXPECT_EQ(run.statut, 1);
        EXPECT_NE(run.erreurs.find("essai.scr, ligne 3 : "), std::string::npos) << run.erreurs;
        EXPECT_NE(run.erreurs.find(c.message), std::string::npos) << run.erreurs;
        EXPECT_EQ(run.sortie.find("\nT\n"), std::string::npos) << "the next line was run";
    }
    EXPECT_EQ(vela("executer absent.scr").statut, 1);
    const execution sansNom = script("QSAVE\n");
    EXPECT_EQ(sansNom.statut, 1);
    EXPECT_NE(
        sansNom.erreurs.find("ligne 1 : le script se termine alors qu'une réponse est attendue : « Enregistrer le "
                             "dessin sous"),
        std::string::npos)
        << sansNom.erreurs;
}

TEST_F(executer, NamesEndAtABlankUnlessQuoted)
{
    const execution run = script("layer _set 0 _color _red 0 \n"
                                 "-CALQUE N HAIE CO 3 HAIE \n"
                                 "-CALQUE N \"HAIE VIVE\" \n"
                                 "RENOMMER CA \"HAIE VIVE\" MUR\n"
                                 "(list (tblsearch \"LAYER\" \"HAIE CO 3 HAIE\") (not (tblsearch \"LAYER\" \"MUR\")))\n"
                                 "(cdr (assoc 62 (tblsearch \"LAYER\" \"HAIE\")))\n");
    EXPECT_EQ(run.statut, 0) << run.erreurs;
    EXPECT_TRUE(run.sortie.ends_with("(nil nil)\n3\n")) << run.sortie;
}

TEST_F(executer, RunsTheStandardInputOnSeveralDrawings)
{
    copierExemple("chantier.dxf");
    std::filesystem::copy(chemin("chantier.dxf"), chemin("autre.dxf"));
    ecrire("essai.scr", "POINT 1,1\nQSAVE\n");
    const execution run = vela("executer - --dessin chantier.dxf absent.dxf --dessin autre.dxf < essai.scr");
    EXPECT_EQ(run.statut, 1);
    EXPECT_NE(run.erreurs.find("échec pour absent.dxf."), std::string::npos) << run.erreurs;
    for (const char* dessin : {"chantier.dxf", "autre.dxf"})
        EXPECT_EQ(velaJson(std::string("info ") + dessin)["entitesParClasse"]["POINT"], 122) << dessin;
}

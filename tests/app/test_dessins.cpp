#include "programme.h"

using nlohmann::json;

namespace {

class info : public dossierEssai {
protected:
    /// A drawing small enough to know all of it: a layer, two lines, an entity of a class that nobody knows.
    void copierPetitDessin() const { ecrire("petit.dxf", contents(VELA_SOURCE_DIR "/tests/app/petit.dxf")); }
};
class convertir : public dossierEssai {};

json sansNomDeFichier(json inventaire)
{
    inventaire.erase("fichier");
    inventaire.erase("binaire");
    return inventaire;
}

} // namespace

TEST_F(info, CountsWhatADrawingHolds)
{
    copierPetitDessin();
    const json i = velaJson("info petit.dxf");
    EXPECT_EQ(i["version"], "AC1015");
    EXPECT_EQ(i["binaire"], false);
    EXPECT_EQ(i["entitesEspaceObjet"], 3);
    EXPECT_EQ(i["entitesParClasse"], json({{"ACME_WIDGET", 1}, {"LINE", 2}}));
    EXPECT_EQ(i["entitesParCalque"], json({{"0", 2}, {"BATI", 1}}));
    EXPECT_EQ(i["autresClasses"]["ACME_WIDGET"], 1);
    EXPECT_EQ(i["etendueCalculee"], json({{"min", {-10.0, 0.0, 0.0}}, {"max", {100.0, 50.0, 5.0}}}));
    EXPECT_EQ(i["etendueEntete"], json({{"min", {1.0, 2.0, 0.0}}, {"max", {101.0, 52.0, 0.0}}}));
    EXPECT_EQ(i["tablesPoints"], json::array({{{"nom", "LEVE"}, {"points", 0}, {"courante", true}}}));
}

TEST_F(info, ShowsTheSameAsText)
{
    copierPetitDessin();
    const execution run = vela("info petit.dxf");
    EXPECT_EQ(run.statut, 0);
    for (const char* attendu : {"AC1015 (2000)", "DXF texte", "3 dans l'espace objet", "LINE         2\n",
                                "LEVE  0  courante\n", "-10.000 ; 0.000 ; 0.000  à  100.000 ; 50.000 ; 5.000"})
        EXPECT_NE(run.sortie.find(attendu), std::string::npos) << attendu << "\n" << run.sortie;
}

TEST_F(info, LeavesTheDrawingAsItWas)
{
    copierExemple("chantier.dxf");
    const std::string avant = lire("chantier.dxf");
    EXPECT_EQ(vela("info chantier.dxf").statut, 0);
    EXPECT_EQ(lire("chantier.dxf"), avant);
}

TEST_F(info, RefusesADamagedDrawingInFrench)
{
    copierExemple("chantier.dxf");
    ecrire("vide.dxf", "");
    ecrire("image.dxf", std::string("\x89PNG\r\n\x1A\n\0\0\0", 11));
    for (const char* nom : {"vide.dxf", "image.dxf", "absent.dxf"})
        for (const char* option : {"", " --json"}) {
            SCOPED_TRACE(std::string(nom) + option);
            const execution run = vela(std::string("info ") + nom + option);
            EXPECT_EQ(run.statut, 1);
            EXPECT_EQ(run.sortie, "");
            EXPECT_NE(run.erreurs.find(nom), std::string::npos) << run.erreurs;
        }
}

TEST_F(info, OpensACutDrawingAsFarAsItGoes)
{
    copierExemple("chantier.dxf");
    ecrire("coupe.dxf", lire("chantier.dxf").substr(0, 5000));
    const execution run = vela("info coupe.dxf");
    EXPECT_EQ(run.statut, 0);
    EXPECT_NE(run.sortie.find("ligne 771 : fichier tronqué"), std::string::npos) << run.sortie;
    EXPECT_EQ(vela("info coupe.dxf --strict").statut, 1);
    EXPECT_EQ(vela("info chantier.dxf --strict").statut, 0);
    EXPECT_NE(vela("apercu coupe.dxf -o coupe.png").erreurs.find("fichier tronqué"), std::string::npos);
}

TEST_F(convertir, ThereAndBackShowsTheSame)
{
    copierExemple("chantier.dxf");
    const json avant = velaJson("info chantier.dxf");
    EXPECT_EQ(vela("convertir chantier.dxf b.dxf --binaire").statut, 0);
    const json binaire = velaJson("info b.dxf");
    EXPECT_EQ(binaire["binaire"], true);
    EXPECT_EQ(sansNomDeFichier(binaire), sansNomDeFichier(avant));
    EXPECT_EQ(vela("convertir b.dxf c.dxf").statut, 0);
    EXPECT_EQ(velaJson("info c.dxf")["binaire"], true) << "the form stays unless asked otherwise";
    EXPECT_EQ(vela("convertir c.dxf d.dxf --ascii").statut, 0);
    const json apres = velaJson("info d.dxf");
    EXPECT_EQ(apres["binaire"], false);
    EXPECT_EQ(sansNomDeFichier(apres), sansNomDeFichier(avant));
}

TEST_F(convertir, CopiesByteForByteWhatItDoesNotChange)
{
    copierExemple("chantier.dxf");
    const execution run = vela("convertir chantier.dxf copie.dxf");
    EXPECT_EQ(run.statut, 0) << run.erreurs;
    EXPECT_EQ(run.sortie, "copie.dxf : DXF texte 2010 (AC1024)\n");
    EXPECT_EQ(lire("copie.dxf"), lire("chantier.dxf"));
}

TEST_F(convertir, RepairsWhatItCan)
{
    copierExemple("chantier.dxf");
    std::string abime = lire("chantier.dxf");
    abime.insert(abime.find("\n", abime.find("AcDbPolyline")) + 1, "#@!\n");
    ecrire("chantier.dxf", abime);
    ASSERT_EQ(vela("convertir chantier.dxf garde.dxf").statut, 0);
    EXPECT_EQ(vela("info garde.dxf --strict").statut, 1) << "without the option nothing is dropped";
    const execution run = vela("convertir --reparer chantier.dxf repare.dxf");
    EXPECT_EQ(run.statut, 0);
    EXPECT_NE(run.erreurs.find("abîmé, il n'est pas repris"), std::string::npos) << run.erreurs;
    EXPECT_NE(run.sortie.find("816 objets repris sur 817"), std::string::npos) << run.sortie;
    EXPECT_EQ(vela("info repare.dxf --strict").statut, 0);
}

TEST_F(convertir, RepairsSoThatNothingIsLeftToRepair)
{
    const auto change = [](std::string texte, const std::string& de, const std::string& vers) {
        const std::size_t la = texte.find(de);
        EXPECT_NE(la, std::string::npos) << de;
        return texte.replace(la, de.size(), vers);
    };
    copierExemple("chantier.dxf");
    std::string sain = lire("chantier.dxf");
    std::erase(sain, '\r');
    struct cas {
        const char* nom;
        std::string texte;
    };
    for (const cas& ligne :
         {cas{"no tables", "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n0\nENDSEC\n"
                           "0\nSECTION\n2\nENTITIES\n0\nPOINT\n5\nA\n100\nAcDbEntity\n8\nHAIE\n100\nAcDbPoint\n"
                           "10\n1\n20\n2\n30\n3\n0\nENDSEC\n0\nEOF\n"},
          cas{"a layer's colour", change(sain, "VOIRIE_AXE\n", "VOIRIE_AXE\n#@!\n")},
          cas{"a table's own tags", change(sain, "TABLE\n  2\nSTYLE\n", "TABLE\n  2\nSTYLE\n33a\n1\n")},
          cas{"the end of a block", change(sain, "0\nENDBLK\n  5\n", "0\nENDBLK\n1F\n8\nAUCUN\n  5\n")},
          cas{"a dictionary's entry", change(sain, "AcDbDictionary\n", "AcDbDictionary\n350\n1w\n")},
          cas{"a section left open", change(sain, "ENDTAB\n  0\nENDSEC\n", "ENDTAB\n")},
          cas{"zeros in a layer's name",
              change(sain, "AcDbEntity\n  8\nVOIR", "AcDbEntity\n  8\nV" + std::string(3, '\0'))},
          cas{"records and an ENDSEC between two sections",
              change(sain, "ENDSEC\n  0\nSECTION\n  2\nENTITIES\n",
                     "ENDSEC\n  0\nPOINT\n  8\n0\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n")},
          cas{"no end mark", change(sain, "  0\nEOF\n", "")}, cas{"cut", sain.substr(0, sain.size() / 2)}}) {
        SCOPED_TRACE(ligne.nom);
        ecrire("abime.dxf", ligne.texte);
        EXPECT_EQ(vela("info abime.dxf --strict").statut, 1) << "the damage is one";
        EXPECT_EQ(vela("convertir --reparer abime.dxf repare.dxf").statut, 0);
        const execution info = vela("info repare.dxf --strict");
        EXPECT_EQ(info.statut, 0) << info.sortie;
        EXPECT_EQ(vela("convertir --reparer repare.dxf encore.dxf").statut, 0);
        EXPECT_EQ(lire("encore.dxf"), lire("repare.dxf"));
    }
}

TEST_F(convertir, MendsMarksOfSectionsWithoutBeingAsked)
{
    copierExemple("chantier.dxf");
    std::string sain = lire("chantier.dxf");
    const std::string fin = "  0\r\nEOF\r\n", marque = "  0\r\nENDSEC\r\n";
    ASSERT_TRUE(sain.ends_with(marque + fin));
    for (const std::string& autre : {marque + fin, std::string()}) { // as some libraries end their files
        ecrire("autre.dxf", sain.substr(0, sain.size() - fin.size()) + autre);
        EXPECT_EQ(vela("info autre.dxf --strict").statut, 1);
        EXPECT_EQ(vela("convertir autre.dxf propre.dxf").statut, 0);
        EXPECT_EQ(lire("propre.dxf"), sain);
    }
}

TEST_F(convertir, SaysThatAnOldDrawingIsUpgraded)
{
    ecrire("r12.dxf", "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\n0\n10\n1.0\n20\n2.0\n30\n3.0\n0\nENDSEC\n0\nEOF\n");
    const execution run = vela("convertir r12.dxf neuf.dxf");
    EXPECT_EQ(run.statut, 0) << run.erreurs;
    EXPECT_NE(run.sortie.find("mis à niveau : 2000"), std::string::npos) << run.sortie;
    const json apres = velaJson("info neuf.dxf");
    EXPECT_EQ(apres["version"], "AC1015");
    EXPECT_EQ(apres["entitesParClasse"], json({{"POINT", 1}}));
}

TEST_F(convertir, Refuses)
{
    copierExemple("chantier.dxf");
    struct cas {
        const char* nom;
        const char* arguments;
        const char* message;
    };
    for (const cas& ligne : {cas{"another kind of file", "chantier.dxf plan.dwg", "donnez un nom en « .dxf »"},
                             cas{"both forms", "chantier.dxf b.dxf --binaire --ascii", "ne vont pas ensemble"},
                             cas{"nothing to read", "absent.dxf b.dxf", "absent.dxf : fichier introuvable"},
                             cas{"no target", "chantier.dxf", "« B » est obligatoire"},
                             cas{"no folder", "chantier.dxf rien/b.dxf", "rien/b.dxf"}}) {
        SCOPED_TRACE(ligne.nom);
        const execution run = vela(std::string("convertir ") + ligne.arguments);
        EXPECT_EQ(run.statut, 1);
        EXPECT_EQ(run.sortie, "");
        EXPECT_NE(run.erreurs.find(ligne.message), std::string::npos) << run.erreurs;
    }
}

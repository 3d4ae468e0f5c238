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

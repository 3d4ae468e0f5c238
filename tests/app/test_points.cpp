#include "programme.h"

using nlohmann::json;

namespace {

class points : public dossierEssai {
protected:
    points()
    {
        copierExemple("chantier.dxf");
        copierExemple("leve-voirie.csv");
    }
};

} // namespace

TEST_F(points, GoFromAFileIntoADrawingAndOut)
{
    const execution entree =
        vela("points importer chantier.dxf leve-voirie.csv --table Voirie --placer --enregistrer b.dxf");
    EXPECT_EQ(entree.statut, 0) << entree.erreurs;
    const json liste = velaJson("points lister b.dxf --table Voirie");
    ASSERT_EQ(liste["points"].size(), 36u);
    EXPECT_EQ(liste["points"][0],
              json({{"nom", "S1"}, {"x", 1020.678}, {"y", -1814.522}, {"z", 56.532}, {"code", 100}}));
    EXPECT_EQ(liste["points"][34]["z"], nullptr);
    EXPECT_EQ(velaJson("info b.dxf")["entitesParClasse"]["INSERT"],
              velaJson("info chantier.dxf")["entitesParClasse"]["INSERT"].get<int>() + 36);

    EXPECT_EQ(vela("points exporter b.dxf -o s.xyz --table Voirie --codes 30,45-100").statut, 0);
    EXPECT_EQ(vela("points importer b.dxf s.xyz --table Retour").statut, 0);
    EXPECT_EQ(velaJson("points lister b.dxf --table Retour")["points"].size(), 12u);
    EXPECT_EQ(vela("points exporter b.dxf -o s.geojson --table Voirie --projection EPSG:3946").statut, 0);
    const json carte = json::parse(lire("s.geojson"));
    EXPECT_EQ(carte["features"].size(), 36u);
    EXPECT_EQ(carte["features"][0]["properties"]["observation"], "clou");
    EXPECT_EQ(carte["features"][34]["geometry"]["coordinates"].size(), 2u) << "an unknown altitude is none";
    EXPECT_EQ(vela("points exporter b.dxf -o s.kml --table Voirie --codes 100 --projection EPSG:3946").statut, 0);
    const std::string kml = lire("s.kml"); // the format has fields of its own before ours
    for (const char* const attendu :
         {"<name>S1</name>", "<SimpleData name=\"numero\">S1</SimpleData>",
          "<SimpleData name=\"altitude\">56.532</SimpleData>", "<SimpleData name=\"code\">100</SimpleData>",
          "<SimpleData name=\"libelle\">Station</SimpleData>", "<SimpleData name=\"observation\">clou</SimpleData>"})
        EXPECT_NE(kml.find(attendu), std::string::npos) << attendu << "\n" << kml;
}

TEST_F(points, AMapTellsOfPointsWithoutAPlace)
{
    ecrire("p.scr", "(tpcdaddpt \"A\" '(1700000 5200000 3))\n(tpcdaddpt \"B\" '(1e38 5200000 3))\nSAVEAS p.dxf\n");
    ASSERT_EQ(vela("executer p.scr").statut, 0);
    const execution run = vela("points exporter p.dxf -o s.geojson --projection EPSG:3946");
    EXPECT_EQ(run.statut, 0);
    EXPECT_NE(run.sortie.find(" 1 point(s) exporté(s)"), std::string::npos) << run.sortie;
    EXPECT_NE(run.erreurs.find("1 point(s) dont X ou Y est inconnu"), std::string::npos) << run.erreurs;
    EXPECT_EQ(json::parse(lire("s.geojson"))["features"].size(), 1u);
}

TEST_F(points, AMapReplacesWhatItsNameStandsFor)
{
    ecrire("p.xyz", "P1 1700000 5200000 3\n");
    ASSERT_EQ(vela("points importer chantier.dxf p.xyz --table T --enregistrer b.dxf").statut, 0);
    const auto exporter = [this](const std::string& nom) {
        return vela("points exporter b.dxf -o " + nom + " --table T --projection EPSG:3946");
    };
    ecrire("vrai.geojson", "ancien");
    std::filesystem::create_symlink("vrai.geojson", chemin("lien.geojson"));
    EXPECT_EQ(exporter("lien.geojson").statut, 0);
    const json carte = json::parse(lire("vrai.geojson"));
    EXPECT_EQ(carte["features"][0]["geometry"]["coordinates"], json({3.0, 46.0, 3.0}));
    EXPECT_EQ(carte["features"][0]["properties"].size(), 5u) << "fields that say nothing are there";

    std::filesystem::create_directory(chemin("s.dbf")); // a Shapefile is several files: none goes out without all
    EXPECT_NE(exporter("s.shp").erreurs.find("s.shp : écriture impossible (c'est un dossier)"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(chemin("s.shp")));
    std::filesystem::permissions(chemin("vrai.geojson"), std::filesystem::perms::owner_read);
    EXPECT_NE(exporter("vrai.geojson").erreurs.find("protégé"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(chemin("s.prj")));
}

TEST_F(points, TellsBadLinesAndWritesNothingWhenStrict)
{
    ecrire("m.xyz", "P1 1 2 9000000000\nP2 abc 20\nP3 4 5 6 9\n"); // the first is remarked upon, and comes in
    const execution stricte = vela("points importer chantier.dxf m.xyz --strict --enregistrer b.dxf");
    EXPECT_EQ(stricte.statut, 1);
    EXPECT_NE(stricte.erreurs.find("m.xyz, ligne 2 : X absent ou illisible."), std::string::npos) << stricte.erreurs;
    EXPECT_EQ(vela("points lister b.dxf").statut, 1);
    const execution entree = vela("points importer chantier.dxf m.xyz --code 7 --table T --enregistrer b.dxf");
    EXPECT_EQ(entree.statut, 0);
    EXPECT_NE(entree.erreurs.find("ligne 2"), std::string::npos);
    const json liste = velaJson("points lister b.dxf --table T")["points"];
    ASSERT_EQ(liste.size(), 2u);
    EXPECT_EQ(liste[0]["code"], 7);
    EXPECT_EQ(liste[1]["code"], 9);
    ecrire("vide.csv", "rien\n");
    for (const char* const refusee :
         {"importer chantier.dxf vide.csv --enregistrer c.dxf", "importer chantier.dxf absent.xyz --enregistrer c.dxf",
          "importer chantier.dxf m.xyz --enregistrer c.dwg", "importer chantier.dxf m.xyz --code 0",
          "exporter b.dxf -o s.kml", "exporter b.dxf -o s.kml --projection EPSG:99",
          "exporter b.dxf -o s.xyz --codes 1-", "exporter b.dxf -o s.xyz --codes 9-5", "exporter b.dxf -o absent/s.xyz",
          "exporter b.dxf -o ./b.dxf", "exporter b.dxf -o autre.DXF", "lister b.dxf --table Absente"})
        EXPECT_EQ(vela(std::string("points ") + refusee).statut, 1) << refusee;
}

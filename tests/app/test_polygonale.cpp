#include <array>
#include <cmath>

#include "programme.h"

using nlohmann::json;

namespace {

constexpr const char* fichier = "polygonale-fermee-grades.obs";

/// The published case sums up figures rounded to the millimetre.
constexpr double tolerance = 0.0015;

struct stationPubliee {
    const char* nom;
    double x, y;
};
constexpr std::array stationsPubliees{stationPubliee{"A", 1020.678, -1814.522},
                                      stationPubliee{"1", 1104.904, -2015.194}, stationPubliee{"2", 990.315, -1890.031},
                                      stationPubliee{"3", 907.124, -1851.777}};

class polygonaleFermee : public dossierEssai {
protected:
    polygonaleFermee() { copierExemple(fichier); }

    execution fermee(const std::string& options) const
    {
        return vela(std::string("polygonale fermee ") + fichier + options);
    }
    json fermeeJson(const std::string& options) const
    {
        return velaJson(std::string("polygonale fermee ") + fichier + options);
    }
};

int pointsDeLaTableCourante(const json& info)
{
    for (const json& table : info["tablesPoints"])
        if (table["courante"])
            return table["points"];
    return -1;
}

} // namespace

TEST_F(polygonaleFermee, GivesTheFiguresOfThePublishedCase)
{
    const json r = fermeeJson("");
    const json& f = r["fermetures"];
    EXPECT_NEAR(f["erreurAngulaire"], -0.0514, 1e-9);
    EXPECT_NEAR(f["correctionAngulaire"], -0.01285, 1e-9);
    EXPECT_NEAR(f["longueur"], 598.4, 1e-9);
    EXPECT_NEAR(f["fx"], 0.048, tolerance);
    EXPECT_NEAR(f["fy"], 0.022, tolerance);
    EXPECT_EQ(f["fz"], 0.0);
    EXPECT_NEAR(f["relative"], 598.4 / std::hypot(0.048, 0.022), 400.0); // closures known to a millimetre only
    EXPECT_EQ(r["unite"], "grades");
    EXPECT_EQ(r["nivellement"], "aucun");
    EXPECT_EQ(r["visees"][0]["angle"], 294.8914); // in full, as typed
    EXPECT_NEAR(r["visees"][1]["gisement"], 352.81115, 1e-9);
    ASSERT_EQ(r["stations"].size(), stationsPubliees.size());
    for (std::size_t i = 0; i < stationsPubliees.size(); ++i) {
        const auto& [nom, x, y] = stationsPubliees[i];
        const json& station = r["stations"][i];
        EXPECT_EQ(station["nom"], nom);
        EXPECT_NEAR(station["x"], x, tolerance) << nom;
        EXPECT_NEAR(station["y"], y, tolerance) << nom;
    }
    EXPECT_TRUE(r["avertissements"].empty()) << r["avertissements"];
    EXPECT_TRUE(r["dessin"].is_null());
}

TEST_F(polygonaleFermee, PrintsClosuresAndAnAlignedTable)
{
    const execution run = fermee("");
    EXPECT_EQ(run.statut, 0);
    EXPECT_EQ(run.erreurs, "");
    EXPECT_NE(run.sortie.find("Erreur angulaire         -0.05140  gr\n"), std::string::npos) << run.sortie;
    EXPECT_NE(run.sortie.find("  Station          X           Y       Z\n"
                              "  A        1020.6780  -1814.5220  0.0000\n"),
              std::string::npos)
        << run.sortie;
}

TEST_F(polygonaleFermee, WritesAReportThatDeclaresItsEncoding)
{
    EXPECT_EQ(fermee(" --rapport rapport.html").statut, 0);
    const std::string rapport = lire("rapport.html");
    EXPECT_NE(rapport.find("charset=windows-1252"), std::string::npos);
    EXPECT_NE(rapport.find("Station de d\xE9part"), std::string::npos);
    EXPECT_LT(rapport.find("charset=windows-1252"), rapport.find("Station de d\xE9part"));
}

TEST_F(polygonaleFermee, PlacesStationsInASiteDrawing)
{
    copierExemple("chantier.dxf");
    const std::string avant = lire("chantier.dxf");
    const json infoAvant = velaJson("info chantier.dxf");
    const json r = fermeeJson(" --dessin chantier.dxf --placer --originale --compensee --enregistrer corrige.dxf");
    EXPECT_EQ(r["pointsPlaces"], 4);
    EXPECT_EQ(r["code"], 100);
    EXPECT_EQ(lire("chantier.dxf"), avant) << "the drawing read is not the one written";

    const json info = velaJson("info corrige.dxf");
    EXPECT_EQ(pointsDeLaTableCourante(info), pointsDeLaTableCourante(infoAvant) + 4);
    const auto compte = [](const json& inventaire, const char* classe) {
        return inventaire["entitesParClasse"].value(classe, 0);
    };
    EXPECT_EQ(compte(info, "POINT"), compte(infoAvant, "POINT"));
    EXPECT_EQ(compte(info, "LWPOLYLINE"), compte(infoAvant, "LWPOLYLINE") + 2);
    EXPECT_EQ(compte(info, "INSERT"), compte(infoAvant, "INSERT") + 4) << "stations are symbols";
    EXPECT_EQ(info["problemes"], infoAvant["problemes"]);

    fermee(" --dessin corrige.dxf --placer --altitudes");
    EXPECT_EQ(pointsDeLaTableCourante(velaJson("info corrige.dxf")), pointsDeLaTableCourante(info) + 4)
        << "stations placed twice are there twice";
}

TEST_F(polygonaleFermee, KeepsTheOldDrawingItReplaces)
{
    copierExemple("chantier.dxf");
    const std::string avant = lire("chantier.dxf");
    const execution run = fermee(" --dessin chantier.dxf --placer");
    EXPECT_EQ(run.statut, 0) << run.erreurs;
    EXPECT_NE(run.sortie.find("Le dessin d'avant est gardé : chantier.bak\n"), std::string::npos) << run.sortie;
    EXPECT_EQ(lire("chantier.bak"), avant);
    EXPECT_NE(lire("chantier.dxf"), avant);
}

TEST_F(polygonaleFermee, MakesANewDrawingWithoutOneToRead)
{
    const json r = fermeeJson(" --placer --code 12 --enregistrer neuf.dxf");
    EXPECT_EQ(r["code"], 12);
    EXPECT_TRUE(r["ancienDessin"].is_null());
    const json info = velaJson("info neuf.dxf");
    EXPECT_EQ(pointsDeLaTableCourante(info), 4);
    EXPECT_EQ(info["entitesParClasse"]["INSERT"], 4);
    // A station's symbol reaches 0.35 to the left, and its name ends 1.5 above it.
    EXPECT_NEAR(info["etendueCalculee"]["min"][0], 907.124 - 0.35, tolerance);
    EXPECT_NEAR(info["etendueCalculee"]["max"][1], -1814.522 + 1.5, tolerance);
    EXPECT_EQ(info["etendueCalculee"]["min"][2], 0.0) << "altitudes are not placed unless asked for";
}

TEST_F(polygonaleFermee, TakesCode100ForACodeOutOfRange)
{
    for (const char* code : {"0", "10000", "-5"}) {
        const json r = fermeeJson(std::string(" --placer --enregistrer neuf.dxf --code ") + code);
        EXPECT_EQ(r["code"], 100) << code;
        EXPECT_EQ(r["avertissements"].size(), 1u) << code;
    }
}

TEST_F(polygonaleFermee, WarnsInFrenchAndGoesOn)
{
    std::string texte = lire(fichier);
    const std::string distance = "217.63000";
    texte.replace(texte.find(distance), distance.size(), "217,63000");
    ecrire("virgule.obs", texte + "un deux trois\n");
    const execution run = vela("polygonale fermee virgule.obs");
    EXPECT_EQ(run.statut, 0);
    EXPECT_NE(run.erreurs.find("Attention : virgule.obs, ligne "), std::string::npos) << run.erreurs;
    EXPECT_NE(run.erreurs.find("Le séparateur décimal est le point."), std::string::npos) << run.erreurs;
    const execution enJson = vela("polygonale fermee virgule.obs --json");
    EXPECT_EQ(enJson.erreurs, "");
    EXPECT_EQ(json::parse(enJson.sortie)["avertissements"].size(), 2u);
}

TEST_F(polygonaleFermee, RefusesWhatItCannotDo)
{
    ecrire("lettre.obs",
           "Madame, Monsieur,\nveuillez trouver ci-joint\nun plan avec dix mots dont pas un seul nombre\n");
    ecrire("court.obs", "Nom=\"A\" X=1 Y=2 Z=3 Gis=4\n\"A\" 100 10 0\n");
    ecrire("nulle.obs", "Nom=\"A\" X=1 Y=2 Z=3 Gis=4\n\"B\" 200 0 0\n\"A\" 200 0 0\n"); // A itself is known
    copierExemple("chantier.dxf");
    ecrire("lettre.dxf", lire("lettre.obs"));
    const std::string placer = std::string("polygonale fermee ") + fichier + " --placer ";
    struct cas {
        const char* nom;
        std::string arguments;
        const char* message;
    };
    const std::array lignes{
        cas{"no such traverse file", "polygonale fermee absent.obs", "absent.obs : lecture impossible du fichier."},
        cas{"some other text", "polygonale fermee lettre.obs", "ce n'est pas un fichier de polygonale"},
        cas{"one observation", "polygonale fermee court.obs", "court.obs : données insuffisantes"},
        cas{"stations that are not finite", "polygonale fermee nulle.obs --placer --quand-meme --enregistrer s.dxf",
            "1 station(s) sur 2 sans coordonnées finies"},
        cas{"no such drawing", placer + "--dessin absent.dxf", "absent.dxf : fichier introuvable"},
        cas{"no drawing", placer + "--dessin lettre.dxf --enregistrer s.dxf", "lettre.dxf"},
        cas{"no drawing at all", placer, "--enregistrer"},
        cas{"a drawing of another kind", placer + "--enregistrer plan.dwg", "donnez un nom en « .dxf »"},
        cas{"the report over the data", std::string("polygonale fermee ") + fichier + " --rapport " + fichier,
            "est un fichier de données"},
        cas{"a report where there is no folder", std::string("polygonale fermee ") + fichier + " --rapport rien/r.html",
            "le rapport n'a pas pu être écrit"},
        cas{"one name for both results", placer + "--enregistrer s.dxf --rapport ./s.dxf", "ont le même nom"},
        cas{"beyond the tolerance asked for",
            std::string("polygonale fermee ") + fichier + " --strict --precision-angle 0.001",
            "dépasse la tolérance de 0.00604 gr"}, // 2.7 × 0.001 × √5
        cas{"no precision", std::string("polygonale fermee ") + fichier + " --precision-angle -1",
            "écart type positif"},
        cas{"a drawing where there is no folder", placer + "--enregistrer rien/s.dxf", "rien/s.dxf"},
    };
    const std::string donnees = lire(fichier);
    for (const cas& ligne : lignes)
        for (const char* option : {"", " --json"}) {
            SCOPED_TRACE(std::string(ligne.nom) + option);
            const execution run = vela(ligne.arguments + option);
            EXPECT_EQ(run.statut, 1);
            EXPECT_EQ(run.sortie, "");
            EXPECT_NE(run.erreurs.find(ligne.message), std::string::npos) << run.erreurs;
        }
    EXPECT_EQ(lire(fichier), donnees);
    EXPECT_FALSE(std::filesystem::exists(chemin("s.dxf")));
}

// --- Open traverses: what differs; the rest is the same code. --------------------------------------------------------

class polygonaleOuverte : public dossierEssai {};

TEST_F(polygonaleOuverte, GivesTheFiguresOfThePublishedCase)
{
    copierExemple("polygonale-ouverte-grades.obs");
    const json r = velaJson("polygonale ouverte polygonale-ouverte-grades.obs");
    const json& f = r["fermetures"];
    EXPECT_NEAR(f["erreurAngulaire"], -0.024, 1e-9);
    EXPECT_NEAR(f["correctionAngulaire"], -0.004, 1e-9);
    EXPECT_NEAR(f["fx"], 0.039, 0.0012);
    EXPECT_NEAR(f["fy"], -0.016, 0.0012);
    EXPECT_NEAR(f["deltaX"], 353.82, 1e-9);
    EXPECT_EQ(r["depart"]["nom"], "A");
    EXPECT_EQ(r["arrivee"]["gisement"], 130.154);
    EXPECT_EQ(r["dernierAngle"]["angle"], 257.128);
    EXPECT_NEAR(r["dernierAngle"]["gisementCompense"], 130.154, 1e-9);
    EXPECT_NEAR(r["visees"][1]["gisementReduit"], 110.643, 1e-9);
    EXPECT_NEAR(r["visees"][1]["partErreur"], 0.008, 1e-9);
    EXPECT_NEAR(r["visees"][1]["gisement"], 110.651, 1e-9);
    ASSERT_EQ(r["stations"].size(), 6u);
    EXPECT_NEAR(r["stations"][4]["x"], 783169.75, 0.0056);
    EXPECT_NEAR(r["stations"][5]["y"], 215327.8, 1e-6);
    EXPECT_TRUE(r["avertissements"].empty()) << r["avertissements"];
}

TEST_F(polygonaleOuverte, ReportsAndPlaces)
{
    copierExemple("polygonale-ouverte-altitudes.obs");
    const execution run = vela("polygonale ouverte polygonale-ouverte-altitudes.obs --rapport r.html --placer "
                               "--altitudes --originale --compensee --enregistrer neuf.dxf");
    EXPECT_EQ(run.statut, 0);
    EXPECT_EQ(run.erreurs.find("Attention"), std::string::npos) << run.erreurs;
    EXPECT_NE(run.sortie.find("Polygonale ouverte : "), std::string::npos) << run.sortie;
    EXPECT_NE(run.sortie.find("  Correction par angle      0.00067  gr\n"), std::string::npos) << run.sortie;
    EXPECT_NE(run.sortie.find("6 points placés dans la table"), std::string::npos) << run.sortie;
    EXPECT_NE(lire("r.html").find("R\xE9sultats finaux :"), std::string::npos);
    const json info = velaJson("info neuf.dxf");
    EXPECT_EQ(info["entitesParClasse"]["LWPOLYLINE"], 2);
    EXPECT_EQ(pointsDeLaTableCourante(info), 6);
}

TEST_F(polygonaleOuverte, WondersAtAFileOfTheOtherKind)
{
    copierExemple(fichier);
    copierExemple("polygonale-ouverte-grades.obs");
    EXPECT_NE(vela(std::string("polygonale ouverte ") + fichier).erreurs.find("d'une polygonale fermée ?"),
              std::string::npos);
    EXPECT_NE(vela("polygonale fermee polygonale-ouverte-grades.obs").erreurs.find("d'une polygonale ouverte ?"),
              std::string::npos);
}

TEST_F(polygonaleOuverte, SaysWhatToTypeForATurn)
{
    copierExemple("polygonale-ouverte-degres.obs");
    std::string texte = lire("polygonale-ouverte-degres.obs");
    const std::string gisement = "Gis= 360.00000";
    texte.replace(texte.find(gisement), gisement.size(), "Gis= 0.00000");
    ecrire("tour.obs", texte);
    const execution run = vela("polygonale ouverte tour.obs");
    EXPECT_EQ(run.statut, 0);
    EXPECT_NE(run.erreurs.find("saisissez 360 au lieu de 0 comme gisement d'arrivée"), std::string::npos)
        << run.erreurs;
}

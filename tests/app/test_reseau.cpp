#include <cmath>

#include "programme.h"

using nlohmann::json;

namespace {

class commandeReseau : public dossierEssai {
protected:
    commandeReseau() { copierExemple("reseau.mc"); }
};

} // namespace

TEST_F(commandeReseau, GivesAllInJson)
{
    const json r = velaJson("reseau reseau.mc --json");
    EXPECT_EQ(r["degres_de_liberte"], 41);
    EXPECT_TRUE(r["s0_admis"]);
    ASSERT_EQ(r["points"].size(), 7u);
    const json& s1 = r["points"][3];
    EXPECT_EQ(s1["nom"], "S1");
    EXPECT_NEAR(s1["x"], 1652452.73, 0.01); // where the example was made from
    EXPECT_NEAR(s1["z"], 209.64, 0.01);
    EXPECT_GE(s1["ellipse"]["a"].get<double>(), s1["sx"].get<double>() - 1e-9); // the larger half axis, millimetres
    EXPECT_NEAR(std::hypot(s1["ellipse"]["a"].get<double>(), s1["ellipse"]["b"].get<double>()),
                std::hypot(s1["sx"].get<double>(), s1["sy"].get<double>()), 1e-9);
    EXPECT_TRUE(r["points"][0]["sx"].is_null()); // held
    const json& o = r["observations"][1];
    EXPECT_EQ(o["type"], "distance");
    EXPECT_EQ(o["de"], "S1");
    EXPECT_EQ(o["vers"], "R1");
    EXPECT_TRUE(o["vers2"].is_null());
    EXPECT_NEAR(o["residu"].get<double>(), o["compensee"].get<double>() - o["mesure"].get<double>(), 1e-9);
    EXPECT_FALSE(o["suspect"]);
}

TEST_F(commandeReseau, PlacesAndDrawsInANewDrawing)
{
    const json r = velaJson("reseau reseau.mc --json --placer --ellipses --enregistrer r.dxf --rapport r.html");
    EXPECT_EQ(r["pointsPlaces"], 4);
    EXPECT_NE(lire("r.dxf").find("RESEAU_ELLIPSES"), std::string::npos);
    EXPECT_NE(lire("r.html").find("<svg "), std::string::npos);
}

TEST_F(commandeReseau, RefusesWithAReason)
{
    ecrire("flotte.mc", "Station: A\nDistance: B 10\nDistance: C 10\nStation: B\nDistance: C 10\n");
    ecrire("abime.gkf", "<gama-local>\n<network>");
    struct cas {
        const char* arguments;
        const char* raison;
    };
    const cas refus[] = {
        {"reseau flotte.mc", "flotte en plan"},
        {"reseau abime.gkf", "abime.gkf, ligne 2"},
        {"reseau absent.mc", "absent.mc"},
        {"reseau reseau.mc --robuste=moyenne", "moyenne"},
        {"reseau reseau.mc --rapport reseau.mc", "fichier de données"},
        {"reseau reseau.mc --placer", "nommez un dessin"},
        {"reseau reseau.mc --dessin a.dxf", "--placer"},
    };
    for (const cas& c : refus) {
        const execution run = vela(c.arguments);
        EXPECT_EQ(run.statut, 1) << c.arguments;
        EXPECT_NE(run.erreurs.find(c.raison), std::string::npos) << run.erreurs;
    }
    const json libre = velaJson("reseau flotte.mc --libre --json");
    EXPECT_EQ(libre["degres_de_liberte"], 0);
    EXPECT_TRUE(libre["s0"].is_null());
}

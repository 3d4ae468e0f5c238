// Files of networks: our own, gama-local's, traverses.

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "calculs/reseau/rapportReseau.h"

#include "reseauxEssai.h"

namespace {

using enum genreObservation;

constexpr char complet[] = "* tout ce qui s'écrit\n"
                           "Titre: \"Essai \xE9\"\nAngles: degres\nSigma: 2\nConfiance: 99\n"
                           "Precision: direction 8\nPrecision: distance 2 1.5\nPrecision: denivelee 4\n"
                           "Formule: angles \"1/(a*d1)^2\"\nVariable: a 0.5 \"appareil\"\n"
                           "Point: A X= 1 Y= 2 Z= 3 fixe\n"
                           "Point: \"B 1\" X= 10 Y= 20 Z= 4 appui xy fixe z\n"
                           "Point: C X= 5 Y= 6 ecart= 7\n"
                           "Point: D X= 3 ignor\xE9 z\n"
                           "Station: A hi= 1.55\n"
                           "direction: \"B 1\" 0 e= 12\n"
                           "Direction: C 45.5 hors\n"
                           "Angle: C \"B 1\" 10.25\n"
                           "Gisement: C 30 de= \"B 1\"\n"
                           "Inclin\xE9"
                           "e: C 12.5 ht= 1.8\n"
                           "Zenithal: C 88.5 ht= 1.8\n"
                           "D\xE9nivel\xE9"
                           "e: C 0.25 km= 0.4\n"
                           "Distance: C 12.25\n"
                           "Station: A\nDirection: C 5\n";

TEST(FichierMc, ReadsAll)
{
    const reseauLu lu = lireMc(complet);
    for (const remarqueLecture& remarque : lu.remarques)
        ADD_FAILURE() << remarque.numero;
    const reseau& r = lu.r;
    ASSERT_EQ(r.points.size(), 4u);
    ASSERT_EQ(r.observations.size(), 11u); // two of them coordinates of C
    EXPECT_EQ(r.titre, L"Essai é");
    EXPECT_EQ(r.sigma, 2.0);
    EXPECT_NEAR(r.confiance, 0.99, 1e-12);
    EXPECT_EQ(r.points[1].plan, tenue::appui);
    EXPECT_EQ(r.points[1].altitude, tenue::fixe);
    EXPECT_EQ(r.points[3].y, inconnu) << "X alone is no place";
    EXPECT_EQ(r.points[3].altitude, tenue::ignoree);
    EXPECT_EQ(r.series, 2);
    EXPECT_NEAR(r.observations[3].mesure, 45.5 * pi / 180.0, 1e-14);
    EXPECT_FALSE(r.observations[3].active);
    EXPECT_NEAR(r.observations[2].ecart, 12.0 * dmgrEnRadians, 1e-18);
    EXPECT_EQ(r.observations[5].de, 1);
    EXPECT_EQ(r.observations[6].hauteurDe, 1.55);
    EXPECT_EQ(r.observations[8].longueur, 0.4);
    EXPECT_EQ(r.formules.variables.valeur(0), 0.5);
    // Written and read again it is the same.
    const reseauLu relu = lireMc(contenuMc(r));
    EXPECT_TRUE(relu.remarques.empty());
    EXPECT_EQ(contenuMc(relu.r), contenuMc(r));
    ASSERT_EQ(relu.r.observations.size(), r.observations.size());
    for (std::size_t k = 0; k < r.observations.size(); ++k) {
        EXPECT_NEAR(relu.r.observations[k].mesure, r.observations[k].mesure, 1e-12);
        EXPECT_EQ(relu.r.observations[k].de, r.observations[k].de);
    }
    EXPECT_EQ(relu.r.formules, r.formules);
}

TEST(FichierMc, SaysWhatItCannotKeep)
{
    reseau r = lireMc("Station: A\nDistance: B 10\nDistance: C 20\n").r;
    EXPECT_TRUE(pertesMc(r).empty());
    r.covariances.push_back({{0, 1}, {1.0, 0.5, 0.5, 1.0}});
    r.toleranceAbsolue = 1.0;
    ASSERT_EQ(pertesMc(r).size(), 2u);
    EXPECT_NE(pertesMc(r)[0].find(L"covariances"), std::wstring::npos);
}

TEST(FichierMc, TellsTheLine)
{
    const struct {
        const char* nom;
        const char* ligne;
    } fautes[] = {
        {"no keyword of ours", "Bruit: 1"},
        {"comma", "Distance: B 12,5"},
        {"no measure", "Direction: B"},
        {"to itself", "Distance: A 10"},
        {"a distance below zero", "Distance: B -10"},
        {"an angle with one point", "Angle: B 10"},
        {"an option that is none", "Distance: B 10 ecar= 3"},
        {"a deviation that is no number", "Distance: B 10 e= x"},
        {"a deviation that is missing", "Distance: B 10 e="},
        {"a deviation below zero", "Distance: B 10 e= -3"},
        {"a line without length", "Denivelee: B 1 km= 0"},
        {"a height that is missing", "Station: A hi="},
        {"millimetres a kilometre below zero", "Precision: distance 3 -2"},
        {"a formula that does not parse", "Formule: angles \"1/(3+\""},
        {"a formula of a variable that nobody defined", "Formule: distances \"1/(3+k)\""},
        {"a word after sigma", "Sigma: 1 aposteriori"},
    };
    for (const auto& f : fautes) {
        SCOPED_TRACE(f.nom);
        const reseauLu lu = lireMc(std::string("* a\nStation: A\n") + f.ligne + "\nDistance: C 5\n");
        ASSERT_FALSE(lu.remarques.empty());
        EXPECT_EQ(lu.remarques.front().numero, 3u);
        EXPECT_TRUE(lu.lisible);
    }
    EXPECT_FALSE(lireMc("").lisible);
    EXPECT_EQ(lireMc("Distance: B 5\n").remarques.back().numero, 1u); // before any station
}

/// One network, written along each pair of axes and both senses of angles.
std::string carre(const std::string& axes, bool antihoraire)
{
    struct point {
        const char* nom;
        double e, n;
    };
    const point points[] = {{"A", 100, 200}, {"B", 180, 260}, {"P", 60, 290}};
    const auto composante = [](char axe, const point& p) {
        return axe == 'e' ? p.e : axe == 'w' ? -p.e : axe == 'n' ? p.n : -p.n;
    };
    std::ostringstream xml;
    xml.precision(12);
    xml << "<?xml version=\"1.0\"?>\n<gama-local><network axes-xy=\"" << axes << "\" angles=\""
        << (antihoraire ? "right-handed" : "left-handed")
        << "\">\n<parameters sigma-apr=\"5\"/>\n<points-observations direction-stdev=\"5\" distance-stdev=\"3 2 1\">\n";
    for (const point& p : points)
        xml << "<point id=\"" << p.nom << "\" x=\"" << composante(axes[0], p) << "\" y=\"" << composante(axes[1], p)
            << "\" " << (p.nom[0] == 'P' ? "adj" : "fix") << "=\"xy\"/>\n";
    for (const point& de : points) {
        xml << "<obs from=\"" << de.nom << "\">\n";
        for (const point& vers : points) {
            if (&de == &vers)
                continue;
            const double g = std::atan2(vers.e - de.e, vers.n - de.n) * 200.0 / pi + 17.0;
            xml << "<direction to=\"" << vers.nom << "\" val=\"" << (antihoraire ? 400.0 - g : g) << "\"/>"
                << "<distance to=\"" << vers.nom << "\" val=\"" << std::hypot(vers.e - de.e, vers.n - de.n) << "\"/>\n";
        }
        xml << "</obs>\n";
    }
    xml << "</points-observations></network></gama-local>\n";
    return xml.str();
}

TEST(FichierGkf, EveryPairOfAxes)
{
    for (const char* const axes : {"ne", "sw", "es", "wn", "en", "nw", "se", "ws"})
        for (const bool antihoraire : {false, true}) {
            SCOPED_TRACE(axes);
            const reseauLu lu = lireGkf(carre(axes, antihoraire));
            ASSERT_TRUE(lu.lisible);
            EXPECT_TRUE(lu.remarques.empty());
            const resultatReseau resultat = compenser(lu.r);
            EXPECT_NEAR(resultat.s0, 0.0, 1e-4);
            const pointCompense& p = resultat.points[static_cast<std::size_t>(lu.r.chercher(L"P"))];
            EXPECT_NEAR(p.x, 60.0, 1e-6);
            EXPECT_NEAR(p.y, 290.0, 1e-6);
            const observationReseau& o = lu.r.observations.front();
            EXPECT_NEAR(mesureAffichee(lu.r, o, o.mesure),
                        antihoraire ? 400.0 - 17.0 - std::atan2(80, 60) * 200 / pi
                                    : 17.0 + std::atan2(80, 60) * 200 / pi,
                        1e-8);
        }
}

constexpr char tete[] = "<gama-local><network><points-observations direction-stdev=\"9\">\n";
constexpr char pied[] = "</points-observations></network></gama-local>\n";

TEST(FichierGkf, UnitsAndCovariances)
{
    const reseauLu lu =
        lireGkf(std::string(tete) +
                "<point id='A' x='0' y='0' fix='xy'/><point id='B' x='100' y='0' adj='XY'/>\n"
                "<obs from='A'><direction to='B' val='90-30-36' stdev='2'/><distance to='B' val='1000.5' "
                "stdev='3'/><cov-mat dim='2' band='1'> 4 1.5\n 9</cov-mat></obs>\n"
                "<obs><z-angle from='A' to='B' val='100' stdev='10' from_dh='1.5' to_dh='2'/></obs>\n"
                "<height-differences><dh from='A' to='C' val='1' dist='4'/></height-differences>\n" +
                pied);
    ASSERT_TRUE(lu.lisible);
    const reseau& r = lu.r;
    ASSERT_EQ(r.observations.size(), 4u);
    constexpr double seconde = pi / 180.0 / 3600.0;
    EXPECT_NEAR(r.observations[0].mesure, (90.0 + 30.6 / 60.0) * pi / 180.0, 1e-14);
    EXPECT_NEAR(r.observations[0].ecart, 2.0 * seconde, 1e-15);
    ASSERT_EQ(r.covariances.size(), 1u);
    EXPECT_NEAR(r.covariances[0].matrice[1], 1.5 * seconde * milli, 1e-16);
    EXPECT_EQ(r.observations[2].hauteurVers, 2.0);
    EXPECT_NEAR(r.observations[3].ecart, 0.020, 1e-12); // sigma-apr times the root of 4 km
    EXPECT_EQ(r.points[1].plan, tenue::appui);
    EXPECT_EQ(r.points[static_cast<std::size_t>(r.chercher(L"C"))].altitude, tenue::ignoree); // nobody declares it
}

TEST(FichierGkf, DamagedFilesSayWhere)
{
    const struct {
        const char* nom;
        std::string texte;
        std::size_t ligne;
        bool lisible;
    } fautes[] = {
        {"not XML", "Point: A\n", 1, false},
        {"another document", "<html></html>", 1, false},
        {"cut", carre("ne", false).substr(0, 300), 8, false},
        {"unknown axes", "<gama-local>\n<network axes-xy='xy'>", 2, false},
        {"a measure that is none", std::string(tete) + "<obs from='A'>\n<distance to='B' val='1,5'/></obs>" + pied, 3,
         true},
        {"an element of the future", std::string(tete) + "<nouveau/>" + pied, 2, true},
        {"matrix of another size",
         std::string(tete) + "<obs from='A'><distance to='B' val='5'/>\n<cov-mat dim='2' band='0'>1 1</cov-mat></obs>" +
             pied,
         3, false},
        {"huge matrix", std::string(tete) + "<obs from='A'><cov-mat dim='99999999' band='0'/></obs>" + pied, 2, false},
        {"baselines",
         std::string(tete) +
             "<vectors><vec from='A' to='B' dx='1' dy='1' dz='1'/>"
             "<cov-mat dim='3' band='0'>1 1 1</cov-mat></vectors>" +
             pied,
         2, true},
        {"an attribute misspelt",
         std::string(tete) + "<obs from='A'>\n<distance to='B' val='5' stdv='3'/></obs>" + pied, 3, true},
        {"a deviation below zero",
         std::string(tete) + "<obs from='A'>\n<distance to='B' val='5' stdev='-3'/></obs>" + pied, 3, true},
        {"letters that are no axes", std::string(tete) + "\n<point id='A' adj='xw'/>" + pied, 3, true},
        {"half a place", std::string(tete) + "\n<point id='A' x='1' adj='xy'/>" + pied, 3, true},
        {"a direction from elsewhere",
         std::string(tete) + "<obs from='A'>\n<direction from='C' to='B' val='5'/></obs>" + pied, 3, true},
        {"angles of neither hand", "<gama-local>\n<network angles='left'/></gama-local>", 2, true},
        {"a confidence beyond one", "<gama-local><network>\n<parameters conf-pr='95'/></network></gama-local>", 2,
         true},
        {"a sigma of another kind", "<gama-local><network>\n<parameters sigma-act='s0'/></network></gama-local>", 2,
         true},
        {"entities that grow", "<!DOCTYPE g [<!ENTITY a 'aaaaaaaaaa'>]>\n<gama-local>&b;</gama-local>", 2, false},
    };
    for (const auto& f : fautes) {
        SCOPED_TRACE(f.nom);
        const reseauLu lu = lireGkf(f.texte);
        EXPECT_EQ(lu.lisible, f.lisible);
        ASSERT_FALSE(lu.remarques.empty());
        EXPECT_EQ(lu.remarques.front().numero, f.ligne);
        EXPECT_TRUE(f.lisible || lu.r.points.empty());
    }
}

TEST(Polygonales, AsNetworks)
{
    struct cas {
        const char* fichier;
        int degres;
        const wchar_t* station;
        double x, y, pres; ///< as the traverse is corrected, and how near least squares stay to that
    };
    const cas connus[] = {
        {"polygonale-fermee-grades.obs", 3, L"2", 990.31454, -1890.031922, 0.05},
        {"polygonale-ouverte-degres.obs", 3, L"2_sp", 90260.032, 3267.535, 0.05},
        {"polygonale-fermee-altitudes.obs", 4, L"G3", 708441.715, 6512452.82, 0.05},
    };
    for (const cas& c : connus) {
        SCOPED_TRACE(c.fichier);
        const reseauLu lu = chargerReseau(std::string(VELA_SOURCE_DIR "/examples/") + c.fichier);
        ASSERT_TRUE(lu.lisible);
        const resultatReseau resultat = compenser(lu.r);
        EXPECT_EQ(resultat.degresDeLiberte, c.degres);
        const pointCompense& p = resultat.points[static_cast<std::size_t>(lu.r.chercher(c.station))];
        EXPECT_NEAR(p.x, c.x, c.pres);
        EXPECT_NEAR(p.y, c.y, c.pres);
    }
    EXPECT_FALSE(reseauDePolygonale("rien\n").lisible);
}

TEST(RapportReseau, SaysWhatMatters)
{
    reseau r = reseauEssai("directions.mc");
    r.points[6].nom = L"<P>";
    r.observations[3].mesure += 0.5;
    htmlDocument document;
    rapporterReseau(r, compenser(r), document);
    const std::string texte = document.text();
    for (const char* const partie : {"Compensation de r\xE9seau par moindres carr\xE9s", "8 degr\xE9s de libert\xE9",
                                     "&lt;P&gt;", "Observations suspectes", "faute probable", "<svg ", "<ellipse "})
        EXPECT_NE(texte.find(partie), std::string::npos) << partie;
    EXPECT_EQ(texte.find("<P>"), std::string::npos);
}

} // namespace

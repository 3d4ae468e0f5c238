#include "generateurs/dessinChantier.h"

#include <algorithm>
#include <cstdio>
#include <numbers>

#include "generateurs/Alea.h"
#include "generateurs/EcrivainDessin.h"
#include "generateurs/trace.h"

namespace {

constexpr double xMin = 870.0, xMax = 1140.0, yMin = -2045.0, yMax = -1785.0;

/// A lane: its axis runs from corner to corner, edges lie half its width away.
struct voie {
    std::vector<lieu> axe;
    double rayon, largeur;
    const char* nom;
};

/// A row of parcels along one straight side of a lane.
struct rangee {
    std::size_t cote; ///< side of the axis, from 0
    bool gauche;
    double debut, fin; ///< along that side, metres
    double profondeur;
};

/// The ground: a slope that rises to the north, with two soft waves. It rises with y everywhere.
double altitude(const lieu& p)
{
    return 52.0 + 0.045 * (p.y + 1900.0) + 1.2 * std::sin((p.x - 880.0) / 55.0) + 0.6 * std::cos((p.x + p.y) / 40.0);
}

/// The y where the ground has this altitude, by bisection; outside the drawing when it has it nowhere there.
double yDeLaltitude(double x, double z)
{
    double bas = yMin - 50.0, haut = yMax + 50.0;
    for (int i = 0; i < 50; ++i) {
        const double milieu = (bas + haut) / 2;
        (altitude({x, milieu}) < z ? bas : haut) = milieu;
    }
    return bas;
}

class DessinChantier {
public:
    explicit DessinChantier(SortieDxf& sortie);
    void ecrire();

private:
    static CadreDessin cadre();
    static void definirArbre(EcrivainDessin& dessin);

    void polyligne(const char* calque, const std::vector<sommetTrace>& sommets, bool fermee);
    void contour(const char* calque, const std::vector<lieu>& coins);
    void cercle(const char* calque, const lieu& centre, double rayon);
    void texte(const char* calque, const lieu& ou, double hauteur, double angle, const std::string& quoi);
    void arbre(const lieu& ou, double echelle);

    void dessinerVoie(const voie& v);
    void lotir(const voie& v, const rangee& r);
    void batir(const lieu& coin, const lieu& u, const lieu& v, double largeur, double profondeur);
    void courbe(double z);
    void pointCote(const lieu& ou);

    EcrivainDessin m_dessin;
    SortieDxf& m_sortie;
    Alea m_alea{2024};
    int m_parcelle = 101;
};

DessinChantier::DessinChantier(SortieDxf& sortie) : m_dessin(sortie, cadre()), m_sortie(sortie) {}

CadreDessin DessinChantier::cadre()
{
    CadreDessin c;
    c.titre = "Hameau de la Fontaine";
    c.xMin = xMin;
    c.yMin = yMin;
    c.xMax = xMax;
    c.yMax = yMax;
    c.zMax = 60.0;
    c.calques = {{"BÂTI_DUR", 1},
                 {"BÂTI_LÉGER", 30},
                 {"PARCELLAIRE", 3, "TIRETÉ"},
                 {"VOIRIE_BORDURE", 8},
                 {"VOIRIE_AXE", 9, "AXE"},
                 {"COURBES_NIVEAU", 34},
                 {"COURBES_MAÎTRESSES", 32},
                 {"VÉGÉTATION", 94},
                 {"ALTITUDES", 7},
                 {"RÉSEAU_EAUX_PLUVIALES", 5},
                 {"TEXTES", 7}};
    c.typesDeLigne = {{"TIRETÉ", "__ __ __", {2.0, -1.0}}, {"AXE", "____ _ ____ _", {6.0, -1.5, 1.5, -1.5}}};
    c.styles = {"Écriture"};
    c.blocs = {{"ARBRE_FEUILLU", false, definirArbre}};
    return c;
}

/// A crown of one metre and its trunk.
void DessinChantier::definirArbre(EcrivainDessin& dessin)
{
    dessin.entite("CIRCLE", "0", "AcDbCircle");
    dessin.sortie().tags(10, 0.0, 20, 0.0, 30, 0.0, 40, 1.0);
    dessin.entite("CIRCLE", "0", "AcDbCircle");
    dessin.sortie().tags(10, 0.0, 20, 0.0, 30, 0.0, 40, 0.125);
    for (int i = 0; i < 3; ++i) {
        const double a = i * std::numbers::pi / 3, x = auMillimetre(0.75 * std::cos(a)),
                     y = auMillimetre(0.75 * std::sin(a));
        dessin.entite("LINE", "0", "AcDbLine");
        dessin.sortie().tags(10, -x, 20, -y, 30, 0.0, 11, x, 21, y, 31, 0.0);
    }
}

void DessinChantier::polyligne(const char* calque, const std::vector<sommetTrace>& sommets, bool fermee)
{
    m_dessin.entite("LWPOLYLINE", calque, "AcDbPolyline");
    m_sortie.tags(90, static_cast<int>(sommets.size()), 70, fermee ? 1 : 0, 43, 0.0);
    for (const sommetTrace& s : sommets) {
        m_sortie.tags(10, auMillimetre(s.ou.x), 20, auMillimetre(s.ou.y));
        if (s.fleche != 0.0)
            m_sortie.tag(42, std::round(s.fleche * 1e9) / 1e9);
    }
}

void DessinChantier::contour(const char* calque, const std::vector<lieu>& coins)
{
    std::vector<sommetTrace> sommets;
    for (const lieu& coin : coins)
        sommets.push_back({coin, 0.0});
    polyligne(calque, sommets, true);
}

void DessinChantier::cercle(const char* calque, const lieu& centre, double rayon)
{
    m_dessin.entite("CIRCLE", calque, "AcDbCircle");
    m_sortie.tags(10, auMillimetre(centre.x), 20, auMillimetre(centre.y), 30, 0.0, 40, rayon);
}

void DessinChantier::texte(const char* calque, const lieu& ou, double hauteur, double angle, const std::string& quoi)
{
    m_dessin.entite("TEXT", calque, "AcDbText");
    m_sortie.tags(10, auMillimetre(ou.x), 20, auMillimetre(ou.y), 30, 0.0, 40, hauteur, 1, quoi);
    m_sortie.tags(50, std::round(angle * 1e4) / 1e4, 7, "Écriture", 100, "AcDbText");
}

void DessinChantier::arbre(const lieu& ou, double echelle)
{
    const double e = std::round(echelle * 10.0) / 10.0;
    m_dessin.entite("INSERT", "VÉGÉTATION", "AcDbBlockReference");
    m_sortie.tags(2, "ARBRE_FEUILLU", 10, auMillimetre(ou.x), 20, auMillimetre(ou.y), 30, 0.0, 41, e, 42, e, 43, e);
}

void DessinChantier::dessinerVoie(const voie& v)
{
    for (const double demi : {v.largeur / 2, -v.largeur / 2})
        polyligne("VOIRIE_BORDURE", parallele(v.axe, v.rayon, demi), false);
    polyligne("VOIRIE_AXE", parallele(v.axe, v.rayon, 0.0), false);

    const lieu u = direction(v.axe[0], v.axe[1]);
    texte("TEXTES", v.axe[0] + u * 42.0 + aGauche(u) * -0.75, 1.5, std::atan2(u.y, u.x) * 180.0 / std::numbers::pi,
          v.nom);

    // A storm drain under the right-hand edge, a manhole every thirty metres of each side.
    const auto bord = parallele(v.axe, v.rayon, -v.largeur / 2 + 0.5);
    polyligne("RÉSEAU_EAUX_PLUVIALES", bord, false);
    for (std::size_t i = 0; i + 1 < bord.size(); ++i) {
        if (bord[i].fleche != 0.0)
            continue;
        const double cote = longueur(bord[i + 1].ou - bord[i].ou);
        for (double s = 5.0; s < cote; s += 30.0)
            cercle("RÉSEAU_EAUX_PLUVIALES", bord[i].ou + direction(bord[i].ou, bord[i + 1].ou) * s, 0.4);
    }
}

void DessinChantier::lotir(const voie& v, const rangee& r)
{
    const lieu origine = v.axe[r.cote];
    const lieu u = direction(origine, v.axe[r.cote + 1]);
    const lieu n = r.gauche ? aGauche(u) : aGauche(u) * -1.0;
    double s = r.debut;
    while (s + 16.0 < r.fin) {
        const double largeur = std::min(auMillimetre(m_alea.entre(19.0, 26.0)), r.fin - s);
        const lieu coin = origine + u * s + n * (v.largeur / 2 + 1.4);
        contour("PARCELLAIRE",
                {coin, coin + u * largeur, coin + u * largeur + n * r.profondeur, coin + n * r.profondeur});
        texte("TEXTES", coin + u * 1.5 + n * 2.5, 1.2, 0.0, std::to_string(m_parcelle++));
        batir(coin, u, n, largeur, r.profondeur);
        s += largeur;
    }
}

/// A house, mostly in the shape of an L, a shed behind some, and two trees in the garden.
void DessinChantier::batir(const lieu& coin, const lieu& u, const lieu& v, double largeur, double profondeur)
{
    const auto dansParcelle = [&](double droite, double fond) { return coin + u * droite + v * fond; };
    const double gauche = m_alea.entre(3.0, 4.5), devant = m_alea.entre(5.0, 8.0), p = m_alea.entre(8.0, 10.5);
    const double droite = gauche + largeur - 8.0, fond = devant + p;
    std::vector<lieu> maison = {dansParcelle(gauche, devant), dansParcelle(droite, devant)};
    if (m_alea.entre(0.0, 1.0) < 0.3) {
        maison.push_back(dansParcelle(droite, fond));
    } else {
        maison.push_back(dansParcelle(droite, fond + 4.0));
        maison.push_back(dansParcelle(droite - 5.0, fond + 4.0));
        maison.push_back(dansParcelle(droite - 5.0, fond));
    }
    maison.push_back(dansParcelle(gauche, fond));
    contour("BÂTI_DUR", maison);

    if (m_alea.entre(0.0, 1.0) < 0.5) {
        const double f = profondeur - 5.5;
        contour("BÂTI_LÉGER",
                {dansParcelle(1.5, f), dansParcelle(5.5, f), dansParcelle(5.5, f + 3.0), dansParcelle(1.5, f + 3.0)});
    }
    for (int i = 0; i < 2; ++i) {
        const double d = m_alea.entre(0.4 * largeur, largeur - 3.0), f = m_alea.entre(23.0, profondeur - 3.0);
        arbre(dansParcelle(d, f), m_alea.entre(1.5, 3.2));
    }
}

/// The contour line of one altitude, as 3D polylines: one for each run of it inside the drawing.
void DessinChantier::courbe(double z)
{
    const char* calque = std::fmod(z, 5.0) == 0.0 ? "COURBES_MAÎTRESSES" : "COURBES_NIVEAU";
    std::vector<lieu> suite;
    const auto ecrireSuite = [&] {
        if (suite.size() >= 2) {
            const Poignee ligne = m_dessin.entite("POLYLINE", calque, "AcDb3dPolyline");
            m_sortie.tags(66, 1, 10, 0.0, 20, 0.0, 30, 0.0, 70, 8);
            for (const lieu& p : suite) {
                m_dessin.sousEntite("VERTEX", ligne, calque, {"AcDbVertex", "AcDb3dPolylineVertex"});
                m_sortie.tags(10, p.x, 20, p.y, 30, z, 70, 32);
            }
            m_dessin.sousEntite("SEQEND", ligne, calque, {});
        }
        suite.clear();
    };
    for (double x = xMin; x <= xMax; x += 9.0) {
        const double y = yDeLaltitude(x, z);
        if (y < yMin || y > yMax)
            ecrireSuite();
        else
            suite.push_back({x, auMillimetre(y)});
    }
    ecrireSuite();
}

void DessinChantier::pointCote(const lieu& ou)
{
    const lieu p{auMillimetre(ou.x), auMillimetre(ou.y)};
    const double z = auMillimetre(altitude(p));
    m_dessin.entite("POINT", "ALTITUDES", "AcDbPoint");
    m_sortie.tags(10, p.x, 20, p.y, 30, z);
    char cote[16];
    std::snprintf(cote, sizeof cote, "%.2f", z);
    texte("ALTITUDES", p + lieu{0.5, 0.4}, 1.0, 0.0, cote);
}

void DessinChantier::ecrire()
{
    const voie rue{
        {{880.0, -1840.0}, {992.0, -1888.0}, {1104.0, -2012.0}, {1128.0, -2030.0}}, 80.0, 6.0, "Rue de l'Église"};
    const voie chemin{{{993.5, -1884.0}, {1020.0, -1816.0}, {1028.0, -1796.0}}, 40.0, 5.0, "Chemin du Vieux Lavoir"};
    // The sights of the traverse stay clear: they run along the lanes and over the fields between them.
    const rangee rangeesRue[] = {{0, true, 2.0, 25.0, 36.0},
                                 {0, false, 4.0, 98.0, 38.0},
                                 {1, false, 24.0, 152.0, 40.0},
                                 {1, true, 30.0, 84.0, 29.0}};
    const rangee rangeesChemin[] = {{0, true, 10.0, 46.0, 29.0}};

    m_dessin.debut();
    dessinerVoie(rue);
    dessinerVoie(chemin);
    for (const rangee& r : rangeesRue)
        lotir(rue, r);
    for (const rangee& r : rangeesChemin)
        lotir(chemin, r);
    for (double z = 44.0; z <= 60.0; z += 1.0)
        courbe(z);
    for (double y = yMin + 10.0; y < yMax; y += 24.0) {
        for (double x = xMin + 10.0; x < xMax; x += 24.0)
            pointCote({x + m_alea.entre(-5.0, 5.0), y + m_alea.entre(-5.0, 5.0)});
    }
    // An orchard below the lane.
    for (int rang = 0; rang < 4; ++rang) {
        for (int k = 0; k < 7; ++k)
            arbre({885.0 + 8.0 * k + m_alea.entre(-0.5, 0.5), -1990.0 - 9.0 * rang + m_alea.entre(-0.5, 0.5)}, 2.5);
    }
    texte("TEXTES", {888.0, -1980.0}, 2.0, 0.0, "Verger de la Côte");
    m_dessin.objets({});
    m_dessin.fin();
}

} // namespace

void ecrireDessinChantier(const std::filesystem::path& fichier)
{
    SortieDxf sortie(fichier, FormeDxf::texte, true);
    DessinChantier(sortie).ecrire();
}

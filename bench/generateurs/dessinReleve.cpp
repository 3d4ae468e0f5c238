#include "generateurs/dessinReleve.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

#include "generateurs/Alea.h"
#include "generateurs/EcrivainDessin.h"

namespace {

constexpr double pas = 5.0;
constexpr double xOrigine = 848000.0, yOrigine = 6530000.0; // of the size of national coordinates
constexpr double altitudeInconnue = 1e38;
constexpr int octetsNom = 10; // as the project keeps a name: zero-terminated, padded
constexpr std::array<int, 4> codes = {1, 12, 204, 310};
constexpr std::array<const char*, 4> blocs = {"velablk1", "borne", "arbre_chêne", "regard"};
constexpr int poigneesParSymbole = 6; // block reference, four attributes, SEQEND

struct pointReleve {
    double x, y, z;
    std::size_t genre; ///< position in `codes`
    std::string nom;
};

std::string altitudeLisible(double z)
{
    if (z == altitudeInconnue)
        return {};
    char texte[32];
    std::snprintf(texte, sizeof texte, "%.2f", z);
    return texte;
}

class DessinReleve {
public:
    DessinReleve(SortieDxf& sortie, const choixReleve& choix);
    void ecrire();

private:
    static CadreDessin cadre(const choixReleve& choix, int colonnes);
    static void definirBloc(EcrivainDessin& dessin);
    pointReleve point(int i) const;
    double xNoeud(int i) const { return xOrigine + pas * (i % m_colonnes); }
    double yNoeud(int i) const { return yOrigine + pas * (i / m_colonnes); }
    int auMoinsUn(int partie) const { return std::max(1, m_nombre / partie); }

    void symbole(int i);
    void attribut(Poignee insertion, const pointReleve& p, int rang);
    void terrain();
    void textes();
    void polylignes();
    void polylignes3d();
    void maillages();
    void maillageRectangulaire();
    void sommet(Poignee polyligne, const char* calque, const char* genre, double x, double y, double z, int drapeaux);
    void entitesInconnues();
    void objetsInconnus();
    void projet();
    void pointDuProjet(const pointReleve& p, Poignee symbole);

    Poignee poigneeSymbole(int i) const
    {
        return static_cast<Poignee>(m_premierSymbole +
                                    static_cast<std::uint64_t>(poigneesParSymbole) * static_cast<std::uint64_t>(i));
    }

    int m_nombre;
    int m_colonnes;
    EcrivainDessin m_dessin;
    SortieDxf& m_sortie;
    std::uint64_t m_premierSymbole = 0;
    Poignee m_dictionnaireSymbole{}, m_terrain{};
};

int colonnesDe(int points)
{
    return std::max(2, static_cast<int>(std::sqrt(points)));
}

DessinReleve::DessinReleve(SortieDxf& sortie, const choixReleve& choix) :
    m_nombre(choix.points),
    m_colonnes(colonnesDe(choix.points)),
    m_dessin(sortie, cadre(choix, m_colonnes)),
    m_sortie(sortie)
{
}

CadreDessin DessinReleve::cadre(const choixReleve& choix, int colonnes)
{
    CadreDessin c;
    c.version = choix.version;
    c.titre = "Levé de la Gravière";
    c.xMin = xOrigine;
    c.yMin = yOrigine;
    c.xMax = xOrigine + pas * (colonnes + 1);
    c.yMax = yOrigine + pas * (choix.points / colonnes + 2);
    c.zMax = 250.0;
    c.calques = {{"TERRAIN", 8}, {"BÂTI", 1}, {"VOIRIE", 252}, {"LIMITES", 3, "TIRETÉ"}, {"COTES", 30}};
    for (const int code : codes) {
        for (const char* partie : {"BLOC", "ALT", "MAT", "OBS", "CODE"})
            c.calques.push_back({"PT_" + std::to_string(code) + "_" + partie, 1 + code % 7});
    }
    c.typesDeLigne = {{"TIRETÉ", "__ __ __", {1.0, -0.5}}};
    c.styles = {"Écriture"};
    for (const char* nom : blocs)
        c.blocs.push_back({nom, true, definirBloc});
    c.applications = {"VELAPLUS", "VELA_PHOTOS"};
    c.classes = {{"VELAX_FOSSE", "VelaxDbFosse", "VelaxReseaux", true},
                 {"VELAX_RESEAU", "VelaxDbReseau", "VelaxReseaux", false}};
    c.dictionnaireCalque0 = true;
    // Per point: 6 for its symbol, less than 1 for the rest.
    c.poigneesReservees = 8 * static_cast<std::uint64_t>(choix.points) + 0x10000;
    return c;
}

/// A cross and the four attributes of a point.
void DessinReleve::definirBloc(EcrivainDessin& dessin)
{
    for (const bool horizontal : {true, false}) {
        const double dx = horizontal ? 0.5 : 0.0, dy = horizontal ? 0.0 : 0.5;
        dessin.entite("LINE", "0", "AcDbLine");
        dessin.sortie().tags(10, -dx, 20, -dy, 30, 0.0, 11, dx, 21, dy, 31, 0.0);
    }
    double y = 2.0;
    for (const char* etiquette : {"CODE", "NUMPT", "Z", "OBS"}) {
        dessin.entite("ATTDEF", "0", "AcDbText");
        dessin.sortie().tags(10, 0.75, 20, y, 30, 0.0, 40, 1.0, 1, "", 100, "AcDbAttributeDefinition");
        if (dessin.depuis2010())
            dessin.sortie().tag(280, 0);
        dessin.sortie().tags(3, etiquette, 2, etiquette, 70, y == 2.0 ? 1 : 0);
        y -= 1.5;
    }
}

pointReleve DessinReleve::point(int i) const
{
    Alea alea(static_cast<std::uint64_t>(i) + 1);
    pointReleve p;
    p.x = auMillimetre(xNoeud(i) + alea.entre(0.0, 3.0));
    p.y = auMillimetre(yNoeud(i) + alea.entre(0.0, 3.0));
    p.z = i % 40 == 39 ? altitudeInconnue : auMillimetre(alea.entre(180.0, 240.0));
    p.genre = alea.suivant() % codes.size();
    p.nom = std::to_string(i + 1);
    return p;
}

void DessinReleve::ecrire()
{
    m_dictionnaireSymbole = m_dessin.nouvelle();
    m_terrain = m_dessin.nouvelle();
    m_dessin.debut();

    const Poignee avant = m_dessin.nouvelle();
    m_premierSymbole = static_cast<std::uint64_t>(avant) + 1;
    for (int i = 0; i < m_nombre; ++i)
        symbole(i);
    terrain();
    textes();
    polylignes();
    polylignes3d();
    maillages();
    maillageRectangulaire();
    entitesInconnues();

    const Poignee reseaux = m_dessin.nouvelle();
    m_dessin.objets({{"VELAX_RESEAUX", reseaux}});
    m_dessin.dictionnaire(reseaux, m_dessin.racine(), {{"Réseau", m_terrain}}, false);
    objetsInconnus();
    projet();
    m_dessin.fin();
}

void DessinReleve::symbole(int i)
{
    const pointReleve p = point(i);
    const std::string prefixe = "PT_" + std::to_string(codes[p.genre]) + "_";
    const Poignee insertion = m_dessin.nouvelle();
    m_sortie.tags(0, "INSERT", 5, insertion);
    if (i == 0) {
        m_sortie.tags(102, "{ACAD_REACTORS", 330, m_terrain, 102, "}");
        m_sortie.tags(102, "{ACAD_XDICTIONARY", 360, m_dictionnaireSymbole, 102, "}");
    }
    m_sortie.tags(330, m_dessin.espaceObjet(), 100, "AcDbEntity", 8, prefixe + "BLOC", 100, "AcDbBlockReference", 66,
                  1);
    m_sortie.tags(2, blocs[p.genre], 10, p.x, 20, p.y, 30, 0.0);
    if (p.genre == 2)
        m_sortie.tags(41, 0.5, 42, 0.5, 43, 0.5);
    m_sortie.tags(1001, "VELAPLUS", 1070, 1);
    if (i % 500 == 0) {
        m_sortie.tags(1001, "VELA_PHOTOS", 1000, "photo n°" + std::to_string(i), 1002, "{", 1010, p.x, 1020, p.y);
        m_sortie.tags(1030, 0.0, 1040, 1.55, 1071, 70000 + i, 1005, insertion, 1002, "}");
    }
    for (int rang = 0; rang < 4; ++rang)
        attribut(insertion, p, rang);
    m_dessin.sousEntite("SEQEND", insertion, prefixe + "BLOC", {});
}

void DessinReleve::attribut(Poignee insertion, const pointReleve& p, int rang)
{
    struct genre {
        const char *etiquette, *calque;
        double dy;
    };
    constexpr genre genres[] = {{"CODE", "CODE", 2.0}, {"NUMPT", "MAT", 0.5}, {"Z", "ALT", -1.0}, {"OBS", "OBS", -2.5}};
    const genre& g = genres[rang];
    const std::string textes[] = {std::to_string(codes[p.genre]), p.nom, altitudeLisible(p.z),
                                  p.genre == 1 ? "borne gravée, côté est" : ""};
    const std::string calque = "PT_" + std::to_string(codes[p.genre]) + "_" + g.calque;
    m_dessin.sousEntite("ATTRIB", insertion, calque, {"AcDbText"});
    m_sortie.tags(10, auMillimetre(p.x + 0.75), 20, auMillimetre(p.y + g.dy), 30, 0.0, 40, 1.0, 1, textes[rang]);
    m_sortie.tags(100, "AcDbAttribute");
    if (m_dessin.depuis2010())
        m_sortie.tag(280, 0);
    m_sortie.tags(2, g.etiquette, 70, rang == 0 ? 1 : 0);
    if (m_dessin.depuis2010())
        m_sortie.tag(280, 0);
}

/// One triangle on each second node, upper halves of the squares missing: as terrain models are once drawn.
void DessinReleve::terrain()
{
    for (int i = 0; i < auMoinsUn(2); ++i) {
        Alea alea(0x10000000u + static_cast<std::uint64_t>(i));
        const double x = xNoeud(2 * i), y = yNoeud(2 * i);
        double z[3];
        for (double& altitude : z)
            altitude = auMillimetre(alea.entre(180.0, 240.0));
        m_dessin.entite("3DFACE", "TERRAIN", "AcDbFace");
        m_sortie.tags(10, x, 20, y, 30, z[0], 11, x + pas, 21, y, 31, z[1]);
        m_sortie.tags(12, x, 22, y + pas, 32, z[2], 13, x, 23, y + pas, 33, z[2]);
        if (i % 3 == 0)
            m_sortie.tag(70, 2);
    }
}

void DessinReleve::textes()
{
    for (int i = 0; i < auMoinsUn(10); ++i) {
        m_dessin.entite("TEXT", "COTES", "AcDbText");
        m_sortie.tags(10, xNoeud(10 * i) + 1.0, 20, yNoeud(10 * i) - 1.0, 30, 0.0, 40, 0.9);
        m_sortie.tags(1, "côte " + altitudeLisible(180.0 + 0.01 * (i % 6000)), 50, 12.5, 7, "Écriture", 100,
                      "AcDbText");
    }
}

void DessinReleve::polylignes()
{
    constexpr const char* calques[] = {"BÂTI", "VOIRIE", "LIMITES"};
    constexpr double quartDeCercle = 0.41421356237309503; // tan(π/8)
    for (int i = 0; i < auMoinsUn(50); ++i) {
        Alea alea(0x20000000u + static_cast<std::uint64_t>(i));
        const double x = xNoeud(50 * i), y = yNoeud(50 * i);
        m_dessin.entite("LWPOLYLINE", calques[i % 3], "AcDbPolyline");
        m_sortie.tags(90, 8, 70, i % 2, 43, i % 4 == 0 ? 0.1 : 0.0);
        for (int k = 0; k < 8; ++k) {
            m_sortie.tags(10, auMillimetre(x + 3.0 * k), 20, auMillimetre(y + alea.entre(0.0, 4.0)));
            if (i % 5 == 0 && k == 2)
                m_sortie.tag(42, i % 2 == 0 ? quartDeCercle : -quartDeCercle);
        }
    }
}

void DessinReleve::sommet(Poignee polyligne, const char* calque, const char* genre, double x, double y, double z,
                          int drapeaux)
{
    m_dessin.sousEntite("VERTEX", polyligne, calque, {"AcDbVertex", genre});
    m_sortie.tags(10, x, 20, y, 30, z, 70, drapeaux);
}

void DessinReleve::polylignes3d()
{
    for (int i = 0; i < auMoinsUn(500); ++i) {
        Alea alea(0x30000000u + static_cast<std::uint64_t>(i));
        const double x = xNoeud(500 * i), y = yNoeud(500 * i);
        const Poignee polyligne = m_dessin.entite("POLYLINE", "VOIRIE", "AcDb3dPolyline");
        m_sortie.tags(66, 1, 10, 0.0, 20, 0.0, 30, 0.0, 70, 8);
        for (int k = 0; k < 20; ++k) {
            const double ySommet = auMillimetre(y + alea.entre(0.0, 2.0)), z = auMillimetre(alea.entre(200.0, 210.0));
            sommet(polyligne, "VOIRIE", "AcDb3dPolylineVertex", x + 2.5 * k, ySommet, z, 32);
        }
        m_dessin.sousEntite("SEQEND", polyligne, "VOIRIE", {});
    }
}

/// A polyface mesh of 3 by 3 squares; the second edge of each face is hidden (a negative index).
void DessinReleve::maillages()
{
    for (int i = 0; i < auMoinsUn(5000); ++i) {
        Alea alea(0x40000000u + static_cast<std::uint64_t>(i));
        const double x = xNoeud(5000 * i), y = yNoeud(5000 * i);
        const Poignee maillage = m_dessin.entite("POLYLINE", "TERRAIN", "AcDbPolyFaceMesh");
        m_sortie.tags(66, 1, 10, 0.0, 20, 0.0, 30, 0.0, 70, 64, 71, 16, 72, 9);
        for (int k = 0; k < 16; ++k) {
            sommet(maillage, "TERRAIN", "AcDbPolyFaceMeshVertex", x + pas * (k % 4), y + pas * (k / 4),
                   auMillimetre(alea.entre(200.0, 205.0)), 192);
        }
        for (int face = 0; face < 9; ++face) {
            const int coin = face / 3 * 4 + face % 3 + 1;
            m_dessin.sousEntite("VERTEX", maillage, "TERRAIN", {"AcDbFaceRecord"});
            m_sortie.tags(10, 0.0, 20, 0.0, 30, 0.0, 70, 128, 71, coin, 72, -(coin + 1), 73, coin + 5, 74, coin + 4);
        }
        m_dessin.sousEntite("SEQEND", maillage, "TERRAIN", {});
    }
}

void DessinReleve::maillageRectangulaire()
{
    const Poignee maillage = m_dessin.entite("POLYLINE", "TERRAIN", "AcDbPolygonMesh");
    m_sortie.tags(66, 1, 10, 0.0, 20, 0.0, 30, 0.0, 70, 16, 71, 3, 72, 4);
    for (int k = 0; k < 12; ++k) {
        sommet(maillage, "TERRAIN", "AcDbPolygonMeshVertex", xOrigine + pas * (k / 4), yOrigine + pas * (k % 4),
               200.0 + 0.125 * k, 64);
    }
    m_dessin.sousEntite("SEQEND", maillage, "TERRAIN", {});
}

void DessinReleve::entitesInconnues()
{
    const auto octets = [] {
        std::array<unsigned char, 64> o{};
        for (std::size_t i = 0; i < o.size(); ++i)
            o[i] = static_cast<unsigned char>(255 - 3 * i);
        return o;
    }();
    for (int i = 0; i < 3; ++i) {
        m_dessin.entite("VELAX_FOSSE", "VOIRIE", "VelaxDbFosse");
        m_sortie.tags(90, 2, 10, xNoeud(i), 20, yNoeud(i), 30, 201.5, 10, xNoeud(i) + 1.0, 20, yNoeud(i), 30, 201.25);
        m_sortie.tags(40, 0.33333333333333331, 1, "fossé enherbé", 340, m_terrain);
        m_sortie.tag(310, std::span<const unsigned char>(octets));
    }
}

void DessinReleve::objetsInconnus()
{
    m_sortie.tags(0, "VELAX_RESEAU", 5, m_terrain, 330, m_dessin.racine(), 100, "VelaxDbReseau", 90, 1);
    m_sortie.tags(1, "Eaux pluviales", 290, 1);
    for (int i = 0; i < std::min(m_nombre, 100); ++i)
        m_sortie.tags(330, poigneeSymbole(i), 40, 0.015625 * i);

    const Poignee photo = m_dessin.nouvelle();
    m_dessin.dictionnaire(m_dictionnaireSymbole, poigneeSymbole(0), {{"VELA_PHOTO", photo}}, true);
    m_sortie.tags(0, "XRECORD", 5, photo, 330, m_dictionnaireSymbole, 100, "AcDbXrecord", 280, 1);
    m_sortie.tags(1, "photos\\DSC_0001.JPG", 102, "{PRISE", 70, 3, 102, "}", 10, 1.0, 20, 2.0, 30, 3.0);
}

/// The project, item by item as the module keeps it: current table, number of tables, then each with its points.
void DessinReleve::projet()
{
    const Poignee enregistrement = m_dessin.nouvelle();
    m_dessin.dictionnaire(m_dessin.dictionnaireCalque0(), m_dessin.calque0(), {{"QUARVEL4_VELA_DATA", enregistrement}},
                          true);
    m_sortie.tags(0, "XRECORD", 5, enregistrement, 330, m_dessin.dictionnaireCalque0(), 100, "AcDbXrecord", 280, 1);
    const int tiers = m_nombre / 3;
    m_sortie.tags(90, 1, 90, 4, 300, "LEVE", 90, 0);
    m_sortie.tags(300, "Levé 2023", 90, tiers);
    for (int i = 0; i < tiers; ++i)
        pointDuProjet(point(i), poigneeSymbole(i));
    m_sortie.tags(300, "Complément été", 90, m_nombre - tiers);
    for (int i = tiers; i < m_nombre; ++i)
        pointDuProjet(point(i), poigneeSymbole(i));
    m_sortie.tags(300, "POLYGONALE", 90, 5);
    for (int i = 0; i < 5; ++i)
        pointDuProjet({xOrigine + 80.0 * i, yOrigine, 199.5, 0, "ST." + std::to_string(i)}, Poignee::aucune);
}

void DessinReleve::pointDuProjet(const pointReleve& p, Poignee symbole)
{
    std::array<unsigned char, octetsNom> nom{};
    std::copy(p.nom.begin(), p.nom.end(), nom.begin());
    m_sortie.tags(92, octetsNom, 310, std::span<const unsigned char>(nom), 90, codes[p.genre]);
    m_sortie.tags(40, p.x, 40, p.y, 40, p.z);
    if (symbole == Poignee::aucune)
        m_sortie.tag(90, -9999999);
    else
        m_sortie.tag(330, symbole);
}

} // namespace

void ecrireDessinReleve(const std::filesystem::path& fichier, const choixReleve& choix)
{
    if (choix.points < 1)
        throw std::invalid_argument("a survey drawing has at least 1 point");
    SortieDxf sortie(fichier, choix.forme, choix.version >= "AC1021");
    DessinReleve(sortie, choix).ecrire();
}

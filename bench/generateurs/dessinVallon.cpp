#include "generateurs/dessinVallon.h"

#include <cmath>
#include <vector>

#include "generateurs/Alea.h"
#include "generateurs/EcrivainDessin.h"
#include "generateurs/trace.h"

namespace {

constexpr double longueur = 300.0, largeur = 220.0;
constexpr lieu origine{1650000.0, 8180000.0};

struct point3d {
    lieu ou;
    double z;
};

/// The stream's y at an x: the valley bends.
double ruisseau(double x)
{
    return 105.0 + 22.0 * std::sin(x / 48.0);
}

/// The valley's ground at a distance from the stream, on either side; it falls towards the east, and a knoll stands in
/// the north.
double vallee(double x, double ecart)
{
    const double flanc = 15.0 * (1.0 - std::exp(-ecart * ecart / 2600.0));
    const double butte = 5.0 * std::exp(-(std::pow(x - 210.0, 2) + std::pow(ecart - 75.0, 2)) / 900.0);
    return 208.0 - 0.025 * x + 0.06 * std::abs(ecart) + flanc + butte;
}

// The path follows the stream on the south side; the wall stands on the north side.
constexpr double chemin = -46.0, demiChemin = 2.0, talus = 4.0;
constexpr double mur = 34.0, epaisseurMur = 0.2, hauteurMur = 2.2, debutMur = 60.0, finMur = 150.0;

class DessinVallon {
public:
    explicit DessinVallon(SortieDxf& sortie) : m_dessin(sortie, cadre()), m_sortie(sortie) {}

    void ecrire()
    {
        m_dessin.debut();
        lignes();
        semis();
        contours();
        m_dessin.objets({});
        m_dessin.fin();
    }

private:
    static CadreDessin cadre()
    {
        CadreDessin c;
        c.titre = "Vallon du Moulin";
        c.xMin = origine.x;
        c.yMin = origine.y;
        c.xMax = origine.x + longueur;
        c.yMax = origine.y + largeur;
        c.zMax = 240.0;
        c.calques = {{"SEMIS", 7}, {"RUISSEAU", 5},   {"CHEMIN", 30}, {"TALUS", 34},
                     {"MUR", 1},   {"MNT_LIMITE", 6}, {"MNT_TROU", 4}};
        return c;
    }

    void ligne3d(const char* calque, const std::vector<point3d>& points)
    {
        const Poignee ligne = m_dessin.entite("POLYLINE", calque, "AcDb3dPolyline");
        m_sortie.tags(66, 1, 10, 0.0, 20, 0.0, 30, 0.0, 70, 8);
        for (const point3d& p : points) {
            m_dessin.sousEntite("VERTEX", ligne, calque, {"AcDbVertex", "AcDb3dPolylineVertex"});
            ecrirePoint(p);
            m_sortie.tag(70, 32);
        }
        m_dessin.sousEntite("SEQEND", ligne, calque, {});
    }

    void ecrirePoint(const point3d& p)
    {
        m_sortie.tags(10, auMillimetre(origine.x + p.ou.x), 20, auMillimetre(origine.y + p.ou.y), 30,
                      auMillimetre(p.z));
    }

    /// A break line at a distance from the stream; `altitude` tells its height at an x.
    template <class Altitude>
    void longerRuisseau(const char* calque, double ecart, double debut, double fin, const Altitude& altitude)
    {
        constexpr double pas = 8.0;
        std::vector<point3d> points;
        for (double x = debut; x <= fin; x += pas)
            points.push_back({{x, ruisseau(x) + ecart}, altitude(x)});
        ligne3d(calque, points);
    }

    void lignes()
    {
        longerRuisseau("RUISSEAU", 0.0, 0.0, longueur, [](double x) { return vallee(x, 0.0) - 0.6; });
        for (const double cote : {-1.0, 1.0}) {
            longerRuisseau("CHEMIN", chemin + cote * demiChemin, 0.0, longueur,
                           [](double x) { return vallee(x, chemin); });
            const double bord = chemin + cote * (demiChemin + talus);
            longerRuisseau("TALUS", bord, 0.0, longueur, [bord](double x) { return vallee(x, bord); });
        }
        longerRuisseau("MUR", mur, debutMur, finMur, [](double x) { return vallee(x, mur); });
        longerRuisseau("MUR", mur + epaisseurMur, debutMur, finMur,
                       [](double x) { return vallee(x, mur) + hauteurMur; });
    }

    /// Whether a scattered point would stand where break lines tell the ground better.
    static bool occupe(double x, double ecart)
    {
        return std::abs(ecart) < 3.0 || std::abs(ecart - chemin) < demiChemin + talus + 1.5 ||
               (x > debutMur - 3.0 && x < finMur + 3.0 && std::abs(ecart - mur) < 3.0);
    }

    void semis()
    {
        for (double y = 6.0; y < largeur; y += 13.0)
            for (double x = 6.0; x < longueur; x += 13.0) {
                const lieu ou{x + m_alea.entre(-4.5, 4.5), y + m_alea.entre(-4.5, 4.5)};
                const double ecart = ou.y - ruisseau(ou.x);
                if (occupe(ou.x, ecart))
                    continue;
                // Behind the wall the ground was filled up; it comes down to the slope again within some ten metres.
                const bool derriere = ecart > mur && ou.x > debutMur && ou.x < finMur;
                const double remblai = derriere ? hauteurMur * std::exp(-(ecart - mur) / 12.0) : 0.0;
                m_dessin.entite("POINT", "SEMIS", "AcDbPoint");
                ecrirePoint({ou, vallee(ou.x, ecart) + remblai + m_alea.entre(-0.08, 0.08)});
            }
    }

    void contour(const char* calque, const std::vector<lieu>& sommets)
    {
        m_dessin.entite("LWPOLYLINE", calque, "AcDbPolyline");
        m_sortie.tags(90, static_cast<int>(sommets.size()), 70, 1, 43, 0.0);
        for (const lieu& p : sommets)
            m_sortie.tags(10, auMillimetre(origine.x + p.x), 20, auMillimetre(origine.y + p.y));
    }

    void contours()
    {
        contour("MNT_LIMITE", {{8, 10}, {150, 6}, {292, 14}, {290, 120}, {280, 208}, {120, 212}, {12, 204}, {6, 100}});
        std::vector<lieu> etang;
        for (int i = 0; i < 16; ++i) {
            const double a = i * 0.39269908169872414; // a sixteenth of a turn
            etang.push_back({255.0 + 14.0 * std::cos(a), 122.0 + 9.0 * std::sin(a)});
        }
        contour("MNT_TROU", etang);
    }

    EcrivainDessin m_dessin;
    SortieDxf& m_sortie;
    Alea m_alea{1850};
};

} // namespace

void ecrireDessinVallon(const std::filesystem::path& fichier)
{
    SortieDxf sortie(fichier, FormeDxf::texte, true);
    DessinVallon(sortie).ecrire();
}

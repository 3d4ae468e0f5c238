#include "calculs/reseau/figurePlane.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "calculs/reseau/loisStatistiques.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/nombreFixe.h"

namespace {

using place = figurePlane::place;

/// Names beyond that many hide the network.
constexpr std::size_t nomsAuPlus = 400;

/// Each pair of points that an observation in plan joins; the last word on a pair is that of a suspect.
template <class Place>
std::vector<figurePlane::cote> cotesDe(const reseau& r, const Place& placeDe, const resultatReseau* resultat)
{
    std::set<std::pair<int, int>> paires, suspectes;
    for (std::size_t k = 0; k < r.observations.size(); ++k) {
        const observationReseau& o = r.observations[k];
        for (const int vers : {o.vers, o.vers2})
            if (o.active && o.de >= 0 && vers >= 0 && estPlanimetrique(o.genre)) {
                const std::pair<int, int> paire = std::minmax({o.de, vers});
                paires.insert(paire);
                if (resultat && resultat->mesures[k].suspecte)
                    suspectes.insert(paire);
            }
    }
    std::vector<figurePlane::cote> cotes;
    for (const auto& [a, b] : paires) {
        place pa, pb;
        if (placeDe(a, pa) && placeDe(b, pb))
            cotes.push_back({pa, pb, suspectes.contains({a, b})});
    }
    return cotes;
}

/// 1, 2 or 5 times a power of ten, not above `valeur`.
double arrondiBas(double valeur)
{
    const double base = std::pow(10.0, std::floor(std::log10(valeur)));
    const double chiffre = valeur / base;
    return base * (chiffre >= 5.0 ? 5.0 : chiffre >= 2.0 ? 2.0 : 1.0);
}

/// The largest half axis becomes a fifth of a usual leg, at most.
double echelleChoisie(const figurePlane& f, double facteur, const resultatReseau& resultat)
{
    double plusGrande = 0.0;
    for (const pointCompense& p : resultat.points)
        if (p.planCherche)
            plusGrande = std::max(plusGrande, p.ellipse.a * facteur);
    if (!(plusGrande > 0.0) || f.cotes.empty())
        return 1.0;
    std::vector<double> longueurs;
    for (const figurePlane::cote& c : f.cotes)
        longueurs.push_back(std::hypot(c.vers.x - c.de.x, c.vers.y - c.de.y));
    return std::max(1.0, arrondiBas(0.2 * mediane(std::move(longueurs)) / plusGrande));
}

std::string pixels(double valeur)
{
    return nombreFixe(valeur, 1);
}

/// From the network to pixels, y down.
class page {
public:
    page(const figurePlane& f, int largeur) : m_largeur(largeur)
    {
        double xMax = -inconnu, yMax = -inconnu;
        m_x = m_y = inconnu;
        for (const figurePlane::point& p : f.points) {
            m_x = std::min(m_x, p.ou.x);
            m_y = std::min(m_y, p.ou.y);
            xMax = std::max(xMax, p.ou.x);
            yMax = std::max(yMax, p.ou.y);
        }
        const double cote = std::max({xMax - m_x, yMax - m_y, 1e-9});
        m_pas = (largeur - 2.0 * marge) / cote;
        m_hauteur = static_cast<int>((yMax - m_y) * m_pas + 2.0 * marge + 1.0);
    }
    double x(place p) const { return marge + (p.x - m_x) * m_pas; }
    double y(place p) const { return m_hauteur - marge - (p.y - m_y) * m_pas; }
    double longueur(double l) const { return l * m_pas; }
    int largeur() const { return m_largeur; }
    int hauteur() const { return m_hauteur; }

private:
    static constexpr double marge = 40.0;
    double m_x, m_y, m_pas = 1.0;
    int m_largeur, m_hauteur = 0;
};

std::string trait(const page& p, place de, place vers, const char* style)
{
    return "<line x1=\"" + pixels(p.x(de)) + "\" y1=\"" + pixels(p.y(de)) + "\" x2=\"" + pixels(p.x(vers)) +
           "\" y2=\"" + pixels(p.y(vers)) + "\" " + style + "/>\n";
}

std::string symbole(const page& p, const figurePlane::point& point)
{
    const double x = p.x(point.ou), y = p.y(point.ou);
    if (!point.connu)
        return "<circle cx=\"" + pixels(x) + "\" cy=\"" + pixels(y) + "\" r=\"3\" fill=\"" +
               (point.appui ? "#bbb" : "white") + "\" stroke=\"black\"/>\n";
    return "<polygon points=\"" + pixels(x - 5) + "," + pixels(y + 4) + " " + pixels(x + 5) + "," + pixels(y + 4) +
           " " + pixels(x) + "," + pixels(y - 6) + "\" fill=\"black\"/>\n";
}

} // namespace

bool estPlace(const pointCompense& p)
{
    return estConnue(p.x) && estConnue(p.y);
}

figurePlane figureDe(const reseau& r, const resultatReseau& resultat, double echelle, double confiance)
{
    figurePlane f;
    const auto placeDe = [&](int i, place& ou) {
        const pointCompense& p = resultat.points[static_cast<std::size_t>(i)];
        ou = {p.x, p.y};
        return estPlace(p);
    };
    f.cotes = cotesDe(r, placeDe, &resultat);
    const double facteur = confiance > 0.0 ? facteurEllipse(confiance, resultat.degresDeLiberte) : 1.0;
    f.echelle = echelle > 0.0 ? echelle : echelleChoisie(f, facteur, resultat);
    for (std::size_t i = 0; i < r.points.size(); ++i) {
        const pointCompense& p = resultat.points[i];
        if (!estPlace(p))
            continue;
        f.points.push_back({{p.x, p.y}, r.points[i].nom, !p.planCherche, r.points[i].plan == tenue::appui});
        if (!p.planCherche)
            continue;
        f.ellipses.push_back(
            {{p.x, p.y}, p.ellipse.a * facteur * f.echelle, p.ellipse.b * facteur * f.echelle, p.ellipse.gisement});
        // Where a place was given, how far it has moved.
        if (r.points[i].enPlan())
            f.vecteurs.push_back(
                {{p.x, p.y}, {p.x + (p.x - r.points[i].x) * f.echelle, p.y + (p.y - r.points[i].y) * f.echelle}});
    }
    return f;
}

figurePlane figureDe(const reseau& r)
{
    figurePlane f;
    const auto placeDe = [&](int i, place& ou) {
        const pointReseau& p = r.points[static_cast<std::size_t>(i)];
        ou = {p.x, p.y};
        return p.enPlan();
    };
    f.cotes = cotesDe(r, placeDe, nullptr);
    for (const pointReseau& p : r.points)
        if (p.enPlan())
            f.points.push_back({{p.x, p.y}, p.nom, p.plan == tenue::fixe, p.plan == tenue::appui});
    return f;
}

std::string svgDe(const figurePlane& f, int largeur)
{
    if (f.points.size() < 2)
        return {};
    const page p(f, largeur);
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(p.largeur()) +
                      "\" height=\"" + std::to_string(p.hauteur()) + "\" font-family=\"Arial\" font-size=\"11\">\n";
    for (const figurePlane::cote& c : f.cotes)
        svg += trait(p, c.de, c.vers, c.suspect ? "stroke=\"#d00000\" stroke-width=\"2\"" : "stroke=\"#a0b4c8\"");
    for (const figurePlane::ellipse& e : f.ellipses)
        svg += "<ellipse rx=\"" + pixels(p.longueur(e.b)) + "\" ry=\"" + pixels(p.longueur(e.a)) +
               "\" transform=\"translate(" + pixels(p.x(e.centre)) + " " + pixels(p.y(e.centre)) + ") rotate(" +
               pixels(e.gisement * 180.0 / pi) + ")\" fill=\"none\" stroke=\"#0070c0\"/>\n";
    for (const figurePlane::point& point : f.points)
        svg += symbole(p, point);
    for (std::size_t i = 0; i < f.points.size() && f.points.size() <= nomsAuPlus; ++i)
        svg += "<text x=\"" + pixels(p.x(f.points[i].ou) + 7.0) + "\" y=\"" + pixels(p.y(f.points[i].ou) - 6.0) +
               "\">" + htmlEscaped(versAnsi(f.points[i].nom)) + "</text>\n";
    return svg + "</svg>\n";
}

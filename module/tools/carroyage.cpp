#include "tools/carroyage.h"

#include <algorithm>
#include <limits>
#include <numbers>

#include "services/nombreFixe.h"

namespace {

/// The lines of the grid over a stretch, from the first multiple of the step at or below its start to the last at or
/// above its end.
class lignesDeGrille {
public:
    /// Intended: steps are added, not multiplied, as on plans already drawn; thousands of them drift by microns.
    lignesDeGrille(double pas, double debut, double fin)
    {
        const double derniere = std::ceil(fin / pas) * pas;
        for (double place = std::floor(debut / pas) * pas; place <= derniere; place += pas) {
            m_places.push_back(place);
            if (place + pas == place)
                break; // too far from 0 for steps so small
        }
        const double loin = std::max(std::abs(debut), std::abs(fin));
        const double derive = static_cast<double>(m_places.size()) * std::numeric_limits<double>::epsilon() * loin;
        m_precision = 1e-12 + 1e-14 * loin + derive;
    }
    const std::vector<double>& places() const { return m_places; }
    /// The first one at or above a coordinate.
    std::size_t premiereDepuis(double coordonnee) const
    {
        return static_cast<std::size_t>(std::ranges::lower_bound(m_places, coordonnee) - m_places.begin());
    }
    bool confondus(double a, double b) const { return std::abs(a - b) <= m_precision; }
    /// A coordinate that is as good as on a line, put there.
    double surLaGrille(double coordonnee) const
    {
        const std::size_t apres = premiereDepuis(coordonnee);
        for (const std::size_t i : {apres, apres - 1}) // 0 - 1 is out of range
            if (i < m_places.size() && confondus(m_places[i], coordonnee))
                return m_places[i];
        return coordonnee;
    }

private:
    std::vector<double> m_places;
    double m_precision = 0.0; ///< what is lost when a coordinate is computed
};

/// A piece of outline that rises or falls all along. Seen by the rows, "haut" is Y and "cote" is X; columns see it the
/// other way round.
struct brin {
    point2 de, a;       // cote, haut
    double rayon = 0.0; // 0: straight
    point2 centre;
    double versPlus = 0.0; // 1 or -1: the side of the centre that an arc bulges to

    double bas() const { return std::min(de.y, a.y); }
    double haut() const { return std::max(de.y, a.y); }
    double coteA(double h) const
    {
        if (h == de.y)
            return de.x;
        if (h == a.y)
            return a.x;
        if (rayon > 0.0)
            return centre.x + versPlus * std::sqrt(std::max(0.0, rayon * rayon - (h - centre.y) * (h - centre.y)));
        return de.x + (a.x - de.x) * ((h - de.y) / (a.y - de.y));
    }
};

/// The outline in pieces, which begin and end at the same coordinates as their neighbours.
class contourEnBrins {
public:
    contourEnBrins(const axe& contour, bool colonnes) : m_colonnes(colonnes)
    {
        const auto& elements = contour.elements();
        const std::size_t nombre = elements.size();
        for (std::size_t i = 0; i < nombre; ++i)
            ajouter(elements[i], sommet(elements[i].debut), sommet(elements[(i + 1) % nombre].debut));
    }
    const std::vector<brin>& brins() const { return m_brins; }
    /// Ends that are as good as on a line of the grid are put there.
    void poserSur(const lignesDeGrille& lignes)
    {
        for (brin& b : m_brins) {
            b.de.y = lignes.surLaGrille(b.de.y);
            b.a.y = lignes.surLaGrille(b.a.y);
        }
    }

private:
    point2 sommet(point2 p) const { return m_colonnes ? point2{p.y, p.x} : p; }
    void ajouter(const elementAxe& e, point2 de, point2 a)
    {
        if (!e.estArc()) {
            m_brins.push_back({de, a, 0.0, {}, 0.0});
            return;
        }
        // Cut where the arc is highest and lowest, at each half turn from there.
        const double rayon = 1.0 / std::abs(e.courbureDebut);
        const point2 milieu = e.debut - droiteDe(e.direction) * (1.0 / e.courbureDebut);
        const point2 centre = m_colonnes ? point2{milieu.y, milieu.x} : milieu;
        const point2 tangente = m_colonnes ? point2{e.direction.y, e.direction.x} : e.direction;
        const double sens = (e.courbureDebut > 0.0) == m_colonnes ? -1.0 : 1.0; // 1: to the left, as it is seen
        double angle = std::atan2(tangente.y, tangente.x) * sens;               // is 0 or pi where the tangent is level
        const double fin = angle + e.longueur / rayon;
        point2 debut = de;
        for (double niveau = std::floor(angle / std::numbers::pi + 1e-12) + 1.0;
             niveau * std::numbers::pi < fin - 1e-12; niveau += 1.0) {
            const bool pair = std::fmod(std::abs(niveau), 2.0) < 0.5;
            // Turning left it runs towards +cote at its lowest place.
            const point2 extreme{centre.x, centre.y + (pair == (sens > 0.0) ? -rayon : rayon)};
            ajouterArc(debut, extreme, rayon, centre, sens);
            debut = extreme;
        }
        ajouterArc(debut, a, rayon, centre, sens);
    }
    /// A circle that turns to the left rises on its right side.
    void ajouterArc(point2 de, point2 a, double rayon, point2 centre, double sens)
    {
        m_brins.push_back({de, a, rayon, centre, a.y > de.y ? sens : -sens});
    }

    std::vector<brin> m_brins;
    bool m_colonnes;
};

/// Where one row meets the outline, just below and just above it: the two differ where a border runs along the row.
struct croisements {
    std::vector<double> dessous, dessus;
};

std::vector<croisements> croiser(const std::vector<brin>& brins, const lignesDeGrille& lignes)
{
    const std::vector<double>& places = lignes.places();
    std::vector<croisements> trouves(places.size());
    for (const brin& b : brins)
        for (std::size_t i = lignes.premiereDepuis(b.bas()); i < places.size() && places[i] <= b.haut(); ++i) {
            const double h = places[i], cote = b.coteA(h);
            if (h < b.haut())
                trouves[i].dessus.push_back(cote);
            if (h > b.bas())
                trouves[i].dessous.push_back(cote);
        }
    for (croisements& c : trouves) {
        std::sort(c.dessous.begin(), c.dessous.end());
        std::sort(c.dessus.begin(), c.dessus.end());
    }
    return trouves;
}

struct intervalle {
    double de, a;
};

/// The stretches of a row that are inside on both its sides.
std::vector<intervalle> interieurs(const croisements& c)
{
    std::vector<intervalle> dedans;
    for (std::size_t i = 0, j = 0; i + 1 < c.dessous.size() && j + 1 < c.dessus.size();) {
        const double de = std::max(c.dessous[i], c.dessus[j]), a = std::min(c.dessous[i + 1], c.dessus[j + 1]);
        if (de < a)
            dedans.push_back({de, a});
        (c.dessous[i + 1] < c.dessus[j + 1] ? i : j) += 2;
    }
    return dedans;
}

/// The outermost borders of a row.
intervalle bordsDe(const croisements& c)
{
    return {std::min(c.dessous.front(), c.dessus.front()), std::max(c.dessous.back(), c.dessus.back())};
}

class traceur {
public:
    traceur(const axe& contour, const parametresCarroyage& parametres) : m_contour(contour), m_p(parametres) {}

    dessinCarroyage dessiner()
    {
        tracerRangees();
        tracerColonnes();
        return std::move(m_dessin);
    }

private:
    template <typename Tracer>
    void surLignes(double pas, bool colonnes, Tracer&& tracer)
    {
        contourEnBrins contour(m_contour, colonnes);
        if (contour.brins().empty())
            return;
        double bas = std::numeric_limits<double>::infinity(), haut = -bas;
        for (const brin& b : contour.brins()) {
            bas = std::min(bas, b.bas());
            haut = std::max(haut, b.haut());
        }
        const lignesDeGrille lignes(pas, bas, haut);
        contour.poserSur(lignes);
        const std::vector<croisements> trouves = croiser(contour.brins(), lignes);
        for (std::size_t i = 0; i < trouves.size(); ++i)
            if (const std::vector<intervalle> dedans = interieurs(trouves[i]); !dedans.empty())
                tracer(lignes.places()[i], dedans, bordsDe(trouves[i]));
    }
    void tracerRangees()
    {
        surLignes(m_p.pasY, false, [&](double y, const std::vector<intervalle>& dedans, const intervalle& bords) {
            for (const intervalle& i : dedans)
                tracerCroix(y, i);
            ecrireRangee(y, bords.de, bords.a);
        });
    }
    void tracerColonnes()
    {
        surLignes(m_p.pasX, true, [&](double x, const std::vector<intervalle>&, const intervalle& bords) {
            ecrireColonne(x, bords.de, bords.a);
        });
    }
    void tracerCroix(double y, const intervalle& dedans)
    {
        const double demi = m_p.tailleCroix / 2.0;
        const lignesDeGrille noeuds(m_p.pasX, dedans.de, dedans.a);
        for (const double x : noeuds.places()) {
            if (x <= dedans.de || x >= dedans.a || noeuds.confondus(x, dedans.de) || noeuds.confondus(x, dedans.a))
                continue; // on the border
            trait({x - demi, y}, {x + demi, y});
            trait({x, y - demi}, {x, y + demi});
        }
    }
    void ecrireRangee(double y, double debut, double fin)
    {
        const double c = m_p.tailleCroix, bas = y - m_p.tailleTextes / 2.0;
        const std::string contenu = nombreFixe(y, m_p.decimales);
        if (m_p.ecrituresInternes) {
            trait({debut, y}, {debut + c / 2.0, y});
            texte({debut + c, bas}, 0.0, false, contenu);
            trait({fin, y}, {fin - c / 2.0, y});
            // Intended: half as far as the three others. Plans already drawn have it so.
            texte({fin - c / 2.0, bas}, 0.0, true, contenu);
        } else {
            trait({debut, y}, {debut - c / 2.0, y});
            texte({debut - c, bas}, 0.0, true, contenu);
            trait({fin, y}, {fin + c / 2.0, y});
            texte({fin + c, bas}, 0.0, false, contenu);
        }
    }
    void ecrireColonne(double x, double debut, double fin)
    {
        const double c = m_p.tailleCroix, pied = x + m_p.tailleTextes / 2.0;
        const std::string contenu = nombreFixe(x, m_p.decimales);
        constexpr double debout = std::numbers::pi / 2.0;
        if (m_p.ecrituresInternes) {
            trait({x, debut + c / 2.0}, {x, debut});
            texte({pied, debut + c}, debout, false, contenu);
            trait({x, fin - c / 2.0}, {x, fin});
            texte({pied, fin - c}, debout, true, contenu);
        } else {
            trait({x, debut - c / 2.0}, {x, debut});
            texte({pied, debut - c}, debout, true, contenu);
            trait({x, fin + c / 2.0}, {x, fin});
            texte({pied, fin + c}, debout, false, contenu);
        }
    }
    void trait(point2 de, point2 a) { m_dessin.traits.push_back({de, a}); }
    void texte(point2 place, double rotation, bool aDroite, const std::string& contenu)
    {
        m_dessin.textes.push_back({place, rotation, aDroite, contenu});
    }

    const axe& m_contour;
    const parametresCarroyage& m_p;
    dessinCarroyage m_dessin;
};

} // namespace

double noeudsDuCarroyage(const axe& contour, const parametresCarroyage& parametres)
{
    boite etendue;
    for (const elementAxe& e : contour.elements()) {
        etendue.ajouter(boite::de(e.debut, e.pointA(e.longueur)));
        etendue.ajouter(boite::de(e.pointA(e.longueur / 3.0), e.pointA(e.longueur * 2.0 / 3.0)));
    }
    if (etendue.vide())
        return 0.0;
    const double rangees = (etendue.yMax - etendue.yMin) / parametres.pasY + 2.0;
    const double colonnes = (etendue.xMax - etendue.xMin) / parametres.pasX + 2.0;
    return rangees * colonnes;
}

dessinCarroyage carroyage(const axe& contour, const parametresCarroyage& parametres)
{
    return traceur(contour, parametres).dessiner();
}

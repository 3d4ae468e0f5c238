#include "geometrie/axe.h"

namespace {

constexpr double angleDuMorceau = 0.4; // radians

/// Turned in all: clothoids may turn back.
double angleTourne(const elementAxe& e)
{
    return std::max(std::abs(e.courbureDebut), std::abs(e.courbureFin)) * e.longueur;
}

boite boiteDu(const elementAxe& e, double de, double a)
{
    const double courbure = std::max(std::abs(e.courbureA(de)), std::abs(e.courbureA(a)));
    return boite::de(e.pointA(de), e.pointA(a)).elargie(courbure * (a - de) * (a - de) / 8.0);
}

/// How far the foot of `p` is ahead, along the tangent at `s`.
double avance(const elementAxe& e, double s, point2 p)
{
    return scalaire(p - e.pointA(s), e.directionA(s));
}

/// The place between `de` and `a` where the foot is neither ahead nor behind; it is ahead at `de`, behind at `a`.
double piedEntre(const elementAxe& e, double de, double a, point2 p)
{
    double s = (de + a) / 2.0;
    for (int essai = 0; essai < 100 && a - de > 1e-13 * (1.0 + std::abs(a)); ++essai) {
        const double f = avance(e, s, p);
        (f > 0.0 ? de : a) = s;
        // The derivative of `f` by s; a step that leaves the bracket is replaced by halving it.
        const point2 t = e.directionA(s);
        const double pente = -1.0 - e.courbureA(s) * scalaire(p - e.pointA(s), droiteDe(t));
        const double suivant = s - f / pente;
        if (suivant == s)
            break;
        s = suivant > de && suivant < a ? suivant : (de + a) / 2.0;
    }
    return s;
}

double piedDroit(const elementAxe& e, double de, double a, point2 p)
{
    return std::clamp(scalaire(p - e.debut, e.direction), de, a);
}

double piedCourbe(const elementAxe& e, double de, double a, point2 p)
{
    constexpr int parts = 4; // near its centre of curvature a point may have several feet
    double meilleur = de, carre = carreDistance(p, e.pointA(de));
    const auto essayer = [&](double s) {
        if (const double d = carreDistance(p, e.pointA(s)); d < carre) {
            carre = d;
            meilleur = s;
        }
    };
    double avant = de, fAvant = avance(e, de, p);
    for (int i = 1; i <= parts; ++i) {
        const double s = i < parts ? de + (a - de) * i / parts : a;
        const double f = avance(e, s, p);
        if (fAvant > 0.0 && f < 0.0)
            essayer(piedEntre(e, avant, s, p));
        else
            essayer(s);
        avant = s;
        fAvant = f;
    }
    return meilleur;
}

} // namespace

axe::axe(std::vector<elementAxe> elements, bool ferme) : m_ferme(ferme)
{
    double longueur = 0.0;
    std::vector<boite> boites;
    for (elementAxe& e : elements) {
        if (!(e.longueur > 0.0) || !std::isfinite(e.longueur))
            continue;
        const double parts = std::clamp(std::ceil(angleTourne(e) / angleDuMorceau), 1.0, 1e5);
        for (double i = 0.0; i < parts; i += 1.0) {
            const morceau m{m_elements.size(), e.longueur * i / parts, e.longueur * (i + 1.0) / parts};
            m_morceaux.push_back(m);
            boites.push_back(boiteDu(e, m.de, m.a));
        }
        m_debuts.push_back(longueur);
        longueur += e.longueur;
        m_elements.push_back(e);
    }
    m_debuts.push_back(longueur);
    m_arbre = arbreBoites(boites);
}

axe axe::deSommets(std::span<const sommetAxe> sommets, bool ferme)
{
    std::vector<elementAxe> elements;
    for (std::size_t i = 0; i < sommets.size(); ++i)
        if (i + 1 < sommets.size() || ferme)
            elements.push_back(
                elementAxe::arc(sommets[i].place, sommets[(i + 1) % sommets.size()].place, sommets[i].bombement));
    return axe(std::move(elements), ferme);
}

std::size_t axe::elementA(double longueur) const
{
    const auto apres = std::upper_bound(m_debuts.begin() + 1, m_debuts.end() - 1, longueur);
    return static_cast<std::size_t>(apres - m_debuts.begin()) - 1;
}

point2 axe::pointA(double longueur) const
{
    const std::size_t i = elementA(longueur);
    const elementAxe& e = m_elements[i];
    const double s = longueur - m_debuts[i];
    const double dedans = std::clamp(s, 0.0, e.longueur);
    const point2 p = e.pointA(dedans);
    return s == dedans ? p : p + e.directionA(dedans) * (s - dedans);
}

point2 axe::directionA(double longueur) const
{
    const std::size_t i = elementA(longueur);
    return m_elements[i].directionA(std::clamp(longueur - m_debuts[i], 0.0, m_elements[i].longueur));
}

double axe::altitudeA(double longueur) const
{
    const std::size_t i = elementA(longueur);
    return m_elements[i].altitudeA(std::clamp(longueur - m_debuts[i], 0.0, m_elements[i].longueur));
}

point3 axe::decale(double longueur, double decalage) const
{
    const point2 p = pointA(longueur) + droiteDe(directionA(longueur)) * decalage;
    return {p.x, p.y, altitudeA(longueur)};
}

double axe::plusProche(const morceau& m, point2 p) const
{
    const elementAxe& e = m_elements[m.element];
    return e.estDroit() ? piedDroit(e, m.de, m.a, p) : piedCourbe(e, m.de, m.a, p);
}

axe::projection axe::projectionSur(const morceau& m, point2 p) const
{
    const elementAxe& e = m_elements[m.element];
    const double s = plusProche(m, p);
    const bool premier = m.element == 0, dernier = m.element + 1 == m_elements.size();
    const bool auDebut = s <= 0.0, alaFin = s >= e.longueur;
    point2 direction = e.directionA(s);
    if (auDebut && (!premier || m_ferme)) {
        const elementAxe& avant = m_elements[premier ? m_elements.size() - 1 : m.element - 1];
        direction = direction + avant.directionA(avant.longueur);
    } else if (alaFin && (!dernier || m_ferme)) {
        direction = direction + m_elements[dernier ? 0 : m.element + 1].direction;
    }
    const double n = norme(direction); // 0 where the axis turns back on itself
    direction = n > 1e-9 ? direction * (1.0 / n) : e.directionA(s);

    projection resultat;
    resultat.element = m.element;
    resultat.longueur = m_debuts[m.element] + s;
    const point2 pied = e.pointA(s);
    resultat.pied = {pied.x, pied.y, e.altitudeA(s)};
    resultat.direction = direction;
    resultat.distance = norme(p - pied);
    const bool bout = !m_ferme && ((auDebut && premier) || (alaFin && dernier));
    const double ecart = vectoriel(p - pied, direction);
    // At a vertex the axis is as far as the vertex, whatever the tangent.
    resultat.decalage = bout || resultat.distance == 0.0 ? ecart : std::copysign(resultat.distance, ecart);
    resultat.auDela = bout && std::abs(scalaire(p - pied, direction)) > 1e-9 * (1.0 + resultat.distance);
    return resultat;
}

axe::projection axe::projeter(point2 p) const
{
    return *projeter(p, std::numeric_limits<double>::infinity());
}

std::optional<axe::projection> axe::projeter(point2 p, double limite) const
{
    const auto carre = [&](std::size_t i) {
        const morceau& m = m_morceaux[i];
        return carreDistance(p, m_elements[m.element].pointA(plusProche(m, p)));
    };
    const arbreBoites::voisin voisin = m_arbre.plusProche(p, carre, limite * limite);
    return voisin ? std::optional(projectionSur(m_morceaux[voisin.item], p)) : std::nullopt;
}

std::vector<point3> polyligneDe(const axe& a, double fleche)
{
    std::vector<point3> sommets;
    if (a.vide())
        return sommets;
    for (std::size_t i = 0; i < a.elements().size(); ++i) {
        const elementAxe& e = a.elements()[i];
        const double cordes = nombreCordes(e, fleche);
        for (double k = i == 0 ? 0.0 : 1.0; k <= cordes; k += 1.0) {
            const double s = e.longueur * (k / cordes);
            const point2 p = e.pointA(s);
            sommets.push_back({p.x, p.y, e.altitudeA(s)});
        }
    }
    return sommets;
}

std::vector<double> axe::jalons(double pas) const
{
    std::vector<double> abscisses;
    const double fin = longueur();
    for (double i = 0.0; i * pas < fin - 1e-9 * (1.0 + fin); i += 1.0)
        abscisses.push_back(i * pas);
    abscisses.push_back(fin);
    return abscisses;
}

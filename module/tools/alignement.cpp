#include "tools/alignement.h"

#include <cmath>
#include <numbers>

#include "geometrie/clothoide.h"
#include "services/formatNombres.h"

namespace {

constexpr double rienDeLong = 1e-9;

/// What a curve takes of the tangents before and after its corner.
struct raccord {
    double avant = 0.0, apres = 0.0;
    double deviation = 0.0; ///< radians, positive to the left
    double longueurArc = 0.0;
};

std::wstring sommetNumero(std::size_t i)
{
    return L"Sommet " + std::to_wstring(i + 1) + L" : ";
}

elementsClothoide clothoideOuRien(double rayon, double longueur)
{
    if (longueur > 0.0)
        return clothoideDe(rayon, longueur);
    elementsClothoide rien;
    rien.R = rayon;
    return rien;
}

/// The circle is shifted away from both tangents, by as much as each clothoid asks; tangents follow from the triangle
/// of their distances to its centre.
std::variant<raccord, std::wstring> raccorder(const sommetAlignement& s, double deviation, std::size_t i)
{
    raccord r;
    r.deviation = deviation;
    const double angle = std::abs(deviation);
    if (s.rayon == 0.0 || angle < 1e-12)
        return r;
    const elementsClothoide entree = clothoideOuRien(s.rayon, s.entree), sortie = clothoideOuRien(s.rayon, s.sortie);
    const double reste = angle - entree.tau - sortie.tau;
    if (reste < -1e-12)
        return sommetNumero(i) + L"les clothoïdes tournent plus que l'angle des alignements.";
    const double de = s.rayon + entree.deltaR, a = s.rayon + sortie.deltaR;
    r.avant = entree.Xm + (a - de * std::cos(angle)) / std::sin(angle);
    r.apres = sortie.Xm + (de - a * std::cos(angle)) / std::sin(angle);
    r.longueurArc = s.rayon * std::max(reste, 0.0);
    return r;
}

/// Puts elements one after the other.
class pose {
public:
    pose(point2 place, point2 direction) : m_place(place), m_direction(direction) {}

    void ajouter(double longueur, double courbureDebut, double courbureFin)
    {
        if (!(longueur > rienDeLong))
            return;
        elementAxe e;
        e.debut = m_place;
        e.direction = m_direction;
        e.longueur = longueur;
        e.courbureDebut = courbureDebut;
        e.courbureFin = courbureFin;
        m_place = e.pointA(longueur);
        m_direction = e.directionA(longueur);
        m_elements.push_back(e);
    }
    /// The tangents are known exactly: errors of curves do not add up.
    void reprendre(point2 place, point2 direction)
    {
        m_place = place;
        m_direction = direction;
    }
    std::vector<elementAxe> elements() const { return m_elements; }

private:
    point2 m_place, m_direction;
    std::vector<elementAxe> m_elements;
};

std::wstring refus(std::span<const sommetAlignement> sommets, std::span<const point2> directions,
                   std::span<const double> longueurs)
{
    for (std::size_t i = 0; i < longueurs.size(); ++i) {
        if (!(longueurs[i] > rienDeLong))
            return sommetNumero(i + 1) + L"il est au même endroit que le précédent.";
        if (!std::isfinite(longueurs[i]))
            return sommetNumero(i + 1) + L"il est trop loin du précédent.";
    }
    for (std::size_t i = 1; i + 1 < sommets.size(); ++i) {
        const bool retour = scalaire(directions[i - 1], directions[i]) < 0.0 &&
                            std::abs(vectoriel(directions[i - 1], directions[i])) < 1e-9;
        if (retour)
            return sommetNumero(i) + L"l'alignement revient sur lui-même.";
        const sommetAlignement& s = sommets[i];
        if (s.rayon < 0.0 || s.entree < 0.0 || s.sortie < 0.0)
            return sommetNumero(i) + L"un rayon ou une longueur est négatif.";
        if (s.rayon == 0.0 && (s.entree > 0.0 || s.sortie > 0.0))
            return sommetNumero(i) + L"des clothoïdes demandent un rayon.";
    }
    return {};
}

/// The elements of one corner: an arc, the clothoids before and after it; at least one of the three.
struct virage {
    double rayon = 0.0, entree = 0.0, sortie = 0.0;
    double angle = 0.0; ///< turned in all
    std::size_t elements = 0;
};

virage virageDe(std::span<const elementAxe> suite)
{
    virage v;
    double courbure = 0.0;
    const auto prendre = [&] { // the next element; @return its length
        const elementAxe& e = suite[v.elements++];
        v.angle += std::abs(e.courbureDebut + e.courbureFin) / 2.0 * e.longueur;
        return e.longueur;
    };
    const auto suit = [&] { // in the same curve
        if (v.elements == suite.size())
            return false;
        const double sienne = suite[v.elements].courbureDebut;
        return v.elements == 0 || std::abs(sienne - courbure) < 1e-9 * std::abs(courbure);
    };
    if (const elementAxe& e = suite.front(); e.courbureDebut == 0.0) {
        courbure = e.courbureFin;
        v.entree = prendre();
    } else {
        courbure = e.courbureDebut;
    }
    if (suit() && suite[v.elements].estArc())
        prendre();
    if (suit() && suite[v.elements].courbureFin == 0.0)
        v.sortie = prendre();
    v.rayon = 1.0 / std::abs(courbure);
    return v;
}

/// Where the tangents at two places of a curve cross; it turns less than half a turn between them.
point2 croisementTangentes(const elementAxe& e, double de, const elementAxe& f, double a)
{
    const point2 p = e.pointA(de), u = e.directionA(de), v = f.directionA(a);
    return p + u * (vectoriel(f.pointA(a) - p, v) / vectoriel(u, v));
}

bool tangents(const elementAxe& e, const elementAxe& suivant)
{
    const point2 u = e.directionA(e.longueur);
    return std::abs(vectoriel(u, suivant.direction)) < 1e-7 && scalaire(u, suivant.direction) > 0.0;
}

} // namespace

std::variant<axe, std::wstring> tracerAlignement(std::span<const sommetAlignement> sommets)
{
    if (sommets.size() < 2)
        return std::wstring(L"Il faut au moins deux sommets.");
    std::vector<point2> directions;
    std::vector<double> longueurs;
    for (std::size_t i = 0; i + 1 < sommets.size(); ++i) {
        const point2 d = sommets[i + 1].place - sommets[i].place;
        longueurs.push_back(norme(d));
        directions.push_back(longueurs.back() > 0.0 ? d * (1.0 / longueurs.back()) : d);
    }
    if (std::wstring raison = refus(sommets, directions, longueurs); !raison.empty())
        return raison;
    std::vector<raccord> raccords(sommets.size());
    for (std::size_t i = 1; i + 1 < sommets.size(); ++i) {
        const double deviation =
            std::atan2(vectoriel(directions[i - 1], directions[i]), scalaire(directions[i - 1], directions[i]));
        auto fait = raccorder(sommets[i], deviation, i);
        if (auto* const raison = std::get_if<std::wstring>(&fait))
            return *raison;
        raccords[i] = std::get<raccord>(fait);
    }
    pose suite(sommets[0].place, directions[0]);
    for (std::size_t i = 0; i + 1 < sommets.size(); ++i) {
        const double droite = longueurs[i] - raccords[i].apres - raccords[i + 1].avant;
        if (droite < -1e-6)
            return sommetNumero(i + 1) + L"les courbes ne tiennent pas entre ce sommet et le précédent : il manque " +
                   formaterFixe(-droite, 3) + L".";
        suite.reprendre(sommets[i].place + directions[i] * raccords[i].apres, directions[i]);
        suite.ajouter(droite, 0.0, 0.0);
        const sommetAlignement& s = sommets[i + 1];
        if (raccords[i + 1].longueurArc == 0.0 && raccords[i + 1].avant == 0.0)
            continue;
        const double courbure = std::copysign(1.0 / s.rayon, raccords[i + 1].deviation);
        suite.ajouter(s.entree, 0.0, courbure);
        suite.ajouter(raccords[i + 1].longueurArc, courbure, courbure);
        suite.ajouter(s.sortie, courbure, 0.0);
    }
    return axe(suite.elements());
}

std::variant<std::vector<sommetAlignement>, std::wstring> sommetsDeLAxe(const axe& ligne)
{
    constexpr double deviationMax = 0.9 * std::numbers::pi; // of a part of an arc: beyond, tangents cross far away
    const std::span<const elementAxe> elements = ligne.elements();
    std::vector<sommetAlignement> sommets;
    for (std::size_t i = 0; i < elements.size();) {
        const elementAxe& e = elements[i];
        if (i == 0 || (e.estDroit() && elements[i - 1].estDroit()) || !tangents(elements[i - 1], e))
            sommets.push_back({e.debut});
        if (e.estDroit()) {
            ++i;
            continue;
        }
        const virage v = virageDe(elements.subspan(i));
        const bool arcSeul = v.entree == 0.0 && v.sortie == 0.0;
        if (v.elements == 0 || (!arcSeul && v.angle > std::numbers::pi - 1e-6)) // a half-turn has no corner
            return L"Le virage de l'élément " + std::to_wstring(i + 1) +
                   L" n'a pas de sommet : ce n'est pas un arc entre deux clothoïdes, ou il fait un demi-tour.";
        const double parts = arcSeul ? std::ceil(v.angle / deviationMax) : 1.0;
        const elementAxe& dernier = elements[i + v.elements - 1];
        for (double k = 0.0; k < parts; k += 1.0) {
            const double de = e.longueur * k / parts, a = dernier.longueur * (k + 1.0) / parts;
            sommets.push_back({croisementTangentes(e, de, dernier, a), v.rayon, v.entree, v.sortie});
        }
        i += v.elements;
    }
    if (!ligne.vide())
        sommets.push_back({ligne.pointA(ligne.longueur())});
    return sommets;
}

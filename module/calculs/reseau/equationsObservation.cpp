#include "calculs/reseau/equationsObservation.h"

#include <cmath>

namespace {

/// One sight: differences of coordinates, from instrument to target.
struct visee {
    int de, vers;
    double dx, dy, dz;
    double plan;   ///< horizontal length
    double espace; ///< slope length
};

visee viseeDe(const observationReseau& o, int vers, const coordonneesReseau& c)
{
    const auto a = static_cast<std::size_t>(o.de), b = static_cast<std::size_t>(vers);
    visee v{o.de, vers, c.x[b] - c.x[a], c.y[b] - c.y[a], 0.0, 0.0, 0.0};
    v.dz = c.z[b] + o.hauteurVers - c.z[a] - o.hauteurDe;
    v.plan = std::hypot(v.dx, v.dy);
    v.espace = std::hypot(v.plan, v.dz);
    return v;
}

void ajouter(equationObservation& e, int rang, double derivee)
{
    for (int i = 0; i < e.nombre; ++i)
        if (e.rang[i] == rang) {
            e.derivee[i] += derivee;
            return;
        }
    e.rang[e.nombre] = rang;
    e.derivee[e.nombre++] = derivee;
}

/// The derivatives by the target's coordinates; those by the station's are opposite.
void ajouterVisee(equationObservation& e, const visee& v, double parX, double parY, double parZ, bool altitude)
{
    const double parties[] = {parX, parY, parZ};
    for (int axe = 0; axe < (altitude ? 3 : 2); ++axe) {
        ajouter(e, 3 * v.vers + axe, parties[axe]);
        ajouter(e, 3 * v.de + axe, -parties[axe]);
    }
}

/// Adds `signe` times the bearing of a sight.
void ajouterGisement(equationObservation& e, const visee& v, double signe)
{
    const double carre = v.plan * v.plan;
    e.possible &= carre > 0.0;
    if (!e.possible)
        return;
    ajouterVisee(e, v, signe * v.dy / carre, -signe * v.dx / carre, 0.0, false);
    e.calcul += signe * std::atan2(v.dx, v.dy);
}

void equationDistance(equationObservation& e, const visee& v)
{
    e.possible = v.plan > 0.0;
    e.calcul = v.plan;
    if (e.possible)
        ajouterVisee(e, v, v.dx / v.plan, v.dy / v.plan, 0.0, false);
}

void equationInclinee(equationObservation& e, const visee& v)
{
    e.possible = v.espace > 0.0;
    e.calcul = v.espace;
    if (e.possible)
        ajouterVisee(e, v, v.dx / v.espace, v.dy / v.espace, v.dz / v.espace, true);
}

void equationZenithale(equationObservation& e, const visee& v)
{
    e.possible = v.plan > 0.0;
    e.calcul = std::atan2(v.plan, v.dz);
    if (!e.possible)
        return;
    const double carre = v.espace * v.espace, parPlan = v.dz / carre / v.plan;
    ajouterVisee(e, v, parPlan * v.dx, parPlan * v.dy, -v.plan / carre, true);
}

void equationCoordonnee(equationObservation& e, int point, int axe, double valeur)
{
    e.calcul = valeur;
    ajouter(e, 3 * point + axe, 1.0);
}

} // namespace

equationObservation equationDe(const observationReseau& o, const coordonneesReseau& c)
{
    using enum genreObservation;
    equationObservation e;
    const auto de = static_cast<std::size_t>(o.de);
    switch (o.genre) {
    case direction:
        ajouterGisement(e, viseeDe(o, o.vers, c), 1.0);
        ajouter(e, static_cast<int>(3 * c.x.size()) + o.serie, -1.0);
        e.calcul -= c.orientations[static_cast<std::size_t>(o.serie)];
        break;
    case angle:
        ajouterGisement(e, viseeDe(o, o.vers2, c), 1.0);
        ajouterGisement(e, viseeDe(o, o.vers, c), -1.0);
        break;
    case gisement:
        ajouterGisement(e, viseeDe(o, o.vers, c), 1.0);
        break;
    case distance:
        equationDistance(e, viseeDe(o, o.vers, c));
        break;
    case distanceInclinee:
        equationInclinee(e, viseeDe(o, o.vers, c));
        break;
    case zenithal:
        equationZenithale(e, viseeDe(o, o.vers, c));
        break;
    case denivelee:
        e.calcul = c.z[static_cast<std::size_t>(o.vers)] - c.z[de];
        ajouter(e, 3 * o.vers + 2, 1.0);
        ajouter(e, 3 * o.de + 2, -1.0);
        break;
    case coordonneeX:
        equationCoordonnee(e, o.de, 0, c.x[de]);
        break;
    case coordonneeY:
        equationCoordonnee(e, o.de, 1, c.y[de]);
        break;
    case coordonneeZ:
        equationCoordonnee(e, o.de, 2, c.z[de]);
        break;
    }
    e.ecart = estAngulaire(o.genre) ? ecartAngulaire(o.mesure - e.calcul) : o.mesure - e.calcul;
    return e;
}

#include "calculs/hypothesesAngulaires.h"

#include <algorithm>
#include <cmath>

#include "calculs/fermeturePolygonale.h"
#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"

namespace {

/// Angles are as our rule wants them. Bearings close but for half turns, their error shared.
struct parcours {
    bool ferme = false;       ///< in angle, but for half turns
    bool impair = false;      ///< whether those are odd in number
    std::vector<double> x, y; ///< reached before each leg and after the last, from the departure

    /// Closure against (dx, dy) when the legs from `cote` on are turned by half a turn.
    double fermeture(std::size_t cote, double dx, double dy) const
    {
        return std::hypot(2.0 * x[cote] - x.back() - dx, 2.0 * y[cote] - y.back() - dy);
    }
};

/// What is left of an angular error without its half turns.
struct erreurReduite {
    double reste;
    bool impair;
};

erreurReduite sansDemiTours(double erreur, double tour)
{
    const double demis = std::round(2.0 * erreur / tour);
    return {erreur - demis * tour / 2.0, std::fmod(std::abs(demis), 2.0) == 1.0};
}

/// Lays the legs out on bearings that take a share of the error each: `part` once, twice, ...
void tracer(parcours& p, const cheminement& c, const std::vector<double>& gisements, double part, std::size_t premiere)
{
    const double k = facteurRadians(c.unite);
    p.x = p.y = {0.0};
    for (std::size_t i = 0; i < c.cotes.size(); ++i) {
        const double g = k * (gisements[i] + static_cast<double>(i + premiere) * part);
        p.x.push_back(p.x.back() + c.cotes[i].observation.distance * std::sin(g));
        p.y.push_back(p.y.back() + c.cotes[i].observation.distance * std::cos(g));
    }
}

parcours parcourir(const resultatPolygonaleOuverte& r, regleAngles regle)
{
    const double tour = tourComplet(r.unite);
    const std::size_t angles = r.cotes.size() + 1;
    std::vector<double> gisements;
    double g = r.depart.gisement;
    for (std::size_t i = 0; i < angles; ++i) {
        const double angle = i < r.cotes.size() ? r.cotes[i].observation.angle : r.dernierAngle;
        g = normaliser(g + angleHoraire(angle, regle, tour) + tour / 2.0, tour);
        gisements.push_back(g);
    }
    const auto [reste, impair] = sansDemiTours(g - r.arrivee.gisement, tour);
    parcours p;
    p.impair = impair;
    p.ferme = std::abs(reste) <= ecartAngulaireAdmis(r.unite, angles);
    if (p.ferme)
        tracer(p, r, gisements, -reste / static_cast<double>(angles), 1);
    return p;
}

/// The first angle turns no leg: it enters only the closure.
parcours parcourir(const resultatPolygonaleFermee& r, regleAngles regle)
{
    const double tour = tourComplet(r.unite);
    const std::size_t n = r.cotes.size();
    std::vector<double> gisements;
    double g = r.depart.gisement, erreur = -(static_cast<double>(n) - 2.0) * tour / 2.0;
    for (std::size_t i = 0; i < n; ++i) {
        const double angle = angleHoraire(r.cotes[i].observation.angle, regle, tour);
        erreur += tour - angle;
        if (i > 0)
            g = normaliser(g + angle - tour / 2.0, tour);
        gisements.push_back(g);
    }
    const auto [reste, impair] = sansDemiTours(erreur, tour);
    parcours p;
    p.impair = impair;
    p.ferme = std::abs(reste) <= ecartAngulaireAdmis(r.unite, n);
    if (p.ferme)
        tracer(p, r, gisements, reste / static_cast<double>(n), 0);
    return p;
}

void garderLesMeilleures(std::vector<hypotheseAngulaire>& hypotheses, double longueur)
{
    constexpr double aussiBien = 3.0;
    constexpr double bonneFermeture = 1.0 / 1000.0;
    if (hypotheses.empty())
        return;
    const double meilleure = std::ranges::min(hypotheses, {}, &hypotheseAngulaire::fermeture).fermeture;
    const double borne =
        std::min(ecartPlanimetriqueAdmis(longueur), std::max(aussiBien * meilleure, bonneFermeture * longueur));
    std::erase_if(hypotheses, [borne](const hypotheseAngulaire& h) { return !(h.fermeture <= borne); });
}

bool calculable(const cheminement& c)
{
    return !c.cotes.empty() && estConnue(c.erreurAngulaire) && estConnue(c.fermeturePlanimetrique);
}

} // namespace

double angleHoraire(double angle, regleAngles regle, double tour)
{
    switch (regle) {
    case regleAngles::antihoraires:
        return normaliser(tour - angle, tour);
    case regleAngles::deviationsADroite:
        return normaliser(angle + tour / 2.0, tour);
    case regleAngles::deviationsAGauche:
        return normaliser(tour / 2.0 - angle, tour);
    default:
        return normaliser(angle, tour);
    }
}

std::vector<hypotheseAngulaire> hypothesesAngulaires(const resultatPolygonaleOuverte& r)
{
    std::vector<hypotheseAngulaire> hypotheses;
    if (!calculable(r))
        return hypotheses;
    const std::size_t n = r.cotes.size();
    for (const regleAngles regle : {regleAngles::horaires, regleAngles::antihoraires, regleAngles::deviationsADroite,
                                    regleAngles::deviationsAGauche}) {
        const parcours p = parcourir(r, regle);
        if (!p.ferme)
            continue;
        const auto essayer = [&](std::vector<std::size_t> retournes, std::size_t cote) {
            hypotheses.push_back({regle, std::move(retournes), p.fermeture(cote, r.deltaX, r.deltaY)});
        };
        if (!p.impair) {
            essayer({}, n);
            essayer({0, n}, 0);
            continue;
        }
        for (std::size_t k = 0; k <= n; ++k)
            if (k == 0 || k == n || regle == regleAngles::horaires) // two faults at once are not looked for
                essayer({k}, k);
    }
    garderLesMeilleures(hypotheses, r.longueur);
    return hypotheses;
}

std::vector<hypotheseAngulaire> hypothesesAngulaires(const resultatPolygonaleFermee& r)
{
    std::vector<hypotheseAngulaire> hypotheses;
    if (!calculable(r))
        return hypotheses;
    const std::size_t n = r.cotes.size();
    for (const regleAngles regle : {regleAngles::horaires, regleAngles::deviationsADroite}) {
        const parcours p = parcourir(r, regle);
        if (!p.ferme)
            continue;
        if (!p.impair)
            hypotheses.push_back({regle, {}, p.fermeture(n, 0.0, 0.0)});
        else if (regle == regleAngles::horaires)
            for (std::size_t k = 0; k < n; ++k)
                hypotheses.push_back({regle, {k}, p.fermeture(k == 0 ? n : k, 0.0, 0.0)});
    }
    garderLesMeilleures(hypotheses, r.longueur);
    return hypotheses;
}

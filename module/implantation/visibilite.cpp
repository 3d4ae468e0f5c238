#include "implantation/visibilite.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace {

/// Distance of a place from the infinite line through two points, or from both when they are one.
double distanceALaDroite(point2 a, point2 b, point2 p)
{
    const point2 u = b - a;
    const double carre = scalaire(u, u);
    const double t = carre > 0.0 ? scalaire(p - a, u) / carre : 0.0;
    return norme(p - (a + u * t));
}

double hauteurDeLaVisee(const coupeVisee& coupe, double distance)
{
    const double longueur = coupe.fin.x - coupe.debut.x;
    return coupe.debut.y + (longueur > 0.0 ? (coupe.fin.y - coupe.debut.y) * (distance / longueur) : 0.0);
}

/// Keeps the worst of what it is shown.
class pire {
public:
    explicit pire(const coupeVisee& coupe) : m_coupe(coupe) {}

    void voir(double distance, point3 place, std::size_t obstacle)
    {
        const double hauteur = hauteurAuDessus(m_coupe.debut, m_coupe.fin, {distance, place.z});
        if (hauteur > (m_trouve ? m_trouve->hauteur : 0.0))
            m_trouve = obstruction{hauteur, place.z - hauteurDeLaVisee(m_coupe, distance), distance, place, obstacle};
    }
    const std::optional<obstruction>& trouve() const { return m_trouve; }

private:
    const coupeVisee& m_coupe;
    std::optional<obstruction> m_trouve;
};

} // namespace

double hauteurAuDessus(point2 debut, point2 fin, point2 place)
{
    if (!((debut.y - place.y) * (fin.x - debut.x) - (fin.y - debut.y) * (debut.x - place.x) < 0.0))
        return 0.0;
    // Nearer to the origin numbers have more decimals: altitudes and distances are of hundreds and more.
    const point2 origine{std::floor(debut.x + fin.x) / 2.0, std::floor(debut.y + fin.y) / 2.0};
    return distanceALaDroite(debut - origine, fin - origine, place - origine);
}

double coupeVisee::sansSol() const
{
    double reste = fin.x;
    for (const auto& ligne : sol)
        reste -= ligne.back().distance - ligne.front().distance;
    return std::max(reste, 0.0);
}

std::vector<std::size_t> ordreDesVisees(const std::vector<viseeEnPlan>& visees)
{
    std::vector<double> directions;
    directions.reserve(visees.size());
    for (const viseeEnPlan& v : visees)
        directions.push_back(std::atan2(v.point.y - v.station.y, v.point.x - v.station.x));
    std::vector<std::size_t> ordre(visees.size());
    std::iota(ordre.begin(), ordre.end(), std::size_t{0});
    std::ranges::sort(ordre, {}, [&](std::size_t i) {
        return std::tuple(visees[i].station.x, visees[i].station.y, directions[i], i);
    });
    return ordre;
}

std::optional<coupeVisee> couper(const solImplantation& sol, const obstaclesPlan& obstacles, point3 station,
                                 point3 point, double hauteur)
{
    std::vector<solImplantation::polyligne> profil;
    if (!sol.profil(station.plan(), point.plan(), profil) || profil.empty())
        return std::nullopt;
    coupeVisee coupe;
    const double longueur = norme(point.plan() - station.plan());
    coupe.debut = {0.0, station.z + hauteur};
    coupe.fin = {longueur, point.z + hauteur};
    coupe.sol.reserve(profil.size());
    for (const auto& ligne : profil) {
        auto& vue = coupe.sol.emplace_back();
        vue.reserve(ligne.size());
        for (const point3& p : ligne)
            vue.push_back({std::sqrt(carreDistance(p.plan(), station.plan())), p}); // half the time of a hypot
    }
    obstacles.croiser(station.plan(), point.plan(), [&](double part, std::size_t obstacle) {
        const point2 place = station.plan() + (point.plan() - station.plan()) * part;
        double z = 0.0;
        if (sol.altitude(place, z))
            coupe.obstacles.push_back({part * longueur, {place.x, place.y, z}, obstacles.hauteur(obstacle), obstacle});
    });
    std::ranges::sort(coupe.obstacles, {}, [](const auto& o) { return std::pair(o.distance, o.obstacle); });
    return coupe;
}

std::optional<obstruction> pireObstruction(const coupeVisee& coupe)
{
    pire recherche(coupe);
    for (const auto& ligne : coupe.sol)
        for (const auto& s : ligne)
            recherche.voir(s.distance, s.place, leSol);
    for (const auto& o : coupe.obstacles)
        recherche.voir(o.distance, {o.sol.x, o.sol.y, o.sol.z + o.hauteur}, o.obstacle);
    return recherche.trouve();
}

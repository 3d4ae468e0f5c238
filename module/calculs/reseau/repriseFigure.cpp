#include <algorithm>
#include <cmath>
#include <map>

#include "calculs/reseau/fichierReseau.h"
#include "calculs/reseau/figureReseau.h"
#include "calculs/reseau/placesRobustes.h"

// Places found one from the other are a little more wrong from one to the next, and a hundred stations on they are of
// no use. So what was placed lately is adjusted now and then, with what was before held.

namespace {

using enum genreObservation;

constexpr int pasDeReprise = 4;

double ecartDe(const observationReseau& o)
{
    if (o.ecart > 0.0)
        return o.ecart;
    return estAngulaire(o.genre) ? dmgrUsuels * dmgrEnRadians : millimetresUsuels * milli;
}

} // namespace

/// The part of the network that touches the points placed since `depuis`, as a network of its own.
struct figureReseau::partie {
    reseau r;
    coordonneesReseau c;
    std::vector<double> ecarts;
    std::vector<int> retenues, points; ///< points: of the whole, by place in the part
    std::map<int, int> places, series;

    int point(const figureReseau& f, int p, bool nouveau)
    {
        const auto [place, neuf] = places.try_emplace(p, static_cast<int>(points.size()));
        if (neuf) {
            points.push_back(p);
            r.points.emplace_back().plan = nouveau ? tenue::libre : tenue::fixe;
            c.x.push_back(f.x(p));
            c.y.push_back(f.y(p));
            c.z.push_back(0.0);
        }
        return place->second;
    }
};

void figureReseau::ajouterAPartie(partie& p, int observation) const
{
    const observationReseau& o = m_v.r.observations[static_cast<std::size_t>(observation)];
    for (const int point : {o.de, o.vers, o.vers2})
        if (point >= 0 && !pose(point))
            return;
    const double longueur = m_v.longueurs[static_cast<std::size_t>(observation)];
    if ((longueur > 0.0 && !m_choix.distances) || (o.genre == gisement && !m_choix.gisements) || o.vers < 0)
        return;
    observationReseau ici = o;
    const auto ancien = [&](int point) { return point < 0 ? -1 : p.point(*this, point, false); };
    ici.de = ancien(o.de);
    ici.vers = ancien(o.vers);
    ici.vers2 = ancien(o.vers2);
    if (longueur > 0.0) {
        ici.genre = distance;
        ici.mesure = longueur;
    }
    if (o.genre == direction) {
        const auto [serie, neuve] = p.series.try_emplace(o.serie, static_cast<int>(p.series.size()));
        ici.serie = serie->second;
        if (neuve)
            p.c.orientations.push_back(orientation(o.serie));
    }
    if (!equationDe(ici, p.c).possible)
        return;
    p.retenues.push_back(static_cast<int>(p.retenues.size()));
    p.ecarts.push_back(ecartDe(o));
    p.r.observations.push_back(ici);
}

void figureReseau::reprendre(std::size_t depuis)
{
    partie p;
    for (std::size_t i = std::max(depuis, m_donnes); i < m_poses.size(); ++i)
        p.point(*this, m_poses[i], true);
    const std::size_t nouveaux = p.points.size();
    std::vector<int> observations;
    for (std::size_t i = 0; i < nouveaux; ++i)
        for (const int k : m_v.parPoint[static_cast<std::size_t>(p.points[i])]) {
            const observationReseau& o = m_v.r.observations[static_cast<std::size_t>(k)];
            if (o.genre != direction)
                observations.push_back(k);
            else // all of its set, which older directions orient
                observations.insert(observations.end(), m_v.parSerie[static_cast<std::size_t>(o.serie)].begin(),
                                    m_v.parSerie[static_cast<std::size_t>(o.serie)].end());
        }
    std::ranges::sort(observations);
    observations.erase(std::unique(observations.begin(), observations.end()), observations.end());
    for (const int k : observations)
        ajouterAPartie(p, k);
    p.r.series = static_cast<int>(p.series.size());
    const coordonneesReseau c = placesRobustes(p.r, p.c, p.ecarts, p.retenues, pasDeReprise);
    for (std::size_t i = 0; i < nouveaux; ++i)
        if (std::isfinite(c.x[i]) && std::isfinite(c.y[i])) {
            m_x[static_cast<std::size_t>(p.points[i])] = c.x[i];
            m_y[static_cast<std::size_t>(p.points[i])] = c.y[i];
        }
}

/// A belt some stations wide around what is placed; and all of it whenever it has doubled, because
/// belts lean on each other: that costs as much again as the last time.
void figureReseau::reprendreAuBesoin()
{
    if (m_poses.size() >= m_repriseEntiere) {
        reprendre(0);
        m_repriseEntiere = 2 * m_poses.size();
        m_avantReprise = m_reprise = m_poses.size();
        return;
    }
    const auto ceinture = static_cast<std::size_t>(10.0 * std::sqrt(static_cast<double>(m_poses.size())));
    if (m_poses.size() < m_reprise + std::max<std::size_t>(ceinture, 200))
        return;
    reprendre(m_avantReprise);
    m_avantReprise = m_reprise;
    m_reprise = m_poses.size();
}

#include "implantation/repartition.h"

#include <algorithm>

namespace {

/// Stations within range of each point, the nearest first.
using candidates = std::vector<std::vector<std::size_t>>;

candidates aPortee(std::size_t points, std::size_t stations, double portee,
                   const std::function<double(std::size_t, std::size_t)>& distance)
{
    candidates listes(points);
    std::vector<std::pair<double, std::size_t>> tri;
    for (std::size_t p = 0; p < points; ++p) {
        tri.clear();
        for (std::size_t s = 0; s < stations; ++s)
            if (const double d = distance(p, s); d != inconnu && d <= portee)
                tri.emplace_back(d, s);
        std::ranges::sort(tri);
        for (const auto& proche : tri)
            listes[p].push_back(proche.second);
    }
    return listes;
}

/// Gives points to stations that have room; a point may push another one on to a further station.
class affectation {
public:
    affectation(const candidates& listes, std::size_t nombreStations, std::size_t places) :
        m_listes(listes),
        m_places(places),
        m_occupants(nombreStations),
        m_stations(listes.size(), repartition::aucune)
    {
    }

    bool placer(std::size_t point)
    {
        m_vues.assign(m_occupants.size(), false);
        return chercher(point);
    }
    /// Of each point.
    const std::vector<std::size_t>& stations() const { return m_stations; }

private:
    bool chercher(std::size_t point)
    {
        for (const std::size_t s : m_listes[point])
            if (!m_vues[s] && m_occupants[s].size() < m_places)
                return installer(point, s);
        for (const std::size_t s : m_listes[point]) {
            if (m_vues[s])
                continue;
            m_vues[s] = true; // each station is looked into once a point
            for (std::size_t& occupant : m_occupants[s]) {
                if (!chercher(occupant))
                    continue;
                occupant = point;
                m_stations[point] = s;
                return true;
            }
        }
        return false;
    }
    bool installer(std::size_t point, std::size_t s)
    {
        m_occupants[s].push_back(point);
        m_stations[point] = s;
        return true;
    }

    const candidates& m_listes;
    std::size_t m_places;
    std::vector<std::vector<std::size_t>> m_occupants;
    std::vector<bool> m_vues;
    std::vector<std::size_t> m_stations;
};

/// The least room at each station with which all points that are seen find a place.
std::vector<std::size_t> equilibrer(const candidates& vues, std::size_t stations)
{
    const auto tenter = [&](std::size_t places) {
        affectation essai(vues, stations, places);
        bool tous = true;
        for (std::size_t p = 0; p < vues.size() && tous; ++p)
            tous = vues[p].empty() || essai.placer(p);
        return tous ? essai.stations() : std::vector<std::size_t>();
    };
    std::size_t bas = 1, haut = std::max<std::size_t>(vues.size(), 1);
    while (bas < haut) {
        const std::size_t milieu = bas + (haut - bas) / 2;
        if (!vues.empty() && tenter(milieu).empty())
            bas = milieu + 1;
        else
            haut = milieu;
    }
    return tenter(bas);
}

} // namespace

repartition repartir(std::size_t points, std::size_t stations, const choixRepartition& choix,
                     const std::function<double(std::size_t, std::size_t)>& distance,
                     const std::function<vueDuPoint(std::size_t, std::size_t)>& voir)
{
    const candidates proches = aPortee(points, stations, choix.portee, distance);
    candidates vues(points);
    repartition r;
    r.stations.assign(points, repartition::aucune);
    r.manques.assign(points, inconnu);
    for (std::size_t p = 0; p < points; ++p) {
        for (const std::size_t s : proches[p]) {
            const vueDuPoint vue = voir(p, s);
            if (!vue.vu) {
                r.manques[p] = std::min(r.manques[p], vue.manque);
                continue;
            }
            vues[p].push_back(s);
            if (!choix.equilibree)
                break;
        }
        if (!vues[p].empty()) {
            r.stations[p] = vues[p].front();
            r.manques[p] = inconnu;
        }
    }
    if (choix.equilibree && points > 0)
        r.stations = equilibrer(vues, stations);
    return r;
}

#include "implantation/repartition.h"

#include <algorithm>

namespace {

using candidates = std::vector<std::vector<std::size_t>>; // stations of each point, the nearest first

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

/// The spreading while it is made: for each point the stations in range, then those that see it.
class tri {
public:
    tri(std::size_t points, std::size_t stations, double portee,
        const std::function<double(std::size_t, std::size_t)>& distance) :
        m_proches(points),
        m_vues(points),
        m_refusees(points)
    {
        std::vector<std::pair<double, std::size_t>> parDistance;
        for (std::size_t p = 0; p < points; ++p) {
            parDistance.clear();
            for (std::size_t s = 0; s < stations; ++s)
                if (const double d = distance(p, s); d == 0.0)
                    refuser(p, {false, refusStation::memeLieu, inconnu});
                else if (d != inconnu && d <= portee)
                    parDistance.emplace_back(d, s);
            std::ranges::sort(parDistance);
            for (const auto& proche : parDistance)
                m_proches[p].push_back(proche.second);
        }
    }

    /// The pairs to look at next: of every point without station so far its next one, or all of them at once.
    std::vector<paireRepartition> aVoir(std::size_t tour, bool toutes) const
    {
        std::vector<paireRepartition> paires;
        for (std::size_t p = 0; p < m_proches.size(); ++p) {
            if (!m_vues[p].empty())
                continue;
            const std::size_t fin = toutes ? m_proches[p].size() : std::min(tour + 1, m_proches[p].size());
            for (std::size_t s = tour; s < fin; ++s)
                paires.push_back({p, m_proches[p][s]});
        }
        return paires;
    }
    void noter(const std::vector<paireRepartition>& paires, const std::vector<vueDuPoint>& vues)
    {
        for (std::size_t i = 0; i < paires.size(); ++i) {
            if (vues[i].vu)
                m_vues[paires[i].point].push_back(paires[i].station);
            else
                refuser(paires[i].point, vues[i]);
        }
    }
    const candidates& vues() const { return m_vues; }
    const std::vector<repartition::refus>& refusees() const { return m_refusees; }

private:
    void refuser(std::size_t point, const vueDuPoint& vue)
    {
        repartition::refus& r = m_refusees[point];
        r.pourquoi = std::max(r.pourquoi, vue.refus);
        r.manque = std::min(r.manque, vue.manque);
    }

    candidates m_proches, m_vues;
    std::vector<repartition::refus> m_refusees;
};

} // namespace

repartition repartir(std::size_t points, std::size_t stations, const choixRepartition& choix,
                     const std::function<double(std::size_t, std::size_t)>& distance,
                     const std::function<std::vector<vueDuPoint>(const std::vector<paireRepartition>&)>& voir)
{
    tri t(points, stations, choix.portee, distance);
    const std::size_t tours = choix.equilibree ? std::min<std::size_t>(stations, 1) : stations;
    for (std::size_t tour = 0; tour < tours; ++tour) {
        const std::vector<paireRepartition> paires = t.aVoir(tour, choix.equilibree);
        t.noter(paires, voir(paires));
    }
    repartition r;
    r.refusees = t.refusees();
    if (choix.equilibree && points > 0) {
        r.stations = equilibrer(t.vues(), stations);
    } else {
        for (const auto& vues : t.vues())
            r.stations.push_back(vues.empty() ? repartition::aucune : vues.front());
    }
    return r;
}

#include "implantation/repartition.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <queue>
#include <utility>

namespace {

/// A station that serves a point, and how far it is.
struct candidate {
    std::size_t station;
    double distance;
};
using candidates = std::vector<std::vector<candidate>>; // of each point, the nearest first

/// Distances as whole multiples of some 1e-12 of the longest: their sums are exact. Where they are not, ways that cost
/// as much as each other look shorter and shorter, and turn in circles.
class coutEntier {
public:
    explicit coutEntier(const candidates& listes)
    {
        constexpr int chiffres = 40; // of 53, so that thousands of terms add up
        double plusLongue = 0.0;
        for (const auto& liste : listes)
            for (const candidate& c : liste)
                plusLongue = std::max(plusLongue, c.distance);
        m_unite = plusLongue > 0.0 ? std::ldexp(1.0, std::ilogb(plusLongue) - chiffres) : 1.0;
    }
    double operator()(double distance) const { return std::round(distance / m_unite); }

private:
    double m_unite = 1.0;
};

/// Gives points to stations, one after the other: each to the one with the fewest points that can be reached, by the
/// way that costs the least distance. A way hands points on: the new one to a station, one of its points to another...
/// So the loads stay as even as can be, and among such spreadings the sum of distances the least.
class equilibre {
public:
    equilibre(const candidates& listes, std::size_t nombreStations) :
        m_listes(listes),
        m_cout(listes),
        m_charges(nombreStations, 0),
        m_passages(nombreStations * nombreStations),
        m_stations(listes.size(), repartition::aucune)
    {
    }

    void placer(std::size_t point)
    {
        if (m_listes[point].empty())
            return;
        chercherDepuis(point);
        std::size_t s = moinsChargee();
        ++m_charges[s];
        for (; m_avant[s] != repartition::aucune; s = m_avant[s])
            installer(passages(m_avant[s], s).top().second, s);
        installer(point, s);
    }
    /// Of each point.
    const std::vector<std::size_t>& stations() const { return m_stations; }

private:
    using passage = std::pair<double, std::size_t>; // what handing a point on costs, and which point
    using moinsCher = std::priority_queue<passage, std::vector<passage>, std::greater<>>;

    /// Points of `de` that `vers` serves too, the cheapest on top; points that left are dropped when they come up.
    moinsCher& passages(std::size_t de, std::size_t vers) { return m_passages[de * m_charges.size() + vers]; }

    /// Of the stations that the present point has a way to, the one with the fewest points; of equals the cheapest.
    std::size_t moinsChargee() const
    {
        std::size_t choisie = repartition::aucune;
        for (std::size_t s = 0; s < m_charges.size(); ++s)
            if (m_couts[s] != inconnu &&
                (choisie == repartition::aucune ||
                 std::pair(m_charges[s], m_couts[s]) < std::pair(m_charges[choisie], m_couts[choisie])))
                choisie = s;
        return choisie;
    }

    /// The cheapest way to each station: as many rounds as there are stations at most.
    void chercherDepuis(std::size_t point)
    {
        const std::size_t n = m_charges.size();
        m_couts.assign(n, inconnu);
        m_avant.assign(n, repartition::aucune);
        for (const candidate& c : m_listes[point])
            m_couts[c.station] = m_cout(c.distance);
        bool mieux = true;
        for (std::size_t tour = 0; tour < n && mieux; ++tour) {
            mieux = false;
            for (std::size_t de = 0; de < n; ++de)
                for (std::size_t vers = 0; vers < n; ++vers)
                    mieux = prolonger(de, vers) || mieux;
        }
    }
    /// Takes the way to `de` on to `vers`, where that is the cheaper way there. @return whether it is
    bool prolonger(std::size_t de, std::size_t vers)
    {
        if (m_couts[de] == inconnu)
            return false;
        moinsCher& partants = passages(de, vers);
        while (!partants.empty() && m_stations[partants.top().second] != de)
            partants.pop();
        if (partants.empty() || !(m_couts[de] + partants.top().first < m_couts[vers]))
            return false;
        m_couts[vers] = m_couts[de] + partants.top().first;
        m_avant[vers] = de;
        return true;
    }
    void installer(std::size_t point, std::size_t s)
    {
        m_stations[point] = s;
        const auto ici = std::ranges::find(m_listes[point], s, &candidate::station);
        for (const candidate& c : m_listes[point])
            if (c.station != s)
                passages(s, c.station).emplace(m_cout(c.distance) - m_cout(ici->distance), point);
    }

    const candidates& m_listes;
    coutEntier m_cout;
    std::vector<std::size_t> m_charges;
    std::vector<moinsCher> m_passages;
    std::vector<std::size_t> m_stations;
    std::vector<double> m_couts; // of the ways of the present point
    std::vector<std::size_t> m_avant;
};

std::vector<std::size_t> equilibrer(const candidates& vues, std::size_t stations)
{
    equilibre e(vues, stations);
    for (std::size_t p = 0; p < vues.size(); ++p)
        e.placer(p);
    return e.stations();
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
                m_proches[p].push_back({proche.second, proche.first});
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
                paires.push_back({p, m_proches[p][s].station});
        }
        return paires;
    }
    void noter(const std::vector<paireRepartition>& paires, const std::vector<vueDuPoint>& vues)
    {
        for (std::size_t i = 0; i < paires.size(); ++i) {
            const auto& [point, s] = paires[i];
            if (vues[i].vu)
                m_vues[point].push_back(*std::ranges::find(m_proches[point], s, &candidate::station));
            else
                refuser(point, vues[i]);
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
            r.stations.push_back(vues.empty() ? repartition::aucune : vues.front().station);
    }
    return r;
}

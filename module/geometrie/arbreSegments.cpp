#include "geometrie/arbreSegments.h"

namespace {

std::vector<boite> boitesDe(std::span<const segmentPlan> segments)
{
    std::vector<boite> boites;
    boites.reserve(segments.size());
    for (const segmentPlan& s : segments)
        boites.push_back(boite::de(s.debut, s.fin));
    return boites;
}

} // namespace

std::optional<double> croisement(point2 a, point2 b, const segmentPlan& s)
{
    const point2 u = b - a, v = s.fin - s.debut, w = s.debut - a;
    const double d = vectoriel(u, v);
    if (d == 0.0)
        return std::nullopt;
    const double part = vectoriel(w, v) / d, autre = vectoriel(w, u) / d;
    const bool dedans = part >= 0.0 && part <= 1.0 && autre >= 0.0 && autre <= 1.0;
    return dedans ? std::optional(part) : std::nullopt;
}

arbreSegments::arbreSegments(std::vector<segmentPlan> segments) :
    m_segments(std::move(segments)),
    m_arbre(boitesDe(m_segments))
{
}

std::optional<arbreSegments::pied> arbreSegments::plusProche(point2 p, double limite) const
{
    const auto sur = [&](std::size_t i, double part) {
        const segmentPlan& s = m_segments[i];
        return part < 1.0 ? s.debut + (s.fin - s.debut) * part : s.fin;
    };
    const auto part = [&](std::size_t i) { return partPlusProche(p, m_segments[i].debut, m_segments[i].fin); };
    const auto voisin = m_arbre.plusProche(
        p, [&](std::size_t i) { return carreDistance(p, sur(i, part(i))); }, limite * limite);
    if (!voisin)
        return std::nullopt;
    const double t = part(voisin.item);
    return pied{voisin.item, t, sur(voisin.item, t), std::sqrt(voisin.carre)};
}

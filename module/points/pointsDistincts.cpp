#include "points/pointsDistincts.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>

namespace {

/// A total order on doubles, NaN included: that of the numbers, as integers.
std::int64_t rang(double valeur)
{
    const auto bits = std::bit_cast<std::int64_t>(std::isnan(valeur) ? std::abs(valeur) : valeur);
    return bits < 0 ? bits ^ INT64_MAX : bits;
}

using coordonnee = double lieuPoint::*;

void trierExactement(std::span<lieuPoint> lieux, coordonnee c)
{
    std::sort(lieux.begin(), lieux.end(),
              [c](const lieuPoint& a, const lieuPoint& b) { return rang(a.*c) < rang(b.*c); });
}

/// Below this many points dealing them out costs more than it saves.
constexpr std::size_t seuilRepartition = 1024;
constexpr std::size_t pointsParCase = 8;

/// Sorts on one coordinate. Survey points are spread over their site: dealt out first into equal slices of it, they
/// leave little to sort (half the time of a plain sort of a million). Coordinates that are not spread so cost a plain
/// sort.
void trierSur(std::span<lieuPoint> lieux, coordonnee c)
{
    if (lieux.size() < seuilRepartition)
        return trierExactement(lieux, c);
    const auto [min, max] = std::minmax_element(
        lieux.begin(), lieux.end(), [c](const lieuPoint& a, const lieuPoint& b) { return rang(a.*c) < rang(b.*c); });
    const double origine = (*min).*c;
    const std::size_t cases = lieux.size() / pointsParCase;
    const double parUnite = static_cast<double>(cases - 1) / ((*max).*c - origine);
    if (!std::isfinite(parUnite) || parUnite <= 0.0)
        return trierExactement(lieux, c);
    const auto caseDe = [=](const lieuPoint& lieu) {
        return static_cast<std::size_t>((lieu.*c - origine) * parUnite); // grows with the coordinate
    };

    std::vector<std::uint32_t> fins(cases + 1, 0);
    for (const lieuPoint& lieu : lieux)
        ++fins[caseDe(lieu) + 1];
    for (std::size_t i = 1; i <= cases; ++i)
        fins[i] += fins[i - 1];
    std::vector<lieuPoint> repartis(lieux.size());
    for (const lieuPoint& lieu : lieux)
        repartis[fins[caseDe(lieu)]++] = lieu;
    std::copy(repartis.begin(), repartis.end(), lieux.begin());
    std::size_t debut = 0;
    for (std::size_t i = 0; i < cases; debut = fins[i++])
        trierExactement(lieux.subspan(debut, fins[i] - debut), c);
}

/// Sorts the points on one coordinate and hands over, in order, each run of values closer than the tolerance.
template <class Suite>
void parGroupes(std::span<lieuPoint> lieux, coordonnee c, const Suite& suite)
{
    trierSur(lieux, c);
    for (std::size_t debut = 0; debut < lieux.size();) {
        std::size_t fin = debut + 1;
        while (fin < lieux.size() && lieux[fin].*c - lieux[fin - 1].*c < toleranceDoublons)
            ++fin;
        if (fin - debut > 1)
            suite(lieux.subspan(debut, fin - debut));
        debut = fin;
    }
}

void trier(std::span<lieuPoint> lieux)
{
    parGroupes(lieux, &lieuPoint::x, [](std::span<lieuPoint> memeX) {
        parGroupes(memeX, &lieuPoint::y, [](std::span<lieuPoint> memeXY) {
            std::sort(memeXY.begin(), memeXY.end(), [](const lieuPoint& a, const lieuPoint& b) {
                return a.code != b.code ? a.code < b.code : a.position < b.position;
            });
        });
    });
}

bool memePlace(const lieuPoint& a, const lieuPoint& b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return std::sqrt(dx * dx + dy * dy) < toleranceDoublons;
}

} // namespace

std::vector<lieuPoint> pointsDistincts(std::vector<lieuPoint> lieux)
{
    trier(lieux);
    std::size_t gardes = 0;
    for (const lieuPoint& lieu : lieux)
        if (gardes == 0 || !memePlace(lieux[gardes - 1], lieu))
            lieux[gardes++] = lieu;
    lieux.resize(gardes);
    return lieux;
}

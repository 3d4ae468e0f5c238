#include "generateurs/boucleStations.h"

#include <cstdio>
#include <numbers>
#include <stdexcept>

#include "generateurs/Alea.h"

namespace {

constexpr double tour = 400.0; // grades

double gisement(double dx, double dy)
{
    const double g = std::atan2(dx, dy) * (tour / 2) / std::numbers::pi;
    return g < 0.0 ? g + tour : g;
}

double auDixMilligrade(double angle)
{
    return std::round(angle * 1e4) / 1e4;
}

} // namespace

boucleStations genererBoucle(int nombre)
{
    if (nombre < 3)
        throw std::invalid_argument("a closed traverse has at least 3 legs");
    const auto n = static_cast<std::size_t>(nombre);

    // Stations on a circle whose length is 100 m a leg, each shifted a little along it and across it.
    Alea alea(static_cast<std::uint64_t>(nombre));
    const double rayon = 100.0 * nombre / (2 * std::numbers::pi);
    struct lieu {
        double x, y, z;
    };
    std::vector<lieu> lieux(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double angle = 2 * std::numbers::pi * (static_cast<double>(i) + alea.entre(-0.3, 0.3)) / nombre;
        const double r = rayon + alea.entre(-10.0, 10.0);
        lieux[i] = {700000.0 + r * std::sin(angle), 6600000.0 + r * std::cos(angle), alea.entre(100.0, 120.0)};
    }

    boucleStations boucle{lieux[0].x, lieux[0].y, lieux[0].z, 0.0, {}};
    boucle.cotes.reserve(n);
    const auto gisementDe = [&](std::size_t de) {
        const lieu &a = lieux[de], &b = lieux[(de + 1) % n];
        return gisement(b.x - a.x, b.y - a.y);
    };
    boucle.gisement = auDixMilligrade(gisementDe(0));
    for (std::size_t i = 0; i < n; ++i) {
        const lieu &a = lieux[i], &b = lieux[(i + 1) % n];
        double angle = gisementDe(i) - gisementDe((i + n - 1) % n) + tour / 2;
        angle -= std::floor(angle / tour) * tour;
        boucle.cotes.push_back({"S" + std::to_string((i + 1) % n), auDixMilligrade(angle + alea.entre(-0.001, 0.001)),
                                auMillimetre(std::hypot(b.x - a.x, b.y - a.y) + alea.entre(-0.005, 0.005)),
                                auMillimetre(b.z - a.z + alea.entre(-0.003, 0.003))});
    }
    return boucle;
}

std::string fichierObservations(const boucleStations& boucle)
{
    char ligne[256];
    std::snprintf(ligne, sizeof ligne,
                  "Nom=\"S0\" X= %.5f Y= %.5f Z= %.5f Gis= %.5f\nAngles: grades\nNivellement: distance\n", boucle.x,
                  boucle.y, boucle.z, boucle.gisement);
    std::string texte = ligne;
    for (const coteBoucle& cote : boucle.cotes) {
        std::snprintf(ligne, sizeof ligne, "\"%s\"\t%.4f\t%.3f\t%.3f\n", cote.station.c_str(), cote.angle,
                      cote.distance, cote.denivelee);
        texte += ligne;
    }
    return texte;
}

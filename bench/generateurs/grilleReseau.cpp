#include "generateurs/grilleReseau.h"

#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

#include "generateurs/Alea.h"

namespace {

constexpr double pas = 100.0, ecartPlace = 10.0; // metres
constexpr double gradesParRadian = 200.0 / std::numbers::pi;
constexpr double bruitDirection = 0.001, bruitDistance = 0.003; // grades, metres

/// Normal, mean 0, deviation 1: Box and Muller.
double normale(Alea& alea)
{
    const double u = 1.0 - alea.entre(0.0, 1.0);
    const double v = alea.entre(0.0, 1.0);
    return std::sqrt(-2.0 * std::log(u)) * std::cos(2.0 * std::numbers::pi * v);
}

template <class... Valeurs>
void ecrire(std::string& texte, const char* forme, Valeurs... valeurs)
{
    char ligne[200];
    std::snprintf(ligne, sizeof ligne, forme, valeurs...);
    texte += ligne;
}

} // namespace

std::string grilleReseau(int cote, unsigned graine)
{
    Alea alea(graine);
    struct place {
        double x, y;
    };
    std::vector<place> places;
    for (int i = 0; i < cote; ++i)
        for (int j = 0; j < cote; ++j) {
            const double dx = alea.entre(-ecartPlace, ecartPlace);
            const double dy = alea.entre(-ecartPlace, ecartPlace);
            places.push_back({i * pas + dx, j * pas + dy});
        }
    const auto a = [&](int i, int j) { return places[static_cast<std::size_t>(i * cote + j)]; };
    std::string texte = "Sigma: 1\n";
    for (const int i : {0, cote - 1})
        for (const int j : {0, cote - 1})
            ecrire(texte, "Point: %d.%d X= %.17g Y= %.17g fixe\n", i, j, a(i, j).x, a(i, j).y);
    for (int i = 0; i < cote; ++i)
        for (int j = 0; j < cote; ++j) {
            ecrire(texte, "Station: %d.%d\n", i, j);
            const double zero = alea.entre(0.0, 400.0);
            for (int k = 0; k < 9; ++k) {
                const int di = k / 3 - 1, dj = k % 3 - 1;
                if ((di == 0 && dj == 0) || i + di < 0 || i + di >= cote || j + dj < 0 || j + dj >= cote)
                    continue;
                const double dx = a(i + di, j + dj).x - a(i, j).x, dy = a(i + di, j + dj).y - a(i, j).y;
                double lecture = std::atan2(dx, dy) * gradesParRadian - zero + bruitDirection * normale(alea);
                lecture -= 400.0 * std::floor(lecture / 400.0);
                ecrire(texte, "Direction: %d.%d %.5f e= 10\n", i + di, j + dj, lecture);
                ecrire(texte, "Distance: %d.%d %.5f e= 3\n", i + di, j + dj,
                       std::hypot(dx, dy) + bruitDistance * normale(alea));
            }
        }
    return texte;
}

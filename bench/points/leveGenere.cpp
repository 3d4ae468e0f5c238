#include "points/leveGenere.h"

#include <algorithm>
#include <cmath>

#include "generateurs/Alea.h"

namespace {

template <class T>
void meler(std::vector<T>& valeurs, Alea& alea)
{
    for (std::size_t i = valeurs.size(); i > 1; --i)
        std::swap(valeurs[i - 1], valeurs[static_cast<std::size_t>(alea.suivant() % i)]);
}

constexpr double xOrigine = 700000.0, yOrigine = 6600000.0; // of the site, which has 25 m² a point
constexpr double pas = 5.0;

} // namespace

std::vector<pointDuDessin> genererLeve(int nombre, disposition lieux, bool sansNom)
{
    Alea alea(static_cast<std::uint64_t>(nombre));
    const int cote = static_cast<int>(std::ceil(std::sqrt(nombre)));
    std::vector<pointDuDessin> points(static_cast<std::size_t>(nombre));
    for (int i = 0; i < nombre; ++i) {
        pointDuDessin& point = points[static_cast<std::size_t>(i)];
        const double z = auMillimetre(alea.entre(100.0, 120.0));
        if (i % 10 == 9) {
            const pointDuDessin& avant = points[static_cast<std::size_t>(i) - 1];
            point.setXY(avant.getX(), avant.getY(), z);
            point.setCode(2);
        } else if (lieux == disposition::grille) {
            point.setXY(xOrigine + pas * (i % cote), yOrigine + pas * (i / cote), z);
        } else {
            const double x = auMillimetre(xOrigine + alea.entre(0.0, pas * cote));
            point.setXY(x, auMillimetre(yOrigine + alea.entre(0.0, pas * cote)), z);
        }
    }
    if (lieux == disposition::avecOrigine)
        points.front().setXY(0.0, 0.0, 0.0);
    meler(points, alea);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i].setNomPoint(sansNom && i % 10 == 9 ? "*" : std::to_string(i + 1).c_str());
    return points;
}

std::string nomDuPoint(int numero, nommage noms)
{
    const std::string chiffres = std::to_string(numero);
    if (noms == nommage::simple)
        return chiffres;
    constexpr std::size_t largeur = 7;
    return "P" + std::string(largeur - chiffres.size(), '0') + chiffres;
}

std::vector<nomLarge> nomsMeles(int nombre, nommage noms)
{
    std::vector<nomLarge> larges(static_cast<std::size_t>(nombre));
    for (int i = 0; i < nombre; ++i) {
        const std::string nom = nomDuPoint(i + 1, noms);
        std::copy(nom.begin(), nom.end(), larges[static_cast<std::size_t>(i)].begin());
    }
    Alea alea(1);
    meler(larges, alea);
    return larges;
}

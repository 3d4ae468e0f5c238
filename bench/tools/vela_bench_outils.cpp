#include <algorithm>
#include <map>
#include <random>

#include "mesures/lancement.h"
#include "mesures/mediane.h"
#include "mesures/tableauMesures.h"
#include "tools/allegement.h"
#include "tools/carroyage.h"
#include "tools/projectionPoints.h"

/// Tools on lines of growing size: what a point or a vertex costs must not depend on how many there are.

namespace {

/// A line that wanders over a site, with points along it.
struct site {
    axe ligne;
    std::vector<pointNomme> points;
    std::vector<ligneAllegee> parcelles;

    explicit site(int taille)
    {
        std::mt19937 hasard(static_cast<unsigned>(taille));
        std::normal_distribution<double> bruit;
        std::vector<sommetAxe> sommets;
        point2 p{1650000.0, 8180000.0};
        double cap = 0.0;
        for (int i = 0; i < taille; ++i) {
            sommets.push_back({{p.x, p.y, 100.0}, 0.0});
            points.push_back({L"1", {p.x + 5.0 * bruit(hasard), p.y + 5.0 * bruit(hasard), 101.0}});
            cap += 0.2 * bruit(hasard);
            p = p + point2{std::cos(cap), std::sin(cap)} * 2.0;
        }
        ligne = axe::deSommets(sommets, false);
        std::shuffle(points.begin(), points.end(), hasard);
        constexpr std::size_t parParcelle = 100;
        for (std::size_t i = 0; i + parParcelle <= sommets.size(); i += parParcelle) {
            const auto debut = sommets.begin() + static_cast<std::ptrdiff_t>(i);
            parcelles.push_back({{debut, debut + parParcelle}, true, false});
        }
    }
};

/// A strip one step wide, of as many rows.
dessinCarroyage bande(int rangees)
{
    const sommetAxe coins[] = {{{0.5, 0.5, 0}}, {{2.5, 0.5, 0}}, {{2.5, rangees + 0.5, 0}}, {{0.5, rangees + 0.5, 0}}};
    parametresCarroyage p;
    p.pasX = p.pasY = 1.0;
    return carroyage(axe::deSommets(coins, true), p);
}

bool mesurer(int passes)
{
    tableauMesures tableau({1000, 10000, 100000}, "vertex");
    std::map<int, site> sites;
    for (const int taille : tableau.tailles())
        sites.emplace(taille, site(taille));
    constexpr auto rien = [] {};
    const abscisses numerotation;
    std::size_t faits = 0;
    tableau.enTete();
    tableau.plancher("sort of the points by X", [&](int taille) {
        std::vector<double> x;
        const auto preparer = [&] {
            x.clear();
            for (const pointNomme& p : sites.at(taille).points)
                x.push_back(p.place.x);
        };
        return mediane(passes, preparer, [&] { std::sort(x.begin(), x.end()); });
    });
    tableau.croissance("axis made, with its tree", [&](int taille) {
        const std::vector<elementAxe>& elements = sites.at(taille).ligne.elements();
        return mediane(passes, rien, [&] { faits += axe(elements).elements().size(); });
    });
    tableau.croissance("as many points projected", [&](int taille) {
        const site& s = sites.at(taille);
        return mediane(passes, rien, [&] { faits += projeterPoints(s.ligne, numerotation, s.points).size(); });
    });
    tableau.croissance("parcels lightened", [&](int taille) {
        return mediane(passes, rien, [&] { faits += sommetsGardes(sites.at(taille).parcelles, 0.05).size(); });
    });
    tableau.croissance("grid of as many rows", [&](int taille) {
        return mediane(passes, rien, [&] { faits += bande(taille).traits.size(); });
    });
    return tableau.tenu() && faits > 0;
}

} // namespace

int main(int argc, char** argv)
{
    return lancerMesures(argc, argv, "Tools along lines, lightening, grids.", 5, mesurer);
}

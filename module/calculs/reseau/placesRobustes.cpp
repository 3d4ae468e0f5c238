#include "calculs/reseau/placesRobustes.h"

#include <algorithm>
#include <cmath>

#include "calculs/reseau/loisStatistiques.h"
#include "calculs/reseau/systemeReseau.h"

namespace {

/// Steps in which a misfit still pulls, before it lets go.
constexpr int pasDeHuber = 8;

} // namespace

coordonneesReseau placesRobustes(const reseau& r, const coordonneesReseau& depart, const std::vector<double>& ecarts,
                                 const std::vector<int>& retenues, int pas)
{
    coordonneesReseau c = depart;
    if (retenues.empty())
        return c;
    systemeReseau s(r, retenues, ecarts);
    s.evaluer(c);
    std::vector<double> u(retenues.size());
    for (int tour = 0; tour < pas; ++tour) {
        std::vector<double>& facteurs = s.facteurs();
        std::ranges::fill(facteurs, 1.0);
        for (std::size_t k = 0; k < u.size(); ++k)
            u[k] = std::abs(s.equation(static_cast<int>(k)).ecart) * std::sqrt(s.poids(static_cast<int>(k)));
        const double coude = std::max(1.5 * mediane(u) / 0.6745, 1e-9 * r.sigma);
        for (std::size_t k = 0; k < u.size(); ++k)
            facteurs[k] = u[k] <= coude ? 1.0 : std::pow(coude / u[k], tour < pasDeHuber ? 1.0 : 2.0);
        std::vector<double> changements = s.assembler();
        s.matrice().resoudre(changements);
        s.avancer(c, changements, 1.0);
        s.evaluer(c);
    }
    return c;
}

double desaccordMedian(const reseau& r, const coordonneesReseau& c, const std::vector<double>& ecarts,
                       const std::vector<int>& retenues)
{
    std::vector<double> u;
    for (const int k : retenues) {
        const auto o = static_cast<std::size_t>(k);
        u.push_back(std::abs(equationDe(r.observations[o], c).ecart) / ecarts[o]);
    }
    return u.empty() ? 0.0 : mediane(u);
}

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <stdexcept>
#include <vector>

#include <CLI/CLI.hpp>

#include "calculs/reseau/approcheReseau.h"
#include "calculs/reseau/compensation.h"
#include "calculs/reseau/fichierReseau.h"
#include "generateurs/grilleReseau.h"
#include "mesures/mediane.h"
#include "mesures/memoire.h"

/// Networks of growing size: grids of points seen from their eight neighbours. A plane network costs n^1.5 at best.

namespace {

constexpr auto rien = [] {};
constexpr int coteDeReference = 40;   // 1,596 new points, 24,648 observations
constexpr double admisParTri = 390.0; // times the sort of one number an observation: 1 s where the bar was set
constexpr double megaoctetsAdmis = 200.0;
/// Growth of the time with the number of points; the exponent is 1.5 and memory is slower where it is larger.
constexpr double exposantAdmis = 1.6;

/// Seconds in which as many numbers as there are observations are sorted: what the machine does of such a size.
double tri(std::size_t nombre, int passes)
{
    std::mt19937_64 hasard(1);
    std::vector<double> nombres(nombre), tries;
    for (double& n : nombres)
        n = std::generate_canonical<double, 53>(hasard);
    return mediane(
        passes, [&] { tries = nombres; }, [&] { std::ranges::sort(tries); });
}

struct mesure {
    std::size_t observations = 0;
    double lire = 0.0, placer = 0.0, compenser = 0.0, megaoctets = 0.0;
};

mesure mesurer(int cote, int passes)
{
    const std::string contenu = grilleReseau(cote, 1);
    mesure m;
    double temoin = 0.0;
    const std::size_t avant = memoireOccupee();
    reseau r;
    m.lire = mediane(passes, rien, [&] { r = lireMc(contenu).r; });
    m.placer = mediane(passes, rien, [&] { temoin += approcher(r).c.x.back(); });
    resultatReseau resultat;
    m.compenser = mediane(passes, rien, [&] { resultat = compenser(r); });
    m.observations = r.observations.size();
    m.megaoctets = static_cast<double>(memoireOccupee() - avant) / 1e6;
    if (!resultat.converge || std::abs(resultat.s0 - 1.0) > 0.1 || !std::isfinite(temoin))
        throw std::runtime_error("the generated network was not adjusted");
    return m;
}

} // namespace

/// vela_bench_reseau [--runs N] [--cote N]; exit status 1 when a bar is not held.
int main(int argc, char** argv)
{
    CLI::App options{"Networks of 400 to N x N points."};
    int passes = 3, cote = 100;
    options.add_option("--runs", passes, "runs at least, of which the median counts")->check(CLI::Range(1, 1000));
    options.add_option("--cote", cote, "points a side of the largest grid")->check(CLI::Range(40, 400));
    CLI11_PARSE(options, argc, argv);
    bool tenu = true;
    try {
        std::printf("%-14s %12s %12s %12s %10s\n", "points", "read s", "place s", "adjust s", "MB");
        double premier = 0.0;
        for (int n = coteDeReference / 2; n <= cote; n = n == cote ? n + 1 : std::min(n * 2, cote)) {
            const mesure m = mesurer(n, passes);
            std::printf("%-14d %12.3f %12.3f %12.3f %10.1f\n", n * n, m.lire, m.placer, m.compenser, m.megaoctets);
            if (n == coteDeReference) {
                premier = m.compenser;
                const double plancher = tri(m.observations, passes);
                std::printf("  adjusting takes %.0f x the sort of one number an observation (%.5f s), at most %.0f\n",
                            m.compenser / plancher, plancher, admisParTri);
                tenu &= m.compenser <= admisParTri * plancher && m.megaoctets <= megaoctetsAdmis;
            } else if (n > coteDeReference) {
                const double exposant = std::log(m.compenser / premier) /
                                        std::log(static_cast<double>(n * n) / (coteDeReference * coteDeReference));
                std::printf("  growth since %d points: n^%.2f\n", coteDeReference * coteDeReference, exposant);
                tenu &= exposant <= exposantAdmis;
            }
        }
    } catch (const std::exception& erreur) {
        std::fprintf(stderr, "%s\n", erreur.what());
        return 2;
    }
    std::printf("%s\n", tenu ? "held" : "NOT HELD");
    return tenu ? 0 : 1;
}

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include <CLI/CLI.hpp>

#include "planchers/planchers.h"

namespace {

/// Prints the median time of the runs, the rate, and what was counted.
void ligne(const char* nom, std::size_t octets, int passes, const std::function<std::size_t()>& travail)
{
    std::vector<double> secondes;
    std::size_t compte = 0;
    for (int i = 0; i < passes; ++i) {
        const auto debut = std::chrono::steady_clock::now();
        compte = travail();
        secondes.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count());
    }
    std::sort(secondes.begin(), secondes.end());
    const double mediane = secondes[secondes.size() / 2];
    std::printf("%-42s %8.4f s %7.2f GB/s %12zu\n", nom, mediane, static_cast<double>(octets) / mediane / 1e9, compte);
}

} // namespace

/// vela_bench_planchers FILE.dxf [--runs N]
int main(int argc, char** argv)
{
    CLI::App options{"Floors of this machine on the bytes of a text DXF file."};
    std::string fichier;
    int passes = 7;
    options.add_option("fichier", fichier, "text DXF file")->required();
    options.add_option("--runs", passes, "runs, of which the median counts")->check(CLI::Range(1, 1000));
    CLI11_PARSE(options, argc, argv);
    try {
        const FichierMappe carte(fichier);
        const auto octets = carte.octets();
        const std::string copie = fichier + ".plancher";
        ligne("scan of every tag, 64 bytes at once", octets.size(), passes,
              [&] { return parcourirEtiquettes(octets).enregistrements; });
        ligne("from_chars of every number", octets.size(), passes, [&] { return parcourirNombres(octets).nombres; });
        ligne("write of the map", octets.size(), passes, [&] { return ecrireOctets(octets, copie); });
        std::filesystem::remove(copie);
    } catch (const std::exception& erreur) {
        std::cerr << erreur.what() << '\n';
        return 1;
    }
    return 0;
}

#include "mesures/lancement.h"

#include <cstdio>
#include <exception>

#include <CLI/CLI.hpp>

int lancerMesures(int argc, char** argv, const std::string& quoi, int passes,
                  const std::function<bool(int passes)>& mesurer)
{
    CLI::App options{quoi};
    options.add_option("--runs", passes, "runs at least, of which the median counts")->check(CLI::Range(1, 1000));
    CLI11_PARSE(options, argc, argv);
    try {
        return mesurer(passes) ? 0 : 1;
    } catch (const std::exception& erreur) {
        std::fprintf(stderr, "%s\n", erreur.what());
        return 2;
    }
}

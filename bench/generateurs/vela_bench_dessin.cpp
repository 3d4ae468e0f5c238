#include <CLI/CLI.hpp>

#include "generateurs/dessinReleve.h"

/// vela_bench_dessin OUT.dxf --points N [--binary] [--version AC1024]
int main(int argc, char** argv)
{
    CLI::App options{"Writes a survey drawing of N point symbols; equal arguments give equal bytes."};
    std::string fichier;
    choixReleve choix;
    bool binaire = false;
    options.add_option("fichier", fichier, "DXF file to write")->required();
    options.add_option("--points", choix.points, "number of point symbols")->check(CLI::Range(1, 10'000'000));
    options.add_flag("--binary", binaire, "binary DXF instead of text");
    options.add_option("--version", choix.version, "version of the format")
        ->check(CLI::IsMember({"AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"}));
    CLI11_PARSE(options, argc, argv);
    choix.forme = binaire ? FormeDxf::binaire : FormeDxf::texte;
    try {
        ecrireDessinReleve(fichier, choix);
    } catch (const std::exception& erreur) {
        std::cerr << erreur.what() << '\n';
        return 1;
    }
    return 0;
}

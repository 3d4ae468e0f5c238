#include "programme.h"

#include <exception>
#include <iostream>
#include <string_view>

#include <CLI/CLI.hpp>

#include "aideFrancaise.h"
#include "commandes.h"
#include "erreurProgramme.h"

namespace {

constexpr const char* version = "vela " VELA_VERSION;

int refuser(std::string_view message)
{
    std::cout.flush(); // in the order in which it happened, where both go to one file
    std::cerr << "vela : " << message << '\n';
    return 1;
}

int executer(CLI::App& programme, int argc, const char* const* argv)
{
    try {
        programme.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::cout << programme.help();
    } catch (const CLI::CallForVersion&) {
        std::cout << version << '\n';
    } catch (const CLI::ParseError& erreur) {
        return refuser(messageFrancais(programme, erreur) + essayezAide);
    }
    return 0;
}

} // namespace

int lancerProgramme(int argc, const char* const* argv)
{
    CLI::App programme("Topographie : polygonales, dessins DXF et tables de points.", "vela");
    parlerFrancais(programme);
    programme.set_version_flag("--version", version, "Affiche la version");
    programme.require_subcommand(0, 1);
    ajouterCommandePolygonale(programme);
    ajouterCommandePoints(programme);
    ajouterCommandeImplantation(programme);
    ajouterCommandeReseau(programme);
    ajouterCommandeInfo(programme);
    ajouterCommandeConvertir(programme);
    ajouterCommandeApercu(programme);
    ajouterCommandeExecuter(programme);
    ajouterCommandeVerifier(programme);
    ajouterFenetre(programme);
    try {
        if (const int statut = executer(programme, argc, argv); statut != 0)
            return statut;
    } catch (const std::exception& erreur) {
        return refuser(erreur.what());
    }
    return std::cout.flush() ? 0 : refuser("la sortie n'a pas pu être écrite.");
}

#include "programme.h"

#include <cstdlib>

#include <sys/wait.h>

namespace fs = std::filesystem;

dossierEssai::dossierEssai()
{
    fs::create_directory(dossier / "support");
    fs::create_directory_symlink(VELA_SOURCE_DIR "/module/resources/biblio", dossier / "support/biblio");
}

execution dossierEssai::vela(const std::string& arguments) const
{
    // Redirections first: arguments may hold others.
    const std::string commande = "cd '" + dossier.path().string() +
                                 "' && VELA_REGISTRY=registre.ini VELA_SUPPORT=support LC_ALL=C "
                                 "</dev/null >sortie.txt 2>erreurs.txt '" VELA_PROGRAM "' " +
                                 arguments;
    const int statut = std::system(commande.c_str());
    return {WIFEXITED(statut) ? WEXITSTATUS(statut) : -1, lire("sortie.txt"), lire("erreurs.txt")};
}

nlohmann::json dossierEssai::velaJson(const std::string& arguments) const
{
    const execution run = vela(arguments + " --json");
    EXPECT_EQ(run.statut, 0) << run.erreurs;
    return nlohmann::json::parse(run.sortie);
}

void dossierEssai::copierExemple(const std::string& nom) const
{
    fs::copy_file(fs::path(VELA_SOURCE_DIR "/examples") / nom, chemin(nom));
}

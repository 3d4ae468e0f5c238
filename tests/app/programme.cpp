#include "programme.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include <sys/wait.h>

namespace fs = std::filesystem;

namespace {

std::string contenuDe(const fs::path& fichier)
{
    std::ifstream flux(fichier, std::ios::binary);
    return {std::istreambuf_iterator<char>(flux), {}};
}

} // namespace

dossierEssai::dossierEssai()
{
    std::string modele = (fs::temp_directory_path() / "vela-essai-XXXXXX").string();
    if (!mkdtemp(modele.data()))
        throw std::runtime_error("no temporary folder");
    dossier = modele;
    fs::create_directory(dossier / "support");
    fs::create_directory_symlink(VELA_SOURCE_DIR "/module/resources/biblio", dossier / "support/biblio");
}

dossierEssai::~dossierEssai()
{
    std::error_code ignoree; // a folder left in /tmp is no failure of the test
    fs::remove_all(dossier, ignoree);
}

execution dossierEssai::vela(const std::string& arguments) const
{
    // Redirections first: arguments may hold others.
    const std::string commande = "cd '" + dossier.string() +
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

void dossierEssai::ecrire(std::string_view nom, std::string_view contenu) const
{
    std::ofstream(chemin(nom), std::ios::binary) << contenu;
}

std::string dossierEssai::lire(std::string_view nom) const
{
    return contenuDe(chemin(nom));
}

void dossierEssai::copierExemple(const std::string& nom) const
{
    fs::copy_file(fs::path(VELA_SOURCE_DIR "/examples") / nom, chemin(nom));
}

#include "executionParDessin.h"

#include <cstdio>
#include <iostream>
#include <memory>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "erreurProgramme.h"

namespace {

using fichierTemporaire = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// A file without a name that holds a text, at its beginning.
fichierTemporaire contenant(const std::string& texte)
{
    fichierTemporaire fichier(std::tmpfile(), std::fclose);
    if (!fichier || std::fwrite(texte.data(), 1, texte.size(), fichier.get()) != texte.size() ||
        std::fflush(fichier.get()) != 0)
        throw erreurProgramme("l'entrée du script n'a pas pu être copiée pour chaque dessin.");
    std::rewind(fichier.get());
    return fichier;
}

/// What became of a process: 0 when all went well.
int statutDe(const std::vector<std::string>& arguments, const std::string& entree)
{
    const fichierTemporaire fichier = contenant(entree);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(fichier.get()), STDIN_FILENO);
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    pid_t enfant = 0;
    const int refus = posix_spawn(&enfant, "/proc/self/exe", &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int statut = 0;
    if (refus != 0 || waitpid(enfant, &statut, 0) != enfant)
        throw erreurProgramme("le traitement n'a pas pu être lancé.");
    return statut;
}

} // namespace

void executerParDessin(const std::vector<std::string>& arguments, const std::vector<std::string>& dessins,
                       const std::string& entree)
{
    std::string echecs;
    for (const std::string& dessin : dessins) {
        std::cout << "== " << dessin << std::endl;
        std::vector<std::string> complets{"vela"};
        complets.insert(complets.end(), arguments.begin(), arguments.end());
        complets.insert(complets.end(), {"--dessin", dessin});
        if (const int statut = statutDe(complets, entree); statut != 0)
            echecs += (echecs.empty() ? "" : ", ") + dessin + (WIFSIGNALED(statut) ? " (arrêt brutal)" : "");
    }
    if (!echecs.empty())
        throw erreurProgramme("échec pour " + echecs + ".");
}

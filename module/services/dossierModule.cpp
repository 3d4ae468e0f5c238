#include "services/dossierModule.h"

#include <filesystem>

#include <dlfcn.h>

std::string dossierModule()
{
    static const char lieu = 0; // of this module, wherever it was loaded from
    Dl_info fichier{};
    if (dladdr(&lieu, &fichier) == 0 || !fichier.dli_fname)
        return {};
    std::error_code introuvable;
    const auto chemin = std::filesystem::absolute(fichier.dli_fname, introuvable);
    return introuvable ? std::string() : chemin.parent_path().string();
}

#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "TestFolder.h"

/// A support folder of the test program's own, with the symbol library: the program looks for it once only, so it is
/// there before the first test.
class supportEssai {
public:
    static std::filesystem::path dossier()
    {
        return std::filesystem::temp_directory_path() / ("vela_support_" + std::to_string(getpid()));
    }
    static std::filesystem::path fichier(const char* nom) { return dossier() / nom; }

    supportEssai()
    {
        namespace fs = std::filesystem;
        fs::remove_all(dossier());
        fs::create_directories(dossier());
        fs::create_directory_symlink(fs::path(VELA_SOURCE_DIR) / "module/resources/biblio", dossier() / "biblio");
        ::setenv("VELA_SUPPORT", dossier().c_str(), 1);
        ::setenv("VELA_REGISTRY", (dossier() / "registre.ini").c_str(), 1);
    }
    ~supportEssai()
    {
        std::error_code laisse; // a folder left behind is no failure of the test
        std::filesystem::remove_all(dossier(), laisse);
    }
};

inline const supportEssai supportDuProgramme;

inline void ecrireDans(const std::filesystem::path& fichier, const std::string& octets)
{
    std::ofstream(fichier, std::ios::binary) << octets;
}

#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "TestFolder.h"

/// What a run of the program gave.
struct execution {
    int statut;
    std::string sortie;
    std::string erreurs;
};

/// A folder for one test, gone with it; the program runs in it and finds its settings there, never the user's.
class dossierEssai : public testing::Test {
protected:
    dossierEssai();

    /// @param arguments as typed in a shell
    execution vela(const std::string& arguments) const;
    /// The same, which must succeed, with nothing but one JSON value on its output.
    nlohmann::json velaJson(const std::string& arguments) const;

    std::filesystem::path chemin(std::string_view nom) const { return dossier / nom; }
    void ecrire(std::string_view nom, std::string_view contenu) const { dossier.write(nom, contenu); }
    std::string lire(std::string_view nom) const { return dossier.read(nom); }
    /// Copies one of the examples into the folder.
    void copierExemple(const std::string& nom) const;

private:
    TestFolder dossier;
};

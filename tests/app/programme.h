#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

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
    ~dossierEssai() override;

    /// @param arguments as typed in a shell
    execution vela(const std::string& arguments) const;
    /// The same, which must succeed, with nothing but one JSON value on its output.
    nlohmann::json velaJson(const std::string& arguments) const;

    std::filesystem::path chemin(std::string_view nom) const { return dossier / nom; }
    void ecrire(std::string_view nom, std::string_view contenu) const;
    std::string lire(std::string_view nom) const;
    /// Copies one of the examples into the folder.
    void copierExemple(const std::string& nom) const;

private:
    std::filesystem::path dossier;
};

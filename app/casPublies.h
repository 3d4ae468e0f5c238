#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// A computation made elsewhere, with what it gave there: a case of examples/publies, whose LISEZMOI.md says how it is
/// written.
struct casPublie {
    struct attendu {
        std::string grandeur;
        double tolerance = 0.0;
        std::vector<double> valeurs;
    };
    struct couple {
        std::string nom;
        double x, y, cibleX, cibleY;
    };
    std::string nom, source, calcul;
    std::vector<std::string> notes;
    std::filesystem::path fichier; ///< its whole path; empty when the case needs none
    std::vector<couple> couples;
    std::map<std::string, std::vector<double>> donnees;
    std::vector<attendu> attendus;
};

/// Those of a file, or of all the ".txt" files of a folder in the order of their names.
/// @throw erreurProgramme with file, line and reason
std::vector<casPublie> lireCasPublies(const std::filesystem::path& chemin);

/// What our own computation gives for the case, by the names that `attendu` lines use.
/// @throw erreurProgramme for a computation that is not known, missing data, or data it refuses
std::map<std::string, std::vector<double>> calculerCas(const casPublie& cas);

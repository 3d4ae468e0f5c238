#pragma once

#include <string>
#include <vector>

/// What `vela points` is asked to do. Names of files and tables as typed; an empty one is not asked for.

struct importPoints {
    std::string dessin, fichier, table, enregistrer;
    int code = 1; ///< of lines that tell none
    bool placer = false;
    bool strict = false;
};

/// What became of it. Texts are UTF-8.
struct suitesImportPoints {
    int ajoutes = 0;
    int dessines = 0;
    std::string table;
    std::string dessin;       ///< the file saved
    std::string ancienDessin; ///< where the file that was there before is kept
    std::vector<std::string> avertissements;
};

struct exportPointsDemande {
    std::string dessin, fichier, table, codes, projection;
};

struct suitesExportPoints {
    int ecrits = 0;
    std::string avertissement; ///< of points left out; may be empty
};

struct pointListe {
    std::string nom;
    double x, y, z;
    int code;
};

// The drawing is written last, and only when all else went well. @throws erreurProgramme

suitesImportPoints importer(const importPoints& demande);
suitesExportPoints exporter(const exportPointsDemande& demande);
/// The points of a table, of the current one when it is not named.
std::vector<pointListe> lister(const std::string& dessin, const std::string& table);

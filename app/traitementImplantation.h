#pragma once

#include <optional>
#include <string>
#include <vector>

#include "implantation/implantationEnLigne.h"

/// What `vela implantation` is asked to do. Names as typed; an empty one is not asked for.
struct demandeProgrammeImplantation {
    std::string dessin;
    std::string station;
    std::string reference;
    std::vector<std::string> stations;
    std::string points;
    std::string table;
    std::string rapport;
    std::string enregistrer;
    std::optional<int> code;
    std::optional<double> portee;
    double hauteur = 1.0;
    double seuil = 1.0;
    bool repartir = false;
    bool equilibrer = false;
    bool verifier = false;
    bool dessiner = false;
};

struct traitementImplantation {
    suitesImplantation suites;
    std::vector<std::string> avertissements;
    std::string rapport;      ///< the file written
    std::string dessin;       ///< the file saved
    std::string ancienDessin; ///< where the file that was there before is kept
};

/// Opens the drawing, computes, writes the report, draws and saves, in this order. @throws erreurProgramme
traitementImplantation traiterImplantation(const demandeProgrammeImplantation& demande);

// The two ways to show it.
void montrerImplantation(const demandeProgrammeImplantation& demande, const traitementImplantation& traitement);
void montrerImplantationJson(const traitementImplantation& traitement);

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "calculs/reseau/fichierReseau.h"
#include "calculs/reseau/resultatReseau.h"

/// What `vela reseau` is asked to do. Names of files as typed; an empty one is not asked for.
struct demandeReseau {
    std::string fichier;
    std::string rapport;
    std::string dessin;
    std::string enregistrer;
    std::string robuste;           ///< "huber", "tukey", or empty
    std::optional<int> code;       ///< of placed points
    std::optional<double> echelle; ///< of ellipses; chosen without it
    bool libre = false;
    bool json = false;
    bool placer = false;
    bool ellipses = false;
};

/// What became of it.
struct traitementReseau {
    reseau r;
    resultatReseau resultat;
    std::vector<std::string> avertissements; ///< French, UTF-8
    std::string rapport, dessin, ancienDessin, table;
    int pointsPlaces = 0;
};

/// Reads, adjusts, writes the report, places and saves, in this order. @throws erreurProgramme
traitementReseau traiterReseau(const demandeReseau& demande);

// The two ways to show it.
void afficherTexte(const demandeReseau& demande, const traitementReseau& t);
void afficherJson(const demandeReseau& demande, const traitementReseau& t);

#pragma once

#include "calculs/calculPolygonaleFermee.h"

#include <string>
#include <vector>

/// What `vela polygonale fermee` is asked to do. Names of files as typed; an empty one is not asked for.
struct demandeFermee {
    std::string observations;
    std::string rapport;
    std::string dessin;
    std::string enregistrer;
    int code = 100;
    bool placer = false;
    bool altitudes = false;
    bool originale = false;
    bool compensee = false;
};

/// What became of it.
struct traitementFermee {
    resultatPolygonaleFermee resultat;
    std::vector<std::string> avertissements; ///< French, UTF-8
    int code = 100;                          ///< of the station points, within 1 to 9999
    int pointsPlaces = 0;
    std::string table; ///< name of the table that received the points
    std::string rapport;
    std::string dessin;       ///< the file saved
    std::string ancienDessin; ///< where the file that was there before is kept
};

/// Reads, computes, writes the report, places and saves, in this order. The drawing is touched last, and only when all
/// else is done. @throws erreurProgramme
traitementFermee traiterPolygonaleFermee(const demandeFermee& demande);

// The two ways to show it.
void afficherTexte(const demandeFermee& demande, const traitementFermee& traitement);
void afficherJson(const demandeFermee& demande, const traitementFermee& traitement);

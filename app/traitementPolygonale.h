#pragma once

#include <string>
#include <vector>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"

/// What `vela polygonale` is asked to do. Names of files as typed; an empty one is not asked for.
struct demandePolygonale {
    std::string observations;
    std::string rapport;
    std::string dessin;
    std::string enregistrer;
    int code = 100;
    bool placer = false;
    bool altitudes = false;
    bool originale = false;
    bool compensee = false;
    bool strict = false;         ///< a closure beyond practice or tolerance is a failure, and nothing is placed
    double precisionAngle = 0.0; ///< standard deviation of an angle, in the file's unit; 0 for no tolerance
    bool quandMeme = false;      ///< place stations whose closure is beyond any practice
};

/// What became of it, apart from the figures.
struct suitesPolygonale {
    std::vector<std::string> avertissements; ///< French, UTF-8
    int code = 100;                          ///< of the station points, within 1 to 9999
    int pointsPlaces = 0;
    std::string table; ///< name of the table that received the points
    std::string rapport;
    std::string dessin;       ///< the file saved
    std::string ancienDessin; ///< where the file that was there before is kept
};

template <class Resultat>
struct traitementPolygonale : suitesPolygonale {
    Resultat resultat;
};
using traitementFermee = traitementPolygonale<resultatPolygonaleFermee>;
using traitementOuverte = traitementPolygonale<resultatPolygonaleOuverte>;

// Read, compute, write the report, place and save, in this order. The drawing is touched last, and only when all else
// is done. @throws erreurProgramme
traitementFermee traiterPolygonaleFermee(const demandePolygonale& demande);
traitementOuverte traiterPolygonaleOuverte(const demandePolygonale& demande);

// The two ways to show it.
void afficherTexte(const demandePolygonale& demande, const traitementFermee& traitement);
void afficherTexte(const demandePolygonale& demande, const traitementOuverte& traitement);
void afficherJson(const demandePolygonale& demande, const traitementFermee& traitement);
void afficherJson(const demandePolygonale& demande, const traitementOuverte& traitement);

#pragma once

#include <vector>

#include "geometrie/plan.h"

/// Where the parts of a legend stand. Values only, in drawing units, about the legend's upper left corner.

struct parametresLegende {
    double tailleTextes = 2.5;
    double tailleBlocs = 5.0;    ///< the larger side of every block
    double distanceLignes = 7.5; ///< from the middle of a line to that of the next
    double longueurTrait = 15.0; ///< of the strokes that show layers
    bool calques = false, grouper = false;
};

/// What a line shows on its left, and how high its text is.
struct ligneLegende {
    double largeur = 0.0, hauteur = 0.0; ///< of a block in its own units; 0 and 0 for a stroke
    double hauteurTexte = 0.0;
    bool trait = false;
};

struct placeLegende {
    point2 milieu;        ///< of the block, or of the stroke
    double echelle = 1.0; ///< of the block
    point2 texte;         ///< left end of the middle of the text
};

struct dispositionLegende {
    double hauteurTitre = 0.0;
    point2 titre; ///< left end of its baseline
    std::vector<placeLegende> lignes;
};

/// Lines below one another, at the distance wanted, or farther apart where blocks or texts would touch. Texts begin on
/// one vertical, right of everything that stands on the left.
dispositionLegende disposerLegende(const std::vector<ligneLegende>& lignes, const parametresLegende& parametres);

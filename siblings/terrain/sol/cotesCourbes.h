#pragma once

#include <vector>

#include "sol/courbesNiveau.h"

/// Where the altitude of a line is written: the middle of the text, which follows the line with its top uphill.
struct coteCourbe {
    lieuSol lieu;
    double angle = 0.0; ///< radians from the east, counter-clockwise
};

/// A line with its texts, and the stretches of it that are drawn beside them.
struct courbeCotee {
    std::vector<coteCourbe> cotes;
    std::vector<courbeNiveau> troncons; ///< the line itself when it bears no text
};

/// Places a text on each stretch of `espacement` along the line, where the line is straightest; a line that is too
/// short for a text has none. The line is left out under its texts.
/// @param largeur of the text with its margins
courbeCotee coter(const courbeNiveau& courbe, double largeur, double espacement);

#pragma once

#include <string>

#include "calculs/reseau/compensation.h"
#include "calculs/reseau/fichierReseau.h"

/// A network of examples/publies, by its file name.
reseau reseauEssai(const char* fichier);

/// A grid of points about 100 m apart seen from each other, four corners held, with directions and distances to the
/// neighbours, errors as announced; the same seed gives the same network. @param cote points a side
reseau grilleEssai(int cote, unsigned graine);

#pragma once

#include "implantation/travailImplantation.h"

/// Asks at the command line for a station and its reference, and gives the setup to points of the job. "Restreindre"
/// asks which points are meant instead, and "Annuler" takes their setups away; a cancel changes nothing.
/// @param choisis the points that are meant, which "Restreindre" replaces
void choisirMiseEnStation(travailImplantation& travail, travailImplantation::positions& choisis);

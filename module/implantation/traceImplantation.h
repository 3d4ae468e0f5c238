#pragma once

#include "implantation/dessinPlan.h"
#include "implantation/reglagesImplantation.h"
#include "implantation/resultatImplantation.h"

/// What setups and points look like.

/// Marker and zero of a setup: a cross on the station, an arrow to its reference or along its orientation, which has
/// only as much length as shows it; with masqueNumero the label.
dessinPlan traceStation(const donneesStation& station, unsigned masque, const reglagesImplantation& reglages);

/// Number and line of a point, as the mask says. A point at an unknown place has none.
/// @param station null when the point has none: then no line
dessinPlan tracePoint(const pointImplante& point, const donneesStation* station, unsigned masque, bool verification,
                      const reglagesImplantation& reglages);

/// A small plan of a station and its points that fits a square of that side, its lower left corner at the origin.
/// Of many points only the first sixty bear their numbers.
dessinPlan planReduit(const blocStation& bloc, double cote, bool verification, const reglagesImplantation& reglages);

/// The sketch: for each station the small plan, its description and the table of its points; from the origin down.
dessinPlan croquisImplantation(const resultatImplantation& resultat, const reglagesImplantation& reglages);

/// A sight seen from the side, the station at the origin: ground, obstacles, line of sight, and where it is cut.
/// Heights are drawn five times as large as distances.
dessinPlan traceCoupe(const coupeVisee& coupe, const pointImplante& point, const donneesStation& station,
                      const reglagesImplantation& reglages);

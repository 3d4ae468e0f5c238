#pragma once

#include "implantation/travailImplantation.h"

/// Asks at the command line for points to stake out, in a loop: those of entities that are picked, or free positions.
/// A symbol gives its point; a curve the ends of its straights and arcs, other entities their place, under the names
/// that free points take.
void demanderPoints(travailImplantation& travail);

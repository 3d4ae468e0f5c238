#pragma once

#include "geometrie/abscisses.h"
#include "geometrie/axe.h"
#include "reports/htmlDocument.h"

/// The elements of an alignment: kind, chainages, length, radius or parameter, bearing and coordinates of the points of
/// tangency.
htmlDocument rapportAxe(const axe& ligne, const abscisses& numerotation);

/// "Droite", "Arc à gauche", "Clothoïde"...
std::wstring nomElement(const elementAxe& element);
/// Parameter A of a clothoid; of one between two radii too.
double parametreClothoide(const elementAxe& element);

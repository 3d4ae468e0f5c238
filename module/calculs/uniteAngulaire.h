#pragma once

#include "services/grandeur.h"

/// Index of the angle unit, as the dialogs' list and the files number it. Any other index counts as grades.
enum uniteAngulaire : int { uniteGrades = 0, uniteDegres = 1, uniteRadians = 2 };

/// Full turn in the unit: 400, 360 or 2π.
double tourComplet(int unite);

/// Factor from the unit to radians: π/200, π/180 or 1.
double facteurRadians(int unite);

/// Word of the unit in files: "grades", "degres" or "radians".
const wchar_t* motUniteAngulaire(int unite);

/// What stands behind an angle: "gr", "°" or "rad".
const wchar_t* symboleUniteAngulaire(int unite);

/// Unit whose word begins with `lettre`, in either case; grades for any other letter.
int uniteAngulaireDe(wchar_t lettre);

/// Brings an angle into one turn: angle − floor(angle / tour)·tour, plus one turn when that is negative.
/// @return in [0, tour]: an angle a hair below zero rounds to the full turn itself. A zero turn returns the angle, an
///         unknown grandeur stays unknown.
double normaliser(double angle, double tour);
grandeur normaliser(grandeur angle, double tour);

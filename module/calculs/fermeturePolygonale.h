#pragma once

#include <cstddef>
#include <string>

#include "calculs/cheminement.h"

// How a traverse closes: what practice allows, and how it is told.
//
// The bounds are no tolerance of a contract, which is for the user to know: beyond them a datum is wrong, whatever
// the instrument and the care. A compass reads half a degree and closes a traverse within 1/300 of its length; a
// theodolite and a tape do ten times better, a total station more. So: half a grade an angle, growing as the square
// root of their number, and 1/200 of the length.

/// Largest angular error, in the unit, that `angles` angles may leave.
double ecartAngulaireAdmis(int unite, std::size_t angles);
/// Largest closure in position, in drawing units, of a traverse of that length.
double ecartPlanimetriqueAdmis(double longueur);

/// Whether both are within practice. What is unknown or not finite is not.
bool fermetureAdmise(const cheminement& c);

/// French sentence for an angular error or a relative closure beyond any practice; empty for a traverse that closes,
/// and for one whose closures are unknown or not finite.
std::wstring remarqueFermeture(const cheminement& c);

/// Largest angular error of a traverse of `cotes` legs whose angles are read with the standard deviation `precision`:
/// 2.7·s·√(n + 1), as French practice bounds it.
double toleranceAngulaire(double precision, std::size_t cotes);
/// French sentence for an angular error beyond that tolerance, `precision` being in the traverse's unit; empty within
/// it and for an unknown error.
std::wstring remarqueTolerance(const cheminement& c, double precision);

/// "1/11 375", "nulle" for a traverse that closes but for rounding, "supérieure à 1" for one that misses by more than
/// its length, "non définie".
std::wstring texteFermetureRelative(double fermetureRelative);

/// One line: the angular error, the closures in position and height, the relative closure.
std::wstring resumePolygonale(const cheminement& c);

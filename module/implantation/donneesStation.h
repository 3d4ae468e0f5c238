#pragma once

#include <string>

#include "geometrie/plan.h"
#include "services/grandeur.h"

/// A named place; any coordinate may be unknown.
struct lieuNomme {
    std::wstring nom;
    double x = inconnu, y = inconnu, z = inconnu;

    bool planConnu() const { return x != inconnu && y != inconnu; }
    point2 plan() const { return {x, y}; }
};

/// Of the coordinates, lengths and angles in grades that the job writes.
constexpr int decimalesImplantation = 4;

/// Whether two places are one, seen from above, as points of the tables are compared: within 1e-4.
bool memePlace(const lieuNomme& a, const lieuNomme& b);

/// A station setup as values: where the instrument stands, and what its zero is on.
/// Angles in radians, shown in grades; bearings run clockwise from north. What depends on an unknown coordinate is
/// unknown.
struct donneesStation {
    lieuNomme station;
    bool visee = false;  ///< zero on the reference; else at the orientation V0
    double v0 = 0.0;     ///< 0: the zero points north
    lieuNomme reference; ///< its name may be empty, its altitude unknown
    int etiquette = 0;   ///< how many setups at the same place have their labels above its own
};

double enGrades(double radians);

double gisementVers(const donneesStation& station, double x, double y);
/// What to read on the instrument for a target. Oriented: bearing + V0, intended as it is and not reduced to a turn.
/// Sighted: bearing − bearing of the reference, one turn more when negative.
double angleVers(const donneesStation& station, double x, double y);
/// Horizontal.
double distanceVers(const donneesStation& station, double x, double y);

/// "NORD (O gr)", "EST (10O gr)", "SUD (20O gr)", "OUEST (30O gr)" within 1e-6 grade, else four decimals and " gr". The
/// labels have the letter O where a zero would stand: intended, users compare reports.
std::wstring texteOrientation(double v0);
/// Column of the list: "NORD" for a V0 of exactly 0, else "V0=%.4f gr"; sighted: the name of the reference.
std::wstring texteReference(const donneesStation& station);
/// Fragment of a report, in Windows-1252.
std::string descriptionHtml(const donneesStation& station);
/// Text of the label in the drawing; "%%u" turns underlining on and off.
std::wstring descriptionTexte(const donneesStation& station);

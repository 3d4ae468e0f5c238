#pragma once

#include <string>
#include <vector>

#include "calculs/cheminement.h"
#include "calculs/donneesPolygonale.h"

class htmlDocument;

/// A traverse of either kind as those who show and place it need it.
struct polygonaleCalculee {
    cheminement resultat;
    tracePolygonale originelle, compensee;
    std::vector<std::wstring> avertissements; ///< French: cells, data, angles booked by another rule
};

/// Computes a traverse. @param rapport if given, receives the report with its head lines: encoding and title.
polygonaleCalculee calculerPolygonale(const donneesPolygonaleFermee& donnees, htmlDocument* rapport = nullptr);
polygonaleCalculee calculerPolygonale(const donneesPolygonaleOuverte& donnees, htmlDocument* rapport = nullptr);

/// "1/11 375", "nulle" for a traverse that closes but for rounding, "supérieure à 1" for one that misses by more than
/// its length, "non définie".
std::wstring texteFermetureRelative(double fermetureRelative);

/// One line: the angular error, the closures in position and height, the relative closure.
std::wstring resumePolygonale(const cheminement& c);

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

#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "exchange/exportPoints.h"
#include "points/exportation.h"

class listePointsDuDessin;
class tableCodification;

/// Points of a table written to a file, in the format of its extension: a list as text or HTML, LandXML, or a map
/// (GeoJSON, GeoPackage, KML, Shapefile), whose coordinates are in `projection` ("EPSG:3946"; others ignore it).

struct issueExport {
    issueEcriture issue = issueEcriture::intact;
    std::wstring raison; ///< French sentence of why not; empty when it was written
    int sansPlace = 0;   ///< points that no map can show: their X or Y is unknown
};

/// French sentence on points left out of a map; empty when none was.
VELA_EXPORT std::wstring phraseSansPlace(const issueExport& issue);

/// Whether a file of that name is a map.
VELA_EXPORT bool estCarte(const std::filesystem::path& fichier);

/// @param avancer called once a point
VELA_EXPORT issueExport exporterTable(const listePointsDuDessin& table, std::span<const int> places,
                                      const tableCodification& codes, const std::filesystem::path& fichier,
                                      const std::string& projection, const std::function<void()>& avancer);

#pragma once

#include <functional>
#include <string>

/// One point of a map. Texts are UTF-8.
struct pointCarte {
    std::string numero, libelle, observation;
    double x = 0.0, y = 0.0;
    double z = 0.0;
    bool altitudeConnue = false;
    int code = 1;
};

/// Writes a file of points, which must not exist.
/// @param format "GeoJSON", "GPKG", "KML", "ESRI Shapefile"
/// @param projection of the coordinates, "EPSG:3946"; GeoJSON and KML are written in longitudes and latitudes
/// @param refus why not, as a French sentence in UTF-8; empty when it was written
using ecrireCarte_t = void (*)(const std::string& fichier, const char* format, const std::string& projection,
                               const std::function<bool(pointCarte&)>& suivant, std::string& refus);

/// The name that the library exports it under.
inline constexpr char nomEcrireCarte[] = "velaEcrireCarte";

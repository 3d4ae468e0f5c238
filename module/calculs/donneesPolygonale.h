#pragma once

#include <string>
#include <vector>

/// A known station and its known bearing, in the angle unit of the traverse. Coordinates in drawing units.
struct stationPolygonale {
    std::wstring nom;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double gisement = 0.0;

    bool operator==(const stationPolygonale&) const = default;
};

/// One row of the observation list, as the user typed it: the texts go to the file and back unchanged.
struct ligneObservation {
    std::wstring station; ///< sighted station
    std::wstring angle;
    std::wstring distance;
    std::wstring altitude; ///< height difference

    bool operator==(const ligneObservation&) const = default;
};

/// What the closed-traverse dialog holds and its file keeps.
struct donneesPolygonaleFermee {
    stationPolygonale depart;
    int unite = 0;       ///< uniteAngulaire
    int nivellement = 0; ///< modeNivellement
    std::vector<ligneObservation> lignes;

    bool operator==(const donneesPolygonaleFermee&) const = default;
};

/// What the open-traverse dialog holds and its file keeps.
struct donneesPolygonaleOuverte {
    stationPolygonale depart;
    stationPolygonale arrivee;
    double fermeture = 0.0; ///< last angle, measured at the arrival station
    int unite = 0;          ///< uniteAngulaire
    int nivellement = 0;    ///< modeNivellement
    std::vector<ligneObservation> lignes;

    bool operator==(const donneesPolygonaleOuverte&) const = default;
};

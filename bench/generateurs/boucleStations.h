#pragma once

#include <string>
#include <vector>

/// One leg of a generated closed traverse: what an instrument at the previous station read.
struct coteBoucle {
    std::string station; ///< sighted station; the last leg sights the departure station again
    double angle;        ///< clockwise from the station before to this one, grades, to 0.0001
    double distance;     ///< horizontal, metres, to the millimetre
    double denivelee;    ///< metres, to the millimetre
};

/// A clockwise loop of stations with small reading errors, so that each closure is there to be shared out.
struct boucleStations {
    double x, y, z;  ///< departure station "S0", metres
    double gisement; ///< bearing of its first leg, grades
    std::vector<coteBoucle> cotes;
};

/// A loop of `nombre` legs of some 40 to 160 m, errors up to 0.0010 gr an angle, 5 mm a distance, 3 mm a height.
/// @throws std::invalid_argument on fewer than 3 legs
boucleStations genererBoucle(int nombre);

/// The loop as a traverse file's text (Windows-1252; no accents in it), levelling shared by distance.
std::string fichierObservations(const boucleStations& boucle);

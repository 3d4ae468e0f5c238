#pragma once

#include <string>
#include <vector>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"
#include "generateurs/Alea.h"

// Random traverses whose stations are known, booked well or with a fault, and a reader of advice who does what it says.

/// A traverse as observed, and the stations it runs through.
struct polygonaleTiree {
    stationPolygonale depart, arrivee;
    double dernierAngle = 0.0;
    int unite = 0;
    std::vector<observationPolygonale> lignes;
    std::vector<stationCorrigee> vraies;

    std::size_t angles() const { return lignes.size() + 1; }
    /// Angle k of an open traverse: those of the rows, then the last one.
    double& angle(std::size_t k) { return k < lignes.size() ? lignes[k].angle : dernierAngle; }
    resultatPolygonaleOuverte ouverte() const;
    resultatPolygonaleFermee fermee() const;
};

/// Three to twelve legs of 30 to 250 m, angles off by 3 mgr at most and lengths by 5 mm. The arrival bearing counts the
/// turns as the computation wants them.
polygonaleTiree ouverteAleatoire(Alea& alea);

enum class sensBoucle { horaire, antihoraire };
/// Four to twelve stations around a centre, each seen from it at another bearing: a loop that does not cross itself.
polygonaleTiree boucleAleatoire(Alea& alea, sensBoucle sens);

/// What following an advice gives.
enum class suite {
    muet,     ///< it says nothing
    juste,    ///< one explanation, the right one
    parmi,    ///< several, the right one among them
    faux,     ///< none of those given is right: what it says to type leads elsewhere
    sansSuite ///< it says nothing to type
};

/// @param antihoraire the reader walked the loop anticlockwise, and takes the sentence meant for that
suite suivreOuverte(const std::wstring& conseil, const polygonaleTiree& p);
suite suivreFermee(const std::wstring& conseil, const polygonaleTiree& p, bool antihoraire);

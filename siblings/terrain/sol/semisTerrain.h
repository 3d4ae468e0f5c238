#pragma once

#include <string>
#include <vector>

#include "sol/sommetSol.h"

/// What a ground is made from. An altitude of `sansAltitude` in a limit or a hole takes the ground's own.
struct semisTerrain {
    static constexpr double sansAltitude = 1e38;

    enum class genre {
        rupture, ///< the ground may break along it, and no side of a triangle crosses it
        limite,  ///< the model stops there; several of them: what lies in any
        trou     ///< what lies in it is no part of the model
    };
    /// A line; limits and holes are closed, whether their last point repeats the first or not.
    struct ligne {
        genre nature = genre::rupture;
        std::vector<sommetSol> sommets;
        bool operator==(const ligne&) const = default;
    };

    std::vector<sommetSol> points;
    std::vector<ligne> lignes;
    /// Sides on the outside that are longer than this are taken away, with their triangles; 0: all stay.
    double areteMax = 0.0;

    bool operator==(const semisTerrain&) const = default;
};

/// What a user must be told of what a ground was made from.
struct incidentSol {
    enum class genre {
        confondus,  ///< points at one place whose altitudes differ: the highest is kept
        croisement, ///< two break lines cross; where they disagree the highest is kept
        ecart       ///< a break line passes over a point whose altitude is another: the point's is kept
    };
    genre nature = genre::confondus;
    lieuSol lieu;
    double z1 = 0.0, z2 = 0.0;
};

/// In French, one line: what, where, altitudes.
std::wstring texteIncident(const incidentSol& incident);

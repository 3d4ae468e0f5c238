#pragma once

#include <vector>

/// A line to draw: vertices in order, not closed. Coordinates in drawing units.
struct tracePolygonale {
    struct sommet {
        double x;
        double y;

        bool operator==(const sommet&) const = default;
    };

    int couleur; ///< colour index of the drawing
    std::vector<sommet> sommets;
};

inline constexpr int couleurTraceOriginelle = 1; ///< red: the legs as observed
inline constexpr int couleurTraceCompensee = 3;  ///< green: the legs as corrected

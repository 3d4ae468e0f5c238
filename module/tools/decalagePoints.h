#pragma once

#include <optional>
#include <string>
#include <vector>

#include "geometrie/abscisses.h"
#include "geometrie/axe.h"

/// New points along an axis.

struct demandeDecalage {
    enum class mode { intervalle, abscisses, sommets };
    mode choix = mode::intervalle;
    double pas = 10.0;                  ///< above 0: chainages that are its multiples, the start and the end
    std::vector<double> listees;        ///< chainages
    std::vector<double> decalages{0.0}; ///< positive to the right
    bool altitudes = true;              ///< those of the axis; else unknown
};

struct pointDecale {
    double abscisse = 0.0, decalage = 0.0;
    point3 place;
};

/// Chainage by chainage, and offset by offset in the order given. Chainages that the axis does not bear give nothing;
/// of a closed axis the end is its start and comes once.
std::vector<pointDecale> pointsDecales(const axe& ligne, const abscisses& numerotation, const demandeDecalage& demande);

/// The chainages wanted that the axis does not bear.
std::vector<double> abscissesAbsentes(const axe& ligne, const abscisses& numerotation, const demandeDecalage& demande);

/// About how many points that makes.
double nombrePointsDecales(const axe& ligne, const demandeDecalage& demande);

/// Numbers parted by blanks or ";", full stop as the decimal sign. Nothing when a piece is no number, which then is in
/// `faute`.
std::optional<std::vector<double>> nombresListes(std::wstring_view texte, std::wstring& faute);

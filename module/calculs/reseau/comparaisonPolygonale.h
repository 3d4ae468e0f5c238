#pragma once

#include <string>
#include <vector>

#include "calculs/cheminement.h"
#include "calculs/reseau/fichierReseau.h"
#include "calculs/reseau/resultatReseau.h"
#include "reports/htmlDocument.h"

/// A station of a traverse beside what least squares make of the same observations. Drawing units; unknown where the
/// network does not determine it.
struct stationComparee {
    std::wstring nom;
    double x = inconnu, y = inconnu, z = inconnu;    ///< by least squares
    double dx = inconnu, dy = inconnu, dz = inconnu; ///< of the traverse, less those
    bool connue = false;                             ///< held: its shift is none
    ellipseErreur ellipse;
    double norme = inconnu; ///< shift over what its covariance lets expect: √(dᵀ·C⁻¹·d); unknown for a known station
                            ///< and a flat ellipse

    double ecart() const;
};

/// Both adjustments of one traverse.
struct comparaisonPolygonale {
    reseau r;
    resultatReseau resultat;
    std::vector<stationComparee> stations; ///< departure first
};

/// @param resultat the traverse computed from the data that `observations` holds
/// @throws erreurReseau when least squares cannot be computed
comparaisonPolygonale comparer(const cheminement& resultat, polygonaleEnReseau observations);

/// The greatest shift and s0, in one French sentence.
std::wstring phraseComparaison(const comparaisonPolygonale& c);

/// Writes the comparison as a report of its own, with its head lines.
void rapporterComparaison(const comparaisonPolygonale& c, htmlDocument& document);

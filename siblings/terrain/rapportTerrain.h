#pragma once

#include <string>

#include "reports/htmlDocument.h"
#include "sol/parcoursTerrain.h"
#include "sol/volumesTerrain.h"

/// Reports about the ground, for the viewer.

/// Distances from the first point, altitudes and slopes, point by point.
htmlDocument rapportProfil(const std::wstring& modele, const lieuSol& de, const lieuSol& vers,
                           const parcoursTerrain::polylignes& profil);

/// @param reference what the ground was compared with, in words
htmlDocument rapportVolumes(const std::wstring& modele, const std::wstring& reference, const volumesTerrain& volumes);

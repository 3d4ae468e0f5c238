#pragma once

#include <vector>

#include "gepnt3d.h"

/// What the family's terrain module exports, under C names: terrain models give the altitude of the ground and its
/// profile along a sight. Nobody links to that module: who wants the ground asks for it by name when it is loaded
/// (GetModuleHandleW, GetProcAddress) and does without it when it is not. It may be unloaded at any time, and its
/// functions go with it. Main thread only. The functions throw nothing.

inline constexpr wchar_t moduleTerrain[] = L"KALT-ARX2015-64BITS.arx";

/// A triangulated ground, opaque. It stays a valid argument as long as the module is loaded: once its model is gone, or
/// its drawing closed, every question about it is answered by 0. Triangles are made at the first question. The terrain
/// follows its model: after a model is updated, the same terrain answers with the new ground.
class terrain;

/// The terrain models of a drawing, in the order of its list, and the position of the current one: 0 when there is
/// none, and for who finds a position outside the list.
struct donneesTerrain {
    std::vector<terrain*> modeles;
    int courant = 0;
};

/// The ground along a segment: one polyline where the model is without gap, several where holes or hollows of its limit
/// interrupt it, in the order of the way, each of two points at least. There is a point at each end of a polyline and
/// at each edge or vertex of a triangle on the way; where a side of a triangle lies on the way, at its ends.
using profilTerrain = std::vector<std::vector<AcGePoint3d>>;

extern "C" {
/// "currDwgData": the models of the current drawing. Never null once a drawing is open; owned by the terrain module and
/// valid until the next call: to be asked for again rather than kept.
using fonctionCurrDwgData = donneesTerrain* (*)();

/// "calcZPoint": puts the altitude of the ground at the point's X and Y into its Z. On the limit counts as inside.
/// @return 1, or 0 outside the model, in a hole, or for unknown coordinates: the point is then as it was.
using fonctionCalcZPoint = int (*)(terrain* sol, AcGePoint3d& point);

/// "tinExtractPath": fills `profil` with the ground under the segment (X and Y of its ends; Z plays no part).
/// @return 1, or 0 when no part of it lies on the model, or its ends are at one place: the profile is then empty.
using fonctionTinExtractPath = int (*)(terrain* sol, const AcGePoint3d& de, const AcGePoint3d& vers,
                                       profilTerrain& profil);

/// "tinPerime": whether what the model was made from changed since; an older module does not export it.
/// @return 1, or 0 when it is up to date or gone
using fonctionTinPerime = int (*)(terrain* sol);
}

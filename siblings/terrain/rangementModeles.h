#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sol/semisTerrain.h"

#include "sourcesTerrain.h"

class AcDbDatabase;

/// A terrain model as the drawing keeps it: what it was made from, whole, and where that came from. Triangles are made
/// anew.
struct modeleRange {
    semisTerrain semis;
    sourcesTerrain sources;
    std::uint64_t empreinte = 0; ///< of what was gathered when it was made
};

/// Models stand in the drawing's dictionary "VELA_TERRAINS", an xrecord each under the model's name; a name is unique,
/// letter case aside. The current one is told by the xrecord "VELA_TERRAIN_COURANT" beside it. Each of these is one
/// change for undo.
using modelesRanges = std::vector<std::pair<std::wstring, AcDbObjectId>>;

/// In the order of making; empty when there is none.
modelesRanges modelesDuDessin(AcDbDatabase& dessin);
/// Nothing for a record that is damaged, or of a later version.
std::optional<modeleRange> lireModele(AcDbObjectId id);
/// Puts a model under a name, in place of the one that has it. @return its id, null when the drawing refused it.
AcDbObjectId rangerModele(AcDbDatabase& dessin, const std::wstring& nom, const modeleRange& modele);
bool renommerModele(AcDbDatabase& dessin, const std::wstring& ancien, const std::wstring& nouveau);
bool supprimerModele(AcDbDatabase& dessin, const std::wstring& nom);

/// Null when none was chosen, or it is gone.
AcDbObjectId modeleChoisi(AcDbDatabase& dessin);
bool choisirModele(AcDbDatabase& dessin, AcDbObjectId id);

/// A name that a drawing can keep: neither empty nor with one of <>/\":;?*|,=`, at most 255 characters.
bool nomDeModele(const std::wstring& nom);

#pragma once

#include <filesystem>
#include <string>

#include "generateurs/SortieDxf.h"

/// The survey drawing that opening, decoding and saving are timed on.
struct choixReleve {
    int points = 1000; ///< at least 1
    FormeDxf forme = FormeDxf::texte;
    std::string version = "AC1024"; ///< AC1015 to AC1032
};

/// Writes a survey of `points` point symbols on a grid of 5 m, and around them what such drawings hold:
/// - N block references of four codes, each with the attributes CODE (invisible), NUMPT, Z and OBS, a SEQEND and the
///   extended data "VELAPLUS" 1070=1; one in forty has an unknown altitude (empty Z text);
/// - the project record "QUARVEL4_VELA_DATA" in the extension dictionary of layer "0": N points that refer to their
///   symbols, in two tables, after an empty table "LEVE", and five traverse stations without symbol;
/// - N/2 terrain faces, N/10 texts, N/50 lightweight polylines (one in five has an arc), N/500 3D polylines of
///   twenty vertices, N/5000 polyface meshes, one polygon mesh: at least one of each;
/// - custom entities and objects of an absent application, a reactor, an extension dictionary on a symbol.
/// @throws std::runtime_error when the file cannot be written; std::invalid_argument on fewer than 1 point
void ecrireDessinReleve(const std::filesystem::path& fichier, const choixReleve& choix);

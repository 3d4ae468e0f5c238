#pragma once

#include <ctime>
#include <functional>

#include "exchange/fichierRemplace.h"

// Lists of points written to files. Points are asked for one by one: a list of any length takes the memory of one.

/// Texts are in Windows-1252 and live until the next point is asked for.
struct pointExporte {
    std::string_view nom;
    double x = 0.0, y = 0.0, z = 0.0; ///< z = 1e38 when unknown
    int code = 1;
    std::string_view observation; ///< for LandXML
};

/// Gives the next point of the list. @return false at its end
using pointSuivant = std::function<bool(pointExporte& point)>;

enum class formatExport {
    texte, ///< name, X, Y, Z, code in columns; "." for an unknown Z
    html,
    landXml
};

/// By the extension: ".htm" and ".html", ".xml" and ".landxml", in any letter case; anything else is text.
formatExport formatDuFichier(const std::filesystem::path& fichier);

/// Writes the list. The text format writes over an existing file in place: a longer one keeps its old end. The others
/// replace it when they are whole.
/// @param erreur if given, receives why it was not written
issueEcriture exporterPoints(const std::filesystem::path& fichier, formatExport format, const pointSuivant& suivant,
                             std::error_code* erreur = nullptr);

/// LandXML 1.2 in metres. Coordinates are written with the digits that give the same numbers again.
/// @param date of the document; exporterPoints takes the present
issueEcriture exporterLandXml(const std::filesystem::path& fichier, const pointSuivant& suivant, std::time_t date,
                              std::error_code* erreur = nullptr);

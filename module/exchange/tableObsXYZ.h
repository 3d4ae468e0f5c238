#pragma once

#include <string>
#include <vector>

#include "points/pointXYZ.h"

/// A list of plain points and the path of its file, in the module's own format: formatXYZ.h.
/// Paths are Windows-style or native. They are taken without the blanks, tabs, commas, semicolons and full stops at
/// their ends, and looked up whatever their letter case. A failure shows "Erreur ouverture de fichier".
class tableObsXYZ {
public:
    std::vector<pointXYZ> points;
    std::wstring chemin;

    /// Appends the points of the file. Lines that are no point are skipped; what was read before a failure stays.
    /// @param fichier null: the table's own path
    /// @param vider empties the list first, also when the file cannot be opened
    /// @return 1, or 0 for an empty path (without a message) and a file that cannot be read
    int lire(const wchar_t* fichier, bool vider);

    /// Writes all points, replacing the file as a whole. ".xyz" is added to a path that does not end so. A file that
    /// exists under the very name given is replaced; otherwise the name of a new one is in lower case.
    /// @return 1, or 0 for an empty path (without a message) and a file that cannot be written: the old one stays
    int ecrire(const wchar_t* fichier) const;
};

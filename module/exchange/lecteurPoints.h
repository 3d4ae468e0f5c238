#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

#include "exchange/pointsLus.h"
#include "exchange/sourceOctets.h"

/// Reads one format of point files.
class lecteurPoints {
public:
    virtual ~lecteurPoints() = default;

    /// For users, in French.
    virtual std::wstring_view nom() const = 0;
    /// Patterns of its files, for file dialogs: "*.xml;*.landxml".
    virtual std::wstring_view filtre() const = 0;
    /// @param extension in lower case with its period, or empty; @param debut the first bytes of the file
    virtual bool reconnait(std::wstring_view extension, std::string_view debut) const = 0;
    /// Appends the points and the problems. Memory is that of the points: neither the size of the file nor that of its
    /// lines counts.
    virtual void lire(sourceOctets& source, pointsLus& lus) const = 0;
};

/// Every reader, in the order in which they are tried. The last one, of separated columns, takes any text.
std::span<const lecteurPoints* const> lecteursPoints();

/// The reader for a file: by its extension where that decides (".xyz" and ".txt" always do), else by its beginning.
/// @param fichier its name or path
const lecteurPoints& lecteurPour(const std::filesystem::path& fichier, std::string_view debut);

/// Reads a file. A folder, a file that cannot be opened, one that fails on the way and one that another program changes
/// meanwhile give `lisible` false and the reason; points read before are there.
/// @param lecteur null: lecteurPour the file
/// @param codeAbsent code of the points whose line tells none
pointsLus lirePoints(const std::filesystem::path& fichier, const lecteurPoints* lecteur = nullptr, int codeAbsent = 1);
/// The same from any source. @param fichier decides on the reader
pointsLus lirePoints(sourceOctets& source, const std::filesystem::path& fichier, const lecteurPoints* lecteur = nullptr,
                     int codeAbsent = 1);

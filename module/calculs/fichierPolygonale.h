#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "calculs/donneesPolygonale.h"

// Traverse files (".obs"): text in Windows-1252, lines beginning with "*" are comments that explain the syntax.
// Written with line feeds, read with line feeds or carriage returns and line feeds. A file in UTF-8 is read as such, by
// the mark that editors put before it or by its bytes, which no text in Windows-1252 is made of.

/// What looks wrong in a file.
struct remarqueLecture {
    std::size_t numero;  ///< of the line, 1-based; 0: the file as a whole
    std::wstring phrase; ///< French
};

/// What reading a file gave, for those who report it.
struct bilanLecture {
    bool lisible = true;      ///< false: the file could not be read and the data are as before
    std::size_t stations = 0; ///< station lines with X and Y
    std::size_t ignorees = 0; ///< lines of another count of elements than a keyword's, a row's or a station's
    std::vector<remarqueLecture> remarques; ///< those lines, numbers and words that are none, what is missing
};

/// French sentences for the user: the file that cannot be read, or its remarks with their lines.
/// @param fichier its name, as the sentences are to show it
std::vector<std::wstring> avertissementsLecture(std::wstring_view fichier, const bilanLecture& bilan);

/// The bytes of the file that keeps `donnees`. Station names of the rows are cut to 18 characters, other cells to 510.
/// A name or cell that is empty or holds a double quote cannot be read back: the format has no way to write it.
std::string contenuPolygonale(const donneesPolygonaleFermee& donnees);
std::string contenuPolygonale(const donneesPolygonaleOuverte& donnees);

/// Reads the bytes of a file into `donnees`. Stations and list are replaced; unit, levelling mode and closing angle
/// keep their values unless the file sets them. Numbers that are not numbers read as 0.
/// A file of the other kind of traverse is read for what the two have in common.
bilanLecture lirePolygonale(std::string_view contenu, donneesPolygonaleFermee& donnees);
bilanLecture lirePolygonale(std::string_view contenu, donneesPolygonaleOuverte& donnees);

/// As lirePolygonale, from a file.
bilanLecture chargerPolygonale(const std::filesystem::path& fichier, donneesPolygonaleFermee& donnees);
bilanLecture chargerPolygonale(const std::filesystem::path& fichier, donneesPolygonaleOuverte& donnees);

/// French sentences for what a file keeps but cannot give back: a station whose name is empty or holds a double quote,
/// a row with an empty cell, a separator or a quote, names that are cut or hold characters outside the code page.
std::vector<std::wstring> avertissementsEcriture(const donneesPolygonaleFermee& donnees);
std::vector<std::wstring> avertissementsEcriture(const donneesPolygonaleOuverte& donnees);

/// Choices of the file dialogs' type list, numbered from 1 as these dialogs do.
enum filtrePolygonale : int { filtreObservations = 1, filtreSansExtension = 2, filtreTous = 3, filtreTexte = 4 };

/// What the user chose, with the extension of the type: ".obs", ".txt", or a final "." for "Sans extension" and "Tous".
/// A path without any full stop gets ".obs".
std::wstring nomComplet(std::wstring_view choisi, int filtre);
/// Name under which a new file is saved: nomComplet with the file's own name in lower case. Its folder is the one that
/// the user chose, to the letter.
std::wstring nomEnregistrement(std::wstring_view choisi, int filtre);

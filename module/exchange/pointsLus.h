#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "points/pointXYZ.h"

/// What looks wrong in a point file. Phrases are French.
struct problemeLecture {
    std::size_t ligne;  ///< 1-based; 0: the file as a whole
    std::wstring texte; ///< the line, cut where it is long, control characters shown as "."
    std::wstring raison;
    bool ecartee; ///< the line gave no point; otherwise it gave one, not with all that it says
};

/// What reading a point file gave.
struct pointsLus {
    /// Every line of a file may be wrong; one of millions must not fill the memory.
    static constexpr std::size_t problemesGardes = 1000;

    int codeAbsent = 1; ///< of the points to come whose line tells no code

    std::vector<pointXYZ> points;
    std::vector<problemeLecture> problemes; ///< the first ones, in the order of lines
    std::size_t ecartees = 0;               ///< lines that gave no point, listed or not
    std::size_t remarquees = 0;             ///< lines that gave a point but not all of it, listed or not
    bool lisible = true; ///< false: it could not be opened, or not be read to its end, or is no such file

    void ecarter(std::size_t ligne, std::wstring_view texte, std::wstring raison);
    void remarquer(std::size_t ligne, std::wstring_view texte, std::wstring raison);
    /// The file as a whole cannot be read, or not to its end: a problem without a line, or of the line it ends at.
    void refuser(std::wstring raison, std::size_t ligne = 0);
};

/// What a file holds as a reason quotes it, "« abc »": cut where it is long, control characters shown as ".".
std::wstring entreGuillemets(std::wstring_view texte);
/// What is told of a point whose code is no number.
std::wstring codeEnLettres(std::wstring_view code);

/// What looks wrong in the numbers of a point: a code that no table of codes takes, a place where nobody surveys. Empty
/// when nothing does.
std::wstring remarquesSur(const pointXYZ& point);
inline constexpr const wchar_t* pointSansNom = L"point sans nom.";
/// What a box says of a point file that cannot be opened, read or written; reasons stand elsewhere.
inline constexpr const wchar_t* erreurOuverture = L"Erreur ouverture de fichier";

/// French sentences for the user, "leve.csv, ligne 3 : ...", the last one telling how many are not listed.
/// @param fichier its name, as the sentences are to show it
std::vector<std::wstring> phrasesProblemes(std::wstring_view fichier, const pointsLus& lus);

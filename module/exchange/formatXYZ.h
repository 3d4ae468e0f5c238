#pragma once

#include <span>
#include <string>

#include "exchange/lecteurPoints.h"

// Point files of the module (".xyz"): one point a line in 8-bit text, Windows-1252, name, X, Y, Z, code, observation.

/// Reads a text as point files are: tokens between blanks and tabs. X and Y are read strictly (so ".5", "12." and "1e3"
/// are none), Z plainly (text that is no number is 0; absent it is unknown), a code that is 0, absent or no number is
/// 1, what follows is the observation. Lines of more than 1024 characters are read in pieces, each as a line; a
/// zero byte ends what is read of one.
class lecteurXYZ final : public lecteurPoints {
public:
    std::wstring_view nom() const override { return L"Fichier N° X Y Z"; }
    std::wstring_view filtre() const override { return L"*.xyz;*.txt"; }
    bool reconnait(std::wstring_view extension, std::string_view debut) const override;
    void lire(sourceOctets& source, pointsLus& lus) const override;
};

/// The bytes of the file that keeps these points. Each begins with its line feed: the first line is empty, the last one
/// has no end. An unknown Z is written as the number 1e38, which reads back as unknown.
std::string contenuXYZ(std::span<const pointXYZ> points);

/// The path as it is taken: without the blanks, tabs, commas, semicolons and full stops at its ends.
std::wstring cheminPointsElague(std::wstring_view chemin);
/// The path of a file that is written: ".xyz" added to any that does not end so, whatever its letter case.
std::wstring cheminAvecXYZ(std::wstring_view chemin);

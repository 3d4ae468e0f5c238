#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "calculs/reseau/reseau.h"

// What stands in the attributes and texts of a ".gkf" file: numbers, angles, axes. UTF-8.

/// Without blanks at both ends.
std::string_view rogner(std::string_view texte);
/// All of the text as a finite number.
std::optional<double> reelXml(std::string_view texte);
/// Numbers between blanks; nothing when a word is none.
std::optional<std::vector<double>> reelsXml(std::string_view texte);
/// "12-34-56.78", degrees, minutes and seconds, as degrees.
std::optional<double> degresDeTexte(std::string_view texte);
/// Where the two axes point: "ne", "sw"...; null for another word.
const axesFichier* axesNommes(std::string_view nom);
/// What an element may say; null for an element that is none of the format's.
const std::vector<std::string_view>* attributsConnus(std::string_view element);

/// The matrix of which a ".gkf" writes a band, row by row, each row of a unit of its own.
/// @return false when there are too many or too few numbers
bool lireBande(std::string_view texte, std::size_t bande, const std::vector<double>& unites,
               std::vector<double>& matrice);

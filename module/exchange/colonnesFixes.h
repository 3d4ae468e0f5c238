#pragma once

#include <string>
#include <string_view>

// Columns of fixed width, right-aligned with blanks; what is wider stays whole.

void ajouterTexteADroite(std::string& ligne, std::string_view texte, std::size_t largeur);
/// With exactly that many decimals, at most 60.
void ajouterNombreADroite(std::string& ligne, double valeur, int decimales, std::size_t largeur);

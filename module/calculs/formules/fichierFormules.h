#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "calculs/fichierPolygonale.h"
#include "calculs/formules/formulesPoids.h"

// Files of weight formulas (".fmc"): text in Windows-1252 (UTF-8 is read as well) with the words and comments of
// traverse files.
//   Formule: angles "1 / (e * d1) ^ 2"
//   Variable: "e" 0.02 "comment"

std::string contenuFormules(const formulesPoids& formules);

/// Reads the bytes of a file: its formulas take the place of those that are there, its variables are added or take the
/// place of those of their name. @return what is not understood, with its line
std::vector<remarqueLecture> lireFormules(std::string_view contenu, formulesPoids& formules);

/// One line of such a file, cut into its words. @return whether it was understood
bool lireLigneFormule(const std::vector<std::wstring>& mots, formulesPoids& formules);

// How such files, and those of networks, are written.

/// The shortest digits that read back as the same number.
std::string nombreCourt(double valeur);
/// Between double quotes; those in it, which the files have no way to write, are dropped.
std::string motCite(std::string texte);

#pragma once

#include <string>
#include <vector>

#include "calculs/cheminement.h"

// What the advices on closed and open traverses are made of.

/// Half turns that the angular error is near to; 0 for an error near none of them, or near zero.
int demiToursProches(const cheminement& c);

std::vector<observationPolygonale> observationsDuCheminement(const cheminement& c);

/// An angle as one would type it: a hundredth of a second at least, in radians too.
std::wstring saisi(double angle);

/// "349.98 au lieu de 50.02"
std::wstring auLieuDe(double nouveau, double ancien);

/// " à la ligne 3", " comme dernier angle"; @param rang of the row, from 0
std::wstring aLaLigne(std::size_t rang, bool dernierAngle);

/// "saisissez 400 moins chaque angle"
std::wstring complements(double angle);

/// "« B »"
std::wstring cite(const std::wstring& texte);

/// "L'erreur angulaire vaut un tour entier (400 gr) : ", or that the traverse does not close for no half turn at all.
std::wstring constatAngulaire(int demiTours, int unite);

/// "l'angle mesuré à la station « B » semble lu à un demi-tour près ..."; @param rang of its row, from 0
std::wstring angleRetourne(const std::wstring& station, std::size_t rang);

/// One explanation as a sentence, several as "plusieurs explications se valent. Soit A. Soit B."; the first ones.
std::wstring direExplications(const std::vector<std::wstring>& explications);

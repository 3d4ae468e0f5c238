#pragma once

#include <string>
#include <string_view>

#include "calculs/reseau/reseau.h"

// A network as rows of texts that are typed, pasted and changed. Angles in grades, deviations in ten-thousandths of a
// grade and millimetres. What is refused leaves the network as it was and is told by a French sentence, else empty.

enum class colonneObservation { genre, station, vise, secondVise, mesure, ecart };
inline constexpr int colonnesObservation = 6;
std::wstring texteObservation(const reseau& r, int observation, colonneObservation colonne);
std::wstring changerObservation(reseau& r, int observation, colonneObservation colonne, std::wstring_view texte);

enum class colonnePoint { nom, x, y, z, plan, altitude };
inline constexpr int colonnesPoint = 6;
std::wstring textePoint(const reseau& r, int point, colonnePoint colonne);
std::wstring changerPoint(reseau& r, int point, colonnePoint colonne, std::wstring_view texte);

/// Rows of a spreadsheet: kind, station, point sighted, second one (angles; may be empty), measure, deviation (may be
/// missing), separated by tabs or semicolons, numbers as French spreadsheets show them too. @return how many were
/// added, and which row was not
std::wstring collerObservations(reseau& r, std::wstring_view texte);
/// Rows: name, X, Y, Z (may be empty), "fixe", "appui" or "libre". A point of that name
/// is changed, and keeps what is not given.
std::wstring collerPoints(reseau& r, std::wstring_view texte);

/// Takes an observation away; covariances with others go with it.
void retirerObservation(reseau& r, int observation);
/// Only a point that no observation names can go. @return why not
std::wstring retirerPoint(reseau& r, int point);

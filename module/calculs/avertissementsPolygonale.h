#pragma once

#include <string>
#include <vector>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"
#include "calculs/donneesPolygonale.h"

// French sentences that tell the user what looks wrong with a traverse. They stand beside the report, never in it, and
// stop nothing: the computation makes no guard of its own.

/// Said when a traverse has fewer than two rows. The blanks before the comma and at the end are intended.
inline constexpr wchar_t donneesInsuffisantes[] = L"Erreur , données insuffisantes ";

/// Cells that are not numbers, such as "217,63" which reads as 217: one sentence a row and column.
std::vector<std::wstring> avertissementsObservations(const std::vector<ligneObservation>& lignes);

/// What may be behind a traverse that does not close; empty for nothing. A rule of booking, or half a turn, explains
/// more than one fault does: only where none is told (conseilAngulaire) is a fault looked for (conseilFaute).
std::wstring conseilPolygonale(const resultatPolygonaleFermee& resultat);
std::wstring conseilPolygonale(const resultatPolygonaleOuverte& resultat);

/// Lengths and sums that are zero, results that are unknown or not finite, a last row that does not name the station
/// where the traverse ends, a closure beyond any practice (remarqueFermeture) and what may be behind it
/// (conseilPolygonale).
std::vector<std::wstring> avertissementsPolygonale(const resultatPolygonaleFermee& resultat);
std::vector<std::wstring> avertissementsPolygonale(const resultatPolygonaleOuverte& resultat);

/// Names that are not kept as they stand where names have `longueur` bytes of the code page: each that is cut or holds
/// characters outside the page, and each that becomes the same as another.
/// @param ou "dans la table de points"
std::vector<std::wstring> avertissementsNoms(const std::vector<std::wstring>& noms, std::size_t longueur,
                                             const std::wstring& ou);
/// The same for the names of stations.
std::vector<std::wstring> avertissementsNoms(const std::vector<stationCorrigee>& stations, std::size_t longueur,
                                             const std::wstring& ou);

/// At most `nombre` of the sentences, the last one telling how many more there are: what is wrong in every row of a
/// list is understood by then.
std::vector<std::wstring> premieresPhrases(std::vector<std::wstring> phrases, std::size_t nombre);

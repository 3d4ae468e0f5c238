#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "calculs/cheminement.h"
#include "reports/classesRapport.h"

// What the reports of traverses and networks share: style classes, attributes of cells, headings.

namespace rapportPolygonale {

inline constexpr char celluleNomCentre[] = "class=celnorm align=center";
inline constexpr char celluleEnTete[] = "class=celgris align=center";
inline constexpr char celluleEnTeteGauche[] = "class=celgris align='left'";
// Labels of sums and differences, over the columns before them.
inline constexpr char celluleLibelle2Colonnes[] = "class=celgris colspan=2 align=right";
inline constexpr char celluleLibelle3Colonnes[] = "class=celgris colspan=3 align=right";
inline constexpr char celluleLibelle4Colonnes[] = "class=celgris colspan=4 align=right";
inline constexpr char celluleLibelle5Colonnes[] = "class=celgris colspan=5 align=right";

/// Head lines: the encoding, for browsers that would guess, and a title for their windows.
void ajouterEnTetes(htmlDocument& document);

/// The title, and the heading of the data.
void ouvrirRapport(htmlDocument& document);
void ajouterTitre(htmlDocument& document, std::wstring_view texte);
/// @param octets already narrow, and fit for HTML
void ajouterParagraphe(htmlDocument& document, std::string octets);
void ajouterParagraphe(htmlDocument& document, std::wstring_view texte);

/// Heading and sub-title of the levelling section for a mode, or the title that says there is none.
/// @return whether a table is to follow.
bool ajouterTitreNivellement(htmlDocument& document, int mode);

/// A centred table without border whose first row holds the headings.
htmlTable tableau(std::initializer_list<std::wstring_view> enTetes);
void ajouterEnTete(htmlTable& table, std::wstring_view texte);

void ajouterNombre(htmlTable& table, double valeur);
/// An unknown value leaves its cell empty.
void ajouterNombre(htmlTable& table, double valeur, int decimales);
void ajouterVides(htmlTable& table, int nombre);

/// Headings of a levelling table after "d.Z", for a mode that corrects.
/// @return whether there is a column for the weights.
bool ajouterEnTetesNivellement(htmlTable& table, int mode);
/// What one leg receives, under these headings.
void ajouterDenivelee(htmlTable& table, const deniveleeCompensee& denivelee, bool avecPoids);
/// The sums, from "d.Z" to the last column.
void ajouterSommesNivellement(htmlTable& table, const nivellementCompense& nivellement, bool avecPoids);

/// The table "Station", "X", "Y", "Z" that ends a report.
void ajouterCoordonnees(htmlDocument& document, const std::vector<stationCorrigee>& stations);

/// A name as it stands in the report: narrow, fit for HTML.
std::string nomHtml(std::wstring_view nom);

} // namespace rapportPolygonale

#pragma once

#include "reports/htmlDocument.h"
#include "reports/htmlTable.h"

// What the reports of computations, stake-outs and lists look like: style classes, attributes of cells, tables. Those
// of the tools have a look of their own.

inline constexpr char celluleNombre[] = "class=celnorm align=right";
inline constexpr char celluleNomGauche[] = "class=celnorm align='left'";
inline constexpr char celluleVide[] = "&nbsp"; // browsers accept it without its semicolon
inline constexpr int decimalesRapport = 4;

/// Declares .petit, .grand, .titre, .celnorm and .celgris.
void declarerClassesRapport(htmlDocument& document);

/// A centred table without border, no row yet.
htmlTable tableauRapport();

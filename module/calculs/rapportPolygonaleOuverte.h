#pragma once

struct resultatPolygonaleOuverte;
class htmlDocument;

/// Appends the report of an open traverse: style classes, data, angular closure, correction of distances, levelling,
/// final coordinates. Numbers have four decimals. Time is linear in the rows.
void rapporterPolygonale(const resultatPolygonaleOuverte& resultat, htmlDocument& document);

#pragma once

struct resultatPolygonaleFermee;
class htmlDocument;

/// Appends the report of a closed traverse: style classes, data, angular closure, correction of distances, levelling,
/// final coordinates. Numbers have four decimals. Time is linear in the rows.
void rapporterPolygonale(const resultatPolygonaleFermee& resultat, htmlDocument& document);

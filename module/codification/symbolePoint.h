#pragma once

#include "codification/tableCodification.h"
#include "services/grandeur.h"

class AcDbDatabase;

/// Symbols of survey points: one block reference each, scaled by the point's code, on the code's layers, with four
/// attributes (code, name, altitude, observation). The insertion point is at elevation 0: the altitude is told by its
/// attribute alone.

/// What a point gives to its symbol.
struct donneesSymbole {
    int code = 1;
    double x = inconnu;
    double y = inconnu;
    double z = inconnu;
    std::wstring nom;
    std::wstring observation;
};

/// Whether X and Y are known and finite: there is no symbol elsewhere.
bool placeConnue(const donneesSymbole& point);

/// Size of all symbols, as a factor of the sizes of their codes. 1.0 when the module loads.
extern double facteurSymboles;
/// Takes the absolute value; one below 1e-6 gives 1.0.
void reglerFacteurSymboles(double facteur);

/// Scale of the block and height of the texts of a code. A size that nothing can be drawn at, which a code file may
/// hold, counts as 1.
double tailleSymbole(const codifPoint& codif);

/// Altitude text of a point of that code; empty when the altitude is unknown.
std::wstring texteAltitude(double z, const codifPoint& codif);

/// What a symbol of that code needs in the drawing: its layers (made when asked for, else those that exist are used)
/// and its block. @return false without layer table; a null block when there is none.
bool preparerCalques(AcDbDatabase& db, codifPoint& codif, bool creer);
AcDbObjectId blocDuCode(AcDbDatabase& db, const codifPoint& codif);

/// Draws a symbol in model space. Its layers are made when asked for; else those that exist are used. A code that the
/// table lacks is added to it.
/// @return 1 and the reference, or 0 (nothing drawn, `id` untouched) without layers, block or place.
int insererSymbolePoint(const donneesSymbole& point, AcDbDatabase* db, tableCodification& table, AcDbObjectId& id,
                        bool altitudeConnue, bool creerCalques);

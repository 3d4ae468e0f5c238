#pragma once

#include "codification/symbolePoint.h"

class AcDbBlockReference;

/// The look of symbols that are drawn already, changed in place: the same references go on, so that points keep them
/// and undo brings their look back.

/// Scales a symbol, open for write, about its insertion point, attributes included: texts moved by hand keep their
/// place relative to the size.
bool retaillerSymbole(AcDbBlockReference& reference, double taille);

/// Gives a symbol another block. @return false when it is no block reference.
bool changerBlocSymbole(const AcDbObjectId& id, const AcDbObjectId& bloc);

/// Brings a symbol wholly in line with a code: block, size, layers, code text. Missing layers are made.
/// @return false when it is no block reference, or the code's block cannot be had; it is then as it was.
bool conformerSymbole(const AcDbObjectId& id, int code, tableCodification& table);

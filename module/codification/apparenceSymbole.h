#pragma once

#include <string>
#include <vector>

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

/// The block that shows a symbol; empty when it is no block reference.
std::wstring nomBlocSymbole(const AcDbObjectId& id);

/// What giving a code another block does to the placed points of the drawing in hand.
struct symbolesDuCode {
    std::vector<AcDbObjectId> aRedessiner; ///< show another block than that one
    int verrouilles = 0;                   ///< these do too, and keep theirs: their layer is locked
};
symbolesDuCode symbolesARedessiner(int code, const std::wstring& chemin);
/// One or two sentences for the user; empty when no placed point is concerned.
std::wstring annonce(const symbolesDuCode& symboles);
/// Gives them the block of the code, as one step of undo. @return false, nothing done, when it cannot be had.
bool redessiner(const symbolesDuCode& symboles, const codifPoint& codif);

#pragma once

#include "services/Uncopyable.h"

struct IDispatch;

/// Makes one undo step of the changes made during its life. A command that changes many entities holds one for its
/// whole run.
/// The group belongs to the document of the working drawing; without one, or without its automation object, nothing is
/// grouped.
class CAcadUndoGroup : Uncopyable {
public:
    CAcadUndoGroup();
    ~CAcadUndoGroup();

    /// A number of the outermost group under way, another for each; 0 when there is none.
    static int courant() { return profondeur > 0 ? numero : 0; }
    /// Changes whenever an outermost group begins or ends.
    static int limites() { return 2 * numero - (profondeur > 0 ? 1 : 0); }

private:
    IDispatch* document = nullptr;
    static int profondeur, numero;
};

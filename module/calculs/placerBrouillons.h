#pragma once

#include <cstdint>

#include "points/exportation.h"

/// What was typed in traverse dialogs and not saved (dialogueBrouillon) goes into recovery copies of drawings, so that
/// whoever opens one finds it again. The drawing's own file has none of it: it is the user's, not the drawing's.

/// From now on, and until the end, recovery copies are heard of.
void suivreCopiesDeSecours();
void oublierCopiesDeSecours();

/// Hands over to this user what the current drawing, a recovery copy, brings. What this user typed in the same dialog
/// goes first: the drawing then keeps the other, for the next time it is opened.
void adopterBrouillons();

/// A number that changes with what is typed and not saved.
VELA_EXPORT std::uint64_t etatBrouillons();

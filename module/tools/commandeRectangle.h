#pragma once

/// The command RECT3PT: a rectangle by its origin, a first side, and a point of the opposite side or the opposite
/// corner, shown while the cursor moves.
void commandeRectangle();

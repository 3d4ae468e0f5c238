#pragma once

#include "geometrie/axeEnregistre.h"

struct dessinAxe {
    double fleche = 0.01;     ///< chords of clothoids stay within it
    double pasEcritures = 20; ///< above 0
    double tailleTextes = 2.0;
};

/// Draws an axis in the current space as one polyline (arcs as arcs, clothoids as chords), which keeps the true axis,
/// and its chainages: a tick and a text square to it at each multiple of the step, at points of tangency and where the
/// numbering jumps. One step of undo. @return false when the drawing refused it.
bool placerAxe(const axeEnregistre& lAxe, const dessinAxe& dessin);

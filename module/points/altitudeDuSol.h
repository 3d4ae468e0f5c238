#pragma once

/// The ground of the family's terrain module, when the host has loaded it.

/// Whether there is a current model.
bool solPresent();

/// Altitude of the current model there; `inconnu` off it, and without a model.
double altitudeDuSol(double x, double y);

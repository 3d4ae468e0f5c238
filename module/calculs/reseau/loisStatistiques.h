#pragma once

#include <vector>

// Distributions of tests.

/// The chance of |X| > x, the normal law.
double chanceNormale(double x);
/// The chance of |T| > t, Student's law.
double chanceStudent(double t, int degres);
/// P(X <= x), chi-square.
double repartitionKhi2(double x, int degres);
/// The x whose repartitionKhi2 is `probabilite`.
double quantileKhi2(double probabilite, int degres);
/// Half axes of the region that holds both coordinates with this probability, over those of the standard ellipse, when
/// the variance was estimated with that many degrees of freedom.
double facteurEllipse(double probabilite, int degres);

/// The middle value, or halfway between the two middle ones; 0 of none.
double mediane(std::vector<double> valeurs);

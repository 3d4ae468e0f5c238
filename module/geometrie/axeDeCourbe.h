#pragma once

#include "geometrie/axe.h"

#include "dbid.h"

class AcDbCurve;
class AcGePoint3d;

/// A place of the drawing as ours.
point3 pointDe(const AcGePoint3d& p);

/// What of a drawing can be measured along: lines, arcs, circles, polylines of all kinds, ellipses, splines.
/// Curves that are no straights and arcs seen from above (ellipses, splines, arcs of a leaning plane) come as straight
/// lines within `fleche` of them. What is drawn at an altitude of 0 throughout has no altitude, as drawings in the
/// plane stand there.
/// @return an empty axis for a curve without length.
axe axeDeCourbe(const AcDbCurve& courbe, double fleche = 0.001);

/// The same for an entity of the drawing; the true axis kept on it, where the entity still stands on it: one that was
/// moved, cut or bent since is measured as it is drawn. Empty when it cannot be opened or is no such curve.
axe axeDeEntite(const AcDbObjectId& id, double fleche = 0.001);

#pragma once

#include <vector>

#include "gemat3d.h"

class AcDbBlockReference;

/// The ring that a reference is clipped by, in the coordinates of its block; empty when it is shown whole.
std::vector<AcGePoint3d> clipOf(const AcDbBlockReference& reference);
/// A ring by its corners, or two corners of a rectangle; empty where a coordinate is not finite.
std::vector<AcGePoint3d> ringOfClip(std::vector<AcGePoint3d> corners, const AcGeMatrix3d& toOwner);

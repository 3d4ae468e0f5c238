#pragma once

#include <vector>

#include "gepnt3d.h"

class AcDbBlockReference;

/// The ring that a reference is clipped by, in the coordinates of its block; empty when it is shown whole.
std::vector<AcGePoint3d> clipOf(const AcDbBlockReference& reference);

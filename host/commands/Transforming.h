#pragma once

#include <vector>

#include "dbmain.h"

class AcGeMatrix3d;

/// Copies entities, each into the block that it stands in.
std::vector<AcDbObjectId> copyObjects(const std::vector<AcDbObjectId>& objects);

/// Moves entities through a matrix. What cannot go through it, such as a text that would be slanted, stays and is told.
void transformObjects(const std::vector<AcDbObjectId>& objects, const AcGeMatrix3d& matrix);

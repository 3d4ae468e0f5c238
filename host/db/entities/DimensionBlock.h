#pragma once

#include "gemat3d.h"

class AcDbDatabase;
struct AcDbStub;

/// A new unnamed block of the drawing that shows what another one does, through a matrix of block coordinates.
/// Null when an entity of it cannot go through the matrix: nothing is then made.
AcDbStub* blockShownThrough(AcDbDatabase& database, AcDbStub* block, const AcGeMatrix3d& matrix);

#pragma once

#include <vector>

#include "dbid.h"

class AcDbDatabase;

/// Entities of the current space that can be edited: on layers that are neither off, frozen nor locked.
std::vector<AcDbObjectId> selectableEntities(AcDbDatabase& database);

#pragma once

#include "dbid.h"
#include "gepnt3d.h"

/// What a point does with the entity that shows it. Point tables call the drawing here, and to ask for locked layers.
/// An id that is null, erased or of another drawing is left alone.

/// Erases the entity.
void effacerEntite(const AcDbObjectId& id);

/// Where a block reference is inserted. @return false, `position` untouched, when the entity is no block reference.
bool insertionDuBloc(const AcDbObjectId& id, AcGePoint3d& position);

#pragma once

#include "dbid.h"

/// Entities that the user locked against changes with their layer.

/// Whether an entity stands on a locked layer, or an attribute of a reference does: it is then left as it is, whole.
/// An entity that cannot be opened is none.
bool estVerrouille(const AcDbObjectId& id);

/// Tells at the command line that what a command has just drawn is on a locked layer, the current one; says nothing
/// when that is not locked.
void signalerCalqueCourantVerrouille();

/// Tells at the command line how many were left alone; says nothing for none.
void signalerVerrouilles(int nombre);

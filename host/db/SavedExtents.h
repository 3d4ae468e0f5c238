#pragma once

#include <optional>

#include "dbmain.h"

/// The extents that the header of a saved drawing is to state, when they differ from those that it states: they grow by
/// the entities of model space that were made or changed, their attributes and vertices included, and do not shrink by
/// those that went. So their cost is that of what changed: the references to a block that changed, and the texts of a
/// style that did, are not looked for. Only where the header states none that make sense, all entities are looked at.
/// Nothing for a drawing without the variables. Entities that are open for write are left out.
std::optional<AcDbExtents> extentsToSave(AcDbDatabaseImpl& database);

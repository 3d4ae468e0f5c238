#pragma once

#include <string>

#include "dbid.h"

class AcDbDatabase;

/// What a drawing defines: layers, blocks and the like, and their names.

/// The name of a layer, a block or the like; empty when there is no such record.
std::wstring nomDefinition(const AcDbObjectId& id);

/// The block of that name, model space among them; null when the drawing has none.
AcDbObjectId blocNomme(AcDbDatabase& db, const std::wstring& nom);

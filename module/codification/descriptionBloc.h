#pragma once

#include <string>

#include "dbid.h"

/// What a block stands for, as users wrote it: kept on its definition, in its comments, and as a record of its own that
/// its first entity bears too.

struct descriptionsBloc {
    std::wstring bloc;   ///< of the definition's record, or its comments
    std::wstring entite; ///< of the record on its first entity that has one
};

/// Both are empty for what is no block.
descriptionsBloc lireDescriptions(const AcDbObjectId& bloc);

/// Writes it everywhere. @return false when the drawing refused it.
bool ecrireDescription(const AcDbObjectId& bloc, const std::wstring& description);

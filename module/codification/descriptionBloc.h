#pragma once

#include "afx.h"
#include "dbid.h"

/// What a block stands for, as users wrote it: kept on its definition, in its comments, and as a record of its own that
/// its first entity bears too.

struct descriptionsBloc {
    CString bloc;   ///< of the definition's record, or its comments
    CString entite; ///< of the record on its first entity that has one
};

/// Both are empty for what is no block.
descriptionsBloc lireDescriptions(const AcDbObjectId& bloc);

/// Writes it everywhere. @return false when the drawing refused it.
bool ecrireDescription(const AcDbObjectId& bloc, const CString& description);

#pragma once

#include <cstddef>
#include <string>
#include <vector>

class AcDbDatabase;

/// What is wrong with a drawing, found by opening each of its objects once. Texts are French, in UTF-8.
struct DrawingAudit {
    std::vector<std::string> faults; ///< what reading has told, then what objects lead to that is not there
    std::size_t objects = 0;         ///< that were looked at
};

/// Looks, and changes nothing.
DrawingAudit audit(AcDbDatabase& drawing);

/// Takes objects out that no longer can be read whole, so that the drawing can be saved without them: else their bytes
/// are kept as they stand. What every drawing needs stays. @return a line for each that went.
std::vector<std::string> removeDamaged(AcDbDatabase& drawing);

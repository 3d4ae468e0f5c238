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

/// What was done to a drawing so that it reads without a problem once it is saved: a line for each object.
struct DrawingRepair {
    std::vector<std::string> gone;   ///< that no longer could be read whole: else their bytes are kept as they stand
    std::vector<std::string> mended; ///< that others lead to: what can be read of them is kept
    std::vector<std::string> astray; ///< that stood in no section, where nothing reads them
};

/// What was made up for the file is written too by the next save, which else waits for a first change.
DrawingRepair repair(AcDbDatabase& drawing);

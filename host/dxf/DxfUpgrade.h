#pragma once

#include <string>

class DxfFile;

/// The version whose objects all have handles, owners and the markers of their classes.
inline constexpr int firstMarkedVersion = 1015;

/// The drawing of a file older than R2000, or without the markers of classes, as an R2000 text of the same kind (ASCII
/// or binary), line ends and code page.
///
/// Nothing is lost: every tag of the old text stands in the new one. Within an entity those common to all entities come
/// first and each class's own below its marker, otherwise in their old order. Added are handles, owners, subclass
/// markers, the block record table, layers drawn on but never defined, the layouts and the root dictionary.
/// $HANDSEED is replaced, and $ACADVER when it is older. Of a spoiled record in a binary file of one-byte codes only
/// the tags before the spoiled one can be carried over. `old` must have been opened with DxfUpgrade::none.
std::string upgradeToR2000(const DxfFile& old);

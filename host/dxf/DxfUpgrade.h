#pragma once

#include <string>

class DxfFile;

/// The drawing of a file older than R2000 as an R2000 text of the same kind (ASCII or binary), line ends and code page.
///
/// Nothing is lost: every tag of the old text stands in the new one. Within an entity those common to all entities come
/// first and each class's own below its marker, otherwise in their old order. Added are handles, owners, subclass
/// markers, the block record table, layers drawn on but never defined, the layouts and the root dictionary.
/// $ACADVER and $HANDSEED are replaced. Of a spoiled record in a binary file of one-byte codes only the tags before
/// the spoiled one can be carried over.
/// `old` must have been opened with DxfUpgrade::none.
std::string upgradeToR2000(const DxfFile& old);

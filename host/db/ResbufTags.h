#pragma once

#include <string_view>

#include "dxf/DxfTagWriter.h"
#include "rx/ResbufChain.h"

class AcDbDatabaseImpl;

/// Between tags of a drawing and result buffers. A point is three tags and one buffer; a reference is a handle in the
/// file and an entity name in a buffer (null where it leads nowhere).

/// A new chain of the tags in `bytes`; null for none. A tag that cannot be read is left out.
ResbufChain chainOfTags(const AcDbDatabaseImpl& database, std::string_view bytes);

/// Writes the items of a chain; false at the first whose type is no group code, or whose value cannot be written.
bool writeChain(const resbuf* chain, DxfTagWriter& out);

/// Whether a chain holds nothing but items of extended data, each of which a drawing can hold.
bool isExtendedData(const resbuf* chain);
/// The same for the data of an xrecord; the second one looks at the group codes only.
bool isXrecordData(const resbuf* chain);
bool hasXrecordCodes(const resbuf* chain);

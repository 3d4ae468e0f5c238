#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "dxf/DxfTag.h"

/// Which subclass markers (group 100) the records of an R12 drawing take in R2000, and which tags go below each.

/// One marker of an entity. A tag whose code is listed goes below it; those listed nowhere go below the one that
/// `takesRest`, in their old order.
struct R12Subclass {
    const char* marker;
    bool takesRest;
    std::vector<int> codes;
};

/// Markers below AcDbEntity, in their order; none for an entity that R12 does not document.
/// `flags` is its group 70; `polylineFlags` that of the POLYLINE a VERTEX belongs to.
const std::vector<R12Subclass>& r12Subclasses(std::string_view entity, std::int64_t flags, std::int64_t polylineFlags);

/// The tags of an entity without markers, sorted: first those below AcDbEntity, then those below each of `subclasses`,
/// last its extended data. Where `subclasses` is empty, all but the last stand below AcDbEntity.
std::vector<std::vector<DxfTag>> sortedBelowMarkers(const std::vector<DxfTag>& tags,
                                                    const std::vector<R12Subclass>& subclasses);

/// What the POLYLINE of a VERTEX says in its group 70, as far as the vertex's own tells.
std::int64_t polylineFlagsOf(std::int64_t vertexFlags);

/// Whether a tag of an entity goes below AcDbEntity: layer, linetype, colour, space, visibility, linetype scale.
bool isCommonEntityCode(int code);

/// Marker below AcDbSymbolTableRecord for an entry of a symbol table, or "" for a table of another name.
std::string_view symbolMarker(std::string_view table);

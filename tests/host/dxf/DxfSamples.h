#pragma once

#include "DxfTags.h"
#include "TestFolder.h"

/// Small drawings as tags.
namespace dxf_samples {

/// A drawing of R2000 with every section, an extension dictionary, an xrecord and a dimension style.
inline const std::string r2000 = contents(VELA_SOURCE_DIR "/tests/host/dxf/echantillons/r2000.tags");

/// A drawing of R12 without handles: blocks, attributes, the three kinds of polyline vertices, a dimension.
inline const std::string r12 = contents(VELA_SOURCE_DIR "/tests/host/dxf/echantillons/r12.tags");

/// HEADER with $ACADVER AC1015, then an ENTITIES section that holds `entities`, then EOF.
inline std::string withEntities(std::string_view entities)
{
    return "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" + std::string(entities) +
           "0 ENDSEC\n0 EOF\n";
}

} // namespace dxf_samples

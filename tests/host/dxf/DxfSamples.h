#pragma once

#include <string>
#include <string_view>

/// Small drawings for tests, written one tag a line ("70 1"; a code alone has an empty value).
namespace dxf_samples {

/// ASCII file: codes aligned to three, `eol` after each line.
std::string ascii(std::string_view tags, std::string_view eol = "\r\n");

/// Binary file of the same tags; one-byte codes as before R13 if wanted.
std::string binary(std::string_view tags, bool oneByteCodes = false);

/// A drawing of R2000 with every section, an extension dictionary, an xrecord and a dimension style.
extern const std::string_view r2000;

/// A drawing of R12 without handles: blocks, attributes, the three kinds of polyline vertices, a dimension.
extern const std::string_view r12;

/// HEADER with $ACADVER AC1015, then an ENTITIES section that holds `entities`, then EOF.
std::string withEntities(std::string_view entities);

} // namespace dxf_samples

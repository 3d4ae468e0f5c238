#pragma once

#include <span>
#include <string>
#include <vector>

#include "codification/codifPoint.h"

/// The XML form of a table of codes: no declaration, root "codifPoints", in it "TBdata", in it a "codifPoint" for each
/// code, whose fields are elements found by name. Texts are UTF-8.

/// As the XML library prints it, fields in a fixed order.
std::string xmlDeCodes(std::span<const codifPoint> codes);

/// Reads every code of the document, in its order. A field that is missing keeps its default, and so does an empty
/// number; an empty text was emptied by its user. Values are taken as they are, but for the line ends around those that
/// stand on lines of their own. A document whose bytes are not UTF-8 is taken for Windows-1252, as older editors save
/// it.
/// @return false, `codes` untouched, when this is no document of codes.
bool codesDeXml(const std::string& octets, std::vector<codifPoint>& codes);

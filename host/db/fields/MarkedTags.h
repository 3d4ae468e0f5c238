#pragma once

#include <string>
#include <string_view>

#include "dxf/DxfForm.h"

/// The tags of an entity of this type that bears no marker, with all its markers; empty for a type whose markers are
/// not known.
std::string withMarkers(const DxfForm& form, const std::string& type, std::string_view bytes);

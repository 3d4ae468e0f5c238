#pragma once

#include <optional>
#include <string_view>

#include "gi/EntityGraphics.h"

/// A lightweight polyline in bits, as DWG files have it and pictures of proxies keep it. Which of its few spellings it
/// has is not said: the one that uses the bytes up is read, and nothing where none does.
std::optional<PlanePolyline> planePolylineIn(std::string_view bytes);

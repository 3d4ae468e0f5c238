#pragma once

#include <optional>
#include <string_view>

#include "ed/input/InputSource.h"

/// Object snaps named in words: "_end", "MIL", "_cen,_mid".

/// The bit of OSMODE that switches all snaps off, the chosen ones kept.
constexpr int kNoSnap = 16384;

/// Sum of OSMODE bits; 0 when a word is not known. "_non" gives kNoSnap.
int snapModesOf(std::wstring_view words);

/// Whether such words are understood: where a point is asked for.
bool takesSnapWords(const InputRequest& request);

/// The point of the drawing that a point snaps to, within the aperture of the view. `from` is the point before it, for
/// perpendiculars; null for none.
std::optional<AcGePoint3d> snapPoint(const AcGePoint3d& point, int modes, const AcGePoint3d* from);
/// The point that a typed one snaps to: itself when nothing is near.
AcGePoint3d snapped(const AcGePoint3d& typed, const InputRequest& request);

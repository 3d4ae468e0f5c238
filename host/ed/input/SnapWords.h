#pragma once

#include <string_view>

#include "ed/input/InputSource.h"

/// Object snaps named in words: "_end", "MIL", "_cen,_mid".

/// Sum of OSMODE bits; 0 when a word is not known. "_non" gives kNoSnap.
int snapModesOf(std::wstring_view words);
constexpr int kNoSnap = 16384;

/// Whether such words are understood: where a point is asked for.
bool takesSnapWords(const InputRequest& request);

/// The point that a typed one snaps to, within the aperture of the view; the typed one when nothing is near.
AcGePoint3d snapped(const AcGePoint3d& typed, const InputRequest& request);

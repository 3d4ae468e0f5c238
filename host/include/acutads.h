#pragma once

#include <cstddef>

#include "acutmem.h"
#include "adscodes.h"
#include "adsdef.h"

/// Printing, plane geometry and texts of the host's C-style interface.

// ---- the command line

/// Prints to the command line. Formats as CString::Format does. @return RTNORM.
int acutPrintf(const ACHAR* format, ...);

// ---- plane geometry: points in drawing units, angles in radians counter-clockwise from +X

/// Angle of the line from `from` to `to` in the XY plane, in [0, 2π).
ads_real acutAngle(const ads_point from, const ads_point to);
/// Distance in space.
ads_real acutDistance(const ads_point from, const ads_point to);
/// The point at `distance` on `angle` from `point`, at its altitude. `result` may be `point`.
void acutPolar(const ads_point point, ads_real angle, ads_real distance, ads_point result);
/// Where two lines cross, seen in the XY plane; the altitude is that of the first line there.
/// With `onSegments` non-zero the point must lie on both segments. @return RTNORM, or RTERROR when they do not cross.
int acutInters(const ads_point from1, const ads_point to1, const ads_point from2, const ads_point to2, int onSegments,
               ads_point result);

// ---- texts

/// Writes a length. Units: 1 scientific, 2 decimal. `precision` is the number of decimals, 0 to 16.
/// @return RTNORM; RTERROR for other units or when `size` characters do not hold the text and its zero.
int acutRToS(ads_real value, int unit, int precision, ACHAR* text, std::size_t size);
/// Whether a text matches a pattern, letter case counting:
/// # a digit, @ a letter, . neither, * any run, ? any character, [..] one of (a-z a range), [~..] none of,
/// ~ first: anything but; ` the next character itself; a comma between alternatives.
/// @return RTNORM when it matches, else RTERROR.
int acutWcMatch(const ACHAR* text, const ACHAR* pattern);

#pragma once

#include <cstddef>

#include "acadstrc.h"
#include "adscodes.h"
#include "adsdef.h"

/// Result buffers, texts and blocks of bytes that the host and a module hand to each other. Whoever receives one
/// releases it; texts and blocks in a result-buffer chain go with the chain.

// ---- result buffers

/// One result buffer of a type (an RT... code or a group code), its value zero.
resbuf* acutNewRb(int type);
/// Releases a chain with its texts and blocks, which come from the functions below.
/// @return RTNORM; RTERROR for null.
int acutRelRb(resbuf* chain);
/// Builds a chain from types, each with its value, ended by 0 or RTNONE:
///     acutBuildList(RTLB, RTSTR, L"S1", RTREAL, 12.5, RTLE, 0)
/// Values: reals and angles `double`; 16-bit integers `int`; RTLONG and 32-bit group codes `long`;
/// RTINT64 and 64-bit group codes Adesk::Int64; texts `const ACHAR*` (copied; null is the empty text);
/// points an ads_point (RTPOINT takes two coordinates of it); entity names and selection sets an ads_name;
/// blocks of bytes `const ads_binary*` (copied). RTLB, RTLE, RTDOTE, RTNIL, RTT and RTVOID have no value.
/// RTDXF0 makes an item of group code 0. @return null when a type is not known.
resbuf* acutBuildList(int type, ...);

// ---- texts and blocks

/// A copy of `input`. `output` is overwritten: it must not hold a text of its own.
/// @return eOk; eInvalidInput for a null input, which leaves `output` as it was.
Acad::ErrorStatus acutNewString(const ACHAR* input, ACHAR*& output);
/// The same, releasing first what `output` holds; a null input makes it null. @return eOk.
Acad::ErrorStatus acutUpdString(const ACHAR* input, ACHAR*& output);
/// Room for `size` characters, zeroed. @return eOk.
Acad::ErrorStatus acutNewBuffer(ACHAR*& output, std::size_t size);
/// Room for `size` bytes, zeroed: for the blocks of bytes of result buffers. @return eOk.
Acad::ErrorStatus acutNewBuffer(char*& output, std::size_t size);

/// Releases a text or block, and makes the pointer null. Null is accepted.
void acutDelString(ACHAR*& text);
void acutDelBuffer(ACHAR*& buffer);
void acutDelBuffer(char*& buffer);

#pragma once

/// The interface's text is wide; a character is a whole code point (wchar_t is 32 bits on this platform).
using ACHAR = wchar_t;

#define ACRX_T(text) L##text

#pragma once

/// Wide-text names of the C runtime, and stream opening by Windows-style path.

#include <cstdio>
#include <cwchar>

#define _T(text) L##text
#define _TEXT(text) L##text

/// fopen on a Windows-style (or native absolute) path. A "t" in the mode is accepted and changes nothing: lines end
/// in LF. @return null, with errno set, when the file cannot be opened.
std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode);

#define _tfopen _wfopen

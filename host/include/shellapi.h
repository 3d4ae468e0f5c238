#pragma once

/// Whole folders copied, as the platform's file manager does.

#include "windows.h"

constexpr UINT FO_COPY = 0x0002;
constexpr WORD FOF_SILENT = 0x0004;
constexpr WORD FOF_NOCONFIRMATION = 0x0010;
constexpr WORD FOF_NOCONFIRMMKDIR = 0x0200;
constexpr WORD FOF_NOERRORUI = 0x0400;
constexpr WORD FOF_NO_UI = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_NOCONFIRMMKDIR;

struct SHFILEOPSTRUCTW {
    UINT wFunc;    ///< FO_COPY
    LPCWSTR pFrom; ///< full path, ended by two zeros: lists of several are not taken
    LPCWSTR pTo;   ///< full path, ended by two zeros
    WORD fFlags;   ///< nothing is asked or shown, whatever they say
    BOOL fAnyOperationsAborted;
};

/// Copies a file, or a folder with all that it holds: to `pTo`, made with the folders above it, or into it when it is a
/// folder already. Files of the same name there are replaced. Copied files can be written, whatever the originals.
/// @return 0, or an error code; what was copied before it then stays.
int SHFileOperationW(SHFILEOPSTRUCTW* operation);
#define SHFILEOPSTRUCT SHFILEOPSTRUCTW
#define SHFileOperation SHFileOperationW

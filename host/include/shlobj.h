#pragma once

/// The platform's folders.

#include "windows.h"

constexpr HRESULT S_OK = 0;
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);

constexpr int CSIDL_APPDATA = 0x001A;     // what programs keep for the user; here ~/.local/share/vela
constexpr int CSIDL_FLAG_CREATE = 0x8000; // makes it when it is not there
constexpr DWORD SHGFP_TYPE_CURRENT = 0;

/// Writes the path of a folder, without a backslash at its end, into `path` (MAX_PATH characters).
/// @return S_OK; E_INVALIDARG for any folder but that of application data; E_FAIL when it cannot be made, or its path
///         is too long.
HRESULT SHGetFolderPathW(void* owner, int folder, HANDLE token, DWORD flags, LPWSTR path);
#define SHGetFolderPath SHGetFolderPathW

#pragma once

/// The platform calls a survey module makes, under their published names.
///
/// Text is wide (wchar_t is 32 bits here: sizes in bytes count four a character). Paths are Windows-style, or native
/// absolute paths. The 8-bit code page (CP_ACP) is Windows-1252. Calls that fail set GetLastError().
/// Opening files by wide path: `_wfopen` in tchar.h, `_wopen` in io.h.

#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using INT_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using HRESULT = LONG;
using LSTATUS = LONG;

using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using HANDLE = void*;

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#define MAX_PATH 260

// Errors.

constexpr LSTATUS ERROR_SUCCESS = 0;
constexpr LSTATUS ERROR_FILE_NOT_FOUND = 2;
constexpr LSTATUS ERROR_PATH_NOT_FOUND = 3;
constexpr LSTATUS ERROR_ACCESS_DENIED = 5;
constexpr LSTATUS ERROR_INVALID_HANDLE = 6;
constexpr LSTATUS ERROR_INVALID_DATA = 13;
constexpr LSTATUS ERROR_WRITE_FAULT = 29;
constexpr LSTATUS ERROR_FILE_EXISTS = 80;
constexpr LSTATUS ERROR_INVALID_PARAMETER = 87;
constexpr LSTATUS ERROR_INSUFFICIENT_BUFFER = 122;
constexpr LSTATUS ERROR_MOD_NOT_FOUND = 126;
constexpr LSTATUS ERROR_PROC_NOT_FOUND = 127;
constexpr LSTATUS ERROR_MORE_DATA = 234;
constexpr LSTATUS ERROR_NO_UNICODE_TRANSLATION = 1113;

/// The reason of the last failure on this thread.
DWORD GetLastError();
void SetLastError(DWORD error);

// Registry: values kept in a file of the user's configuration folder.

struct HKEY__;
using HKEY = HKEY__*;
using REGSAM = DWORD;

#define HKEY_CURRENT_USER reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000001U))
#define HKEY_LOCAL_MACHINE reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000002U))

constexpr REGSAM KEY_SET_VALUE = 0x0002;
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;
constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
constexpr DWORD REG_CREATED_NEW_KEY = 1;
constexpr DWORD REG_OPENED_EXISTING_KEY = 2;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_DWORD = 4;

/// Opens an existing key below `key`; ERROR_FILE_NOT_FOUND when there is none. Close it with RegCloseKey.
LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, HKEY* opened);
/// Opens a key, creating it first when there is none.
LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR className, DWORD options, REGSAM access,
                        const void* securityAttributes, HKEY* opened, DWORD* disposition);
/// Reads a value. `size` is in bytes, the terminating zero of a text included: in, the room in `data`; out, what the
/// value takes. A null `data` asks for type and size only; too little room gives ERROR_MORE_DATA.
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);
/// Writes a REG_SZ or REG_DWORD value and saves the registry file at once.
LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);
LSTATUS RegCloseKey(HKEY key);

// Code pages.

constexpr UINT CP_ACP = 0; // Windows-1252
constexpr UINT CP_UTF8 = 65001;

/// Converts `sourceLength` characters (-1: up to and with the terminating zero).
/// A character that the page cannot hold becomes `defaultChar`, or '?', one for one; there are no look-alikes.
/// @return the number of bytes written, or needed when `targetSize` is 0; 0 on failure.
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR source, int sourceLength, LPSTR target, int targetSize,
                        LPCSTR defaultChar, BOOL* usedDefaultChar);
constexpr DWORD MB_ERR_INVALID_CHARS = 0x8;
/// With MB_ERR_INVALID_CHARS, bytes that are no UTF-8 fail (ERROR_NO_UNICODE_TRANSLATION).
/// @return the number of characters written, or needed when `targetSize` is 0; 0 on failure.
int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength, LPWSTR target, int targetSize);

// Files.

/// The user's own temporary folder, with a trailing backslash.
/// @return its length; the room needed, zero included, when `size` characters do not hold it; 0 on failure.
DWORD GetTempPathW(DWORD size, LPWSTR buffer);
/// Writes into `name` (MAX_PATH characters) the path of a file in `folder`: up to three characters of `prefix`,
/// a hexadecimal number, ".tmp". With `number` 0 the number is chosen and the file created empty.
/// @return the number, or 0 on failure.
UINT GetTempFileNameW(LPCWSTR folder, LPCWSTR prefix, UINT number, LPWSTR name);
BOOL DeleteFileW(LPCWSTR path);
BOOL CopyFileW(LPCWSTR existing, LPCWSTR copy, BOOL failIfExists);

constexpr DWORD MOVEFILE_REPLACE_EXISTING = 0x1;

/// Renames a file. One that has the new name already is replaced in one step with MOVEFILE_REPLACE_EXISTING, else the
/// call fails (ERROR_FILE_EXISTS). Both names must be on one disk.
BOOL MoveFileExW(LPCWSTR existing, LPCWSTR renamed, DWORD flags);

// Modules.

struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;
using FARPROC = INT_PTR (*)();

/// The module that the host loaded under this file name (any letter case, folder ignored); null when there is none.
/// A null name gives the program itself.
HMODULE GetModuleHandleW(LPCWSTR name);
/// The address of a symbol that the module exports, or null.
FARPROC GetProcAddress(HMODULE module, LPCSTR name);

// The names without suffix are the wide ones.
#define RegOpenKeyEx RegOpenKeyExW
#define RegCreateKeyEx RegCreateKeyExW
#define RegQueryValueEx RegQueryValueExW
#define RegSetValueEx RegSetValueExW
#define GetTempPath GetTempPathW
#define GetTempFileName GetTempFileNameW
#define DeleteFile DeleteFileW
#define CopyFile CopyFileW
#define MoveFileEx MoveFileExW
#define GetModuleHandle GetModuleHandleW

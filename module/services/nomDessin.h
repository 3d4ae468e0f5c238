#pragma once

#include <string>

/// Folder and name of the current drawing, without extension: DWGPREFIX as it stands, then DWGNAME cut at its first
/// full stop. Empty when the host does not tell one of them.
std::wstring nomDessin();

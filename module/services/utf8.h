#pragma once

#include <string>

#include "afx.h"

/// Texts of XML files.

std::string enUtf8(const CString& texte);
CString deUtf8(const char* octets);

/// Whether the bytes can be UTF-8.
bool estUtf8(const std::string& octets);

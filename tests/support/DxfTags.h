#pragma once

#include <string>
#include <string_view>

/// Drawings written by hand as tags, one a line: group code, one blank, value ("70 1"; a code alone has no value).

/// An ASCII file of the tags: codes aligned to three, `eol` after each line.
std::string asciiDxf(std::string_view tags, std::string_view eol = "\r\n");

/// A binary file of the same tags; one-byte codes as before R13 if wanted.
std::string binaryDxf(std::string_view tags, bool oneByteCodes = false);

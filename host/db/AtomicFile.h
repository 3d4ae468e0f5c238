#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Replaces a file by new content, whole or not at all: a temporary file of the same folder is written, synced, then
/// renamed over it. With `keepOld` the old file stays under the same name with the ending ".bak".
/// Throws std::filesystem::filesystem_error; the old file is then as it was, and no temporary file is left.
void writeAtomically(const std::filesystem::path& path, const std::vector<std::string_view>& pieces, bool keepOld);

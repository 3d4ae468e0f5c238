#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Replaces a file by new content, whole or not at all: a temporary file of the same folder is written, synced, then
/// renamed over it. With `keepOld` the old file stays under the same name with the ending ".bak".
/// Throws std::filesystem::filesystem_error; the old file is then as it was, and no temporary file is left. Those of
/// savings of the same file that were killed are removed.
void writeAtomically(const std::filesystem::path& path, const std::vector<std::string_view>& pieces, bool keepOld);

/// Keeps a file beside itself, as "plan.original.dxf", or "plan.original-2.dxf" where that is taken. Throws likewise.
void keepOriginal(const std::filesystem::path& path);

/// Whether a file is there and marked as not to be written to, whatever its user may do.
bool isReadOnly(const std::filesystem::path& path);
/// Why a file marked so is left as it is, behind its name.
inline constexpr wchar_t readOnlyNotReplaced[] = L" : le fichier est en lecture seule ; il n'est pas remplacé";

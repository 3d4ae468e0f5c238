#pragma once

#include <filesystem>
#include <string_view>

namespace platform {

/// The user's own folder for temporary files, "vela-<user number>" below $TMPDIR or /tmp. Nobody else may write in it:
/// names of temporary files can be guessed, and others must not put links in their way.
/// @throws std::system_error when no such folder can be made.
std::filesystem::path temporaryFolder();

/// The first three characters of `prefix`, `number` as four or more hexadecimal digits, ".tmp".
std::wstring temporaryName(std::wstring_view prefix, unsigned int number);

/// Creates an empty file of such a name that was not there.
/// @return its number, 1 to 65535.
/// @throws std::system_error when it cannot be created, also when every number is taken.
unsigned int createTemporaryFile(const std::filesystem::path& folder, std::wstring_view prefix);

} // namespace platform

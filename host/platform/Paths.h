#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Windows-style paths on the native disk.
///
/// "C:\a\b" names a\b in the folder "lecteurs/c" beside the registry file; "\a\b" is on drive C. Drive Z is the native
/// root, unless a folder "lecteurs/z" exists. Native absolute paths ("/a/b") are taken as they are. Both slashes
/// separate. On a drive ".." stops at the drive's root.
namespace platform {

/// The user's settings of the program: $XDG_CONFIG_HOME/vela, or ~/.config/vela.
std::filesystem::path configurationFolder();
/// What programs keep for the user: $XDG_DATA_HOME/vela, or ~/.local/share/vela; beside $VELA_REGISTRY when it is set.
std::filesystem::path dataFolder();
/// $VELA_REGISTRY, or registre.ini in the configuration folder.
std::filesystem::path registryFile();
/// The guide and the manuals: ../share/doc/vela from the program's folder.
std::filesystem::path documentationFolder();
/// Symbols, default codification...: $VELA_SUPPORT, or ../share/vela from the program's folder.
std::filesystem::path supportFolder();

/// The native path of a Windows-style, native absolute or relative path. Existing names are found whatever their
/// letter case (accents count): one that matches exactly first, else the first in byte order. From the first name that
/// does not exist on, names stay as written, so that a new file is called as its maker wished.
std::filesystem::path nativePath(std::wstring_view path);

/// A Windows-style path that nativePath takes back to `native` (made absolute first).
std::wstring windowsPath(const std::filesystem::path& native);

} // namespace platform

#pragma once

#include <string_view>

/// The modules that the host has loaded, under their file names ("KALT-ARX2015-64BITS.arx", any letter case).
namespace platform {

/// Called by the loader: `handle` is what dlopen gave. A module of the same name is replaced.
void moduleLoaded(std::wstring_view name, void* handle);
void moduleUnloaded(void* handle);
/// The folder in `name` does not count. @return the handle, or null.
void* loadedModule(std::wstring_view name);

} // namespace platform

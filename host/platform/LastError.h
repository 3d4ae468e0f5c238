#pragma once

#include <system_error>

#include "windows.h"

namespace platform {

/// The published error code nearest to an error of the native system.
DWORD windowsError(const std::error_code& error);

} // namespace platform

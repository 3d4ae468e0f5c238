#pragma once

#include <cstdint>

/// Where the stack of the running code ends, so that recursion can stop before it.
namespace platform {

/// Lowest address of the thread's own stack; 0 when it is not known.
std::uintptr_t threadStackFloor();

/// Lowest address of the stack in use: the thread's, or that of a fiber that runs on it.
std::uintptr_t stackFloor();

/// The code runs on a stack of its own from now on; 0 for the thread's. @return what was set before.
std::uintptr_t setFiberFloor(std::uintptr_t floor);

} // namespace platform

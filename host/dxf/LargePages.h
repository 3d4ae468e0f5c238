#pragma once

#include <cstddef>

/// Asks the system for large pages behind memory that is about to be filled: first touching many megabytes then costs
/// a page fault every two of them, not every four kilobytes. A wish only; where it is not granted nothing changes.
void preferLargePages(const void* memory, std::size_t bytes);

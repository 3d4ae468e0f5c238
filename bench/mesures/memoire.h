#pragma once

#include <cstddef>

/// Memory of the process that is its own and in use, in bytes: maps of files and reserved pages do not count.
std::size_t memoireOccupee();
/// The most that the process has held since oublierSommetMemoire(), pages of files included.
std::size_t sommetMemoire();
void oublierSommetMemoire();

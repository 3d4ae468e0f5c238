#pragma once

#include <cstddef>
#include <vector>

/// Inverts a full symmetric matrix of n rows in place. @return false when it is not positive definite
bool inverserSymetrique(std::vector<double>& matrice, std::size_t n);

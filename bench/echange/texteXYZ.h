#pragma once

#include <string>

/// A survey about Lambert coordinates, one point a line, as the module writes it.
std::string texteXYZ(int nombre);

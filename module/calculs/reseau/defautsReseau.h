#pragma once

#include <string>
#include <vector>

#include "calculs/reseau/espaceLibre.h"

/// Tells which points float and why. @throws erreurReseau when all of a plane or a levelling network floats
void nommerFlottements(const reseau& r, const systemeReseau& s, const espaceLibre& libre, const coordonneesReseau& c,
                       std::vector<std::wstring>& messages);

/// "A, B et C"; more than a dozen are counted.
std::wstring listeDeNoms(const reseau& r, const std::vector<int>& points);

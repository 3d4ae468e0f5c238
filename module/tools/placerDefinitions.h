#pragma once

#include <array>
#include <string>
#include <vector>

#include "dbid.h"

/// Definitions of the drawing that nothing in it uses. What only they use counts as unused with them.

/// Their kinds, in this order: blocks, layers, text styles, linetypes.
inline constexpr std::size_t nombreGenresDefinition = 4;

struct definitionsInutiles {
    std::vector<AcDbObjectId> ids;
    std::array<std::vector<std::wstring>, nombreGenresDefinition> noms;
};

/// @param voulus the kinds looked for; a definition that one of another kind uses is in use
definitionsInutiles chercherDefinitionsInutiles(const std::array<bool, nombreGenresDefinition>& voulus);

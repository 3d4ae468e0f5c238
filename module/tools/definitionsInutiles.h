#pragma once

#include <array>
#include <string>
#include <vector>

#include "dbid.h"

/// Definitions of the drawing that nothing in it uses. What only they use counts as unused with them.

enum genreDefinition : std::size_t { genreBlocs, genreCalques, genreStyles, genreTypesLigne, nombreGenresDefinition };

struct definitionsInutiles {
    std::vector<AcDbObjectId> ids;
    std::array<std::vector<std::wstring>, nombreGenresDefinition> noms;
};

/// @param voulus the kinds looked for; a definition that one of another kind uses is in use
definitionsInutiles chercherDefinitionsInutiles(const std::array<bool, nombreGenresDefinition>& voulus);

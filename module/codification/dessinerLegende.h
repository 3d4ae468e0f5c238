#pragma once

#include <span>

#include "codification/blocsDuDessin.h"
#include "codification/dispositionLegende.h"

#include "gepnt3d.h"

/// Draws the legend of these blocks in model space, its upper left corner at `place`; with the layers in use, and as
/// one block, when the parameters say so. @return how many lines it has.
int dessinerLegende(std::span<const blocDuDessin> blocs, const parametresLegende& parametres, const AcGePoint3d& place);

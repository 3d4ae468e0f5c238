#pragma once

#include <string>
#include <vector>

#include "exchange/ajoutPoints.h"
#include "exchange/pointsLus.h"

/// What the user reads after a point file came in: how many points, what became of them, which lines gave none and why.
std::vector<std::wstring> phrasesImport(std::wstring_view fichier, const pointsLus& lus, const bilanAjout& bilan);

#pragma once

#include "reports/htmlDocument.h"
#include "tools/transformationPlane.h"

/// The sentences that say what was found: kind, each coefficient with its standard deviation and unit,
/// precision of the pairs, the pair that fits worst.
std::vector<std::wstring> phrasesTransformation(std::span<const couplePoints> couples, typeTransformation type,
                                                const resultatTransformation& resultat);

htmlDocument rapportTransformation(std::span<const couplePoints> couples, typeTransformation type,
                                   const resultatTransformation& resultat);

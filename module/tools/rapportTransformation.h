#pragma once

#include "reports/htmlDocument.h"
#include "tools/transformationPlane.h"

/// The sentences that say what was found: kind, scale, rotation, shift, standard deviation, the pair that fits worst.
std::vector<std::wstring> phrasesTransformation(std::span<const couplePoints> couples, typeTransformation type,
                                                const resultatTransformation& resultat);

htmlDocument rapportTransformation(std::span<const couplePoints> couples, typeTransformation type,
                                   const resultatTransformation& resultat);

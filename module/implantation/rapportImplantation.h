#pragma once

#include "implantation/reglagesImplantation.h"
#include "implantation/resultatImplantation.h"
#include "reports/htmlDocument.h"

/// The report "Implantations": a block for each station, with its small plan and its points; then what has no station.
void rapporterImplantation(const resultatImplantation& resultat, const reglagesImplantation& reglages,
                           htmlDocument& document);

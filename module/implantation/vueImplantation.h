#pragma once

#include "implantation/travailImplantation.h"

/// Shows these points in the view with a preview of them, until the user goes on; "Redessiner" draws it again.
void localiserPoints(travailImplantation& travail, const travailImplantation::positions& choisis);

/// Shows a preview of all points until the user goes on.
void apercuDuTravail(travailImplantation& travail);

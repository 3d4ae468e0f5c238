#pragma once

#include "implantation/travailImplantation.h"

/// Asks at the command line which entities stand in the way of sights, in a loop: points or lines, with the height and
/// colour in force. What is done stays done when the loop is cancelled.
void gererObstacles(travailImplantation& travail);

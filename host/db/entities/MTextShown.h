#pragma once

#include "text/MTextLayout.h"

class AcDbMText;

/// The lines and runs that a multi-line text shows, in the look of its style.
MTextLayout layoutOf(const AcDbMText& text);

#pragma once

#include "codification/tableCodification.h"
#include "points/exportation.h"

/// The table of codes that commands and symbols share, built from "defcodif" when first asked for and alive until the
/// process ends. Codes that getCodif adds to it reach the file at the next save.
VELA_EXPORT tableCodification& codificationDuModule();

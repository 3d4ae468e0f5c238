#pragma once

/// The whole of the host's C-style interface.

#include "acedads.h"
#include "acutads.h"
#include "dbads.h"

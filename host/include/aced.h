#pragma once

/// The editor: commands, functions for AutoLISP, system variables.

#include "accmd.h"
#include "acedads.h"
#include "acutads.h"

#pragma once

/// The framework's collection templates.

#include "afxarray.h"
#include "afxmap.h"

#pragma once

#include <string>

#include "dbid.h"

/// The observation text on a point's symbol, in Windows-1252; empty without symbol or observation.
std::string observationDuSymbole(const AcDbObjectId& id);

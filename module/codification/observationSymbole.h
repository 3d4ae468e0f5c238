#pragma once

#include <string>

#include "dbid.h"

/// The observation that a symbol shows; empty without one.
std::wstring observationDe(const AcDbObjectId& symbole);
/// Changes it. @return false for a symbol on a locked layer, and for one without a place for an observation
bool ecrireObservation(const AcDbObjectId& symbole, const std::wstring& observation);

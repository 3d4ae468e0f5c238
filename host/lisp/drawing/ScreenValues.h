#pragma once

#include "lisp/eval/LispValue.h"

#include "adsdef.h"

/// What the interface's C-style functions give, as values.

/// A list of three reals.
LispValue pointValue(const ads_point point);
LispValue entityValue(const ads_name name);
/// A selection set that is released with the last value that holds it.
LispValue ownedSelection(const ads_name name);
/// Fills a point of the interface. @throws LispError for what is no point.
void setPoint(const LispValue& value, ads_point point);

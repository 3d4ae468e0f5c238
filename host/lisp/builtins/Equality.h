#pragma once

#include "lisp/eval/LispValue.h"

class LispContext;

/// Whether two values have the same shape and the same atoms; numbers may differ by `fuzz`.
bool lispEqual(LispContext& context, const LispValue& a, const LispValue& b, double fuzz = 0.0);

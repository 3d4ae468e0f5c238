#pragma once

#include <string>

#include "rx/ResbufChain.h"

struct LispFunction;

/// What a call gave: a value (RTNIL when the function set none, RTVOID for "no value"), or why it failed, in French.
struct LispResult {
    ResbufChain value;
    std::wstring failure; ///< empty when there is a value
};

/// Calls a function of the current document. `arguments` is a chain of values, lists between RTLB and RTLE; null for
/// none.
LispResult callLispFunction(const std::wstring& name, ResbufChain arguments);
LispResult callLispFunction(const LispFunction& function, ResbufChain arguments);

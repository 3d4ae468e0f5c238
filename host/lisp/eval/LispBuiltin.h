#pragma once

#include "lisp/eval/LispValue.h"

class LispContext;

/// A function of the language: its arguments come evaluated, and their number is checked.
struct LispBuiltin {
    static constexpr int any = -1;

    const wchar_t* name; ///< in capitals
    int least;
    int most; ///< `any` for no bound
    LispValue (*run)(LispContext& context, LispArguments arguments);
};

/// A form that evaluates its parts itself.
struct LispSpecialForm {
    const wchar_t* name; ///< in capitals
    /// `parts` is the list behind the name.
    LispValue (*run)(LispContext& context, const LispValue& parts);
};

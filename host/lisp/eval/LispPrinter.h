#pragma once

#include <string>

#include "lisp/eval/LispValue.h"

enum class LispPrinting {
    readable, ///< as prin1: texts between quotes
    plain     ///< as princ
};

/// A value as AutoLISP shows it. @throws LispError beyond 4 million characters: what is shared is printed each time.
std::wstring lispPrinted(const LispValue& value, LispPrinting how = LispPrinting::readable);

/// The same, cut with "…" after some `most` characters.
std::wstring lispShortened(const LispValue& value, std::size_t most);

#pragma once

#include "lisp/eval/LispValue.h"

/// The open file that an argument is; null when it is left out or nil. @throws LispError for anything else.
LispFile* openFileArgument(LispArguments arguments, std::size_t which);

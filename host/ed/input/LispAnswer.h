#pragma once

#include <optional>
#include <string>

#include "ed/input/InputSource.h"
#include "lisp/eval/LispValue.h"

/// The value of "(expression)" or "!symbol" as an answer: a text, a number written in full, a point, entities. Nothing
/// for nil, and when the evaluation failed, which is printed.
std::optional<InputAnswer> lispAnswer(const std::wstring& typed);

/// "!symbol" as an expression; other texts as they are.
std::wstring lispExpression(const std::wstring& typed);

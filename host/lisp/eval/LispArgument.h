#pragma once

#include "lisp/eval/LispValue.h"

#include "gepnt3d.h"

/// Arguments as what a function expects. All of them throw the LispError "argument de type incorrect" otherwise.
namespace lisp_argument {

/// A value that is not what the predicate, as "numberp:", asks for.
[[noreturn]] void refuse(const wchar_t* predicate, const LispValue& value);

double number(const LispValue& value);
std::int32_t integer(const LispValue& value);
const std::wstring& text(const LispValue& value);
LispSymbol& symbol(const LispValue& value);
/// nil or a pair.
const LispValue& list(const LispValue& value);
/// The items of a list that ends with nil.
std::vector<LispValue> items(const LispValue& value);
/// Two or three reals or integers; the altitude is 0 for two.
AcGePoint3d point(const LispValue& value);
bool isPoint2d(const LispValue& point);

} // namespace lisp_argument
